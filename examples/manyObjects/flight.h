#ifndef ZQ_EXAMPLES_MANYOBJECTS_FLIGHT_H
#define ZQ_EXAMPLES_MANYOBJECTS_FLIGHT_H

#include "city.h"
#include "views.h"

#include <zq/primitives/geAlignedBoxTree.h>

#include <array>
#include <string>
#include <vector>

namespace ManyObjects
{

/// The ways to ask.
enum Way
{
    FLAT,         // the array, box by box
    TREE,         // the tree
    TREE_THREADS, // the tree, with the threads of a runner: they share a view, or take one each where there are several
    NB_WAYS
};

/// What was found out about one kind of view, or about several that are asked together.
struct Row
{
    std::string name;
    std::size_t nbViews = 1;
    std::array<std::vector<double>, NB_WAYS> seconds; // for each frame
    std::size_t nbKept = 0;                           // summed over all frames
    std::size_t nbDifferent = 0;                      // verdicts and indices that are not the same in all ways

    double computeMedian( Way way ) const;
};

/// Asks about all boxes, once per frame, row and way, and compares the answers.
class Flight
{
public:
    /// Makes the tree.
    Flight( const std::vector<Box>& city, Zq::TaskRunner& runner );

    void addFrame( const Camera& camera );

    const std::array<Row, 4>& getRows() const { return _rows; }
    /// Boxes with a corner that is proved to be in the view of one eye, but not kept for both.
    std::size_t getNbLost() const { return _nbLost; }
    /// Of the tree, without and with threads.
    double getSecondsToBuild() const { return _secondsToBuild; }
    double getSecondsToBuildWithThreads() const { return _secondsToBuildWithThreads; }

private:
    using Indices = std::vector<std::uint32_t>;

    void find( const View& view, Way way, Indices& kept );
    void findTogether( const std::vector<const View*>& views, Way way, std::vector<Indices>& kept );
    /// Returns what the last view keeps.
    Indices addViews( const std::vector<const View*>& views, Row& row );
    void checkVerdicts( const View& view, Row& row );

    const std::vector<Box>& _city;
    Zq::TaskRunner& _runner;
    Zq::GeAlignedBoxTree<float> _tree;
    std::array<Row, 4> _rows;
    std::size_t _nbLost = 0;
    double _secondsToBuild = 0;
    double _secondsToBuildWithThreads = 0;
};

} // namespace ManyObjects

#endif
