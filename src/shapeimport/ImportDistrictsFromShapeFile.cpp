#include "shapeimport/ImportDistrictsFromShapeFile.h"

#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ShapeObject.h"

#include <Kamo_base/PlotCodeUtility.h>

#include <QCoreApplication>

ImportDistrictsFromShapeFile::ImportDistrictsFromShapeFile()
{
    GetImportFieldManager()->AddTargetField(
        tfDistrictPieceNumber, QCoreApplication::translate("ShapeFieldImport", "DistrictPieceNumber"));
}

bool ImportDistrictsFromShapeFile::Execute()
{
    if (shapeFilename.isEmpty())
        return false;
    return ImportFile(shapeFilename, EffectiveShapeDbFilename());
}

bool ImportDistrictsFromShapeFile::ImportFile(const QString& shapeFile, const QString& dbFile)
{
    pieces.clear();
    return ReadObjects(shapeFile, dbFile, [this](const ShapeObject& object) { ProcessObject(object); });
}

void ImportDistrictsFromShapeFile::ProcessObject(const ShapeObject& object)
{
    if (object.GetVertexCount() < 3)
        return;
    DistrictPiece piece;
    if (!ReadRings(object, piece.rings) || piece.rings.isEmpty())
        return;
    GetImportFieldManager()->ReadString(object.GetRecordIndex(), tfDistrictPieceNumber, piece.number);
    piece.normalisedNumber = PlotCodeUtility::Normalise(piece.number);
    if (CheckIntersection(piece))
        pieces.append(piece);
}
