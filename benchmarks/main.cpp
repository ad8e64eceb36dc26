// All rows in one program, so that they can be run interleaved; see README.md.

#include "rows.h"

int main( int argc, char** argv )
{
    ZqBench::addFrustumRows();
    ZqBench::addConeRows();
    ZqBench::addShaftRows();
    ZqBench::addBoxRows();
    ZqBench::addIntersectionRows();
    ZqBench::addMatrixRows();
    ZqBench::addQuaternionRows();
    ZqBench::addColorRows();
    ZqBench::addTextRows();
    ZqBench::addViewRows();

    benchmark::Initialize( &argc, argv );
    if ( benchmark::ReportUnrecognizedArguments( argc, argv ) )
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return ZqBench::haveAllAgreed() ? 0 : 1;
}
