#include "dialogs/DialogImportShapeFile.h"

#include "dialogs/DialogOwnership.h"
#include "dialogs/DlgShapeImport.h"
#include "shapeimport/ImportBuildingFromShapeFile.h"
#include "shapeimport/ImportDistrictsFromShapeFile.h"
#include "shapeimport/ImportFieldManager.h"
#include "shapeimport/ImportRouteDataFromShapeFile.h"
#include "shapeimport/ImportSheetDataFromShapeFile.h"

#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTreeWidget>

DialogImportShapeFile::DialogImportShapeFile(QWidget* parent, QSettings* settings)
    : parent(parent)
    , dialog(new DlgShapeImport(parent))
    , dialogOwner(ShareDialogOwnership(dialog.data()))
{
    dialog->SetSettings(settings);
}

DialogImportShapeFile::~DialogImportShapeFile() = default;

DlgShapeImport* DialogImportShapeFile::GetDialog() const
{
    return dialog;
}

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
    const QTreeWidget* tree = dialog->GetFieldAssignmentTree();
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = tree->topLevelItem(i);
        const auto* choices = qobject_cast<QComboBox*>(tree->itemWidget(item, 2));
        if (!choices || choices->currentIndex() < 0)
            continue;
        const int id = choices->currentData(Qt::UserRole).toInt();
        if (id != -1)
            manager->SetAssignment(id, item->text(0));
    }
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
    // One sheet import for all files, so that a sheet of a later file that
    // replaces one of an earlier file is reported like one within a file.
    ImportSheetDataFromShapeFile sheets;
    // A file that fails does not stop the others: what they hold is the
    // user's work as much. Only the first file can have an attribute table
    // chosen for it.
    QStringList failures;
    for (int i = 0; i < files.size(); ++i) {
        progress.setLabelText(QDir::toNativeSeparators(files.at(i)));
        progress.setValue(i);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        if (!import(files.at(i), i == 0 ? dialog->GetShapeDbFilename() : QString(), sheets))
            failures.append(lastError);
        QApplication::restoreOverrideCursor();
    }
    sheets.GetScalesMap(scalesMap);
    progress.setValue(files.size());
    if (failures.isEmpty())
        return true;
    lastError = failures.join(QLatin1Char('\n'));
    QMessageBox::warning(parent, QCoreApplication::translate("DlgShapeImport", "Shape File Import"), lastError);
    return failures.size() < files.size();
}

bool DialogImportShapeFile::import(
    const QString& shapeFile, const QString& dbFile, ImportSheetDataFromShapeFile& sheets)
{
    const auto configure = [&](ShapeFileImporter& importer) {
        importer.SetShapeFilename(shapeFile);
        importer.SetShapeDbFilename(dbFile);
        importer.SetGeoSystemForImportFile(dialog->GetGeoSystemForImportFile());
        importer.SetGeoSystemForProject(dialog->GetGeoSystemForProject());
        importer.SetPageAdditionalText(dialog->GetPageAdditionalText());
        if (dialog->GetUseGeoFilter())
            importer.SetGeoFilter(dialog->GetGeoFilter());
        SaveToImportFieldManager(importer.GetImportFieldManager());
    };
    const auto finish = [&](const ShapeFileImporter& importer, bool ok) {
        for (const QString& warning : importer.GetWarnings())
            warnings.append(QCoreApplication::translate("DlgShapeImport", "%1: %2")
                                .arg(QDir::toNativeSeparators(shapeFile), warning));
        if (!ok) {
            lastError = QCoreApplication::translate("DlgShapeImport", "%1: %2")
                            .arg(QDir::toNativeSeparators(shapeFile), importer.GetLastErrorMessage());
        }
        return ok;
    };

    switch (dialog->GetImportMode()) {
    case DlgShapeImport::imRoutes: {
        ImportRouteDataFromShapeFile importer;
        configure(importer);
        importer.SetDefaultVariant(dialog->GetDefaultVariant());
        // Answers true whenever a name is set: the message tells.
        const bool ok = importer.Execute() && importer.GetLastErrorMessage().isEmpty();
        roads += importer.GetRoads();
        return finish(importer, ok);
    }
    case DlgShapeImport::imDistricts: {
        ImportDistrictsFromShapeFile importer;
        configure(importer);
        const bool ok = importer.Execute();
        districtPieces += importer.GetDistrictPieces();
        return finish(importer, ok);
    }
    case DlgShapeImport::imBuildings: {
        ImportBuildingFromShapeFile importer;
        configure(importer);
        const bool ok = importer.Execute();
        buildings += importer.GetBuildings();
        return finish(importer, ok);
    }
    default: {
        configure(sheets);
        sheets.SetCorrectVertexOrder(dialog->GetCorrectVertexOrder());
        sheets.SetPointSelectMode(dialog->GetPointSelectMode());
        sheets.SetIndexForPoint1(dialog->GetIndexForPoint1());
        sheets.SetIndexForPoint2(dialog->GetIndexForPoint2());
        sheets.SetScaleImportMode(dialog->GetScaleImportMode());
        sheets.SetFixedScale(dialog->GetFixedScale());
        // Adds to the scales map of the files before.
        return finish(sheets, sheets.Execute());
    }
    }
}
