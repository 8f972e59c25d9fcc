#include "shapeimport/ImportSheetDataFromShapeFile.h"

#include "gk/CGKSheet.h"
#include "gk/CRoutingTilesRevisor.h"
#include "gk/RectangleDetector.h"
#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ShapeObject.h"

#include <QCoreApplication>

#include <algorithm>

ImportSheetDataFromShapeFile::ImportSheetDataFromShapeFile()
{
    ImportFieldManager* fields = GetImportFieldManager();
    fields->AddTargetField(tfSheetNr, QCoreApplication::translate("ShapeFieldImport", "SheetNr"));
    fields->AddTargetField(tfSheetNr2, QCoreApplication::translate("ShapeFieldImport", "SheetNr2"));
    fields->AddTargetField(tfSheetScale, QCoreApplication::translate("ShapeFieldImport", "SheetScale"));
}

bool ImportSheetDataFromShapeFile::Execute()
{
    if (shapeFilename.isEmpty())
        return false;
    return ImportFile(shapeFilename, EffectiveShapeDbFilename());
}

bool ImportSheetDataFromShapeFile::DetectSheetCorners(const QPolygonF& polygon, QPolygonF& corners)
{
    // Points 0..3 are the first quadruple the detection would report: when
    // they form a rectangle, as in almost every frame, the search is moot.
    if (polygon.size() >= 4) {
        const auto yPoint = [&polygon](int i) { return YPoint { polygon.at(i).x(), polygon.at(i).y() }; };
        if (RectangleDetector::IsRectangle(yPoint(0), yPoint(1), yPoint(2), yPoint(3))) {
            corners = polygon.mid(0, 4);
            return true;
        }
    }
    QList<YPoint> points;
    points.reserve(polygon.size());
    for (const QPointF& point : polygon)
        points.append({ point.x(), point.y() });
    QList<QList<YPoint>> rectangles;
    RectangleDetector(points).Analyze(rectangles);
    if (rectangles.isEmpty())
        return false;
    corners.clear();
    for (const YPoint& corner : rectangles.constFirst())
        corners.append(QPointF(corner.x, corner.y));
    return true;
}

bool ImportSheetDataFromShapeFile::ImportFile(const QString& shapeFile, const QString& dbFile)
{
    polygonsByRecord.clear();
    recordBySheetNumber.clear();
    sheetPolygons.clear();
    if (!ReadShapeFile(shapeFile, dbFile))
        return false;

    if (correctVertexOrder) {
        std::vector<GK::CGKSheet> sheets;
        BuildEnsembleBySheetNumber(sheets);
        if (!sheets.empty()) {
            GK::CRoutingTilesRevisor revisor(sheets);
            // A route that cannot be labelled gives no sheet at all rather
            // than sheets whose corners may be mixed up.
            if (revisor.Revise() == GK::CRoutingTilesRevisor::geNone) {
                for (const GK::CGKSheet& sheet : sheets) {
                    QPolygonF corners(4);
                    for (const GK::CGKVertex& vertex : sheet.vertices) {
                        const int slot = GK::VtxPositionRingSlot(vertex.position);
                        if (slot >= 0)
                            corners[slot] = QPointF(vertex.x, vertex.y);
                    }
                    sheetPolygons.insert(sheet.tileIndex, corners);
                }
            }
        }
    } else {
        sheetPolygons = polygonsByRecord;
    }
    FillCoordinatesMaps();
    return true;
}

bool ImportSheetDataFromShapeFile::ReadShapeFile(const QString& shapeFile, const QString& dbFile)
{
    return ReadObjects(shapeFile, dbFile, [this](const ShapeObject& object) { ProcessObject(object); });
}

void ImportSheetDataFromShapeFile::ProcessObject(const ShapeObject& object)
{
    if (object.GetVertexCount() < 1)
        return;
    QVector<QPointF> points = object.GetPoints();
    if (!ConvertPoints(points, object.GetRecordIndex()))
        return;
    polygonsByRecord.insert(object.GetRecordIndex(), QPolygonF(points));

    if (!correctVertexOrder)
        return;
    QString number;
    GetImportFieldManager()->ReadString(object.GetRecordIndex(), tfSheetNr, number);
    // Digits only: "12a" or " 12" name no place in the route.
    const bool digitsOnly = std::all_of(number.cbegin(), number.cend(), [](QChar c) { return c.isDigit(); });
    bool ok = false;
    const int value = number.toInt(&ok, 10);
    if (digitsOnly && ok)
        recordBySheetNumber.insert(value, object.GetRecordIndex());
}

void ImportSheetDataFromShapeFile::BuildEnsembleBySheetNumber(std::vector<GK::CGKSheet>& sheets)
{
    for (int record : qAsConst(recordBySheetNumber)) {
        const auto polygon = polygonsByRecord.constFind(record);
        if (polygon != polygonsByRecord.cend())
            BuildAndAppendSheet(record, *polygon, sheets);
    }
}

void ImportSheetDataFromShapeFile::BuildAndAppendSheet(
    int record, const QPolygonF& polygon, std::vector<GK::CGKSheet>& sheets)
{
    GK::CGKSheet sheet;
    sheet.tileIndex = record;
    QPolygonF corners;
    if (!DetectSheetCorners(polygon, corners))
        return;
    for (int i = 0; i < 4; ++i) {
        sheet.vertices[i].x = corners.at(i).x();
        sheet.vertices[i].y = corners.at(i).y();
    }
    sheets.push_back(sheet);
}

void ImportSheetDataFromShapeFile::FillCoordinatesMaps()
{
    if (!correctVertexOrder) {
        for (auto it = sheetPolygons.cbegin(); it != sheetPolygons.cend(); ++it)
            GenerateSheetCoordinates(it.key(), it.value());
        return;
    }
    for (int record : qAsConst(recordBySheetNumber)) {
        const auto polygon = sheetPolygons.constFind(record);
        if (polygon != sheetPolygons.cend())
            GenerateSheetCoordinates(record, *polygon);
    }
}

void ImportSheetDataFromShapeFile::GenerateSheetCoordinates(int record, const QPolygonF& polygon)
{
    const ImportFieldManager* fields = GetImportFieldManager();
    QString number;
    // Only a number that cannot be read at all is made up; an empty cell is
    // the user's answer and stays empty.
    if (!fields->ReadString(record, tfSheetNr, number))
        number = QStringLiteral("leer") + QString::number(record + 1);
    while (number.startsWith(QLatin1Char('0')))
        number.remove(0, 1);
    QString number2;
    if (fields->HasAssignment(tfSheetNr2) && fields->ReadString(record, tfSheetNr2, number2) && !number2.isEmpty())
        number += QStringLiteral(" - ") + number2;

    int scale = fixedScale;
    if (scaleImportMode != ssimFixed) {
        QString text;
        fields->ReadString(record, tfSheetScale, text);
        const int colon = text.indexOf(QLatin1Char(':'));
        if (colon >= 0)
            text = text.mid(colon + 1);
        QString digits;
        for (QChar c : qAsConst(text)) {
            if (c.isDigit())
                digits.append(c);
        }
        scale = digits.toInt(); // 0 when nothing is left
    }

    if (!pageAdditionalText.trimmed().isEmpty())
        number += QLatin1Char('_') + pageAdditionalText;

    QList<PointF> points;
    if (pointSelectMode == spsmManual) {
        if (indexForPoint1 == -1 || indexForPoint2 == -1 || indexForPoint1 >= polygon.size()
            || indexForPoint2 >= polygon.size() || indexForPoint1 < 0 || indexForPoint2 < 0)
            return;
        for (int index : { indexForPoint1, indexForPoint2 })
            points.append(PointF(polygon.at(index).x(), polygon.at(index).y()));
    } else if (pointSelectMode == spsmAutomatic) {
        QPolygonF corners;
        if (!DetectSheetCorners(polygon, corners))
            return;
        int top = 0;
        double topY = 0.0;
        for (int i = 0; i < corners.size(); ++i) {
            if (corners.at(i).y() > topY) {
                topY = corners.at(i).y();
                top = i;
            }
        }
        for (int i = 0; i < 4; ++i) {
            const QPointF& corner = corners.at((top + i) % 4);
            points.append(PointF(corner.x(), corner.y()));
        }
        // Every sheet runs clockwise (x east, y north) from its northernmost
        // corner, as the outer rings of shape files do: a turn to the left
        // at the second corner means the detector gave the other sense.
        const double turn = (points[1].X() - points[0].X()) * (points[2].Y() - points[1].Y())
            - (points[1].Y() - points[0].Y()) * (points[2].X() - points[1].X());
        if (turn > 0.0)
            points.swapItemsAt(1, 3);
    } else {
        return;
    }
    QMap<QString, QList<PointF>>& sheets = scales[scale];
    // The later sheet wins, but the user should know one got lost.
    if (sheets.contains(number))
        warnings.append(QCoreApplication::translate(
            "ImportSheetDataFromShapeFile", "Object %1 replaces the earlier sheet \"%2\" at scale %3")
                            .arg(record + 1)
                            .arg(number)
                            .arg(scale));
    sheets.insert(number, points);
}
