#ifndef KAMO_TOOLS_DIALOGIMPORTSHAPEFILE_H
#define KAMO_TOOLS_DIALOGIMPORTSHAPEFILE_H

#include "kamo_tools_export.h"

#include <BuildingObject.h>
#include <DistrictPiece.h>
#include <GeoSystemSettings.h>
#include <PointF.h>
#include <RoadObject.h>

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
class ImportSheetDataFromShapeFile;
class QSettings;
class QWidget;

// The shape-file import as the host opens it: preset what it knows (mode,
// file, geo systems, options, the project's areas), call Initialize and
// Execute, then fetch the records of the chosen kind. The settings are
// borrowed; the facade owns its dialog.
class KAMO_TOOLS_EXPORT DialogImportShapeFile
{
public:
    enum ImportMode { imSheets, imRoutes, imDistricts, imBuildings };

    DialogImportShapeFile(QWidget* parent, QSettings* settings);
    ~DialogImportShapeFile();
    DialogImportShapeFile(const DialogImportShapeFile&) = default;
    DialogImportShapeFile& operator=(const DialogImportShapeFile&) = default;

    void SetImportMode(ImportMode mode);
    ImportMode GetImportMode() const;
    void SetShapeFilename(const QString& file);
    QString GetShapeFilename() const;
    void SetGeoSystemForProject(const GeoSystemSettings& system);
    void SetGeoSystemForImportFile(const GeoSystemSettings& system);
    GeoSystemSettings GetGeoSystemForImportFile() const;
    void SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter);

    // Sheet options.
    void SetCorrectVertexOrder(bool correct);
    void SetPointSelectMode(int mode);
    void SetIndexForPoint1(int index);
    void SetIndexForPoint2(int index);
    void SetScaleImportMode(int mode);
    void SetFixedScale(int scale);
    void SetPageAdditionalText(const QString& text);
    // Route option: the variant of routes that name none.
    void SetDefaultVariant(const QString& variant);

    // More shape files read with the same settings after the chosen one;
    // sheets of all files go into one scales map.
    void SetFilesToProcess(const QStringList& files);
    QStringList GetFilesToProcess() const;

    // Puts the dialog into its stored state, then applies the presets.
    void Initialize();
    // Shows the dialog; on OK imports every file to process under a
    // progress dialog. Files that fail are shown in one message and named
    // in GetLastErrorMessage, one line each; the others are imported all
    // the same. False when cancelled or when no file could be imported.
    bool Execute();

    // The assigned columns of the dialog's tree, in tree order; a later
    // column for the same target replaces an earlier one.
    void SaveToImportFieldManager(ImportFieldManager* manager) const;

    void GetScalesMap(QMap<int, QMap<QString, QList<PointF>>>& scales) const { scales = scalesMap; }
    const QList<RoadObject>& GetRoads() const { return roads; }
    const QList<DistrictPiece>& GetDistrictPieces() const { return districtPieces; }
    const QList<BuildingObject>& GetBuildings() const { return buildings; }
    QString GetLastErrorMessage() const { return lastError; }
    QStringList GetWarnings() const { return warnings; }

    // The dialog, for a host that wants to adjust it; null once the host has
    // destroyed the parent widget.
    DlgShapeImport* GetDialog() const;

private:
    bool import(const QString& shapeFile, const QString& dbFile, ImportSheetDataFromShapeFile& sheets);

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
