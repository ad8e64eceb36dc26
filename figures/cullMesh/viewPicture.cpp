#include "cullMeshPictures.h"

#include "drawing.h"
#include "meshPainter.h"
#include "numberText.h"

#include <algorithm>

namespace CullMesh
{

using namespace Examples;
using namespace Figures;

namespace
{

// The largest part of the picture with the camera's aspect, a pixel or more.
Area fitArea( double aspect )
{
    const double width = std::min<double>( PICTURE_WIDTH, PICTURE_HEIGHT * aspect );
    const int columns = std::max( static_cast<int>( width ), 1 );
    const int rows = std::max( static_cast<int>( width / aspect ), 1 );
    return { ( PICTURE_WIDTH - columns ) / 2, ( PICTURE_HEIGHT - rows ) / 2, columns, rows };
}

} // namespace

void addView( Canvas& picture, const Area& area, const Shot& shot, bool hasCulled )
{
    Scene scene( picture, area, shot.camera );
    const MeshPainter painter( shot.mesh );
    for ( std::size_t i = 0; i < shot.clusters.size(); ++i )
    {
        if ( hasCulled || shot.verdicts[i] == Verdict::VISIBLE )
        {
            painter.paint( scene, shot.clusters[i], getPalette().clay, 0.6F, false );
        }
    }
    scene.finish( picture );
}

Canvas drawView( const Shot& shot )
{
    Canvas picture = makeBackground( PICTURE_WIDTH, PICTURE_HEIGHT );
    addView( picture, fitArea( static_cast<double>( shot.camera.aspect ) ), shot, false );
    drawCaption( picture, "The view from the camera",
        "drawn from " + makeGroupedText( shot.tally.visible.triangles ) + " of " +
            makeGroupedText( shot.tally.computeTotal().triangles ) + " triangles: the other " +
            makeDecimalText( 100 * shot.tally.computeShareCulled(), 1 ) + " % were culled, cluster by cluster" );
    return picture;
}

} // namespace CullMesh
