#ifndef ZQ_PRIMITIVES_GEXAXISROTATION3_H
#define ZQ_PRIMITIVES_GEXAXISROTATION3_H

#include "geAxisRotation3.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A rotation about the x axis; everything but its text form is that of GeAxisRotation3. For float and double.
///
/// Text form: the three lines of its matrix.
template <class T>
class ZQ_PRIMITIVES_API GeXAxisRotation3 : public GeAxisRotation3<0, T>
{
public:
    explicit GeXAxisRotation3( T angle );
    GeXAxisRotation3( T cosine, T sine );
    explicit GeXAxisRotation3( const GeAxisRotation3<0, T>& rotation );

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form, three lines.
    std::ostream& dump( std::ostream& os ) const;
};

template <class T>
std::ostream& operator<<( std::ostream& os, const GeXAxisRotation3<T>& r );

} // namespace Zq

#include "geXAxisRotation3.inline"

namespace Zq
{

extern template class GeXAxisRotation3<float>;
extern template class GeXAxisRotation3<double>;

static_assert(
    sizeof( GeXAxisRotation3<float> ) == 2 * sizeof( float ) && std::is_trivially_copyable_v<GeXAxisRotation3<float>> );
static_assert( sizeof( GeXAxisRotation3<double> ) == 2 * sizeof( double ) &&
    std::is_trivially_copyable_v<GeXAxisRotation3<double>> );

} // namespace Zq

#endif
