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
    TREE_THREADS, // the tree, with the threads of a runner
    NB_WAYS
};

/// What was found out about one kind of view.
struct Row
{
    std::string name;
    std::array<std::vector<double>, NB_WAYS> seconds; // for each frame
    std::size_t nbKept = 0;                           // summed over all frames
    std::size_t nbDifferent = 0;                      // verdicts and indices that are not the same in all ways

    double computeMedian( Way way ) const;
};

/// Asks about all boxes, once per frame, view and way, and compares the answers.
class Flight
{
public:
    /// Makes the tree.
    Flight( const std::vector<Box>& city, Zq::TaskRunner& runner );

    void addFrame( const Camera& camera );

    const std::array<Row, 3>& getRows() const { return _rows; }
    /// Boxes with a corner that is proved to be in the view of one eye, but not kept for both.
    std::size_t getNbLost() const { return _nbLost; }
    /// Of the tree, without and with threads.
    double getSecondsToBuild() const { return _secondsToBuild; }
    double getSecondsToBuildWithThreads() const { return _secondsToBuildWithThreads; }

private:
    using Indices = std::vector<std::uint32_t>;

    void find( const View& view, Way way, Indices& kept );
    void addView( const View& view, Row& row, Indices& kept );

    const std::vector<Box>& _city;
    Zq::TaskRunner& _runner;
    Zq::GeAlignedBoxTree<float> _tree;
    std::array<Row, 3> _rows;
    std::size_t _nbLost = 0;
    double _secondsToBuild = 0;
    double _secondsToBuildWithThreads = 0;
};

} // namespace ManyObjects

#endif
