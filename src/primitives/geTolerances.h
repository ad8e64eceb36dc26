#ifndef ZQ_PRIMITIVES_GETOLERANCES_H
#define ZQ_PRIMITIVES_GETOLERANCES_H

#include "export.h"
#include "forward.h"

#include <type_traits>

namespace Zq
{

/// The three tolerances with which geometric quantities are compared: a length (absolute, in model units), an angle
/// (radians) and a fraction (relative). For float.
///
/// What the comparisons need is derived when a tolerance is set and kept beside it in single precision, so that no
/// comparison takes a root or a trigonometric function, not even those of squared lengths and of cosines. The
/// comparisons themselves are evaluated in double precision, on the stored single-precision values.
///
/// A three-way comparison of a and b answers -1 when a is smaller than b beyond the tolerance, 1 when a is larger
/// beyond the tolerance, and 0 when they are the same within it. A difference that equals the tolerance counts as the
/// same.
///
/// Nothing is checked. A negative tolerance is stored as it is. With a NaN operand compareLengthSquared() and
/// compareCosine() answer -1, all others 0 or false.
///
/// An angle whose cosine rounds to 1, such as the default one, makes the comparisons of cosines exact: compareCosine()
/// is 0 for equal cosines only, cosineIsOne() holds from 1 upwards. compareCosineToZero() is not concerned.
class ZQ_PRIMITIVES_API GeTolerances
{
public:
    /// @name Construction
    /// @{

    /// Length 0.0005, angle 0.0001, fraction 1e-7.
    GeTolerances();
    /// Copies the tolerances.
    GeTolerances( const GeTolerances& other ) = default;
    /// Takes over the tolerances.
    GeTolerances& operator=( const GeTolerances& other ) = default;
    /// @}

    /// @name Access
    /// Stored as it is given, negative ones and NaN too; with each go the quantities that are derived from it.
    /// @{
    float getLengthTolerance() const;
    float getAngleTolerance() const;
    float getFractionTolerance() const;
    void setLengthTolerance( float tolerance );
    void setAngleTolerance( float tolerance );
    void setFractionTolerance( float tolerance );
    /// @}

    /// @name Lengths
    /// @{

    /// Compares two lengths.
    int compareLength( float a, float b ) const;
    /// Compares two lengths that are given by their squares: a and b themselves differ by at most the tolerance.
    int compareLengthSquared( float aSquared, float bSquared ) const;
    /// Compares a length with 0.
    int compareLengthToZero( float length ) const;
    /// Whether a length that is given by its square is at most the tolerance.
    bool lengthSquaredIsZero( float lengthSquared ) const;
    /// @}

    /// @name Angles
    /// @{

    /// Compares two angles, as numbers: 0 and 2 pi differ.
    int compareAngle( float a, float b ) const;
    /// Compares two angles from 0 to pi that are given by their cosines: 1 when the first angle is the larger one. The
    /// test is a squared form, without arc cosines. It answers 0 when the angles differ by at most the tolerance and
    /// their mean is at least half the tolerance away from 0 and from pi; nearer to those, even equal angles count as
    /// different, and the answer for them is 1: with an angle tolerance of 0.5, compareCosine( 1, 1 ) is 1.
    int compareCosine( float cosineOfA, float cosineOfB ) const;
    /// Compares an angle that is given by its cosine with a right angle; note the sense: 1 when the angle is below it.
    int compareCosineToZero( float cosine ) const;
    /// The angle is zero within the tolerance.
    bool cosineIsOne( float cosine ) const;
    /// The angle is a half turn within the tolerance.
    bool cosineIsMinusOne( float cosine ) const;
    /// @}

    /// @name Fractions
    /// @{

    /// Same when the difference is at most the fraction of the larger magnitude. An infinite operand makes everything
    /// the same: its fraction is infinite too.
    int compareFraction( float a, float b ) const;
    /// Compares two values that are given by their squares: the smaller one is at least (1 - fraction) of the larger.
    int compareFractionSquared( float aSquared, float bSquared ) const;
    /// @}

    /// @name Vectors and points
    /// Whether the squared distance of the two is at most the squared length tolerance.
    /// @{
    bool sameVector( const GeVector2<float>& a, const GeVector2<float>& b ) const;
    bool sameVector( const GeVector3<float>& a, const GeVector3<float>& b ) const;
    bool samePoint( const GePoint2<float>& a, const GePoint2<float>& b ) const;
    bool samePoint( const GePoint3<float>& a, const GePoint3<float>& b ) const;
    /// Compares the points that the two stand for: each is multiplied by 1 / w first. False when a weight is 0.
    bool sameVector( const GeHomogeneousCoord3<float>& a, const GeHomogeneousCoord3<float>& b ) const;
    /// @}

private:
    float _length;
    float _lengthSquared;
    float _lengthToTheFourth;
    float _angle;
    float _cosine;
    float _cosineSquared;
    float _sine;
    float _fraction;
    float _twiceFraction;
    float _fractionSquaredPlusOne;
};

} // namespace Zq

#include "geTolerances.inline"

namespace Zq
{

static_assert( sizeof( GeTolerances ) == 10 * sizeof( float ) && std::is_trivially_copyable_v<GeTolerances> );

} // namespace Zq

#endif
