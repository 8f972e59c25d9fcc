#ifndef KAMO_TOOLS_IMPORTBUILDINGFROMSHAPEFILE_H
#define KAMO_TOOLS_IMPORTBUILDINGFROMSHAPEFILE_H

#include "kamo_tools_export.h"
#include "shapeimport/ShapeFileImporter.h"

#include <Kamo_view/BuildingObject.h>

#include <QList>

/// Reads buildings with their address and their owner's address from
/// polygon shape files.
///
/// Field 52 is registered twice, the second name replacing the first: the
/// one column offered as "Owner-Housenumber-Add" feeds the owner's house
/// number, addition included, as existing assignment files expect.
class KAMO_TOOLS_EXPORT ImportBuildingFromShapeFile : public ShapeFileImporter
{
public:
    /// The attributes a building is read from.
    enum TargetField {
        tfId = 10,
        tfType = 20,
        tfDistrictNumber = 30,
        tfOwnerStreet = 51,
        tfOwnerHouseNumber = 52,
        tfOwnerZipCode = 53,
        tfOwnerTown = 54,
        tfStreet = 60,
        tfHouseNumber = 61,
        tfZipCode = 62,
        tfTown = 63,
        tfDistrict = 64,
    };

    ImportBuildingFromShapeFile();

    /// Imports the shape file set; false, with GetLastErrorMessage(), when no file is set or it cannot be read.
    bool Execute();
    /// The buildings of the last Execute(), in file order.
    const QList<BuildingObject>& GetBuildings() const { return buildings; }

private:
    bool ImportFile(const QString& shapeFile, const QString& dbFile);
    void ProcessObject(const ShapeObject& object);

    QList<BuildingObject> buildings;
};

#endif
