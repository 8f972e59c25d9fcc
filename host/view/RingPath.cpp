#include "RingPath.h"

#include <QPolygonF>

QPainterPath RingPath(const QList<QVector<PointF>>& rings)
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const QVector<PointF>& ring : rings) {
        if (ring.size() < 3)
            continue;
        QPolygonF polygon;
        polygon.reserve(ring.size());
        for (const PointF& point : ring)
            polygon.append(point.ToQPointF());
        path.addPolygon(polygon);
        path.closeSubpath();
    }
    return path;
}
