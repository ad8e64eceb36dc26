#ifndef ZQ_COLOR_COHSVCOLOR_H
#define ZQ_COLOR_COHSVCOLOR_H

#include "coRgbColor.h"
#include "export.h"
#include "forward.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// A colour as hue, saturation and value: the hexcone form of CoRgbColorT. For float and double.
///
/// Hue is an angle in degrees (the one exception in a library of radians): red 0, yellow 60, green 120, cyan 180,
/// blue 240, magenta 300. Saturation is 0 for a grey and 1 for a colour with a component of 0; value is the largest
/// RGB component. Nothing is clamped: negative components go through the same formulas and can give a saturation
/// above 1, or an infinite one when the value is 0.
///
/// Text form: "120 1 0.5", hue, saturation, value without brackets, with the number format and locale of the stream.
///
/// Source: A. R. Smith, Color Gamut Transform Pairs, 1978.
template <class T>
class ZQ_COLOR_API CoHsvColorT
{
public:
    /// @name Construction
    /// @{

    /// Black.
    CoHsvColorT();
    /// From components, stored as they are.
    CoHsvColorT( T hue, T saturation, T value );
    /// @}

    /// @name Access
    /// One component; any value is allowed, and hues are not brought into one turn.
    /// @{
    T getHue() const;
    T getSaturation() const;
    T getValue() const;
    void setHue( T hue );
    void setSaturation( T saturation );
    void setValue( T value );
    /// @}

    /// @name Comparison
    /// @{

    /// -0 equals 0, NaN equals nothing. Hues are compared as numbers: 0 and 360 differ.
    bool operator==( const CoHsvColorT<T>& other ) const;
    /// The exact negation of ==.
    bool operator!=( const CoHsvColorT<T>& other ) const;
    /// Each component within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const CoHsvColorT<T>& other, T tolerance ) const;
    /// @}

    /// @name Conversion
    /// @{

    /// The HSV form of a colour. A grey has hue 0 and saturation 0. The hue is from 0 up to but excluding 360, save
    /// that a red with the least trace of blue over green rounds to exactly 360; convertToRgb() takes that for 0.
    /// A NaN component gives a NaN hue.
    static CoHsvColorT<T> convertFromRgb( const CoRgbColorT<T>& rgb );

    /// The RGB form. A saturation of 0 or less gives the grey of the value, whatever the hue. Any finite hue is
    /// brought into [0, 360) by whole turns of 360, one after the other. They are exact up to 2^27 (float) or 2^56
    /// (double), but for the last turn of a negative hue, and rounded above; a hue above 2^33 or 2^62, which 360 no longer
    /// changes, is taken to its exact remainder. Beyond 2^24 or 2^53 neighbouring hues lie more than a degree apart. An
    /// infinite or NaN hue gives NaN in all three components.
    CoRgbColorT<T> convertToRgb() const;
    /// @}

    /// @name Array forms
    /// @{

    /// convertFromRgb() for arrays, and much faster: results[i] is what the conversion of colors[i] alone gives. Any
    /// count, also 0; no alignment is asked for. The results must not overlap the colours.
    static void convertFromRgb( const CoRgbColorT<T>* colors, std::size_t count, CoHsvColorT<T>* results );
    /// convertToRgb() for arrays, in the same way.
    static void convertToRgb( const CoHsvColorT<T>* colors, std::size_t count, CoRgbColorT<T>* results );
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
    T _hue;
    T _saturation;
    T _value;
};

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const CoHsvColorT<T>& color );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, CoHsvColorT<T>& color );

} // namespace Zq

#include "coHsvColor.inline"

namespace Zq
{

extern template class CoHsvColorT<float>;
extern template class CoHsvColorT<double>;

static_assert(
    sizeof( CoHsvColorT<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<CoHsvColorT<float>> );
static_assert(
    sizeof( CoHsvColorT<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<CoHsvColorT<double>> );

} // namespace Zq

#endif
