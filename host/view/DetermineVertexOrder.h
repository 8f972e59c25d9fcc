#ifndef KAMO_VIEW_DETERMINEVERTEXORDER_H
#define KAMO_VIEW_DETERMINEVERTEXORDER_H

#include "PointF.h"
#include "kamo_view_export.h"

#include <QVector>

enum class VertexOrder { Degenerate, Clockwise, CounterClockwise };

// The sense of rotation of a ring (x east, y north) from its signed area; a
// closing point that repeats the first one does not matter. Fewer than three
// distinct points, or no area: Degenerate.
KAMO_VIEW_EXPORT VertexOrder DetermineVertexOrder(const QVector<PointF>& ring);

#endif
