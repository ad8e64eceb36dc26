#ifndef ZQ_PRIMITIVES_GEZAXISROTATION3_H
#define ZQ_PRIMITIVES_GEZAXISROTATION3_H

#include "geAxisRotation3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A rotation about the z axis; everything but its text form is that of GeAxisRotation3. For float and double.
///
/// Text form: the three lines of its matrix.
template <class T>
class ZQ_PRIMITIVES_API GeZAxisRotation3 : public GeAxisRotation3<2, T>
{
public:
    explicit GeZAxisRotation3( T angle );
    GeZAxisRotation3( T cosine, T sine );
    explicit GeZAxisRotation3( const GeAxisRotation3<2, T>& rotation );

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form, three lines.
    std::ostream& dump( std::ostream& os ) const;
};

template <class T>
std::ostream& operator<<( std::ostream& os, const GeZAxisRotation3<T>& r );

} // namespace Zq

#include "geZAxisRotation3.inline"

namespace Zq
{

extern template class GeZAxisRotation3<float>;
extern template class GeZAxisRotation3<double>;

static_assert(
    sizeof( GeZAxisRotation3<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GeZAxisRotation3<float>> );
static_assert( sizeof( GeZAxisRotation3<double> ) == 2 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeZAxisRotation3<double>> );

} // namespace Zq

#endif
