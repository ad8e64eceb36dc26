#ifndef ZQ_PRIMITIVES_GEYAXISROTATION3_H
#define ZQ_PRIMITIVES_GEYAXISROTATION3_H

#include "geAxisRotation3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A rotation about the y axis; everything but its text form is that of GeAxisRotation3. For float and double.
///
/// Text form: the three lines of its matrix.
template <class T>
class ZQ_PRIMITIVES_API GeYAxisRotation3 : public GeAxisRotation3<1, T>
{
public:
    explicit GeYAxisRotation3( T angle );
    GeYAxisRotation3( T cosine, T sine );
    explicit GeYAxisRotation3( const GeAxisRotation3<1, T>& rotation );

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form, three lines.
    std::ostream& dump( std::ostream& os ) const;
};

template <class T>
std::ostream& operator<<( std::ostream& os, const GeYAxisRotation3<T>& r );

} // namespace Zq

#include "geYAxisRotation3.inline"

namespace Zq
{

extern template class GeYAxisRotation3<float>;
extern template class GeYAxisRotation3<double>;

static_assert(
    sizeof( GeYAxisRotation3<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GeYAxisRotation3<float>> );
static_assert( sizeof( GeYAxisRotation3<double> ) == 2 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeYAxisRotation3<double>> );

} // namespace Zq

#endif
