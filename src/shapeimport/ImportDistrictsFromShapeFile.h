#ifndef KAMO_TOOLS_IMPORTDISTRICTSFROMSHAPEFILE_H
#define KAMO_TOOLS_IMPORTDISTRICTSFROMSHAPEFILE_H

#include "kamo_tools_export.h"
#include "shapeimport/ShapeFileImporter.h"

#include <Kamo_view/DistrictPiece.h>

#include <QList>

/// Reads plots of land from polygon shape files: one plot per object with
/// its plot code, its rings in the host's sense of rotation.
class KAMO_TOOLS_EXPORT ImportDistrictsFromShapeFile : public ShapeFileImporter
{
public:
    /// The attribute a plot is read from: its plot code.
    enum TargetField { tfDistrictPieceNumber = 10 };

    ImportDistrictsFromShapeFile();

    /// Imports the shape file set; false, with GetLastErrorMessage(), when no file is set or it cannot be read.
    bool Execute();
    /// The plots of the last Execute(), in file order.
    const QList<DistrictPiece>& GetDistrictPieces() const { return pieces; }

private:
    bool ImportFile(const QString& shapeFile, const QString& dbFile);
    void ProcessObject(const ShapeObject& object);

    QList<DistrictPiece> pieces;
};

#endif
