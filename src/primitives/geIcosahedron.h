#ifndef ZQ_PRIMITIVES_GEICOSAHEDRON_H
#define ZQ_PRIMITIVES_GEICOSAHEDRON_H

#include "geVector3.h"
#include "rnRng.h"
#include "unaryFunctor.h"

namespace Zq
{

/// The unit icosahedron, as tables of vertices, edges and faces, and directions spread evenly over its faces.
/// Nothing but static functions; the tables are constants.
///
/// Vertices have length 1 and lie in the three coordinate planes. Vertices 0 and 1 are up (z > 0), 2 and 3 down. An
/// edge names its vertex of smaller index first. Faces are wound clockwise seen from outside, so that
/// (second - first) x (third - first) points towards the centre.
class ZQ_PRIMITIVES_API GeIcosahedron
{
public:
    /// The sizes of the tables.
    enum
    {
        NB_VERTICES = 12, ///< corners
        NB_EDGES = 30,    ///< pairs of corners
        NB_FACES = 20     ///< triangles
    };

    /// @name Access
    /// @{

    /// NB_VERTICES.
    static int getNbVertices();
    /// NB_EDGES.
    static int getNbEdges();
    /// NB_FACES.
    static int getNbFaces();

    /// A vertex; reports "0 <= i && i < NB_VERTICES".
    static void getVertex( int i, GeVector3<float>& v );
    /// The two ends of an edge; reports "0 <= i && i < NB_EDGES".
    static void getEdge( int i, GeVector3<float>& first, GeVector3<float>& second );
    /// The three corners of a face; reports "0 <= i && i < NB_FACES".
    static void getFace( int i, GeVector3<float>& first, GeVector3<float>& second, GeVector3<float>& third );
    /// @}

    /// @name Queries
    /// @{

    /// Passes random directions of unit length to the functor, spread evenly over the faces, and returns how many.
    ///
    /// Every face receives m = nbSamples / 20 of them. A triangle that is to receive four or more is cut at the
    /// midpoints of its edges into four, of which each receives a quarter; one that is to receive up to three places
    /// them at random. Divisions round down, so fewer directions come than were asked for unless m is 1, 2 or 3 times
    /// a power of four, and none for less than 20. All of the smallest triangles receive the same number.
    ///
    /// The triangles are flat: they have the same size on the faces of the icosahedron, not on the sphere. Directions
    /// are up to twice as dense at a vertex as in the middle of a face.
    ///
    /// Functor and generator are borrowed for the call. The generator is asked twice per direction, first for the
    /// weight of the triangle's first corner, then for that of the second. Numbers outside [0, 1] are not checked.
    static unsigned int getStratifiedSamples(
        unsigned int nbSamples, UnaryFunctor<GeVector3<float>, void>& functor, RnRng<float>& rng );
    /// @}

private:
    GeIcosahedron() = default;

    static const float _vertices[NB_VERTICES][3];
    static const int _edgeIndex[NB_EDGES][2];
    static const int _faceIndex[NB_FACES][3];
};

} // namespace Zq

#include "geIcosahedron.inline"

#endif
