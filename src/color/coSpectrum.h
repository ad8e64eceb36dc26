#ifndef ZQ_COLOR_COSPECTRUM_H
#define ZQ_COLOR_COSPECTRUM_H

#include "export.h"
#include "forward.h"

#include <iosfwd>
#include <type_traits>

namespace Zq
{

/// An amount of light: three samples of a spectrum, in the order of red, green and blue. For float and double.
///
/// All arithmetic works sample by sample, so that reflectances multiply intensities and contributions add up:
///
///     radiance += reflectance * intensity * cosine;
///
/// Nothing clamps and nothing is checked; a division by zero gives infinities or NaN as the arithmetic does. Division
/// by a scalar is one reciprocal and three multiplications, so it can differ from three divisions in the last place.
///
/// Text form: "0.25 1 0.5", that of CoRgbColorT, with the number format and locale of the stream.
template <class T>
class ZQ_COLOR_API CoSpectrumT
{
public:
    /// The type of the samples.
    using Sample = T;

    /// @name Construction
    /// @{

    /// Black.
    CoSpectrumT();
    /// A flat spectrum: all three samples are the same.
    explicit CoSpectrumT( T sample );
    /// From samples, stored as they are.
    CoSpectrumT( T first, T second, T third );
    /// @}

    /// @name Access
    /// @{

    /// Sample 0, 1 or 2; any other index is undefined.
    T getSample( int index ) const;
    /// Replaces sample 0, 1 or 2 by any value; any other index is undefined.
    void setSample( int index, T sample );
    /// @}

    /// @name Comparison
    /// @{

    /// -0 equals 0, NaN equals nothing, not even itself.
    bool operator==( const CoSpectrumT<T>& other ) const;
    /// The exact negation of ==.
    bool operator!=( const CoSpectrumT<T>& other ) const;
    /// Each sample within the tolerance, strictly: |a - b| < tolerance. See FloatUtil::isEqual.
    bool isEqual( const CoSpectrumT<T>& other, T tolerance ) const;
    /// @}

    /// @name Arithmetic
    /// Sample by sample, in T; a scalar stands for a flat spectrum. Division by a scalar is one reciprocal and three
    /// multiplications. The assigning forms return this spectrum.
    /// @{
    CoSpectrumT<T>& operator+=( const CoSpectrumT<T>& other );
    CoSpectrumT<T>& operator-=( const CoSpectrumT<T>& other );
    CoSpectrumT<T>& operator*=( const CoSpectrumT<T>& other );
    CoSpectrumT<T>& operator/=( const CoSpectrumT<T>& other );
    CoSpectrumT<T>& operator+=( T scalar );
    CoSpectrumT<T>& operator-=( T scalar );
    CoSpectrumT<T>& operator*=( T scalar );
    CoSpectrumT<T>& operator/=( T scalar );
    CoSpectrumT<T> operator-() const;
    /// @}

    /// @name Queries
    /// @{

    /// The sum of the absolute samples.
    T computeNorm1() const;
    /// The square root of the sum of the squares.
    T computeNorm2() const;
    /// The largest absolute sample.
    T computeNormMax() const;

    /// Sample by sample the absolute value.
    CoSpectrumT<T> computeAbs() const;
    /// Sample by sample the smaller of the two: b where b < a, else a.
    static CoSpectrumT<T> computeMin( const CoSpectrumT<T>& a, const CoSpectrumT<T>& b );
    /// The same with a flat spectrum.
    static CoSpectrumT<T> computeMin( const CoSpectrumT<T>& a, T scalar );
    /// Sample by sample the larger of the two: b where a < b, else a.
    static CoSpectrumT<T> computeMax( const CoSpectrumT<T>& a, const CoSpectrumT<T>& b );
    /// The same with a flat spectrum.
    static CoSpectrumT<T> computeMax( const CoSpectrumT<T>& a, T scalar );
    /// The smallest sample.
    T getSmallestSample() const;

    /// 0.263 |first| + 0.655 |second| + 0.082 |third|: how much light there is, whatever the signs.
    T computeWeightedMagnitude() const;
    /// 0.265074126 first + 0.670114631 second + 0.064811243 third; negative samples take away from it.
    T computeLuminance() const;
    /// This spectrum scaled so that its luminance is the given one. A spectrum whose luminance is exactly 0 is scaled
    /// by 0, so that black stays black.
    CoSpectrumT<T> computeScaledTo( T luminance ) const;
    /// @}

    /// @name Text
    /// @{

    /// Feeds the items of the text form to `out` with <<: characters, literals and numbers. See docs/textForms.md.
    template <class Out>
    void writeText( Out& out ) const;
    /// Writes the text form; nothing before or after it.
    std::ostream& dump( std::ostream& os ) const;
    /// Reads three numbers, white space before each is skipped. On failure the spectrum is unchanged and the stream
    /// has failbit set.
    std::istream& read( std::istream& is );
    /// @}

private:
    T _samples[3];
};

/// @name Arithmetic of spectra
/// Sample by sample, in T, as the members do it. A scalar stands for a flat spectrum and converts to the type of the
/// samples: 2 * spectrum needs no suffix. Division by a scalar is one reciprocal and three multiplications.
/// @{
template <class T>
CoSpectrumT<T> operator+( const CoSpectrumT<T>& a, const CoSpectrumT<T>& b );
template <class T>
CoSpectrumT<T> operator-( const CoSpectrumT<T>& a, const CoSpectrumT<T>& b );
template <class T>
CoSpectrumT<T> operator*( const CoSpectrumT<T>& a, const CoSpectrumT<T>& b );
template <class T>
CoSpectrumT<T> operator/( const CoSpectrumT<T>& a, const CoSpectrumT<T>& b );

template <class T>
CoSpectrumT<T> operator+( const CoSpectrumT<T>& a, typename CoSpectrumT<T>::Sample scalar );
template <class T>
CoSpectrumT<T> operator-( const CoSpectrumT<T>& a, typename CoSpectrumT<T>::Sample scalar );
template <class T>
CoSpectrumT<T> operator*( const CoSpectrumT<T>& a, typename CoSpectrumT<T>::Sample scalar );
template <class T>
CoSpectrumT<T> operator/( const CoSpectrumT<T>& a, typename CoSpectrumT<T>::Sample scalar );
template <class T>
CoSpectrumT<T> operator+( typename CoSpectrumT<T>::Sample scalar, const CoSpectrumT<T>& a );
template <class T>
CoSpectrumT<T> operator*( typename CoSpectrumT<T>::Sample scalar, const CoSpectrumT<T>& a );
/// The scalar divided by each sample.
template <class T>
CoSpectrumT<T> operator/( typename CoSpectrumT<T>::Sample scalar, const CoSpectrumT<T>& a );
/// @}

/// Writes the text form, as dump() does.
template <class T>
std::ostream& operator<<( std::ostream& os, const CoSpectrumT<T>& spectrum );
/// Reads the text form, as read() does.
template <class T>
std::istream& operator>>( std::istream& is, CoSpectrumT<T>& spectrum );

} // namespace Zq

#include "coSpectrum.inline"

namespace Zq
{

extern template class CoSpectrumT<float>;
extern template class CoSpectrumT<double>;

static_assert(
    sizeof( CoSpectrumT<float> ) == 3 * sizeof( float ) && std::is_trivially_copyable_v<CoSpectrumT<float>> );
static_assert(
    sizeof( CoSpectrumT<double> ) == 3 * sizeof( double ) && std::is_trivially_copyable_v<CoSpectrumT<double>> );

} // namespace Zq

#endif
