#ifndef KAMO_VIEW_DISTRICTPIECE_H
#define KAMO_VIEW_DISTRICTPIECE_H

#include "PointF.h"
#include "kamo_view_export.h"

#include <QList>
#include <QString>
#include <QVector>

class QPainterPath;

/// A plot of land: its plot code and its outline, outer rings counter-
/// clockwise and holes clockwise.
class KAMO_VIEW_EXPORT DistrictPiece
{
public:
    QString number;           ///< the plot code as the file has it
    QString normalisedNumber; ///< as PlotCodeUtility writes it; empty when not a plot code
    /// The outline's rings in project coordinates, outer rings counter-clockwise, holes clockwise.
    QList<QVector<PointF>> rings;

    /// True when the plot and the area overlap.
    bool Intersects(const QPainterPath& area) const;
};

#endif
