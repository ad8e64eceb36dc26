#include "support/prelude.h"

#include <zq/base/dbgBuildInfo.h>
#include <zq/base/inPackageInit.h>
#include <zq/base/trace.h>
#include <zq/primitives/geBezier3FaceBuilder.h>
#include <zq/primitives/geLineFaceBuilder.h>
#include <zq/primitives/unaryFunctor.h>

#include <functional>

// Virtual operations are called by their slot, from programs that were compiled long ago: the order is a contract.
// Read here out of pointers to members, as the Itanium ABI lays them out.
#if !defined( _WIN32 )
namespace
{

template <class... Members>
void expectSlots( std::size_t first, Members... members )
{
    const auto expectNext = [&]( auto member )
    {
        std::size_t offset = 0; // in bytes; some processors mark it with a one
        std::memcpy( &offset, &member, sizeof( offset ) );
        EXPECT_EQ( offset / sizeof( void* ), first++ );
    };
    ( expectNext( members ), ... );
}

ZQ_TWIN_SUITE( Slots );

ZQ_TWIN_TEST( Slots, OfServicesAndFaceBuilders )
{
    using Info = DbgBuildInfo; // the destructor comes last
    expectSlots( 0, &Info::getProjectName, &Info::getMajorVersion, &Info::getMinorVersion, &Info::getReleaseStage,
        &Info::getLibraryName, &Info::getBuildLabel, &Info::getBuildDate, &Info::getBuildConfiguration,
        &Info::getBuilder, &Info::getInformation );
    using Package = InPackageInit; // the destructor comes first and takes two
    void ( Package::*add )( InVariableBase* ) = &Package::addDependency;
    expectSlots( 2, add, &Package::removeDependency, &Package::getName, &Package::initialize, &Package::shutdown,
        &Package::setInitialized );
    expectSlots( 0, &TraceManager::getTrace, &TraceManager::output );
    using Line = GeLineFaceBuilder<T>;
    expectSlots( 2, &Line::beginFace, &Line::beginContour, &Line::addLine, &Line::endContour, &Line::endFace );
    using Bezier = GeBezier3FaceBuilder<T>;
    expectSlots( 2, &Bezier::beginFace, &Bezier::beginContour, &Bezier::addLine, &Bezier::addBezier3,
        &Bezier::endContour, &Bezier::endFace );
}

#    if defined( __GLIBCXX__ )
#        pragma GCC diagnostic push
#        pragma GCC diagnostic ignored "-Wdeprecated-declarations"
TEST( Slots, FunctorsHaveTheBaseOfTheStandardLibrary )
{
    using Functor = UnaryFunctor<GePoint3<float>, bool>;
    static_assert( std::is_base_of_v<std::unary_function<GePoint3<float>, bool>, Functor> );
    static_assert( std::is_same_v<Functor::argument_type, GePoint3<float>> );
    static_assert( sizeof( Functor ) == sizeof( void* ), "the base is empty" );
    expectSlots( 2, &Functor::operator() );
}
#        pragma GCC diagnostic pop
#    endif

} // namespace
#endif
