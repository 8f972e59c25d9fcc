#ifndef KAMO_TOOLS_SHAPEFILEIMPORTER_H
#define KAMO_TOOLS_SHAPEFILEIMPORTER_H

#include "kamo_tools_export.h"

#include <Kamo_view/GeoSystemSettings.h>
#include <Kamo_view/PointF.h>

#include <QList>
#include <QMap>
#include <QPainterPath>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

class BuildingObject;
class DistrictPiece;
class ImportFieldManager;
class RoadObject;
class ShapeDbFileReader;
class ShapeFileReader;
class ShapeObject;

/// The file name suffixes of shape file and attribute table, ".shp" and ".dbf".
///@{
KAMO_TOOLS_EXPORT const QString& GetShapeFileExtension();
KAMO_TOOLS_EXPORT const QString& GetShapeDbFileExtension();
///@}
/// The attribute table beside a shape file: only the last suffix changes,
/// "C:/x/roads.old.shp" gives "C:/x/roads.old.dbf".
KAMO_TOOLS_EXPORT QString MakeShapeDbFilenameFromShapeFilename(const QString& shapeFile);
/// The column names of an attribute table, in table order; `names` stays as
/// it was when the table cannot be opened.
KAMO_TOOLS_EXPORT void GetAvailableFieldNames(const QString& dbFile, QVector<QString>& names);

/// What every shape-file import needs: the files, the geo systems of the
/// file and of the project, the field assignments through which attributes
/// are read, an optional filter of named areas, and the last error.
///
/// Copies share the field manager and the open files.
class KAMO_TOOLS_EXPORT ShapeFileImporter
{
public:
    /// Creates an importer with a fresh field manager and no files.
    ShapeFileImporter();
    virtual ~ShapeFileImporter();
    /// Copies share the field manager and the open files; settings and results are copied.
    ///@{
    ShapeFileImporter(const ShapeFileImporter&);
    ShapeFileImporter& operator=(const ShapeFileImporter&);
    ///@}

    /// The files to read (an empty table name means the one beside the shape file), the text added to page names, and
    /// the geo systems of the project and of the file; points are converted only when the two differ.
    ///@{
    void SetShapeFilename(const QString& name) { shapeFilename = name; }
    void SetShapeDbFilename(const QString& name) { shapeDbFilename = name; }
    void SetPageAdditionalText(const QString& text) { pageAdditionalText = text; }
    void SetGeoSystemForProject(GeoSystemSettings system) { projectGeoSystem = system; }
    void SetGeoSystemForImportFile(GeoSystemSettings system) { importFileGeoSystem = system; }
    ///@}
    /// Areas by name, in the coordinates of the imported objects. Objects
    /// outside every area are left out; an empty map lets all pass.
    void SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter) { geoFilter = filter; }

    /// The field assignments the import reads attributes through; owned by the importer (shared by its copies), never
    /// null.
    ImportFieldManager* GetImportFieldManager() const { return fieldManager.get(); }
    /// Why the last import failed; empty after success.
    QString GetLastErrorMessage() const { return lastErrorMessage; }
    /// Objects left out for a reason the user should know (a point that
    /// could not be converted), one line each, in file order.
    QStringList GetWarnings() const { return warnings; }

    /// Whether the object meets one of the filter's areas; true without filter or with an empty one.
    ///@{
    bool CheckIntersection(const BuildingObject& object) const;
    bool CheckIntersection(const DistrictPiece& object) const;
    bool CheckIntersection(const RoadObject& object) const;
    ///@}

protected:
    /// The attribute table to read: the one set, or the one beside the
    /// shape file.
    QString EffectiveShapeDbFilename() const;

    /// The read loop every import runs: opens the table (without one that
    /// opens no attribute can be read, and every read answers false) and
    /// the shape file, then hands each entity in file order to `process`.
    /// False with the error text when the shape file does not open.
    bool ReadObjects(
        const QString& shapeFile, const QString& dbFile, const std::function<void(const ShapeObject&)>& process);

    /// Converts `points` of record `record` from the file's geo system into
    /// the project's. A point that fails leaves all of them unchanged, adds
    /// a warning and answers false. Equal systems change nothing.
    bool ConvertPoints(QVector<QPointF>& points, int record);

    /// The rings of a polygon object in the project's geo system, turned to
    /// the host's sense: outer rings counter-clockwise, holes (rings inside
    /// an odd number of others) clockwise, whatever sense the file gave
    /// them. Rings without area are dropped. False when a point cannot be
    /// converted.
    bool ReadRings(const ShapeObject& object, QList<QVector<PointF>>& rings);

    /// The state derived importers read and fill.
    ///@{
    QString shapeFilename;
    QString shapeDbFilename;
    QString lastErrorMessage;
    QString pageAdditionalText;
    GeoSystemSettings projectGeoSystem;
    GeoSystemSettings importFileGeoSystem;
    QStringList warnings;
    ///@}

private:
    template <typename Object> bool intersectsFilter(const Object& object) const;

    std::shared_ptr<ImportFieldManager> fieldManager;
    QSharedPointer<QMap<QString, QPainterPath>> geoFilter;
    std::shared_ptr<ShapeFileReader> shapeReader;
    std::shared_ptr<ShapeDbFileReader> dbReader;
    bool convert = false; ///< the systems differ: decided once per read
};

#endif
