#include "flight.h"

#include <algorithm>
#include <chrono>

namespace ManyObjects
{

namespace
{

template <class Action>
double measureSeconds( Action action )
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>( std::chrono::steady_clock::now() - start ).count();
}

// Whether it is proved that a corner of the box is in view.
bool isSeen( const Box& box, const View& view )
{
    for ( int corner = 0; corner < 8; ++corner )
    {
        if ( view.classify( box.getCorner( corner ) ) == View::VIEW_INSIDE )
        {
            return true;
        }
    }
    return false;
}

} // namespace

double Row::computeMedian( Way way ) const
{
    std::vector<double> sorted = seconds[way];
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>( sorted.size() / 2 );
    std::nth_element( sorted.begin(), middle, sorted.end() );
    return *middle;
}

Flight::Flight( const std::vector<Box>& city, Zq::TaskRunner& runner ) : _city( city ), _runner( runner )
{
    _rows[0].name = "0.5 to 2,000 m";
    _rows[1].name = "reversed depth, no far plane";
    _rows[2].name = "both eyes, reversed, no far plane";
    _rows[3].name = "all three, a thread takes a view";
    _rows[3].nbViews = 3;
    _secondsToBuildWithThreads = measureSeconds( [&] { _tree.build( city.data(), city.size(), &runner ); } );
    _secondsToBuild = measureSeconds( [&] { _tree.build( city.data(), city.size() ); } );
}

void Flight::addFrame( const Camera& camera )
{
    const Views views = makeViews( camera );
    addViews( { &views.single }, _rows[0] );
    addViews( { &views.endless }, _rows[1] );
    addViews( { &views.single, &views.endless, &views.both }, _rows[3] );
    const Indices kept = addViews( { &views.both }, _rows[2] );

    // what one eye sees must be drawn, whatever the other one sees
    for ( const View* eye : { &views.left, &views.right } )
    {
        Indices seen;
        find( *eye, TREE, seen );
        Indices lost;
        std::set_difference( seen.begin(), seen.end(), kept.begin(), kept.end(), std::back_inserter( lost ) );
        // an eye may also keep what lies beyond an edge of its view
        _nbLost += static_cast<std::size_t>( std::count_if(
            lost.begin(), lost.end(), [&]( std::uint32_t index ) { return isSeen( _city[index], *eye ); } ) );
    }
}

void Flight::find( const View& view, Way way, Indices& kept )
{
    kept.resize( _city.size() );
    kept.resize( way == FLAT ? view.findNotOutside( _city.data(), _city.size(), kept.data() )
            : way == TREE    ? _tree.findNotOutside( view, kept.data() )
                             : _tree.findNotOutside( view, kept.data(), &_runner ) );
}

void Flight::findTogether( const std::vector<const View*>& views, Way way, std::vector<Indices>& kept )
{
    if ( way != TREE_THREADS || views.size() == 1 )
    {
        for ( std::size_t i = 0; i < views.size(); ++i )
        {
            find( *views[i], way, kept[i] );
        }
        return;
    }
    // one thread for each view: queries may run side by side
    auto findOne = [&]( std::size_t i ) { find( *views[i], TREE, kept[i] ); };
    _runner.run(
        views.size(), []( void* context, std::size_t i ) { ( *static_cast<decltype( findOne )*>( context ) )( i ); },
        &findOne );
}

Flight::Indices Flight::addViews( const std::vector<const View*>& views, Row& row )
{
    // with room for all, so that no memory is asked for while time is taken
    const std::vector<Indices> room( views.size(), Indices( _city.size() ) );
    std::vector<Indices> kept;
    for ( const Way way : { FLAT, TREE, TREE_THREADS } )
    {
        std::vector<Indices> answers = room;
        row.seconds[way].push_back( measureSeconds( [&] { findTogether( views, way, answers ); } ) );
        if ( way == FLAT )
        {
            kept = std::move( answers );
            continue;
        }
        for ( std::size_t i = 0; i < views.size(); ++i )
        {
            Indices different;
            std::set_symmetric_difference(
                kept[i].begin(), kept[i].end(), answers[i].begin(), answers[i].end(), std::back_inserter( different ) );
            row.nbDifferent += different.size();
        }
    }
    for ( std::size_t i = 0; i < views.size(); ++i )
    {
        row.nbKept += kept[i].size();
        checkVerdicts( *views[i], row );
    }
    return kept.back();
}

// Whether they agree about what is wholly inside, too.
void Flight::checkVerdicts( const View& view, Row& row )
{
    std::vector<unsigned char> flat( _city.size() );
    std::vector<unsigned char> tree( _city.size() );
    view.classify( _city.data(), _city.size(), flat.data() );
    _tree.classify( view, tree.data(), &_runner );
    for ( std::size_t i = 0; i < flat.size(); ++i )
    {
        row.nbDifferent += flat[i] != tree[i] ? 1U : 0U;
    }
}

} // namespace ManyObjects
