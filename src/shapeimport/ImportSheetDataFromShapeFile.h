#ifndef KAMO_TOOLS_IMPORTSHEETDATAFROMSHAPEFILE_H
#define KAMO_TOOLS_IMPORTSHEETDATAFROMSHAPEFILE_H

#include "kamo_tools_export.h"
#include "shapeimport/ShapeFileImporter.h"

#include <Kamo_view/PointF.h>

#include <QList>
#include <QMap>
#include <QPolygonF>
#include <QString>

#include <vector>

namespace GK {
struct CGKSheet;
}

/// Reads the frames of map sheets (polygons, usually rectangles) and turns
/// each into a sheet number with its scale and reference points: scale ->
/// sheet number -> points, in the project's geo system.
///
/// With the corner order corrected, the sheets are taken as a route in the
/// order of their numbers and their corners labelled along it first.
class KAMO_TOOLS_EXPORT ImportSheetDataFromShapeFile : public ShapeFileImporter
{
public:
    /// The attributes a sheet is read from: its number, a second number part (joined to the first as "number - part2"),
    /// and its scale.
    enum TargetField { tfSheetNr = 10, tfSheetNr2 = 11, tfSheetScale = 20 };
    /// How a sheet's reference points are chosen: the corners of the first rectangle among the frame's points, or the
    /// two points at the given vertex indexes.
    enum SheetPointSelectModeId { spsmAutomatic = 0, spsmManual = 1 };
    /// Where a sheet's scale comes from: the fixed scale, or the scale attribute.
    enum SheetScaleImportModeId { ssimFixed = 0, ssimFromTable = 1 };

    /// Creates the importer and registers its target fields.
    ImportSheetDataFromShapeFile();

    /// The sheet options: corner order correction, point selection (SheetPointSelectModeId and, for spsmManual, the two
    /// vertex indexes; an index outside the frame skips the sheet), scale source (SheetScaleImportModeId) and the fixed
    /// scale (1000 for 1:1000).
    ///@{
    void SetCorrectVertexOrder(bool correct) { correctVertexOrder = correct; }
    void SetPointSelectMode(int mode) { pointSelectMode = mode; }
    void SetIndexForPoint1(int index) { indexForPoint1 = index; }
    void SetIndexForPoint2(int index) { indexForPoint2 = index; }
    void SetScaleImportMode(int mode) { scaleImportMode = mode; }
    void SetFixedScale(int scale) { fixedScale = scale; }
    ///@}

    /// Imports the shape file set. False, with GetLastErrorMessage(), when no file is set or it cannot be read.
    bool Execute();

    /// Empty before Execute.
    void GetScalesMap(QMap<int, QMap<QString, QList<PointF>>>& out) const { out = scales; }

    /// The corners of the first rectangle found among the polygon's points.
    static bool DetectSheetCorners(const QPolygonF& polygon, QPolygonF& corners);

private:
    bool ImportFile(const QString& shapeFile, const QString& dbFile);
    bool ReadShapeFile(const QString& shapeFile, const QString& dbFile);
    void ProcessObject(const ShapeObject& object);
    void GenerateSheetCoordinates(int record, const QPolygonF& polygon);
    void BuildAndAppendSheet(int record, const QPolygonF& polygon, std::vector<GK::CGKSheet>& sheets);
    void BuildEnsembleBySheetNumber(std::vector<GK::CGKSheet>& sheets);
    void FillCoordinatesMaps();

    bool correctVertexOrder = false;
    QMap<int, QPolygonF> polygonsByRecord;
    QMap<int, QPolygonF> sheetPolygons;
    QMap<int, int> recordBySheetNumber;
    int pointSelectMode = spsmAutomatic;
    int indexForPoint1 = 0;
    int indexForPoint2 = 2;
    int scaleImportMode = ssimFixed;
    int fixedScale = 1000;
    QMap<int, QMap<QString, QList<PointF>>> scales;
};

#endif
