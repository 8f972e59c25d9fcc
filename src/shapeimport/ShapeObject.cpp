#include "shapeimport/ShapeObject.h"

#include <algorithm>

ShapeObject::ShapeObject()
{
    Clear();
}

void ShapeObject::Clear()
{
    recordIndex = -1;
    shapeId = -1;
    shapeType = 0;
    vertexCount = 0;
    points.clear();
    bounds = Bounds();
    parts.clear();
}

void ShapeObject::Set(std::int32_t record, std::int32_t id, std::int32_t type, const QVector<QPointF>& vertices,
    const Bounds& box, const QVector<Part>& objectParts)
{
    recordIndex = record;
    shapeId = id;
    shapeType = type;
    points = vertices;
    vertexCount = points.size();
    bounds = box;
    parts = objectParts;
}

QVector<QPointF> ShapeObject::GetPartPoints(int part) const
{
    if (part < 0 || part >= parts.size())
        return {};
    const int first = std::clamp(parts.at(part).firstVertex, 0, vertexCount);
    const int count = std::clamp(parts.at(part).vertexCount, 0, vertexCount - first);
    return points.mid(first, count);
}

QString ShapeObject::ShapeTypeName(int code)
{
    switch (code) {
    case 0:
        return QStringLiteral("None");
    case 1:
        return QStringLiteral("2D Point");
    case 3:
        return QStringLiteral("2D Arc");
    case 5:
        return QStringLiteral("2D Polygon");
    case 8:
        return QStringLiteral("2D Multi-point");
    case 11:
        return QStringLiteral("3D Point");
    case 13:
        return QStringLiteral("3D Arc");
    case 15:
        return QStringLiteral("3D Polygon");
    case 18:
        return QStringLiteral("3D Multi-point");
    case 21:
        return QStringLiteral("2D Measure Point");
    case 23:
        return QStringLiteral("2D Measure Arc");
    case 25:
        return QStringLiteral("2D Measure Polygon");
    case 28:
        return QStringLiteral("2D Measure Multi-point");
    case 31:
        return QStringLiteral("Multi-patch");
    default:
        return QStringLiteral("Unknown");
    }
}
