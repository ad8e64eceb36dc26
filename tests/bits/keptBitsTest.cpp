// What needs nothing of the C library but square roots and remainders has the same bits with every compiler. So a hash of
// many results is kept here, made with GCC 12 on x86-64. A change of a result that is meant changes the hash, too.

#include "support/bits.h"

#include <zq/color/coHsvColor.h>
#include <zq/color/coSpectrum.h>
#include <zq/primitives/geAffineMatrix3.h>
#include <zq/primitives/geFrustum.h>
#include <zq/primitives/gePlane3Builder.h>
#include <zq/primitives/geProjectiveMatrix3.h>
#include <zq/primitives/geQuaternion3.h>
#include <zq/primitives/geShaft.h>
#include <zq/primitives/geSphere3.h>

#include <cstdint>
#include <map>

namespace
{

using namespace ZqTest;

/// FNV-1a over the bytes of numbers; all NaN are one, since their bits are the processor's.
class Hash
{
public:
    template <class T, class Value>
    void add( const Value& value )
    {
        for ( T number : numbersOf<T>( value ) )
        {
            if ( std::isnan( number ) )
                number = ZqTest::nan<T>;
            unsigned char bytes[sizeof( T )];
            std::memcpy( bytes, &number, sizeof number );
            for ( const unsigned char byte : bytes )
                _value = ( _value ^ byte ) * 0x100000001B3U;
        }
    }
    std::uint64_t get() const { return _value; }

private:
    std::uint64_t _value = 0xCBF29CE484222325U;
};

template <class T>
std::map<std::string, Hash> hashResults()
{
    std::map<std::string, Hash> hashes;
    Random random( 1 );
    for ( const auto run : random.runs( 20000 ) )
    {
        const auto [v, w, p, q] = makeRecords<T, GeVector3<T>, GeVector3<T>, GePoint3<T>, GePoint3<T>>( random );
        const auto [l, k, a, m] =
            makeRecords<T, GeLinearMatrix3<T>, GeLinearMatrix3<T>, GeLinearMatrix3<T>, GeProjectiveMatrix3<T>>(
                random );
        const auto [box, other, rgb] = makeRecords<T, GeAlignedBox3<T>, GeAlignedBox3<T>, CoRgbColorT<T>>( random );
        const auto [x, y] = makeRecords<T, GeQuaternion3<T>, GeQuaternion3<T>>( random );
        const GeAffineMatrix3<T> affine( a, v );

        Hash& vectors = hashes["vectors"];
        GeVector3<T> unit = v;
        vectors.add<T>( unit.normalize() );
        vectors.add<T>( unit.cross( w ) + v * v.dot( w ) / w.length() );

        Hash& matrices = hashes["matrices"];
        matrices.add<T>( l * k );
        matrices.add<T>( affine * l * p );
        matrices.add<T>( m * m );
        GeLinearMatrix3<T> inverse3;
        GeAffineMatrix3<T> inverseAffine;
        GeProjectiveMatrix3<T> inverse4;
        T determinants[3] = {};
        l.computeInverseAndDeterminant( inverse3, determinants[0] );
        affine.computeInverseAndDeterminant( inverseAffine, determinants[1] );
        m.computeInverseAndDeterminant( inverse4, determinants[2] );
        matrices.add<T>( inverse3 );
        matrices.add<T>( inverseAffine );
        matrices.add<T>( inverse4 );
        matrices.add<T>( determinants );

        Hash& rotations = hashes["quaternions"];
        rotations.add<T>( x * y );
        rotations.add<T>( x * v );
        rotations.add<T>( GeQuaternion3<T>::bisect( x, y ) );

        Hash& boxes = hashes["boxes"];
        boxes.add<T>( box.intersectLine( p, v ) );
        boxes.add<T>( T( box.classify( other ) ) );
        boxes.add<T>( T( box.classifyExclude( other ) ) );
        boxes.add<T>( T( box.contains( q ) ) );

        Hash& surfaces = hashes["planes and spheres"];
        T t[3] = {};
        GePlane3<T>( w, p.getX() ).intersectRay( p, v, t[0] );
        GeSphere3<T>( q, w.getX() ).intersectRay( p, v, t[1], t[2] );
        surfaces.add<T>( t );
        GePoint3<T> closest;
        GeSphere3<T>( q, w.getX() ).getClosestPoint( p, v, closest );
        surfaces.add<T>( closest );

        // a volume with six planes, whatever the random matrix
        Hash& frusta = hashes["frusta"];
        const T rows[4][4] = { { T( 1.5 ), 0, 0, random.uniform( T( -1 ), T( 1 ) ) },
            { random.uniform( T( -1 ), T( 1 ) ), T( 2 ), 0, 0 }, { 0, 0, T( -1.25 ), T( -2.25 ) },
            { 0, 0, T( -1 ), random.uniform( T( 0 ), T( 1 ) ) } };
        const GeFrustum<T> frustum( GeProjectiveMatrix3<T>( rows, false ) );
        frusta.add<T>( frustum );
        frusta.add<T>( T( frustum.classify( box ) ) );
        frusta.add<T>( T( frustum.classify( p ) ) );

        Hash& colors = hashes["colors"];
        const auto hsv = CoHsvColorT<T>::convertFromRgb( rgb );
        colors.add<T>( hsv );
        colors.add<T>( CoHsvColorT<T>( v.getX() * 1000, hsv.getSaturation(), 1 ).convertToRgb() );
        colors.add<T>( CoSpectrumT<T>( 1, 2, 3 ).computeScaledTo( rgb.getRed() ) / rgb.getBlue() );

        if constexpr ( std::is_same_v<T, float> )
        {
            Hash& shafts = hashes["shafts"];
            const GeShaft shaft( box, other );
            shafts.add<float>( shaft.getExtentBox() );
            unsigned short nbPlanes = 0;
            const GePlane3<float>* const planes = shaft.getPlaneSet( nbPlanes );
            for ( int plane = 0; plane < nbPlanes; ++plane )
                shafts.add<float>( planes[plane] );
            shafts.add<float>( float( shaft.overlaps( GeAlignedBox3<float>( p, q ) ) ) );
        }
    }
    return hashes;
}

template <class T>
void expectHashes( const std::map<std::string, std::uint64_t>& kept )
{
    const auto hashes = hashResults<T>();
    EXPECT_EQ( hashes.size(), kept.size() );
    for ( const auto& [name, hash] : hashes )
        EXPECT_EQ( hash.get(), kept.count( name ) ? kept.at( name ) : 0 ) << name;
}

TEST( KeptBits, Float )
{
    expectHashes<float>( {
        { "boxes", 0xA056EF9726BD9E0DU },
        { "colors", 0x8C1982E9F2EF861FU },
        { "frusta", 0x25EEC568CDD7D3DBU },
        { "matrices", 0x5C17DF38D1B3964DU },
        { "planes and spheres", 0x67C174B8DDE7A768U },
        { "quaternions", 0x15BBCE94B1C6AC14U },
        { "shafts", 0xB742A9363D7EA58DU },
        { "vectors", 0x08B73E90C69E4020U },
    } );
}

TEST( KeptBits, Double )
{
    expectHashes<double>( {
        { "boxes", 0x16FF4D8A880FD857U },
        { "colors", 0x952BB6473934904DU },
        { "frusta", 0x07C8FD58632F7D30U },
        { "matrices", 0x4315A919D478D526U },
        { "planes and spheres", 0xBC1A502594FB8300U },
        { "quaternions", 0x79D92AFDEE19822FU },
        { "vectors", 0xA3FCDE8EFB2F07EDU },
    } );
}

} // namespace
