#include "pictures.h"

#include "legend.h"
#include "meshPainter.h"
#include "numberText.h"

#include <algorithm>

namespace CullMesh
{

using namespace Examples;

namespace
{

// The largest part of the picture with the camera's aspect.
Viewport fitViewport( double aspect )
{
    const double width = std::min<double>( PICTURE_WIDTH, PICTURE_HEIGHT * aspect );
    const double height = width / aspect;
    return { ( PICTURE_WIDTH - width ) / 2, ( PICTURE_HEIGHT - height ) / 2, width, height };
}

} // namespace

Canvas drawView( const Shot& shot )
{
    Canvas background( PICTURE_WIDTH, PICTURE_HEIGHT );
    background.fillVerticalGradient( makeColor( 0xF3F1EC ), makeColor( 0xC9D3DB ) );

    Raster raster( background, fitViewport( static_cast<double>( shot.camera.aspect ) ) );
    const MeshPainter painter( shot.mesh, shot.camera );
    const Color porcelain = makeColor( 0xE9C9A4 );
    for ( std::size_t i = 0; i < shot.clusters.size(); ++i )
    {
        if ( shot.verdicts[i] == Verdict::VISIBLE )
        {
            painter.paint( raster, shot.clusters[i], porcelain, 0.6F, false );
        }
    }

    Canvas picture = raster.resolve();
    drawCaption( picture, "The view from the camera",
        "drawn from " + makeGroupedText( shot.tally.visible.triangles ) + " of " +
            makeGroupedText( shot.tally.computeTotal().triangles ) + " triangles: the other " +
            makeDecimalText( 100 * shot.tally.computeShareCulled(), 1 ) + " % were culled, cluster by cluster" );
    return picture;
}

} // namespace CullMesh
