#ifndef KAMO_VIEW_BUILDINGOBJECT_H
#define KAMO_VIEW_BUILDINGOBJECT_H

#include "PointF.h"
#include "kamo_view_export.h"

#include <QList>
#include <QString>
#include <QVector>

class QPainterPath;

/// A building with its address and its owner's address, as the host keeps
/// it for the parties affected by a project.
class KAMO_VIEW_EXPORT BuildingObject
{
public:
    /// The attributes as imported: id, district number, building type, the owner's address, the building's address and
    /// its district. Texts as the attribute table has them.
    ///@{
    QString id;
    QString districtNumber;
    QString type;
    QString ownerStreet;
    QString ownerHouseNumber;
    QString ownerZipCode;
    QString ownerTown;
    QString street;
    QString houseNumber;
    QString zipCode;
    QString town;
    QString district;
    ///@}
    QList<QVector<PointF>> rings; ///< outer rings counter-clockwise, holes clockwise

    /// True when the building and the area overlap.
    bool Intersects(const QPainterPath& area) const;
};

#endif
