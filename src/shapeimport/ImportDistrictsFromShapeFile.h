#ifndef KAMO_TOOLS_IMPORTDISTRICTSFROMSHAPEFILE_H
#define KAMO_TOOLS_IMPORTDISTRICTSFROMSHAPEFILE_H

#include "kamo_tools_export.h"
#include "shapeimport/ShapeFileImporter.h"

#include <DistrictPiece.h>

#include <QList>

// Reads plots of land from polygon shape files: one plot per object with
// its plot code, its rings in the host's sense of rotation.
class KAMO_TOOLS_EXPORT ImportDistrictsFromShapeFile : public ShapeFileImporter
{
public:
    enum TargetField { tfDistrictPieceNumber = 10 };

    ImportDistrictsFromShapeFile();

    bool Execute();
    const QList<DistrictPiece>& GetDistrictPieces() const { return pieces; }

private:
    bool ImportFile(const QString& shapeFile, const QString& dbFile);
    void ProcessObject(const ShapeObject& object);

    QList<DistrictPiece> pieces;
};

#endif
