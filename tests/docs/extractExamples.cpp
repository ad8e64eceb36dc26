// Turns the examples of a Markdown page into a program that runs them.
//
//     extractExamples page.md program.cpp header.h ...
//
// An example is a cpp block that is followed by a text block: the program runs the one and compares what it prints
// with the other. A block with a main() is a whole program; any other stands in a function of its own, with the named
// headers included and namespace Zq in use.

#include <fstream>
#include <iostream>
#include <string>

int main( int argc, char** argv )
{
    if ( argc < 3 )
    {
        std::cerr << "usage: extractExamples page.md program.cpp [header.h ...]\n";
        return 2;
    }
    std::ifstream page( argv[1] );
    std::ofstream program( argv[2] );
    for ( int i = 3; i < argc; ++i )
        program << "#include <" << argv[i] << ">\n";
    program << R"(#include <cstring>
#include <iomanip>
#include <iostream>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

static int run( void ( *example )(), int line, const std::string& expected )
{
    std::ostringstream printed;
    std::ios format( nullptr );
    format.copyfmt( std::cout );
    std::streambuf* const before = std::cout.rdbuf( printed.rdbuf() );
    example();
    std::cout.rdbuf( before );
    std::cout.copyfmt( format );
    if ( printed.str() == expected )
        return 0;
    std::cerr << "line " << line << ": expected\n" << expected << "got\n" << printed.str();
    return 1;
}
)";

    const std::string mainHead = "int main()";
    std::string calls, code, row; // a cpp block waits for its text block, over empty lines only
    int nbExamples = 0, codeLine = 0;
    for ( int number = 1; std::getline( page, row ); ++number )
    {
        if ( row.rfind( "```", 0 ) != 0 )
        {
            code = row.empty() ? code : "";
            continue;
        }
        const std::string kind = row.substr( 3 );
        const int blockLine = number + 1;
        std::string block;
        for ( ++number; std::getline( page, row ) && row != "```"; ++number )
            block += row + "\n";
        if ( kind == "text" && !code.empty() )
        {
            const std::string name = "example" + std::to_string( nbExamples++ ), head = "static void " + name + "()";
            const std::string line = std::to_string( codeLine ), mark = "#line " + line + " \"" + argv[1] + "\"\n";
            const std::size_t place = code.find( mainHead );
            if ( place != std::string::npos )
                program << mark << code.replace( place, mainHead.size(), head );
            else
                program << head << "\n{\nusing namespace Zq;\n" << mark << code << "}\n";
            calls += "failures += run( " + name + ", " + line + ", R\"zq(" + block + ")zq\" );\n";
        }
        code = kind == "cpp" ? block : "";
        codeLine = blockLine;
    }
    program << "int main()\n{\nint failures = 0;\n"
            << calls << "std::cout << " << nbExamples << " << \" examples, \" << failures << \" failed\\n\";\n"
            << "return failures != 0;\n}\n";
    program.close();
    if ( nbExamples != 0 && program )
        return 0;
    std::cerr << argv[1] << ": no examples found, or " << argv[2] << " cannot be written\n";
    return 2;
}
