#ifndef KAMO_TOOLS_IMPORTROUTEDATAFROMSHAPEFILE_H
#define KAMO_TOOLS_IMPORTROUTEDATAFROMSHAPEFILE_H

#include "kamo_tools_export.h"
#include "shapeimport/ShapeFileImporter.h"

#include <Kamo_view/RoadObject.h>

#include <QList>

/// Reads routes (roads, sewer lines, cable runs) from line shape files: one
/// route per object, one line per part.
///
/// Execute answers true once a file name is set, even when the file cannot
/// be read: callers look at GetLastErrorMessage, as they always have.
class KAMO_TOOLS_EXPORT ImportRouteDataFromShapeFile : public ShapeFileImporter
{
public:
    /// The attributes a route is read from.
    enum TargetField { tfId = 10, tfName = 20, tfNumber = 30, tfVariant = 40 };

    ImportRouteDataFromShapeFile();

    /// Taken for routes whose variant is empty or not assigned.
    void SetDefaultVariant(const QString& variant) { defaultVariant = variant; }

    /// Imports the shape file set (see the class notes for its answer).
    bool Execute();
    /// The routes of the last Execute(), in file order.
    const QList<RoadObject>& GetRoads() const { return roads; }

private:
    bool ImportFile(const QString& shapeFile, const QString& dbFile);
    void ProcessObject(const ShapeObject& object);

    QString defaultVariant;
    QList<RoadObject> roads;
};

#endif
