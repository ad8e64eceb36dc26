#include "pngFile.h"

#include "badInput.h"

#include <png.h>

#include <stdexcept>

namespace Figures
{

namespace
{

[[noreturn]] void fail( png_structp, png_const_charp text )
{
    throw std::runtime_error( std::string( "libpng: " ) + text );
}

void append( png_structp png, png_bytep bytes, png_size_t size )
{
    std::string& text = *static_cast<std::string*>( png_get_io_ptr( png ) );
    text.append( bytes, bytes + size );
}

void flush( png_structp )
{
}

// The encoder's state, freed on every way out.
struct Encoder
{
    Encoder() : png( png_create_write_struct( PNG_LIBPNG_VER_STRING, nullptr, fail, nullptr ) ), info( nullptr )
    {
        if ( png == nullptr )
        {
            throw std::bad_alloc();
        }
        info = png_create_info_struct( png );
    }
    Encoder( const Encoder& ) = delete;
    Encoder& operator=( const Encoder& ) = delete;
    ~Encoder() { png_destroy_write_struct( &png, &info ); }

    png_structp png;
    png_infop info;
};

} // namespace

std::string encodePng( const Canvas& canvas )
{
    constexpr int BEST_COMPRESSION = 9;
    const std::vector<std::uint8_t> pixels = canvas.makeRgb8();
    const auto width = static_cast<png_uint_32>( canvas.getWidth() );
    const auto height = static_cast<png_uint_32>( canvas.getHeight() );

    std::string bytes;
    const Encoder encoder;
    png_set_write_fn( encoder.png, &bytes, append, flush );
    png_set_IHDR( encoder.png, encoder.info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
        PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT );
    png_set_compression_level( encoder.png, BEST_COMPRESSION );
    png_set_filter( encoder.png, PNG_FILTER_TYPE_BASE, PNG_ALL_FILTERS );
    png_write_info( encoder.png, encoder.info );
    for ( png_uint_32 row = 0; row < height; ++row )
    {
        png_write_row( encoder.png, pixels.data() + std::size_t{ 3 } * width * row );
    }
    png_write_end( encoder.png, encoder.info );
    return bytes;
}

Rgb8 readPng( const std::string& path )
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    Rgb8 picture;
    if ( png_image_begin_read_from_file( &image, path.c_str() ) != 0 )
    {
        image.format = PNG_FORMAT_RGB;
        picture.width = static_cast<int>( image.width );
        picture.height = static_cast<int>( image.height );
        picture.bytes.resize( PNG_IMAGE_SIZE( image ) );
        if ( png_image_finish_read( &image, nullptr, picture.bytes.data(), 0, nullptr ) != 0 )
        {
            return picture;
        }
    }
    throw Examples::BadInput( "cannot read the picture '" + path + "'" );
}

} // namespace Figures
