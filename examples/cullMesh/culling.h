#ifndef ZQ_EXAMPLES_CULLMESH_CULLING_H
#define ZQ_EXAMPLES_CULLMESH_CULLING_H

#include "clusters.h"

#include <zq/primitives/geViewVolume.h>

namespace CullMesh
{

enum class Verdict
{
    OUTSIDE, // the box lies outside the view: not in the picture
    BEHIND,  // every face is seen from the back
    VISIBLE  // to be drawn
};

/// Which clusters need not be drawn: two questions to the library, each for all clusters at once. So the bounds lie
/// here by kind, as its array forms take them.
class Culler
{
public:
    explicit Culler( const std::vector<Cluster>& clusters )
    {
        for ( const Cluster& cluster : clusters )
        {
            _boxes.push_back( cluster.box );
            // the default cones say of no eye that it sees nothing but backs
            _cones.push_back( cluster.isConeUsable ? cluster.cones : Zq::GeCullingCones() );
        }
        _boxAnswers.resize( clusters.size() );
        _coneAnswers.resize( clusters.size() );
    }

    /// The verdicts on all clusters, in their order, replace what is in `verdicts`. The volume is that of
    /// projection * view, for the depth range of the projection: of the very matrix that the points are multiplied with.
    /// Single precision is enough, however deep the view is: the verdicts are proved for the elements that the matrix has.
    void judge( const Zq::GeViewVolume<float>& volume, const Zq::GePoint3<float>& eye, std::vector<Verdict>& verdicts )
    {
        askBoxes( volume );
        askCones( eye );
        verdicts.resize( _boxes.size() );
        for ( std::size_t i = 0; i < verdicts.size(); ++i )
        {
            verdicts[i] = _boxAnswers[i] == Zq::GeViewVolume<float>::VIEW_OUTSIDE ? Verdict::OUTSIDE
                : _coneAnswers[i] != 0                                            ? Verdict::BEHIND
                                                                                  : Verdict::VISIBLE;
        }
    }

    // The two questions by themselves, to be timed.
    void askBoxes( const Zq::GeViewVolume<float>& volume )
    {
        volume.classify( _boxes.data(), _boxes.size(), _boxAnswers.data() );
    }
    void askCones( const Zq::GePoint3<float>& eye )
    {
        Zq::GeCullingCones::isBehind( _cones.data(), _cones.size(), eye, _coneAnswers.data() );
    }

private:
    std::vector<Zq::GeAlignedBox3<float>> _boxes;
    std::vector<Zq::GeCullingCones> _cones;
    std::vector<unsigned char> _boxAnswers;
    std::vector<unsigned char> _coneAnswers;
};

} // namespace CullMesh

#endif
