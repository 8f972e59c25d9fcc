#ifndef KAMO_TOOLS_DIALOGIMPORTSHAPEFILE_H
#define KAMO_TOOLS_DIALOGIMPORTSHAPEFILE_H

#include "kamo_tools_export.h"

#include <Kamo_view/BuildingObject.h>
#include <Kamo_view/DistrictPiece.h>
#include <Kamo_view/GeoSystemSettings.h>
#include <Kamo_view/PointF.h>
#include <Kamo_view/RoadObject.h>

#include <QList>
#include <QMap>
#include <QPainterPath>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <memory>

class DlgShapeImport;
class ImportFieldManager;
class QSettings;
class QWidget;

/// The shape-file import as the host opens it: preset what it knows (mode,
/// file, geo systems, options, the project's areas), call Initialize and
/// Execute, then fetch the records of the chosen kind. The settings are
/// borrowed; the facade owns its dialog.
class KAMO_TOOLS_EXPORT DialogImportShapeFile
{
public:
    /// What the import makes of the shapes; same values as DlgShapeImport::ImportMode.
    enum ImportMode { imSheets, imRoutes, imDistricts, imBuildings };

    /// Creates the facade and its dialog under \p parent. \p settings is borrowed (may be null: nothing is remembered)
    /// and must outlive the facade.
    DialogImportShapeFile(QWidget* parent, QSettings* settings);
    /// Releases this facade's share of the dialog; the last copy deletes it unless the parent already has.
    ~DialogImportShapeFile();
    /// Copies share the one dialog and take over the results imported so far.
    ///@{
    DialogImportShapeFile(const DialogImportShapeFile&) = default;
    DialogImportShapeFile& operator=(const DialogImportShapeFile&) = default;
    ///@}

    /// The import mode.
    ///@{
    void SetImportMode(ImportMode mode);
    ImportMode GetImportMode() const;
    ///@}
    /// The shape file (".shp") the dialog opens with.
    ///@{
    void SetShapeFilename(const QString& file);
    QString GetShapeFilename() const;
    ///@}
    /// The geo systems: the project's, which everything is converted to, and the shape file's own. A system the host
    /// sets wins over the file's ".prj" and the stored choice. SetGeoFilter() hands in the project's areas, which the
    /// user may use as a filter; the map is shared, not copied.
    ///@{
    void SetGeoSystemForProject(const GeoSystemSettings& system);
    void SetGeoSystemForImportFile(const GeoSystemSettings& system);
    GeoSystemSettings GetGeoSystemForImportFile() const;
    void SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter);
    ///@}

    /// Sheet options.
    ///@{
    void SetCorrectVertexOrder(bool correct);
    void SetPointSelectMode(int mode);
    void SetIndexForPoint1(int index);
    void SetIndexForPoint2(int index);
    void SetScaleImportMode(int mode);
    void SetFixedScale(int scale);
    void SetPageAdditionalText(const QString& text);
    ///@}
    /// Route option: the variant of routes that name none.
    void SetDefaultVariant(const QString& variant);

    /// More shape files read with the same settings after the chosen one;
    /// sheets of all files go into one scales map.
    void SetFilesToProcess(const QStringList& files);
    /// The files set with SetFilesToProcess().
    QStringList GetFilesToProcess() const;

    /// Puts the dialog into its stored state, then applies the presets.
    void Initialize();
    /// Shows the dialog; on OK imports every file to process under a
    /// progress dialog. Files that fail are shown in one message and named
    /// in GetLastErrorMessage, one line each; the others are imported all
    /// the same. False when cancelled or when no file could be imported.
    bool Execute();

    /// The assigned columns of the dialog's tree, in tree order; a later
    /// column for the same target replaces an earlier one.
    void SaveToImportFieldManager(ImportFieldManager* manager) const;

    /// The imported records of the last Execute(), of the mode that ran; empty for the other modes. GetScalesMap()
    /// gives scale -> sheet number -> the sheet's corners in project coordinates.
    ///@{
    void GetScalesMap(QMap<int, QMap<QString, QList<PointF>>>& scales) const { scales = scalesMap; }
    const QList<RoadObject>& GetRoads() const { return roads; }
    const QList<DistrictPiece>& GetDistrictPieces() const { return districtPieces; }
    const QList<BuildingObject>& GetBuildings() const { return buildings; }
    ///@}
    /// The files that failed in the last Execute(), one line each; empty when all were imported.
    QString GetLastErrorMessage() const { return lastError; }
    /// What the importers reported about records they skipped or repaired, prefixed with the file name.
    QStringList GetWarnings() const { return warnings; }

private:
    QWidget* parent;
    QPointer<DlgShapeImport> dialog;
    std::shared_ptr<void> dialogOwner;
    QStringList filesToProcess;
    QMap<int, QMap<QString, QList<PointF>>> scalesMap;
    QList<RoadObject> roads;
    QList<DistrictPiece> districtPieces;
    QList<BuildingObject> buildings;
    QString lastError;
    QStringList warnings;
};

#endif
