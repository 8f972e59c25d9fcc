#ifndef KAMO_TOOLS_GK_CGKVECTOR_H
#define KAMO_TOOLS_GK_CGKVECTOR_H

#include "gk/CGKVertex.h"
#include "kamo_tools_export.h"

#include <cstdint>

namespace GK {

/// A directed segment with its derived quantities computed once by Setup.
struct KAMO_TOOLS_EXPORT CGKVector {
    /// The end points as given to Setup().
    ///@{
    CGKVertex start;
    CGKVertex end;
    ///@}
    CGKVertex mid; ///< label always vpUnknown
    /// end - start per axis and the stored length, computed by Setup().
    ///@{
    double dx;
    double dy;
    double length;
    ///@}
    /// The gradient against the dominant axis: dx/dy when steep, else dy/dx.
    /// NaN for a zero-length vector.
    double slope;
    bool steep; ///< |dy| > |dx|, strictly: 45 degrees is not steep
    /// The two sheet corners this vector joins, -1 when unbound.
    ///@{
    std::int32_t bound1;
    std::int32_t bound2;
    ///@}

    /// A zero vector at the origin, bound to no corners.
    CGKVector();
    /// The vector from \p a to \p b, bound to no corners.
    CGKVector(const CGKVertex& a, const CGKVertex& b);

    /// Leaves bound1 and bound2 as they are.
    void Setup(const CGKVertex& a, const CGKVertex& b);
    /// Records the two sheet corners the vector joins.
    void Bind(int index1, int index2);

    /// The length computed afresh from dx and dy.
    double Magnitude() const;
    /// Positive when `other` points counter-clockwise of this vector.
    double CrossProductZ(const CGKVector& other) const;
    /// The cosine of the angle between the vectors, from the stored lengths;
    /// not finite when either is zero.
    double NormalizedScalarProduct(const CGKVector& other) const;
    /// The cosine of the angle between \p a and \p b, as the member function.
    static double NormalizedScalarProduct(const CGKVector& a, const CGKVector& b);
};

} // namespace GK

#endif
