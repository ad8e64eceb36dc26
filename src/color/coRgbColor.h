#ifndef ZQ_COLOR_CORGBCOLOR_H
#define ZQ_COLOR_CORGBCOLOR_H

#include "export.h"
#include "forward.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A colour as linear amounts of red, green and blue. For float and double.
///
/// Black is (0, 0, 0) and white (1, 1, 1), but no component is limited to that range: nothing clamps unless it is
/// asked to. Infinities and NaN follow the arithmetic.
///
/// Text form: "0.25 1 0.5", three numbers without brackets, with the number format and locale of the stream.
template <class T>
class ZQ_COLOR_API CoRgbColorT
{
public:
    /// @name Construction
    /// @{

    /// Black.
    CoRgbColorT();
    /// A grey: all three components are the same.
    explicit CoRgbColorT( T grey );
    /// From components, stored as they are.
    CoRgbColorT( T red, T green, T blue );
    /// @}

    /// @name Access
    /// One component; any value is allowed.
    /// @{
    T getRed() const;
    T getGreen() const;
    T getBlue() const;
    void setRed( T red );
    void setGreen( T green );
    void setBlue( T blue );
    /// @}

    /// @name Extremes
    /// @{

    /// The largest component, green and blue compared with < against what is largest so far.
    T getLargestComponent() const;
    /// The smallest component, in the same way.
    T getSmallestComponent() const;
    /// @}

    /// @name Comparison
    /// @{

    /// -0 equals 0, NaN equals nothing.
    bool operator==( const CoRgbColorT<T>& other ) const;
    /// The exact negation of ==.
    bool operator!=( const CoRgbColorT<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const CoRgbColorT<T>& other, T tolerance ) const;
    /// @}

    /// @name Queries
    /// @{

    /// Each component limited to a maximum; there is no lower limit.
    CoRgbColorT<T> computeClamped( T maximum ) const;
    /// 0.263 |red| + 0.655 |green| + 0.082 |blue|: how much colour there is, whatever the signs.
    T computeWeightedMagnitude() const;
    /// 0.265074126 red + 0.670114631 green + 0.064811243 blue; negative components take away from it.
    T computeLuminance() const;
    /// Every component to the power of gamma; gamma itself is the exponent, not its reciprocal. A negative component
    /// gives NaN unless gamma is an integer.
    CoRgbColorT<T> gammaCorrect( T gamma ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; nothing before or after it.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads three numbers, white space before each is skipped. On failure the colour is unchanged and the stream has
    /// failbit set.
    std::istream& read( std::istream& is );
    /// @}

private:
    T _red;
    T _green;
    T _blue;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const CoRgbColorT<T>& color );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, CoRgbColorT<T>& color );

} // namespace Zq

#include "coRgbColor.inline"

namespace Zq
{

extern template class CoRgbColorT<float>;
extern template class CoRgbColorT<double>;

static_assert(
    sizeof( CoRgbColorT<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<CoRgbColorT<float>> );
static_assert(
    sizeof( CoRgbColorT<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<CoRgbColorT<double>> );

} // namespace Zq

#endif
