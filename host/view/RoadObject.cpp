#include "RoadObject.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>

#include <algorithm>

namespace {

double cross(const QPointF& o, const QPointF& a, const QPointF& b)
{
    return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
}

int sign(double value)
{
    return (value > 0) - (value < 0);
}

// Only called when p, a and b are collinear.
bool onSegment(const QPointF& p, const QPointF& a, const QPointF& b)
{
    return std::min(a.x(), b.x()) <= p.x() && p.x() <= std::max(a.x(), b.x()) && std::min(a.y(), b.y()) <= p.y()
        && p.y() <= std::max(a.y(), b.y());
}

// Closed segments, so that a route touching the outline at one point or
// running along an edge counts; QLineF::intersects misses both.
bool segmentsTouch(const QPointF& a, const QPointF& b, const QPointF& c, const QPointF& d)
{
    const int d1 = sign(cross(c, d, a));
    const int d2 = sign(cross(c, d, b));
    const int d3 = sign(cross(a, b, c));
    const int d4 = sign(cross(a, b, d));
    if (d1 * d2 < 0 && d3 * d4 < 0)
        return true;
    return (d1 == 0 && onSegment(a, c, d)) || (d2 == 0 && onSegment(b, c, d)) || (d3 == 0 && onSegment(c, a, b))
        || (d4 == 0 && onSegment(d, a, b));
}

// QRectF::intersects ignores rectangles without width or height, which a
// straight north-south route has.
bool boxesTouch(const QRectF& a, const QRectF& b)
{
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

QRectF boundsOf(const QVector<PointF>& line)
{
    double left = line.first().X(), right = left, top = line.first().Y(), bottom = top;
    for (const PointF& point : line) {
        left = std::min(left, point.X());
        right = std::max(right, point.X());
        top = std::min(top, point.Y());
        bottom = std::max(bottom, point.Y());
    }
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

} // namespace

bool RoadObject::Intersects(const QPainterPath& area) const
{
    if (area.isEmpty())
        return false;
    const QRectF areaBounds = area.controlPointRect();
    QList<QPolygonF> outline;
    bool outlineBuilt = false;
    for (const QVector<PointF>& line : lines) {
        if (line.isEmpty() || !boxesTouch(boundsOf(line), areaBounds))
            continue;
        for (const PointF& point : line) {
            if (area.contains(point.ToQPointF()))
                return true;
        }
        // A route can cross an area without a vertex inside it.
        if (!outlineBuilt) {
            outline = area.toSubpathPolygons();
            outlineBuilt = true;
        }
        // A single point is a segment of length zero, so that it still
        // touches an outline it lies on.
        const int segments = std::max(1, int(line.size()) - 1);
        for (int i = 0; i < segments; ++i) {
            const QPointF a = line[i].ToQPointF();
            const QPointF b = line[std::min(i + 1, int(line.size()) - 1)].ToQPointF();
            for (const QPolygonF& ring : qAsConst(outline)) {
                for (int k = 0; k < ring.size(); ++k) {
                    // Subpath polygons are not always closed explicitly.
                    if (segmentsTouch(a, b, ring[k], ring[(k + 1) % ring.size()]))
                        return true;
                }
            }
        }
    }
    return false;
}
