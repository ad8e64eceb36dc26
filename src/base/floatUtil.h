#ifndef ZQ_BASE_FLOATUTIL_H
#define ZQ_BASE_FLOATUTIL_H

namespace Zq
{

/// Scalar mathematics with one spelling for float and double, and tolerant comparison.
///
/// The functions are the standard ones of the same name; angles are radians. Two tolerances serve wherever a caller
/// names none:
///
/// - float: 1e-6. It must accept 1 for the length of any vector that was normalised in single precision. The worst
///   length seen, over all rounding modes, is 2.0 units in the last place of 1 away from it, 2.4e-7; every larger
///   tolerance shrinks the range of matrices that count as invertible.
/// - double: 1e-7.
class FloatUtil
{
public:
    FloatUtil() = delete;

    /// @name Tolerances
    /// What counts as the same wherever a caller names no tolerance.
    /// @{
    static constexpr float defaultFloatTolerance = 1e-6F;
    static constexpr double defaultDoubleTolerance = 1e-7;
    /// @}

    /// @name Comparison
    /// @{

    /// The same within the default tolerance: a == b, or |a - b| < 1e-6. False when either is NaN.
    static bool isEqual( float a, float b );
    /// |a - b| < 1e-7. False when either is NaN, and for two infinities of one sign, whose difference is NaN.
    static bool isEqual( double a, double b );

    /// |a - b| < tolerance, strictly: isEqual( x, x, 0 ) is false, and so is every comparison with a NaN and of two
    /// infinities.
    static bool isEqual( float a, float b, float tolerance );
    /// The same in double: |a - b| < tolerance, strictly.
    static bool isEqual( double a, double b, double tolerance );
    /// @}

    /// @name Functions
    /// Those of the C library, with its errors, infinities and NaN; nothing is checked. Angles are radians.
    /// @{
    static float sqrt( float x );
    static double sqrt( double x );
    static float sin( float angle );
    static double sin( double angle );
    static float cos( float angle );
    static double cos( double angle );
    static float tan( float angle );
    static double tan( double angle );
    static float acos( float cosine );
    static double acos( double cosine );
    static float atan2( float y, float x );
    static double atan2( double y, double x );
    static float abs( float x );
    static double abs( double x );
    static float floor( float x );
    static double floor( double x );
    static float pow( float base, float exponent );
    static double pow( double base, double exponent );
    /// @}
};

} // namespace Zq

#include "floatUtil.inline"

#endif
