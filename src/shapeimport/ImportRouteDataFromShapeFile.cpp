#include "shapeimport/ImportRouteDataFromShapeFile.h"

#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ShapeObject.h"

#include <QCoreApplication>

ImportRouteDataFromShapeFile::ImportRouteDataFromShapeFile()
{
    ImportFieldManager* fields = GetImportFieldManager();
    fields->AddTargetField(tfId, QCoreApplication::translate("ShapeFieldImport", "Id"));
    fields->AddTargetField(tfName, QCoreApplication::translate("ShapeFieldImport", "Name"));
    fields->AddTargetField(tfNumber, QCoreApplication::translate("ShapeFieldImport", "Number"));
    fields->AddTargetField(tfVariant, QCoreApplication::translate("ShapeFieldImport", "Variant"));
}

bool ImportRouteDataFromShapeFile::Execute()
{
    if (shapeFilename.isEmpty())
        return false;
    ImportFile(shapeFilename, EffectiveShapeDbFilename());
    return true;
}

bool ImportRouteDataFromShapeFile::ImportFile(const QString& shapeFile, const QString& dbFile)
{
    roads.clear();
    return ReadObjects(shapeFile, dbFile, [this](const ShapeObject& object) { ProcessObject(object); });
}

void ImportRouteDataFromShapeFile::ProcessObject(const ShapeObject& object)
{
    if (object.GetVertexCount() < 2)
        return;
    RoadObject road;
    const int record = object.GetRecordIndex();
    for (int part = 0; part < object.GetParts().size(); ++part) {
        QVector<QPointF> points = object.GetPartPoints(part);
        // A single point is no line; the other parts may still be.
        if (points.size() < 2)
            continue;
        if (!ConvertPoints(points, record))
            return;
        QVector<PointF> line;
        line.reserve(points.size());
        for (const QPointF& point : qAsConst(points))
            line.append(PointF(point.x(), point.y()));
        road.lines.append(line);
    }
    if (road.lines.isEmpty())
        return;
    const ImportFieldManager* fields = GetImportFieldManager();
    fields->ReadString(record, tfId, road.id);
    fields->ReadString(record, tfName, road.name);
    fields->ReadString(record, tfNumber, road.number);
    fields->ReadString(record, tfVariant, road.variant);
    if (road.variant.isEmpty())
        road.variant = defaultVariant;
    if (CheckIntersection(road))
        roads.append(road);
}
