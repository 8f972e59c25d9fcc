#ifndef KAMO_VIEW_ROADOBJECT_H
#define KAMO_VIEW_ROADOBJECT_H

#include "PointF.h"
#include "kamo_view_export.h"

#include <QList>
#include <QString>
#include <QVector>

class QPainterPath;

/// A route of the project (a road, a sewer line, a cable run) as one or more
/// lines of points.
class KAMO_VIEW_EXPORT RoadObject
{
public:
    /// The attributes as imported: id, name, number and variant.
    ///@{
    QString id;
    QString name;
    QString number;
    QString variant;
    ///@}
    /// The route's lines, each a run of points in project coordinates.
    QList<QVector<PointF>> lines;

    /// True when a line runs through the area or touches it.
    bool Intersects(const QPainterPath& area) const;
};

#endif
