#ifndef KAMO_VIEW_POINTF_H
#define KAMO_VIEW_POINTF_H

#include "kamo_view_export.h"

#include <QPointF>

// A point in a projected system: x is the easting, y the northing, both in
// metres. The host's own point type, so that it can grow beside QPointF.
class KAMO_VIEW_EXPORT PointF
{
public:
    PointF() = default;
    PointF(double x, double y)
        : x(x)
        , y(y)
    { }

    double X() const { return x; }
    double Y() const { return y; }
    void SetX(double value) { x = value; }
    void SetY(double value) { y = value; }
    QPointF ToQPointF() const { return QPointF(x, y); }

    bool operator==(const PointF& other) const { return x == other.x && y == other.y; }
    bool operator!=(const PointF& other) const { return !(*this == other); }

private:
    double x = 0.0;
    double y = 0.0;
};

#endif
