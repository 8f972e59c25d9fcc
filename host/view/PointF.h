#ifndef KAMO_VIEW_POINTF_H
#define KAMO_VIEW_POINTF_H

#include "kamo_view_export.h"

#include <QPointF>

/// A point in a projected system: x is the easting, y the northing, both in
/// metres. The host's own point type, so that it can grow beside QPointF.
class KAMO_VIEW_EXPORT PointF
{
public:
    /// The origin.
    PointF() = default;
    /// The point at easting \p x and northing \p y (metres).
    PointF(double x, double y)
        : x(x)
        , y(y)
    { }

    /// The coordinates, in metres.
    ///@{
    double X() const { return x; }
    double Y() const { return y; }
    void SetX(double value) { x = value; }
    void SetY(double value) { y = value; }
    ///@}
    /// The same point as QPointF, for drawing.
    QPointF ToQPointF() const { return QPointF(x, y); }

    /// Points are equal when both coordinates are exactly equal.
    ///@{
    bool operator==(const PointF& other) const { return x == other.x && y == other.y; }
    bool operator!=(const PointF& other) const { return !(*this == other); }
    ///@}

private:
    double x = 0.0;
    double y = 0.0;
};

#endif
