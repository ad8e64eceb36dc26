#include "pngEncoder.h"

#include <png.h>

#include <stdexcept>

namespace Examples
{

std::string encodePng( const Canvas& canvas )
{
    const std::vector<std::uint8_t> pixels = canvas.makeRgb8();
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.format = PNG_FORMAT_RGB;
    image.width = static_cast<png_uint_32>( canvas.getWidth() );
    image.height = static_cast<png_uint_32>( canvas.getHeight() );

    // libpng is asked for a bound first, then for the bytes
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX( image );
    std::string bytes( size, '\0' );
    if ( png_image_write_to_memory( &image, bytes.data(), &size, 0, pixels.data(), 0, nullptr ) == 0 )
    {
        throw std::runtime_error( std::string( "libpng: " ) + static_cast<const char*>( image.message ) );
    }
    bytes.resize( size );
    return bytes;
}

} // namespace Examples
