#ifndef KAMO_VIEW_RINGPATH_H
#define KAMO_VIEW_RINGPATH_H

#include "PointF.h"

#include <QList>
#include <QPainterPath>
#include <QVector>

// The rings of a plot or building as one filled region. Even-odd filling
// makes a hole a hole whichever way its ring turns, so files that do not
// keep the orientation rule still come out right.
QPainterPath RingPath(const QList<QVector<PointF>>& rings);

#endif
