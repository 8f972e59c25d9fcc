#include "shapeimport/ImportBuildingFromShapeFile.h"

#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ShapeObject.h"

#include <QCoreApplication>

ImportBuildingFromShapeFile::ImportBuildingFromShapeFile()
{
    ImportFieldManager* fields = GetImportFieldManager();
    const auto add = [fields](int id, const char* key) {
        fields->AddTargetField(id, QCoreApplication::translate("ShapeFieldImport", key));
    };
    add(tfId, QT_TRANSLATE_NOOP("ShapeFieldImport", "Id"));
    add(tfDistrictNumber, QT_TRANSLATE_NOOP("ShapeFieldImport", "DistrictNumber"));
    add(tfType, QT_TRANSLATE_NOOP("ShapeFieldImport", "Type"));
    add(tfOwnerStreet, QT_TRANSLATE_NOOP("ShapeFieldImport", "Owner-Street"));
    add(tfOwnerHouseNumber, QT_TRANSLATE_NOOP("ShapeFieldImport", "Owner-Housenumber"));
    add(tfOwnerHouseNumber, QT_TRANSLATE_NOOP("ShapeFieldImport", "Owner-Housenumber-Add"));
    add(tfOwnerZipCode, QT_TRANSLATE_NOOP("ShapeFieldImport", "Owner-ZipCode"));
    add(tfOwnerTown, QT_TRANSLATE_NOOP("ShapeFieldImport", "Owner-Town"));
    add(tfStreet, QT_TRANSLATE_NOOP("ShapeFieldImport", "Building-Street"));
    add(tfHouseNumber, QT_TRANSLATE_NOOP("ShapeFieldImport", "Building-HouseNumber"));
    add(tfZipCode, QT_TRANSLATE_NOOP("ShapeFieldImport", "Building-ZipCode"));
    add(tfTown, QT_TRANSLATE_NOOP("ShapeFieldImport", "Building-Town"));
    add(tfDistrict, QT_TRANSLATE_NOOP("ShapeFieldImport", "Building-District"));
}

bool ImportBuildingFromShapeFile::Execute()
{
    if (shapeFilename.isEmpty())
        return false;
    return ImportFile(shapeFilename, EffectiveShapeDbFilename());
}

bool ImportBuildingFromShapeFile::ImportFile(const QString& shapeFile, const QString& dbFile)
{
    buildings.clear();
    return ReadObjects(shapeFile, dbFile, [this](const ShapeObject& object) { ProcessObject(object); });
}

void ImportBuildingFromShapeFile::ProcessObject(const ShapeObject& object)
{
    if (object.GetVertexCount() < 3)
        return;
    BuildingObject building;
    if (!ReadRings(object, building.rings) || building.rings.isEmpty())
        return;
    const int record = object.GetRecordIndex();
    const ImportFieldManager* fields = GetImportFieldManager();
    const std::pair<int, QString*> values[] = {
        { tfId, &building.id },
        { tfDistrictNumber, &building.districtNumber },
        { tfType, &building.type },
        { tfOwnerStreet, &building.ownerStreet },
        { tfOwnerHouseNumber, &building.ownerHouseNumber },
        { tfOwnerZipCode, &building.ownerZipCode },
        { tfOwnerTown, &building.ownerTown },
        { tfStreet, &building.street },
        { tfHouseNumber, &building.houseNumber },
        { tfZipCode, &building.zipCode },
        { tfTown, &building.town },
        { tfDistrict, &building.district },
    };
    for (const auto& [id, value] : values)
        fields->ReadString(record, id, *value);
    if (CheckIntersection(building))
        buildings.append(building);
}
