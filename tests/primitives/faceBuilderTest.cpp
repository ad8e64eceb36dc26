#include "support/scalars.h"

#include <zq/primitives/geBezier3FaceBuilder.h>
#include <zq/primitives/geLineFaceBuilder.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

using namespace Zq;

namespace
{

#if defined( __x86_64__ ) && !defined( _WIN32 )
ZQ_TWIN_SUITE( FaceBuilder );

// The slots are a contract: the destructor takes the first two, then one slot per operation in the stated order.
TYPED_TEST( FaceBuilder, SlotsComeInTheStatedOrder )
{
    using T = TypeParam;
    const auto slotOf = []( auto member )
    {
        std::ptrdiff_t words[2] = {}; // a pointer to a virtual member holds 1 + its offset in the table
        static_assert( sizeof( words ) == sizeof( member ) );
        std::memcpy( words, &member, sizeof( words ) );
        return static_cast<int>( ( words[0] - 1 ) / static_cast<std::ptrdiff_t>( sizeof( void* ) ) );
    };
    using L = GeLineFaceBuilder<T>;
    static_assert( std::is_abstract_v<L> && std::has_virtual_destructor_v<L> && sizeof( L ) == sizeof( void* ) );
    EXPECT_EQ( slotOf( &L::beginFace ), 2 );
    EXPECT_EQ( slotOf( &L::beginContour ), 3 );
    EXPECT_EQ( slotOf( &L::addLine ), 4 );
    EXPECT_EQ( slotOf( &L::endContour ), 5 );
    EXPECT_EQ( slotOf( &L::endFace ), 6 );
    using B = GeBezier3FaceBuilder<T>;
    static_assert( std::is_abstract_v<B> && std::has_virtual_destructor_v<B> && sizeof( B ) == sizeof( void* ) );
    EXPECT_EQ( slotOf( &B::beginFace ), 2 );
    EXPECT_EQ( slotOf( &B::beginContour ), 3 );
    EXPECT_EQ( slotOf( &B::addLine ), 4 );
    EXPECT_EQ( slotOf( &B::addBezier3 ), 5 );
    EXPECT_EQ( slotOf( &B::endContour ), 6 );
    EXPECT_EQ( slotOf( &B::endFace ), 7 );
}
#endif

} // namespace
