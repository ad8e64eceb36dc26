// Every check of the geometry classes, provoked: file, exact text and, where it is fixed, the line. docs/checks.md
// prints the same table.

#include "support/report.h"

#include <zq/primitives/geVector3.h>

#include <functional>
#include <vector>

using namespace Zq;

namespace
{

struct Check
{
    const char* file;
    int line; // 0: not fixed
    const char* text;
    std::function<void()> provoke;
};

const char UNIT_LENGTH[] = "FloatUtil::isEqual( length(), static_cast<T>(1.0) )";

// Vectors --------------------------------------------------------------------------------------------------------

template <class T>
void addVectorChecks( std::vector<Check>& checks )
{
    const char* file = "src/primitives/geVector3.inline";
    checks.push_back( { file, 496, "len > 0", [] { GeUnitVector3<T>( 0, 0, 0 ); } } );
    checks.push_back( { file, 496, "len > 0", [] { static_cast<void>( GeVector3<T>().computeUnit() ); } } );
    checks.push_back( { file, 525, UNIT_LENGTH, [] { GeUnitVector3<T>( 0, T( 1.001 ), 0, GE_TRUSTED ); } } );
}

// ----------------------------------------------------------------------------------------------------------------

TEST( CheckTable, EveryReportHasItsFileLineAndText )
{
    std::vector<Check> checks;
    addVectorChecks<float>( checks );
    addVectorChecks<double>( checks );

    for ( const Check& check : checks )
    {
        const ZqTest::Report report = ZqTest::catchReport( check.provoke );
        EXPECT_EQ( report.text, check.text ) << check.file;
        EXPECT_EQ( report.file, check.file ) << check.text;
        if ( check.line )
            EXPECT_EQ( report.line, check.line ) << check.text;
        else
            EXPECT_GT( report.line, 0 ) << check.text;
    }
}

} // namespace
