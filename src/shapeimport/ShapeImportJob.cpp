#include "shapeimport/ShapeImportJob.h"

#include "shapeimport/ImportBuildingFromShapeFile.h"
#include "shapeimport/ImportDistrictsFromShapeFile.h"
#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ImportRouteDataFromShapeFile.h"
#include "shapeimport/ImportSheetDataFromShapeFile.h"

struct ShapeImportJob::Private {
    ShapeFileImporter& importer()
    {
        switch (mode) {
        case imRoutes:
            return routes;
        case imDistricts:
            return districts;
        case imBuildings:
            return buildings;
        default:
            return sheets;
        }
    }

    ImportMode mode = imSheets;
    QVector<QString> columns;
    ImportSheetDataFromShapeFile sheets;
    ImportRouteDataFromShapeFile routes;
    ImportDistrictsFromShapeFile districts;
    ImportBuildingFromShapeFile buildings;
    // The other importers start afresh with each file; the sheet importer
    // keeps its scales map itself.
    QList<RoadObject> roadsMade;
    QList<DistrictPiece> piecesMade;
    QList<BuildingObject> buildingsMade;
};

ShapeImportJob::ShapeImportJob(ImportMode mode)
    : d(std::make_unique<Private>())
{
    d->mode = mode;
}

ShapeImportJob::~ShapeImportJob() = default;

ShapeImportJob::ImportMode ShapeImportJob::GetImportMode() const
{
    return d->mode;
}

QString ShapeImportJob::ImportModeName(int mode)
{
    static const char* const names[] = { "Sheets", "Routes", "Districts", "Buildings" };
    return mode >= imSheets && mode <= imBuildings ? QLatin1String(names[mode]) : QString();
}

const QMap<int, QString>& ShapeImportJob::GetTargetFields() const
{
    return d->importer().GetImportFieldManager()->GetTargetFields();
}

void ShapeImportJob::SetFiles(const QString& shapeFile, const QString& dbFile)
{
    d->importer().SetShapeFilename(shapeFile);
    d->importer().SetShapeDbFilename(dbFile);
    d->columns.clear();
    GetAvailableFieldNames(dbFile.isEmpty() ? MakeShapeDbFilenameFromShapeFilename(shapeFile) : dbFile, d->columns);
}

void ShapeImportJob::SetGeoSystemForImportFile(const GeoSystemSettings& system)
{
    d->importer().SetGeoSystemForImportFile(system);
}

void ShapeImportJob::SetGeoSystemForProject(const GeoSystemSettings& system)
{
    d->importer().SetGeoSystemForProject(system);
}

void ShapeImportJob::SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter)
{
    d->importer().SetGeoFilter(filter);
}

void ShapeImportJob::SetCorrectVertexOrder(bool correct)
{
    d->sheets.SetCorrectVertexOrder(correct);
}

void ShapeImportJob::SetPointSelectMode(int mode)
{
    d->sheets.SetPointSelectMode(mode);
}

void ShapeImportJob::SetIndexForPoint1(int index)
{
    d->sheets.SetIndexForPoint1(index);
}

void ShapeImportJob::SetIndexForPoint2(int index)
{
    d->sheets.SetIndexForPoint2(index);
}

void ShapeImportJob::SetScaleImportMode(int mode)
{
    d->sheets.SetScaleImportMode(mode);
}

void ShapeImportJob::SetFixedScale(int scale)
{
    d->sheets.SetFixedScale(scale);
}

void ShapeImportJob::SetPageAdditionalText(const QString& text)
{
    d->sheets.SetPageAdditionalText(text);
}

void ShapeImportJob::SetDefaultVariant(const QString& variant)
{
    d->routes.SetDefaultVariant(variant);
}

ShapeImportJob::AssignmentCheck ShapeImportJob::CheckAssignment(int target, const QString& column) const
{
    // The target first: a file of assignments made for another kind of
    // import names columns of another table as well.
    if (!GetTargetFields().contains(target))
        return acUnknownTarget;
    return d->columns.contains(column) ? acOk : acUnknownColumn;
}

ShapeImportJob::AssignmentCheck ShapeImportJob::Assign(int target, const QString& column)
{
    const AssignmentCheck check = CheckAssignment(target, column);
    if (check == acOk)
        d->importer().GetImportFieldManager()->SetAssignment(target, column);
    return check;
}

bool ShapeImportJob::Run()
{
    switch (d->mode) {
    case imRoutes: {
        // The route importer answers true once a file name is set, even when
        // the file cannot be read, and hosts that call it themselves rely on
        // that: only its message tells.
        const bool ok = d->routes.Execute() && d->routes.GetLastErrorMessage().isEmpty();
        d->roadsMade += d->routes.GetRoads();
        return ok;
    }
    case imDistricts: {
        const bool ok = d->districts.Execute();
        d->piecesMade += d->districts.GetDistrictPieces();
        return ok;
    }
    case imBuildings: {
        const bool ok = d->buildings.Execute();
        d->buildingsMade += d->buildings.GetBuildings();
        return ok;
    }
    default:
        // One scales map for all files, so that a sheet of a later file
        // that replaces one of an earlier file is named like one within a
        // file.
        return d->sheets.Execute();
    }
}

QString ShapeImportJob::GetLastErrorMessage() const
{
    return d->importer().GetLastErrorMessage();
}

QStringList ShapeImportJob::GetWarnings() const
{
    return d->importer().GetWarnings();
}

void ShapeImportJob::GetScalesMap(QMap<int, QMap<QString, QList<PointF>>>& scales) const
{
    d->sheets.GetScalesMap(scales);
}

const QList<RoadObject>& ShapeImportJob::GetRoads() const
{
    return d->roadsMade;
}

const QList<DistrictPiece>& ShapeImportJob::GetDistrictPieces() const
{
    return d->piecesMade;
}

const QList<BuildingObject>& ShapeImportJob::GetBuildings() const
{
    return d->buildingsMade;
}
