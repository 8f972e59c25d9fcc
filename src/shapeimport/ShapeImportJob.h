#ifndef KAMO_TOOLS_SHAPEIMPORTJOB_H
#define KAMO_TOOLS_SHAPEIMPORTJOB_H

#include "kamo_tools_export.h"

#include <Kamo_view/GeoSystemSettings.h>
#include <Kamo_view/PointF.h>

#include <QList>
#include <QMap>
#include <QPainterPath>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <memory>

class BuildingObject;
class DistrictPiece;
class RoadObject;

/// One shape-file import as the import dialog and the command line run it: the importer of the chosen mode, given
/// the choices and only those field assignments that the mode's target fields and the attribute table allow, run on
/// one file after another, with the records of all runs. A host imports without the dialog the same way:
///
/// \code
/// ShapeImportJob job(ShapeImportJob::imRoutes);
/// job.SetFiles(QStringLiteral("roads.shp"));
/// job.Assign(ImportRouteDataFromShapeFile::tfName, QStringLiteral("STRASSE"));
/// if (job.Run())
///     roads = job.GetRoads();
/// \endcode
class KAMO_TOOLS_EXPORT ShapeImportJob
{
public:
    /// What the import makes of the shapes; the values of DialogImportShapeFile::ImportMode.
    enum ImportMode { imSheets, imRoutes, imDistricts, imBuildings };
    /// Whether an assignment can be taken: acUnknownTarget when the mode has no such target field (checked first),
    /// acUnknownColumn when the attribute table has no such column.
    enum AssignmentCheck { acOk, acUnknownTarget, acUnknownColumn };

    /// Creates the job with the importer of \p mode and nothing assigned.
    explicit ShapeImportJob(ImportMode mode);
    /// Releases the importer and the records.
    ~ShapeImportJob();
    /// A job is not copied: its importer keeps the sheets of earlier runs.
    ///@{
    ShapeImportJob(const ShapeImportJob&) = delete;
    ShapeImportJob& operator=(const ShapeImportJob&) = delete;
    ///@}

    /// The mode the job was created with.
    ImportMode GetImportMode() const;
    /// The name of an ImportMode ("Sheets", "Routes", "Districts", "Buildings"); empty for any other value.
    static QString ImportModeName(int mode);
    /// The target fields of the mode's importer: id -> display name.
    const QMap<int, QString>& GetTargetFields() const;

    /// The shape file the next Run() reads, and its attribute table (empty: the one beside it). The table's columns
    /// are what CheckAssignment() and Assign() check against; assignments made before stay.
    void SetFiles(const QString& shapeFile, const QString& dbFile = QString());
    /// The geo systems of the file and of the project; points are converted only when the two differ. Both unset by
    /// default.
    ///@{
    void SetGeoSystemForImportFile(const GeoSystemSettings& system);
    void SetGeoSystemForProject(const GeoSystemSettings& system);
    ///@}
    /// Areas by name in the project's coordinates; objects outside all of them are left out. Null or empty: all pass.
    void SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter);

    /// The sheet options, as ImportSheetDataFromShapeFile takes them (its defaults stay until set); other modes
    /// ignore them.
    ///@{
    void SetCorrectVertexOrder(bool correct);
    void SetPointSelectMode(int mode);
    void SetIndexForPoint1(int index);
    void SetIndexForPoint2(int index);
    void SetScaleImportMode(int mode);
    void SetFixedScale(int scale);
    void SetPageAdditionalText(const QString& text);
    ///@}
    /// The route option: the variant of routes that name none; other modes ignore it.
    void SetDefaultVariant(const QString& variant);

    /// Whether attribute column \p column may feed target field \p target.
    AssignmentCheck CheckAssignment(int target, const QString& column) const;
    /// Lets \p column feed \p target when CheckAssignment() allows it, replacing an earlier column of that target;
    /// answers the check.
    AssignmentCheck Assign(int target, const QString& column);

    /// Imports the files set last. False, with GetLastErrorMessage(), when no file is set or it cannot be read; the
    /// job may run again with other files.
    bool Run();
    /// Why the last Run() failed; empty after success.
    QString GetLastErrorMessage() const;
    /// What the last Run() left out or replaced, one line each, in file order.
    QStringList GetWarnings() const;

    /// The records of all runs, in the order of the runs; empty for the other modes. Sheets of a later run replace
    /// those of the same number and scale.
    ///@{
    void GetScalesMap(QMap<int, QMap<QString, QList<PointF>>>& scales) const;
    const QList<RoadObject>& GetRoads() const;
    const QList<DistrictPiece>& GetDistrictPieces() const;
    const QList<BuildingObject>& GetBuildings() const;
    ///@}

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
