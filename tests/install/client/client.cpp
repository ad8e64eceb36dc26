// Uses each library once: code from the library, code inlined here, a report across the border, a package's identity.

#include "everything.h" // every public header

#include <cstdio>
#include <typeinfo>

namespace
{

int check( bool condition, const char* what )
{
    if ( !condition )
        std::fprintf( stderr, "client: %s\n", what );
    return condition ? 0 : 1;
}

} // namespace

int main()
{
    using namespace Zq;

    int failures = 0;
    const GeVector3<double> v( 3, 4, 12 );
    failures += check( v.length() == 13, "length of (3, 4, 12)" );

    bool reported = false;
    try
    {
        static_cast<void>( GeUnitVector3<float>( 0, 0, 0 ) );
    }
    catch ( const AssertionException& report )
    {
        reported = report.getExpression() == "len > 0";
    }
    failures += check( reported, "report of a unit vector without a length" );

    failures += check( InInit<ZqInit::base>::getType() == &typeid( InInit<ZqInit::base> ), "identity of base" );
    failures += check( InInit<ZqInit::resmgt>::getType() == &typeid( InInit<ZqInit::resmgt> ), "identity of resmgt" );
    failures += check(
        InInit<ZqInit::primitives>::getType() == &typeid( InInit<ZqInit::primitives> ), "identity of primitives" );

    InPackageRegistry::initialize();
    failures += check( DbgBuildInfoUtil::getNbInfos() == 1, "number of build records" );
    InPackageRegistry::shutdown();
    return failures;
}
