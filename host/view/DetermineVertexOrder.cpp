#include "DetermineVertexOrder.h"

VertexOrder DetermineVertexOrder(const QVector<PointF>& ring)
{
    int count = ring.size();
    if (count > 1 && ring.first() == ring.last())
        --count;
    if (count < 3)
        return VertexOrder::Degenerate;
    // Relative to the first point: projected coordinates are millions of
    // metres, and their products would swallow the area of a small ring.
    const double x0 = ring[0].X(), y0 = ring[0].Y();
    double twiceArea = 0.0;
    for (int i = 0; i < count; ++i) {
        const PointF& a = ring[i];
        const PointF& b = ring[(i + 1) % count];
        twiceArea += (a.X() - x0) * (b.Y() - y0) - (b.X() - x0) * (a.Y() - y0);
    }
    if (twiceArea > 0)
        return VertexOrder::CounterClockwise;
    if (twiceArea < 0)
        return VertexOrder::Clockwise;
    return VertexOrder::Degenerate;
}
