// Turns the examples of a Markdown page into a program that runs them.
//
//     extractExamples page.md program.cpp header.h ...
//
// An example is a cpp block that is followed by a text block: the program runs the one and compares what it prints
// with the other. A block with a main() is a whole program; any other stands in a function of its own, with the named
// headers included and namespace Zq in use.

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace
{

struct Example
{
    int line = 0;
    std::string code;
    std::string output;
};

std::vector<Example> readExamples( std::istream& page )
{
    std::vector<Example> examples;
    Example current;
    bool codeIsOpen = false; // a cpp block was read and waits for its text block
    std::string row;
    for ( int number = 1; std::getline( page, row ); ++number )
    {
        if ( row.rfind( "```", 0 ) != 0 )
        {
            codeIsOpen = codeIsOpen && row.empty();
            continue;
        }
        const std::string kind = row.substr( 3 );
        const int first = number + 1;
        std::string block;
        for ( ++number; std::getline( page, row ) && row != "```"; ++number )
            block += row + "\n";
        if ( kind == "cpp" )
            current = { first, block, "" };
        else if ( kind == "text" && codeIsOpen )
            examples.push_back( { current.line, current.code, block } );
        codeIsOpen = kind == "cpp";
    }
    return examples;
}

const std::string mainHead = "int main()";

bool isProgram( const Example& example )
{
    return example.code.find( mainHead ) != std::string::npos;
}

// only a main() may do without a return
std::string renameMain( std::string code, const std::string& name )
{
    return code.replace( code.find( mainHead ), mainHead.size(), "static void " + name + "Main()" );
}

} // namespace

int main( int argc, char** argv )
{
    if ( argc < 3 )
    {
        std::cerr << "usage: extractExamples page.md program.cpp [header.h ...]\n";
        return 2;
    }
    std::ifstream page( argv[1] );
    const std::vector<Example> examples = readExamples( page );
    if ( examples.empty() )
    {
        std::cerr << argv[1] << ": no examples found\n";
        return 2;
    }

    std::ostringstream program;
    for ( int i = 3; i < argc; ++i )
        program << "#include <" << argv[i] << ">\n";
    program << "#include <cstring>\n#include <iomanip>\n#include <iostream>\n#include <limits>\n#include "
               "<locale>\n#include "
               "<sstream>\n#include <string>\n\n";
    for ( std::size_t i = 0; i < examples.size(); ++i )
    {
        const std::string name = "example" + std::to_string( i );
        if ( isProgram( examples[i] ) )
            program << "#line " << examples[i].line << " \"" << argv[1] << "\"\n"
                    << renameMain( examples[i].code, name ) << "static int " << name << "()\n{\n"
                    << name << "Main();\nreturn 0;\n}\n";
        else
            program << "static int " << name << "()\n{\nusing namespace Zq;\n#line " << examples[i].line << " \""
                    << argv[1] << "\"\n"
                    << examples[i].code << "return 0;\n}\n";
    }
    program << R"(
static int run( int ( *example )(), int line, const std::string& expected )
{
    std::ostringstream printed;
    std::ios format( nullptr );
    format.copyfmt( std::cout );
    std::streambuf* const before = std::cout.rdbuf( printed.rdbuf() );
    const int status = example();
    std::cout.rdbuf( before );
    std::cout.copyfmt( format );
    if ( status == 0 && printed.str() == expected )
        return 0;
    std::cerr << "line " << line << ": expected\n" << expected << "got\n" << printed.str();
    return 1;
}

int main()
{
    int failures = 0;
)";
    for ( std::size_t i = 0; i < examples.size(); ++i )
        program << "    failures += run( example" << i << ", " << examples[i].line << ", R\"zq(" << examples[i].output
                << ")zq\" );\n";
    program << "    std::cout << " << examples.size() << " << \" examples, \" << failures << \" failed\\n\";\n"
            << "    return failures != 0;\n}\n";

    std::ofstream out( argv[2] );
    out << program.str();
    out.close();
    if ( !out )
    {
        std::cerr << argv[2] << ": cannot be written\n";
        return 2;
    }
    return 0;
}
