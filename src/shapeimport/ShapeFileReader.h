#ifndef KAMO_TOOLS_SHAPEFILEREADER_H
#define KAMO_TOOLS_SHAPEFILEREADER_H

#include "kamo_tools_export.h"
#include "shapeimport/ShapeObject.h"

#include <QByteArray>

/// Reads the entities of a ".shp" file (with its ".shx" index) through
/// shapelib, read-only. The handle is closed on Close, on the next Open and
/// on destruction.
class KAMO_TOOLS_EXPORT ShapeFileReader
{
public:
    ShapeFileReader();
    ~ShapeFileReader();
    ShapeFileReader(const ShapeFileReader&) = delete;
    ShapeFileReader& operator=(const ShapeFileReader&) = delete;

    /// 0 on success, -1 when the file cannot be opened as a shape file.
    int Open(const QByteArray& path);
    /// Closes the file; reads then fail.
    void Close();
    /// Whether a file is open.
    bool IsOpen() const { return handle != nullptr; }

    /// The number of entities and the shapelib shape type code of the open file; 0 without one.
    ///@{
    int GetEntityCount() const { return entityCount; }
    int GetShapeType() const { return shapeType; }
    ///@}
    /// The bounds the file's header states.
    ShapeObject::Bounds GetBounds() const { return bounds; }

    /// 0 and `object` filled; -1 when not open or the entity cannot be read,
    /// `object` then empty.
    int ReadObject(int index, ShapeObject& object) const;

private:
    void* handle = nullptr; ///< SHPHandle; shapelib's header stays out of ours
    int entityCount = 0;
    int shapeType = 0;
    ShapeObject::Bounds bounds;
};

#endif
