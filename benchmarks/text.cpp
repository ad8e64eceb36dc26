// A vector to a stream and back, in the default format.

#include "inputs.h"
#include "rows.h"

#include <zq/primitives/geVector3.h>

#include <memory>
#include <sstream>

#ifdef ZQ_BENCHMARK_PEERS
#    define GLM_ENABLE_EXPERIMENTAL
#    include <Eigen/Core>
#    include <Imath/ImathVec.h>
#    include <glm/glm.hpp>
#    include <glm/gtx/io.hpp>
#endif

namespace ZqBench
{

namespace
{

using Vector = Zq::GeVector3<float>;

std::vector<Vector> makeVectors( std::size_t count )
{
    Random random( 40 );
    std::vector<Vector> vectors;
    for ( std::size_t i = 0; i < count; ++i )
        vectors.push_back( random.vector( makeLength( random, 0.01F, 1000.0F ) ) );
    return vectors;
}

constexpr auto getVectors = getShared<Vector, makeVectors>;

/// Writes all items into one stream, from its beginning each time.
template <class MakeItems, class Write>
void addWriter( const std::string& contender, MakeItems makeItems, Write write )
{
    const auto makeRun = [=]
    {
        return [=, items = makeItems( SINGLE_COUNT ), stream = std::make_shared<std::ostringstream>()]
        {
            stream->seekp( 0 );
            for ( const auto& item : items )
                write( *stream, item );
            benchmark::ClobberMemory();
        };
    };
    addRow( { "textOut", contender, SINGLE_COUNT, Compare::NOTHING }, makeRun, [] { return std::vector<double>(); } );
}

/// Reads all items from one stream, from its beginning each time.
template <class Read>
void addReader( const std::string& contender, Read read )
{
    const auto makeText = []
    {
        std::ostringstream text;
        for ( const Vector& v : getVectors( SINGLE_COUNT ) )
            text << v << '\n';
        return text.str();
    };
    const auto makeRun = [=]
    {
        return [=, stream = std::make_shared<std::istringstream>( makeText() )]
        {
            stream->clear();
            stream->seekg( 0 );
            for ( std::size_t i = 0; i < SINGLE_COUNT; ++i )
                benchmark::DoNotOptimize( read( *stream ) );
        };
    };
    const auto describe = [=]
    {
        std::istringstream stream( makeText() );
        std::vector<double> sums;
        for ( std::size_t i = 0; i < SINGLE_COUNT; ++i )
            sums.push_back( ComponentSum<float, Vector>::of( read( stream ) ) );
        return sums;
    };
    addRow( { "textIn", contender }, makeRun, describe );
}

void addOwnRows()
{
    addWriter( "ours", getVectors, []( std::ostream& os, const Vector& v ) { os << v; } );
    addWriter( "plain", getVectors,
        []( std::ostream& os, const Vector& v )
        { os << '(' << v.getX() << ", " << v.getY() << ", " << v.getZ() << ')'; } );
    addReader( "ours",
        []( std::istream& is )
        {
            Vector v;
            is >> v;
            return v;
        } );
    addReader( "plain",
        []( std::istream& is )
        {
            char open = 0, first = 0, second = 0, close = 0;
            float x = 0, y = 0, z = 0;
            is >> open >> x >> first >> y >> second >> z >> close;
            return open == '(' && first == ',' && second == ',' && close == ')' ? Vector( x, y, z ) : Vector();
        } );
}

#ifdef ZQ_BENCHMARK_PEERS

void addPeerRows()
{
    addWriter( "imath", makeConverted( getVectors, convertTriple<Imath::V3f, Vector> ),
        []( std::ostream& os, const Imath::V3f& v ) { os << v; } );
    addWriter( "glm", makeConverted( getVectors, convertTriple<glm::vec3, Vector> ),
        []( std::ostream& os, const glm::vec3& v ) { os << v; } );
    addWriter( "eigen", makeConverted( getVectors, convertTriple<Eigen::Vector3f, Vector> ),
        [format = Eigen::IOFormat( Eigen::StreamPrecision, Eigen::DontAlignCols, ", ", ", ", "", "", "(", ")" )](
            std::ostream& os, const Eigen::Vector3f& v ) { os << v.format( format ); } );
}

#endif

} // namespace

void addTextRows()
{
    addOwnRows();
#ifdef ZQ_BENCHMARK_PEERS
    addPeerRows();
#endif
}

} // namespace ZqBench
