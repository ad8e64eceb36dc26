"""Turns the examples of a Markdown page into a program that runs them.

    extractExamples.py page.md program.cpp header.h ...

An example is a cpp block that is followed by a text block: the program runs the one and compares what it prints with the
other. A block with a main() is a whole program; any other stands in a function of its own, with the named headers
included and namespace Zq in use.
"""

import re
import sys

PROLOGUE = r"""
#include <cstring>
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
"""

page, program, *headers = sys.argv[1:]
text = open(page).read()
functions = calls = ""
block = r"```%s\n((?:(?!```).*\n)*)```\n"
examples = list(re.finditer("^" + block % "cpp" + r"\n*" + block % "text", text, re.M))
for example in examples:
    code, expected = example.groups()
    line = text.count("\n", 0, example.start(1)) + 1
    head, mark = f"static void example{line}()", f'#line {line} "{page}"\n'
    isWhole = "int main()" in code
    functions += mark + code.replace("int main()", head) if isWhole else f"{head} {{ using namespace Zq;\n{mark}{code}}}\n"
    calls += f'failures += run( example{line}, {line}, R"zq({expected})zq" );\n'
if not examples:
    sys.exit(f"{page}: no examples found")
with open(program, "w") as file:
    file.writelines(f"#include <{header}>\n" for header in headers)
    file.write(PROLOGUE + functions + "int main() { int failures = 0;\n" + calls + "return failures != 0; }\n")
