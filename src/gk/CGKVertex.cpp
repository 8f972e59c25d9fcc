#include "gk/CGKVertex.h"

#include <cmath>

namespace GK {

CGKVertex::CGKVertex(double x, double y, VtxPosition position)
    : x(x)
    , y(y)
    , position(position)
{ }

double CGKVertex::Distance(const CGKVertex& other) const
{
    const double dx = x - other.x;
    const double dy = y - other.y;
    return std::sqrt(dx * dx + dy * dy);
}

void CGKVertex::Rotate(double angleDegrees)
{
    const double a = angleDegrees * 0.017453292519943295;
    const double c = std::cos(a);
    const double s = std::sin(a);
    const double rx = x * c - y * s;
    const double ry = x * s + y * c;
    x = rx;
    y = ry;
}

CGKVertex& CGKVertex::operator-=(const CGKVertex& other)
{
    x -= other.x;
    y -= other.y;
    return *this;
}

} // namespace GK
