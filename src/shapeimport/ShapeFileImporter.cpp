#include "shapeimport/ShapeFileImporter.h"

#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ShapeDbFileReader.h"
#include "shapeimport/ShapeFileReader.h"
#include "shapeimport/ShapeObject.h"

#include <Kamo_view/BuildingObject.h>
#include <Kamo_view/DetermineVertexOrder.h>
#include <Kamo_view/DistrictPiece.h>
#include <Kamo_view/RoadObject.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

const QString& GetShapeFileExtension()
{
    static const QString extension = QStringLiteral(".shp");
    return extension;
}

const QString& GetShapeDbFileExtension()
{
    static const QString extension = QStringLiteral(".dbf");
    return extension;
}

QString MakeShapeDbFilenameFromShapeFilename(const QString& shapeFile)
{
    const QFileInfo info(shapeFile);
    return info.path() + QLatin1Char('/') + info.completeBaseName() + GetShapeDbFileExtension();
}

void GetAvailableFieldNames(const QString& dbFile, QVector<QString>& names)
{
    ShapeDbFileReader reader;
    if (reader.Open(QFile::encodeName(dbFile)) != 0)
        return;
    reader.GetFieldNames(names);
}

namespace {

bool onOutline(const QPointF& point, const QPolygonF& ring, double tolerance)
{
    for (int i = 0; i < ring.size(); ++i) {
        const QPointF a = ring.at(i);
        const QPointF b = ring.at((i + 1) % ring.size());
        const QPointF ab = b - a;
        const double length2 = QPointF::dotProduct(ab, ab);
        const double t = length2 > 0.0 ? std::clamp(QPointF::dotProduct(point - a, ab) / length2, 0.0, 1.0) : 0.0;
        const QPointF gap = point - (a + t * ab);
        if (std::hypot(gap.x(), gap.y()) <= tolerance)
            return true;
    }
    return false;
}

// Whether `inner` lies inside `outer`, judged by its first point off the
// outline of `outer`: a hole may touch its outer ring, and a ring given
// twice lies inside neither copy.
bool ringLiesInside(const QPolygonF& inner, const QPolygonF& outer)
{
    const QRectF box = outer.boundingRect();
    if (!box.contains(inner.boundingRect()))
        return false;
    const double tolerance = 1e-9 * std::max(box.width(), box.height());
    for (const QPointF& point : inner) {
        if (!onOutline(point, outer, tolerance))
            return outer.containsPoint(point, Qt::OddEvenFill);
    }
    return false;
}

} // namespace

ShapeFileImporter::ShapeFileImporter()
    : fieldManager(std::make_shared<ImportFieldManager>())
    , shapeReader(std::make_shared<ShapeFileReader>())
    , dbReader(std::make_shared<ShapeDbFileReader>())
{
    projectGeoSystem.SetNull();
    importFileGeoSystem.SetNull();
}

ShapeFileImporter::~ShapeFileImporter() = default;
ShapeFileImporter::ShapeFileImporter(const ShapeFileImporter&) = default;
ShapeFileImporter& ShapeFileImporter::operator=(const ShapeFileImporter&) = default;

QString ShapeFileImporter::EffectiveShapeDbFilename() const
{
    return shapeDbFilename.isEmpty() ? MakeShapeDbFilenameFromShapeFilename(shapeFilename) : shapeDbFilename;
}

bool ShapeFileImporter::ReadObjects(
    const QString& shapeFile, const QString& dbFile, const std::function<void(const ShapeObject&)>& process)
{
    // The names in the encoding of the file system; a Latin-1 rendering
    // would miss every name with an umlaut on a UTF-8 system.
    const QByteArray shapePath = QFile::encodeName(shapeFile);
    const QByteArray dbPath = QFile::encodeName(dbFile);
    // An importer read again must not pass on the warnings or the error of
    // its last file.
    warnings.clear();
    lastErrorMessage.clear();

    dbReader->Close();
    // Without a table no attribute can be read, which is not the same as
    // an empty one: the sheet import numbers such sheets by record.
    const bool tableOpen = !dbFile.isEmpty() && dbReader->Open(dbPath) == 0;
    fieldManager->SetDbFileReader(tableOpen ? dbReader.get() : nullptr);

    if (shapeReader->Open(shapePath) != 0) {
        lastErrorMessage = QCoreApplication::translate("ShapeFileImporter", "Error opening shape file");
        return false;
    }

    convert = !projectGeoSystem.IsEqual(importFileGeoSystem);
    ShapeObject object;
    const int count = shapeReader->GetEntityCount();
    for (int index = 0; index < count; ++index) {
        shapeReader->ReadObject(index, object);
        process(object);
    }
    return true;
}

bool ShapeFileImporter::ConvertPoints(QVector<QPointF>& points, int record)
{
    if (!convert)
        return true;
    QPolygonF converted(points);
    // All points or none: the call leaves the polygon as it was on failure.
    if (!ChangeGeoSystemEx(converted, importFileGeoSystem, projectGeoSystem, false)) {
        warnings.append(QCoreApplication::translate("ShapeFileImporter", "Object %1 left out: %2")
                            .arg(record + 1)
                            .arg(GeoSystemLastError()));
        return false;
    }
    points = converted;
    return true;
}

bool ShapeFileImporter::ReadRings(const ShapeObject& object, QList<QVector<PointF>>& rings)
{
    rings.clear();
    QVector<QPolygonF> outlines;
    QList<QVector<PointF>> kept;
    for (int part = 0; part < object.GetParts().size(); ++part) {
        QVector<QPointF> points = object.GetPartPoints(part);
        if (!ConvertPoints(points, object.GetRecordIndex()))
            return false;
        QVector<PointF> ring;
        ring.reserve(points.size());
        for (const QPointF& point : qAsConst(points))
            ring.append(PointF(point.x(), point.y()));
        if (DetermineVertexOrder(ring) == VertexOrder::Degenerate)
            continue;
        outlines.append(QPolygonF(points));
        kept.append(ring);
    }
    // Writers do not all keep to clockwise outer rings, so the sense in the
    // file proves nothing: a ring inside an odd number of others is a hole.
    for (int i = 0; i < kept.size(); ++i) {
        int depth = 0;
        for (int j = 0; j < outlines.size(); ++j) {
            if (j != i && ringLiesInside(outlines.at(i), outlines.at(j)))
                ++depth;
        }
        const VertexOrder wanted = depth % 2 == 0 ? VertexOrder::CounterClockwise : VertexOrder::Clockwise;
        if (DetermineVertexOrder(kept.at(i)) != wanted)
            std::reverse(kept[i].begin(), kept[i].end());
    }
    rings = kept;
    return true;
}

template <typename Object> bool ShapeFileImporter::intersectsFilter(const Object& object) const
{
    if (!geoFilter || geoFilter->isEmpty())
        return true;
    for (const QPainterPath& area : *geoFilter) {
        if (object.Intersects(area))
            return true;
    }
    return false;
}

bool ShapeFileImporter::CheckIntersection(const BuildingObject& object) const
{
    return intersectsFilter(object);
}

bool ShapeFileImporter::CheckIntersection(const DistrictPiece& object) const
{
    return intersectsFilter(object);
}

bool ShapeFileImporter::CheckIntersection(const RoadObject& object) const
{
    return intersectsFilter(object);
}
