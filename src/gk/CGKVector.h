#ifndef KAMO_TOOLS_GK_CGKVECTOR_H
#define KAMO_TOOLS_GK_CGKVECTOR_H

#include "gk/CGKVertex.h"
#include "kamo_tools_export.h"

#include <cstdint>

namespace GK {

// A directed segment with its derived quantities computed once by Setup.
struct KAMO_TOOLS_EXPORT CGKVector {
    CGKVertex start;
    CGKVertex end;
    CGKVertex mid; // label always vpUnknown
    double dx;
    double dy;
    double length;
    // The gradient against the dominant axis: dx/dy when steep, else dy/dx.
    // NaN for a zero-length vector.
    double slope;
    bool steep; // |dy| > |dx|, strictly: 45 degrees is not steep
    // The two sheet corners this vector joins, -1 when unbound.
    std::int32_t bound1;
    std::int32_t bound2;

    CGKVector();
    CGKVector(const CGKVertex& a, const CGKVertex& b);

    // Leaves bound1 and bound2 as they are.
    void Setup(const CGKVertex& a, const CGKVertex& b);
    void Bind(int index1, int index2);

    double Magnitude() const;
    // Positive when `other` points counter-clockwise of this vector.
    double CrossProductZ(const CGKVector& other) const;
    // The cosine of the angle between the vectors, from the stored lengths;
    // not finite when either is zero.
    double NormalizedScalarProduct(const CGKVector& other) const;
    static double NormalizedScalarProduct(const CGKVector& a, const CGKVector& b);
};

} // namespace GK

#endif
