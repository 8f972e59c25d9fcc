#include "shapeimport/ShapeFileReader.h"

#include <shapefil.h>

#include <algorithm>

ShapeFileReader::ShapeFileReader() = default;

ShapeFileReader::~ShapeFileReader()
{
    Close();
}

int ShapeFileReader::Open(const QByteArray& path)
{
    Close();
    SHPHandle shp = SHPOpen(path.constData(), "rb");
    if (!shp)
        return -1;
    handle = shp;
    double minBound[4] = {};
    double maxBound[4] = {};
    SHPGetInfo(shp, &entityCount, &shapeType, minBound, maxBound);
    bounds = { minBound[0], minBound[1], maxBound[0], maxBound[1] };
    return 0;
}

void ShapeFileReader::Close()
{
    if (handle)
        SHPClose(static_cast<SHPHandle>(handle));
    handle = nullptr;
    entityCount = 0;
    shapeType = 0;
    bounds = ShapeObject::Bounds();
}

int ShapeFileReader::ReadObject(int index, ShapeObject& object) const
{
    object.Clear();
    if (!handle)
        return -1;
    SHPObject* shape = SHPReadObject(static_cast<SHPHandle>(handle), index);
    if (!shape)
        return -1;

    const int count = std::max(shape->nVertices, 0);
    QVector<QPointF> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.append(QPointF(shape->padfX[i], shape->padfY[i]));

    const int partCount = std::max(shape->nParts, 0);
    QVector<ShapeObject::Part> parts;
    parts.reserve(partCount);
    for (int i = 0; i < partCount; ++i) {
        const int start = shape->panPartStart[i];
        const int end = i + 1 < partCount ? shape->panPartStart[i + 1] : count;
        parts.append({ shape->panPartType ? shape->panPartType[i] : 0, start, end - start });
    }
    object.Set(index, shape->nShapeId, shape->nSHPType, points,
        { shape->dfXMin, shape->dfYMin, shape->dfXMax, shape->dfYMax }, parts);
    SHPDestroyObject(shape);
    return 0;
}
