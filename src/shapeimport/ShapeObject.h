#ifndef KAMO_TOOLS_SHAPEOBJECT_H
#define KAMO_TOOLS_SHAPEOBJECT_H

#include "kamo_tools_export.h"

#include <QPointF>
#include <QString>
#include <QVector>

#include <cstdint>

/// One entity of a shape file as the importers see it: its points in file
/// order (Z and M dropped), its bounds and its parts.
class KAMO_TOOLS_EXPORT ShapeObject
{
public:
    /// A part of a multi-part entity: a ring of a polygon or a line of a polyline.
    struct Part {
        std::int32_t type = 0;        ///< shapelib's part type
        std::int32_t firstVertex = 0; ///< index into the points
        std::int32_t vertexCount = 0; ///< up to the next part or the end
    };
    /// The bounding box of an entity as the file states it, in file coordinates.
    struct Bounds {
        /// The lowest and highest coordinates.
        ///@{
        double minX = 0.0;
        double minY = 0.0;
        double maxX = 0.0;
        double maxY = 0.0;
        ///@}
    };

    /// Creates the empty object (see Clear()).
    ShapeObject();

    /// Back to the empty object: record index -1, no points, no parts.
    void Clear();
    /// Whether the object holds no entity (record index -1).
    bool IsEmpty() const { return recordIndex < 0; }

    /// The entity as read: its record index (0-based, -1 when empty), its shape id, its shapelib shape type code, its
    /// number of points, the points, the bounds the file states and the parts.
    ///@{
    std::int32_t GetRecordIndex() const { return recordIndex; }
    std::int32_t GetShapeId() const { return shapeId; }
    std::int32_t GetShapeType() const { return shapeType; }
    std::int32_t GetVertexCount() const { return vertexCount; }
    const QVector<QPointF>& GetPoints() const { return points; }
    const Bounds& GetBoundingBox() const { return bounds; }
    QVector<Part> GetParts() const { return parts; }
    ///@}

    /// The points of part `part`, cut to the points the object has: a file
    /// may claim more than it holds.
    QVector<QPointF> GetPartPoints(int part) const;

    /// The name of the object's shape type, as ShapeTypeName().
    QString GetShapeTypeName() const { return ShapeTypeName(shapeType); }
    /// "2D Polygon" for 5 and so on; "Unknown" for codes shape files do not use.
    static QString ShapeTypeName(int code);

    /// Filled by the reader; exposed for it and for tests.
    void Set(std::int32_t record, std::int32_t id, std::int32_t type, const QVector<QPointF>& vertices,
        const Bounds& box, const QVector<Part>& objectParts);

private:
    std::int32_t recordIndex;
    std::int32_t shapeId;
    std::int32_t shapeType;
    std::int32_t vertexCount;
    QVector<QPointF> points;
    Bounds bounds;
    QVector<Part> parts;
};

#endif
