#include "gk/CGKVector.h"

#include <cmath>

namespace GK {

CGKVector::CGKVector()
    : dx(0.0)
    , dy(0.0)
    , length(0.0)
    , slope(0.0)
    , steep(false)
    , bound1(-1)
    , bound2(-1)
{ }

CGKVector::CGKVector(const CGKVertex& a, const CGKVertex& b)
    : CGKVector()
{
    Setup(a, b);
}

void CGKVector::Setup(const CGKVertex& a, const CGKVertex& b)
{
    start = a;
    end = b;
    mid = CGKVertex((start.x + end.x) * 0.5, (start.y + end.y) * 0.5);
    dx = end.x - start.x;
    dy = end.y - start.y;
    length = std::sqrt(dx * dx + dy * dy);
    steep = std::fabs(dy) > std::fabs(dx);
    slope = steep ? dx / dy : dy / dx;
}

void CGKVector::Bind(int index1, int index2)
{
    bound1 = index1;
    bound2 = index2;
}

double CGKVector::Magnitude() const
{
    return std::sqrt(dx * dx + dy * dy);
}

double CGKVector::CrossProductZ(const CGKVector& other) const
{
    return dx * other.dy - dy * other.dx;
}

double CGKVector::NormalizedScalarProduct(const CGKVector& other) const
{
    return NormalizedScalarProduct(*this, other);
}

double CGKVector::NormalizedScalarProduct(const CGKVector& a, const CGKVector& b)
{
    return (a.dx * b.dx + a.dy * b.dy) / (a.length * b.length);
}

} // namespace GK
