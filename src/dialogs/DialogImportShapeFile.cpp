#include "dialogs/DialogImportShapeFile.h"

#include "dialogs/DialogOwnership.h"
#include "dialogs/DlgShapeImport.h"
#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ShapeImportJob.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QProgressDialog>

static_assert(int(DialogImportShapeFile::imSheets) == ShapeImportJob::imSheets
        && int(DialogImportShapeFile::imRoutes) == ShapeImportJob::imRoutes
        && int(DialogImportShapeFile::imDistricts) == ShapeImportJob::imDistricts
        && int(DialogImportShapeFile::imBuildings) == ShapeImportJob::imBuildings
        && int(DlgShapeImport::imBuildings) == ShapeImportJob::imBuildings,
    "the dialog's mode is handed to the import as it is");

DialogImportShapeFile::DialogImportShapeFile(QWidget* parent, QSettings* settings)
    : parent(parent)
    , dialog(new DlgShapeImport(parent))
    , dialogOwner(ShareDialogOwnership(dialog.data()))
{
    dialog->SetSettings(settings);
}

DialogImportShapeFile::~DialogImportShapeFile() = default;

void DialogImportShapeFile::SetImportMode(ImportMode mode)
{
    if (dialog)
        dialog->SetImportMode(mode);
}
DialogImportShapeFile::ImportMode DialogImportShapeFile::GetImportMode() const
{
    return dialog ? static_cast<ImportMode>(dialog->GetImportMode()) : imSheets;
}
void DialogImportShapeFile::SetShapeFilename(const QString& file)
{
    if (dialog)
        dialog->SetShapeFilename(file);
}
QString DialogImportShapeFile::GetShapeFilename() const
{
    return dialog ? dialog->GetShapeFilename() : QString();
}
void DialogImportShapeFile::SetGeoSystemForProject(const GeoSystemSettings& system)
{
    if (dialog)
        dialog->SetGeoSystemForProject(system);
}
void DialogImportShapeFile::SetGeoSystemForImportFile(const GeoSystemSettings& system)
{
    if (dialog)
        dialog->SetGeoSystemForImportFile(system);
}
GeoSystemSettings DialogImportShapeFile::GetGeoSystemForImportFile() const
{
    return dialog ? dialog->GetGeoSystemForImportFile() : GeoSystemSettings();
}
void DialogImportShapeFile::SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter)
{
    if (dialog)
        dialog->SetGeoFilter(filter);
}
void DialogImportShapeFile::SetCorrectVertexOrder(bool correct)
{
    if (dialog)
        dialog->SetCorrectVertexOrder(correct);
}
void DialogImportShapeFile::SetPointSelectMode(int mode)
{
    if (dialog)
        dialog->SetPointSelectMode(mode);
}
void DialogImportShapeFile::SetIndexForPoint1(int index)
{
    if (dialog)
        dialog->SetIndexForPoint1(index);
}
void DialogImportShapeFile::SetIndexForPoint2(int index)
{
    if (dialog)
        dialog->SetIndexForPoint2(index);
}
void DialogImportShapeFile::SetScaleImportMode(int mode)
{
    if (dialog)
        dialog->SetScaleImportMode(mode);
}
void DialogImportShapeFile::SetFixedScale(int scale)
{
    if (dialog)
        dialog->SetFixedScale(scale);
}
void DialogImportShapeFile::SetPageAdditionalText(const QString& text)
{
    if (dialog)
        dialog->SetPageAdditionalText(text);
}
void DialogImportShapeFile::SetDefaultVariant(const QString& variant)
{
    if (dialog)
        dialog->SetDefaultVariant(variant);
}
void DialogImportShapeFile::SetFilesToProcess(const QStringList& files)
{
    filesToProcess = files;
}
QStringList DialogImportShapeFile::GetFilesToProcess() const
{
    return filesToProcess;
}

void DialogImportShapeFile::Initialize()
{
    if (dialog)
        dialog->Initialize();
}

void DialogImportShapeFile::SaveToImportFieldManager(ImportFieldManager* manager) const
{
    if (!manager || !dialog)
        return;
    for (const auto& assignment : dialog->GetFieldAssignments())
        manager->SetAssignment(assignment.second, assignment.first);
}

bool DialogImportShapeFile::Execute()
{
    scalesMap.clear();
    roads.clear();
    districtPieces.clear();
    buildings.clear();
    lastError.clear();
    warnings.clear();
    if (!dialog || dialog->exec() != QDialog::Accepted)
        return false;

    // The chosen file first, then the others the host named, each once.
    QStringList files { dialog->GetShapeFilename() };
    for (const QString& file : qAsConst(filesToProcess)) {
        if (!files.contains(file))
            files.append(file);
    }
    QProgressDialog progress(parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setCancelButton(nullptr);
    progress.setWindowTitle(QCoreApplication::translate("DlgShapeImport", "Shape File Import"));
    progress.setMaximum(files.size());

    ShapeImportJob job(static_cast<ShapeImportJob::ImportMode>(dialog->GetImportMode()));
    job.SetGeoSystemForImportFile(dialog->GetGeoSystemForImportFile());
    job.SetGeoSystemForProject(dialog->GetGeoSystemForProject());
    if (dialog->GetUseGeoFilter())
        job.SetGeoFilter(dialog->GetGeoFilter());
    job.SetCorrectVertexOrder(dialog->GetCorrectVertexOrder());
    job.SetPointSelectMode(dialog->GetPointSelectMode());
    job.SetIndexForPoint1(dialog->GetIndexForPoint1());
    job.SetIndexForPoint2(dialog->GetIndexForPoint2());
    job.SetScaleImportMode(dialog->GetScaleImportMode());
    job.SetFixedScale(dialog->GetFixedScale());
    job.SetPageAdditionalText(dialog->GetPageAdditionalText());
    job.SetDefaultVariant(dialog->GetDefaultVariant());
    // Only the first file can have an attribute table chosen for it; the
    // dialog's rows are its columns.
    job.SetFiles(files.constFirst(), dialog->GetShapeDbFilename());
    for (const auto& assignment : dialog->GetFieldAssignments())
        job.Assign(assignment.second, assignment.first);
    // A file that fails does not stop the others: what they hold is the
    // user's work as much.
    QStringList failures;
    for (int i = 0; i < files.size(); ++i) {
        const QString file = QDir::toNativeSeparators(files.at(i));
        progress.setLabelText(file);
        progress.setValue(i);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        if (i > 0)
            job.SetFiles(files.at(i));
        const bool ok = job.Run();
        QApplication::restoreOverrideCursor();
        for (const QString& warning : job.GetWarnings())
            warnings.append(QCoreApplication::translate("DlgShapeImport", "%1: %2").arg(file, warning));
        if (!ok)
            failures.append(
                QCoreApplication::translate("DlgShapeImport", "%1: %2").arg(file, job.GetLastErrorMessage()));
    }
    job.GetScalesMap(scalesMap);
    roads = job.GetRoads();
    districtPieces = job.GetDistrictPieces();
    buildings = job.GetBuildings();
    progress.setValue(files.size());
    if (failures.isEmpty())
        return true;
    lastError = failures.join(QLatin1Char('\n'));
    QMessageBox::warning(parent, QCoreApplication::translate("DlgShapeImport", "Shape File Import"), lastError);
    return failures.size() < files.size();
}
