// Boxes, planes, spheres, frusta, shafts, cones.

#include "results.h"

#include <zq/primitives/geAlignedBoxBuilder.h>
#include <zq/primitives/geAnchoredConeBuilder.h>
#include <zq/primitives/geCullingCones.h>
#include <zq/primitives/geFloatingConeBuilder.h>
#include <zq/primitives/geIcosahedron.h>
#include <zq/primitives/gePlane3Builder.h>

namespace ZqBits
{

namespace
{

using Verdicts = std::vector<unsigned char>;

std::size_t drawCount( Inputs& in )
{
    return static_cast<std::size_t>( in.index( in.oneIn( 16 ) ? 100 : 20 ) );
}

/// Feeds what it is given to the results; refuses at the third corner on request.
template <class T>
struct Collector : public UnaryFunctor<GePoint3<T>, bool>
{
    bool operator()( const GePoint3<T>& point ) override
    {
        points.push_back( point );
        return points.size() != limit;
    }
    std::vector<GePoint3<T>> points;
    std::size_t limit = 0;
};

template <class T>
void box( Inputs& in, Results& out )
{
    using Box = GeAlignedBox3<T>;
    const auto a = in.make<Box>(), b = in.make<Box>();
    const auto p = in.make<GePoint3<T>>(), q = in.make<GePoint3<T>>();
    const auto v = in.make<GeVector3<T>>();
    const T tolerance = in.number<T>();
    out( a == b, a != b, a.isEqualExact( b ), a.isEqual( b, tolerance ), Box(), Box( p ), Box( p, q ),
        a.getInterval( 1 ), a.getCenter(), a.getSize(), a.getVolume(), a.getNearCorner( v ), a.getFarCorner( v ),
        a.isEmpty(), a.contains( p ), a.containsExclude( p ), a.contains( b ), a.containsExclude( b ),
        a.contains( a ) );
    for ( int i = 0; i < 8; ++i )
        out( a.getCorner( i ), a.containsExclude( a.getCorner( i ) ) );
    out.call( [&] { return a.classify( b ); } );
    out.call( [&] { return a.classifyExclude( b ); } );
    out.change( a, [&]( Box& grown ) { return grown.extend( p ); } );
    out.change( a, [&]( Box& grown ) { return grown.extend( b ); } );
    out.change( a, [&]( Box& grown ) { grown.setInterval( 2, b.getInterval( 0 ) ); } );
    out.call( [&] { return a.intersectLine( p, v ); } );
    out.call( [&] { return a.intersectLine( p, a.getCorner( 3 ) - p ); } );
    GeVector3<T> least = v, most = v;
    a.computeMinMaxDistanceVectors( p, least, most );
    out( least, most );
    Collector<T> corners;
    corners.limit = static_cast<std::size_t>( in.index( 9 ) );
    a.enumerateCorners( corners );
    out( corners.points );
}

template <class T>
void boxArrays( Inputs& in, Results& out )
{
    using Box = GeAlignedBox3<T>;
    const std::size_t count = drawCount( in );
    const auto a = in.make<Box>();
    const auto boxes = in.makeArray<Box>( count );
    const auto points = in.makeArray<GePoint3<T>>( count );
    const auto origin = in.make<GePoint3<T>>();
    const auto direction = in.make<GeVector3<T>>();
    Verdicts verdicts( count );
    std::vector<Interval<T>> ranges( count );
    a.classify( boxes.data(), count, verdicts.data() );
    out( verdicts );
    a.classifyExclude( boxes.data(), count, verdicts.data() );
    out( verdicts );
    Box::intersectLine( boxes.data(), count, origin, direction, ranges.data() );
    out( ranges );
    out.change( a, [&]( Box& grown ) { return grown.extend( points.data(), count ); } );
    out.change( Box(), [&]( Box& grown ) { return grown.extend( points.data(), count ); } );
}

void boxBuilder( Inputs& in, Results& out )
{
    GeAlignedBoxBuilder builder;
    for ( const auto& point : in.makeArray<GePoint3<float>>( static_cast<std::size_t>( in.index( 5 ) ) ) )
    {
        out( builder( point ) );
        out( builder.getBox() );
    }
    in.make<GeAlignedBox3<float>>().enumerateCorners( builder );
    out( builder.getBox() );
    builder.reset();
    out( builder.getBox() );
}

template <class Plane, class T>
void planeQueries( Inputs& in, Results& out, const Plane& a )
{
    const auto b = in.make<Plane>();
    const auto p = in.make<GePoint3<T>>();
    const auto v = in.make<GeVector3<T>>();
    T t = in.number<T>();
    out( a == b, a != b, a.isEqualExact( b ), a.isEqual( b, t ), a.getNormal(), a.getOffset(), a.computeValue( p ) );
    out.call( [&] { return a.intersectRay( p, v, t ); } );
    out( t );
}

template <class T>
void planes( Inputs& in, Results& out )
{
    const auto plane = in.make<GePlane3<T>>();
    const auto normalized = in.make<GeNormalizedPlane3<T>>();
    planeQueries<GePlane3<T>, T>( in, out, plane );
    planeQueries<GeNormalizedPlane3<T>, T>( in, out, normalized );
    out.call( [&] { return GeNormalizedPlane3<T>( plane ); } );
    out.call( [&] { return GeNormalizedPlane3<T>( plane.getNormal(), plane.getOffset() ); } );
    out.change( normalized, []( auto& flipped ) { flipped.flip(); } );
}

template <class T>
void planeBuilder( Inputs& in, Results& out )
{
    GePlane3Builder<T> builder;
    const auto a = in.make<GeVector3<T>>(), b = in.make<GeVector3<T>>();
    const bool isPlanar = in.oneIn( 2 );
    for ( int i = in.index( 7 ); i >= 0; --i )
    {
        const T s = in.number<T>(), t = in.number<T>();
        const auto point = in.make<GePoint3<T>>();
        builder.addPoint( isPlanar ? GePoint3<T>() + a * s + b * t : point );
    }
    out.call( [&] { return builder.getPlane(); } );
    out.call( [&] { return builder.getPlane(); } );
}

template <class T>
void sphere( Inputs& in, Results& out )
{
    const auto a = in.make<GeSphere3<T>>(), b = in.make<GeSphere3<T>>();
    const auto origin = in.make<GePoint3<T>>();
    const auto unit = in.make<GeUnitVector3<T>>();
    const auto any = in.make<GeVector3<T>>();
    const T tolerance = in.number<T>();
    out( a == b, a != b, a.isEqualExact( b ), a.isEqual( b, tolerance, tolerance ) );
    GeVector3<T> toSphere = a.getCenter() - origin + any * T( 0.25F );
    toSphere.normalize();
    for ( const GeVector3<T>& direction : { any, GeVector3<T>( unit ), toSphere } )
    {
        T t0 = T( 7 ), t1 = T( 8 );
        GePoint3<T> closest;
        out.call( [&] { return a.intersectRay( origin, direction, t0, t1 ); } );
        out.call( [&] { return a.getClosestPoint( origin, direction, closest ); } );
        out( t0, t1, closest );
    }
}

/// A camera, seldom any matrix; the perspective is made here, without the tangent of its angle.
template <class T>
GeProjectiveMatrix3<T> makeProjection( Inputs& in )
{
    auto m = in.make<GeProjectiveMatrix3<T>>();
    auto view = in.make<GeAffineMatrix3<T>>();
    const auto direction = in.make<GeUnitVector3<T>>();
    const T scale = T( 2 ) + in.uniform( T( 1.5F ) ), aspect = T( 2 ) + in.uniform( T( 1.5F ) );
    const T near = T( 1.01F ) + in.uniform( T( 1 ) ), depth = T( 101 ) + in.uniform( T( 100 ) );
    if ( in.oneIn( 16 ) )
        return m;
    const bool isParallel = in.oneIn( 4 );
    m.setIdentity();
    m( 0, 0 ) = scale / aspect;
    m( 1, 1 ) = scale;
    m( 2, 2 ) = isParallel ? T( -2 ) / depth : -( near + near + depth ) / depth;
    m( 2, 3 ) = isParallel ? -( near + near + depth ) / depth : T( -2 ) * near * ( near + depth ) / depth;
    m( 3, 2 ) = isParallel ? T( 0 ) : T( -1 );
    m( 3, 3 ) = isParallel ? T( 1 ) : T( 0 );
    if ( !in.oneIn( 8 ) )
        view = GeAffineMatrix3<T>( GeRotation3<T>::aim( direction, 2, true ).getMatrix(), view.getTranslation() );
    return m * view;
}

template <class T>
void frustum( Inputs& in, Results& out )
{
    const auto projection = makeProjection<T>( in ), other = makeProjection<T>( in );
    const std::size_t count = drawCount( in );
    const auto boxes = in.makeArray<GeAlignedBox3<T>>( count );
    const auto points = in.makeArray<GePoint3<T>>( count );
    const int plane = in.index( 9 ) - 1;
    const T tolerance = in.number<T>();
    out.call( [&] { return GeFrustum<T>( projection ); } );
    out.call(
        [&]
        {
            const GeFrustum<T> f( projection ), g( other );
            out( f == g, f != g, isEqual( f, g, tolerance ), f.isEqual( f, tolerance ), f.isEqualExact( f ) );
            for ( std::size_t i = 0; i < count; ++i )
                out( f.classify( points[i] ), f.classify( boxes[i] ) );
            Verdicts verdicts( count );
            f.classify( points.data(), count, verdicts.data() );
            out( verdicts );
            f.classify( boxes.data(), count, verdicts.data() );
            out( verdicts );
            std::vector<std::uint32_t> indices( count );
            indices.resize( f.findNotOutside( boxes.data(), count, indices.data() ) );
            out( indices );
            return f.getPlane( plane );
        } );
}

void shaft( Inputs& in, Results& out )
{
    using Box = GeAlignedBox3<float>;
    const auto a = in.make<Box>(), b = in.make<Box>(), c = in.make<Box>();
    const std::size_t count = drawCount( in );
    const auto boxes = in.makeArray<Box>( count );
    const auto points = in.makeArray<GePoint3<float>>( count );
    const float tolerance = in.number<float>();
    out( GeShaft() );
    out.call(
        [&]
        {
            const GeShaft s( a, b ), other( a, c );
            out( s, s == other, s != other, isEqual( s, other, tolerance ), s.isEqualExact( s ) );
            out.change( s, [&]( GeShaft& changed ) { changed.initialize( c, b ); } );
            for ( std::size_t i = 0; i < count; ++i )
                out( s.contains( points[i] ), s.containsExclude( points[i] ), s.overlaps( boxes[i] ),
                    s.overlapsExclude( boxes[i] ) );
            const auto between = a.getCenter() + ( b.getCenter() - a.getCenter() ) * 0.5F;
            out( s.contains( between ), s.overlaps( Box( between, a.getCorner( 1 ) ) ), s.overlaps( a ) );
            Verdicts verdicts( count );
            s.overlaps( boxes.data(), count, verdicts.data() );
            out( verdicts );
            s.overlapsExclude( boxes.data(), count, verdicts.data() );
            out( verdicts );
        } );
}

GeFloatingCone makeCone( Inputs& in )
{
    const auto axis = in.make<GeUnitVector3<float>>();
    const float angle = in.oneIn( 2 ) ? 1.6F + in.uniform( 1.6F ) : in.number<float>();
    return { axis, angle };
}

void floatingConesLibm( Inputs& in, Results& out )
{
    const GeFloatingCone a = makeCone( in ), b = makeCone( in );
    const float tolerance = in.number<float>();
    out( a, a == b, a != b, a.isEqualExact( b ), a.isEqual( b, tolerance, tolerance ), a.isSphere() );
    out( a.contains( in.make<GeUnitVector3<float>>() ), a.contains( b.getAxis() ), a.contains( a.getAxis() ) );
    out.change( a, [&]( auto& cone ) { cone.expand( b ); } );
    GeFloatingConeBuilder builder;
    for ( const auto& direction : in.makeArray<GeUnitVector3<float>>( static_cast<std::size_t>( in.index( 6 ) ) ) )
        builder( in.oneIn( 2 ) ? direction : a.getAxis() );
    out.call( [&] { return builder.createCone(); } );
    out.call( [&] { return builder.createCone(); } );
}

void anchoredConesLibm( Inputs& in, Results& out )
{
    const GeFloatingCone cone = makeCone( in );
    const auto center = in.make<GePoint3<float>>();
    const float radius = in.number<float>(), height = in.number<float>();
    const auto add = [&]( const GeAnchoredCone& a )
    {
        out( a.getFloatingCone(), a.getBottomCenter(), a.getBottomRadius(), a.getHeight(), a.getTangent(),
            a.getTopRadius(), a.getApexDistance(), a.getApex(), a.getBackfacingDistance(), a.getBackfacingApex(),
            a.getFrontfacingDistance(), a.getFrontfacingApex(), a.isEqual( a, radius, height ) );
    };
    const GeAnchoredCone anchored( cone, center, radius, height );
    add( anchored );
    GeAnchoredConeBuilder builder;
    for ( const auto& point : in.makeArray<GePoint3<float>>( static_cast<std::size_t>( in.index( 6 ) ) ) )
        out( builder( point ) );
    out.call(
        [&]
        {
            const GeAnchoredCone fitted = builder.createCone( cone );
            add( fitted );
            out( fitted == anchored, fitted != anchored, fitted.isEqualExact( anchored ) );
        } );
    builder.reset();
    out.call( [&] { return builder.createCone( cone ); } );
}

void cullingConesLibm( Inputs& in, Results& out )
{
    const std::size_t count = drawCount( in );
    const auto eye = in.make<GePoint3<float>>();
    const float tolerance = in.number<float>();
    std::vector<GeCullingCones> cones( 1 );
    while ( cones.size() < count + 1 )
    {
        const GeFloatingCone cone = makeCone( in );
        const auto apex = in.make<GePoint3<float>>();
        const float offset = in.number<float>(), height = in.number<float>();
        cones.push_back( in.oneIn( 2 ) ? GeCullingCones( cone, apex, offset )
                                       : GeCullingCones( GeAnchoredCone( cone, apex, offset, height ) ) );
    }
    for ( const GeCullingCones& c : cones )
        out( c.getFloatingCone(), c.getBackfacingApex(), c.getFrontfacingOffset(), c.getCosBeta(),
            c.getCullingSemiAngle(), c.isInFront( eye ), c.isBehind( eye ), c == cones[0], c != cones[0],
            c.isEqualExact( c ), c.isEqual( cones[0], tolerance, tolerance ) );
    Verdicts verdicts( cones.size() );
    GeCullingCones::isInFront( cones.data(), cones.size(), eye, verdicts.data() );
    out( verdicts );
    GeCullingCones::isBehind( cones.data(), cones.size(), eye, verdicts.data() );
    out( verdicts );
}

struct Sampler : public UnaryFunctor<GeVector3<float>, void>, public RnRng<float>
{
    explicit Sampler( Inputs& given ) : in( given ) {}
    void operator()( const GeVector3<float>& sample ) override { samples.push_back( sample ); }
    float operator()() override { return 0.5F + in.uniform( 0.5F ); }
    Inputs& in;
    std::vector<GeVector3<float>> samples;
};

void icosahedron( Inputs& in, Results& out )
{
    const int i = in.index( 34 ) - 1;
    GeVector3<float> a, b, c;
    out( GeIcosahedron::getNbVertices(), GeIcosahedron::getNbEdges(), GeIcosahedron::getNbFaces() );
    out.call( [&] { GeIcosahedron::getVertex( i, a ); } );
    out.call( [&] { GeIcosahedron::getEdge( i, b, c ); } );
    out.call( [&] { GeIcosahedron::getFace( i, a, b, c ); } );
    out( a, b, c );
    const auto count = static_cast<unsigned int>( in.index( in.oneIn( 256 ) ? 2000 : 90 ) );
    Sampler sampler( in );
    out( GeIcosahedron::getStratifiedSamples( count, sampler, sampler ) );
    out( sampler.samples );
}

} // namespace

std::vector<Group> getQueryGroups()
{
    return {
        { "box.float", box<float> },
        { "box.double", box<double> },
        { "boxArrays.float", boxArrays<float> },
        { "boxArrays.double", boxArrays<double> },
        { "boxBuilder", boxBuilder },
        { "planes.float", planes<float> },
        { "planes.double", planes<double> },
        { "planeBuilder.float", planeBuilder<float> },
        { "planeBuilder.double", planeBuilder<double> },
        { "sphere.float", sphere<float> },
        { "sphere.double", sphere<double> },
        { "frustum.float", frustum<float> },
        { "frustum.double", frustum<double> },
        { "shaft", shaft },
        { "floatingCones.libm", floatingConesLibm },
        { "anchoredCones.libm", anchoredConesLibm },
        { "cullingCones.libm", cullingConesLibm },
        { "icosahedron", icosahedron },
    };
}

} // namespace ZqBits
