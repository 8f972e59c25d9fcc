#include "dialogs/DlgShapeImport.h"

#include "dialogs/AttributeTableModel.h"
#include "dialogs/ShapePreviewWidget.h"

#include "shapeimport/FieldAssignmentFile.h"
#include "shapeimport/ImportSheetDataFromShapeFile.h"
#include "shapeimport/ShapeDbFileReader.h"
#include "shapeimport/ShapeFileReader.h"
#include "shapeimport/ShapeImportJob.h"
#include "ui_DlgShapeImport.h"

#include <Kamo_view/GeoSysDlg.h>

#include <QButtonGroup>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

const QString Group = QStringLiteral("DlgShapeImport/");
const QString KeyGeometry = QStringLiteral("Geometry");
const QString KeySplitter = QStringLiteral("Splitter");
const QString KeyImportMode = QStringLiteral("ImportMode");
const QString KeyShapeFile = QStringLiteral("ShapeFile");
const QString KeyShapeDbFile = QStringLiteral("ShapeDbFile");
const QString KeyImportFileGeoSystem = QStringLiteral("ImportFileGeoSystem");
const QString KeyUseGeoFilter = QStringLiteral("UseGeoFilter");
const QString KeyCorrectVertexOrder = QStringLiteral("CorrectVertexOrder");
const QString KeyPointSelectMode = QStringLiteral("PointSelectMode");
const QString KeyIndexForPoint1 = QStringLiteral("IndexForPoint1");
const QString KeyIndexForPoint2 = QStringLiteral("IndexForPoint2");
const QString KeyScaleImportMode = QStringLiteral("ScaleImportMode");
const QString KeyFixedScale = QStringLiteral("FixedScale");
const QString KeyPageAdditionalText = QStringLiteral("PageAdditionalText");
const QString KeyDefaultVariant = QStringLiteral("DefaultVariant");
const QString KeyFieldAssignmentFileMRU = QStringLiteral("FieldAssignmentFileMRU");
const QString KeyAssignments = QStringLiteral("Assignments/");

QComboBox* choiceList(const QTreeWidget* tree, QTreeWidgetItem* item)
{
    return qobject_cast<QComboBox*>(tree->itemWidget(item, 2));
}

} // namespace

DlgShapeImport::DlgShapeImport(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgShapeImport)
{
    ui->setupUi(this);
    // Two choices in one grid: the groups keep points and scale apart.
    pointButtons = new QButtonGroup(this);
    pointButtons->addButton(ui->rbtnPointsAutomatic, ImportSheetDataFromShapeFile::spsmAutomatic);
    pointButtons->addButton(ui->rbtnPointsManual, ImportSheetDataFromShapeFile::spsmManual);
    // What the user picks replaces what the host set.
    connect(pointButtons, &QButtonGroup::idToggled, this, [this](int mode, bool checked) {
        if (checked)
            pointSelectMode = mode;
    });
    connect(ui->sbxPointIndex1, QOverload<int>::of(&QSpinBox::valueChanged), this,
        [this](int index) { indexForPoint1 = index; });
    connect(ui->sbxPointIndex2, QOverload<int>::of(&QSpinBox::valueChanged), this,
        [this](int index) { indexForPoint2 = index; });
    connect(ui->sbxFixedScale, QOverload<int>::of(&QSpinBox::valueChanged), this,
        [this](int scale) { fixedScale = scale; });
    auto* scale = new QButtonGroup(this);
    scale->addButton(ui->rbtnFixedScale, ImportSheetDataFromShapeFile::ssimFixed);
    scale->addButton(ui->rbtnScaleFromTable, ImportSheetDataFromShapeFile::ssimFromTable);
    ui->lblAssignmentNote->hide();
    ui->twFieldAssignment->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    ui->twFieldAssignment->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui->splMain->setStretchFactor(0, 2);
    ui->splMain->setStretchFactor(1, 3);

    preview = new ShapePreviewWidget(ui->wgtMapPreview);
    preview->setObjectName(QStringLiteral("wgtShapePreview"));
    auto* mapLayout = new QVBoxLayout(ui->wgtMapPreview);
    mapLayout->setContentsMargins(0, 0, 0, 0);
    mapLayout->addWidget(preview);
    attributes = new AttributeTableModel(this);
    ui->tvAttributePreview->setModel(attributes);
    // The row picked in the table is the object marked on the map.
    connect(ui->tvAttributePreview->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this](const QModelIndex& current) { preview->SetHighlightedRecord(current.isValid() ? current.row() : -1); });

    connect(
        ui->btnResetFieldAssignments, &QAbstractButton::clicked, this, &DlgShapeImport::OnResetFieldAssignmentsClicked);
    connect(
        ui->btnSaveFieldAssignments, &QAbstractButton::clicked, this, &DlgShapeImport::OnSaveFieldAssignmentsClicked);
    connect(
        ui->btnLoadFieldAssignments, &QAbstractButton::clicked, this, &DlgShapeImport::OnLoadFieldAssignmentsClicked);
    connect(ui->cbxImportMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &DlgShapeImport::OnImportModeChanged);
    connect(ui->btnSelectShapeFile, &QAbstractButton::clicked, this, &DlgShapeImport::OnSelectShapeFileClicked);
    connect(ui->btnSelectShapeDbFile, &QAbstractButton::clicked, this, &DlgShapeImport::OnSelectShapeDbFileClicked);
    connect(ui->btnSelectImportFileGeoSystem, &QAbstractButton::clicked, this,
        &DlgShapeImport::OnSelectImportFileGeoSystemClicked);
    connect(ui->btnSelectProjectGeoSystem, &QAbstractButton::clicked, this,
        &DlgShapeImport::OnSelectProjectGeoSystemClicked);
    connect(ui->edtShapeFile, &QLineEdit::editingFinished, this, &DlgShapeImport::reloadIfFilesChanged);
    connect(ui->edtShapeDbFile, &QLineEdit::editingFinished, this, &DlgShapeImport::reloadIfFilesChanged);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &DlgShapeImport::OnAccepted);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);

    OnImportModeChanged(ui->cbxImportMode->currentIndex());
    showGeoSystems();
}

DlgShapeImport::~DlgShapeImport()
{
    if (settings) {
        settings->setValue(Group + KeyGeometry, saveGeometry());
        settings->setValue(Group + KeySplitter, ui->splMain->saveState());
    }
    delete ui;
}

QString DlgShapeImport::ImportModeName(int mode)
{
    return ShapeImportJob::ImportModeName(mode);
}

void DlgShapeImport::Initialize()
{
    const auto stored = [this](const QString& key, const QVariant& initial) -> QVariant {
        if (presetKeys.contains(key) || !settings)
            return QVariant();
        return settings->value(Group + key, initial);
    };
    if (settings) {
        restoreGeometry(settings->value(Group + KeyGeometry).toByteArray());
        ui->splMain->restoreState(settings->value(Group + KeySplitter).toByteArray());
    }
    QVariant value;
    if ((value = stored(KeyImportMode, 0)).isValid())
        ui->cbxImportMode->setCurrentIndex(value.toInt());
    if ((value = stored(KeyShapeFile, QString())).isValid())
        ui->edtShapeFile->setText(value.toString());
    if ((value = stored(KeyShapeDbFile, QString())).isValid())
        ui->edtShapeDbFile->setText(value.toString());
    if ((value = stored(KeyImportFileGeoSystem, QString())).isValid())
        importFileGeoSystem = GeoSystemSettings::FromString(value.toString());
    if ((value = stored(KeyUseGeoFilter, true)).isValid())
        ui->chkUseGeoFilter->setChecked(value.toBool());
    if ((value = stored(KeyCorrectVertexOrder, false)).isValid())
        ui->chkCorrectVertexOrder->setChecked(value.toBool());
    if ((value = stored(KeyPointSelectMode, 0)).isValid())
        showPointSelectMode(value.toInt());
    if ((value = stored(KeyIndexForPoint1, 0)).isValid())
        showSpinValue(ui->sbxPointIndex1, indexForPoint1, value.toInt());
    if ((value = stored(KeyIndexForPoint2, 2)).isValid())
        showSpinValue(ui->sbxPointIndex2, indexForPoint2, value.toInt());
    if ((value = stored(KeyScaleImportMode, 0)).isValid())
        (value.toInt() == ImportSheetDataFromShapeFile::ssimFixed ? ui->rbtnFixedScale : ui->rbtnScaleFromTable)
            ->setChecked(true);
    if ((value = stored(KeyFixedScale, 1000)).isValid())
        showSpinValue(ui->sbxFixedScale, fixedScale, value.toInt());
    if ((value = stored(KeyPageAdditionalText, QString())).isValid())
        ui->edtPageAdditionalText->setText(value.toString());
    if ((value = stored(KeyDefaultVariant, QString())).isValid())
        ui->edtDefaultVariant->setText(value.toString());
    // The remembered system was chosen with the remembered file, maybe over
    // its projection, and stays with it. A file the host named was looked
    // at before the remembered system came back: its projection wins again.
    const bool keepRemembered = !presetKeys.contains(KeyShapeFile) && !importFileGeoSystem.IsNull();
    prjCheckedFor = keepRemembered ? GetShapeFilename() : QString();
    showGeoSystems();
    loadTable();
}

void DlgShapeImport::saveSettings()
{
    if (!settings)
        return;
    settings->setValue(Group + KeyImportMode, GetImportMode());
    settings->setValue(Group + KeyShapeFile, GetShapeFilename());
    settings->setValue(Group + KeyShapeDbFile, GetShapeDbFilename());
    settings->setValue(Group + KeyImportFileGeoSystem, importFileGeoSystem.ToString());
    settings->setValue(Group + KeyUseGeoFilter, ui->chkUseGeoFilter->isChecked());
    settings->setValue(Group + KeyCorrectVertexOrder, GetCorrectVertexOrder());
    settings->setValue(Group + KeyPointSelectMode, GetPointSelectMode());
    settings->setValue(Group + KeyIndexForPoint1, GetIndexForPoint1());
    settings->setValue(Group + KeyIndexForPoint2, GetIndexForPoint2());
    settings->setValue(Group + KeyScaleImportMode, GetScaleImportMode());
    settings->setValue(Group + KeyFixedScale, GetFixedScale());
    settings->setValue(Group + KeyPageAdditionalText, GetPageAdditionalText());
    settings->setValue(Group + KeyDefaultVariant, GetDefaultVariant());
    // The assignments of each kind of import come back with the next table
    // that has the same columns.
    settings->setValue(Group + KeyAssignments + ImportModeName(GetImportMode()),
        QString::fromUtf8(FieldAssignmentFile::ToJson(GetFieldAssignments())));
}

void DlgShapeImport::SetImportMode(int mode)
{
    presetKeys.append(KeyImportMode);
    ui->cbxImportMode->setCurrentIndex(mode);
}

int DlgShapeImport::GetImportMode() const
{
    return ui->cbxImportMode->currentIndex();
}

void DlgShapeImport::SetShapeFilename(const QString& file)
{
    presetKeys.append(KeyShapeFile);
    ui->edtShapeFile->setText(QDir::toNativeSeparators(file));
    loadTable();
}

QString DlgShapeImport::GetShapeFilename() const
{
    return QDir::fromNativeSeparators(ui->edtShapeFile->text().trimmed());
}

void DlgShapeImport::SetShapeDbFilename(const QString& file)
{
    presetKeys.append(KeyShapeDbFile);
    ui->edtShapeDbFile->setText(QDir::toNativeSeparators(file));
    loadTable();
}

QString DlgShapeImport::GetShapeDbFilename() const
{
    return QDir::fromNativeSeparators(ui->edtShapeDbFile->text().trimmed());
}

QString DlgShapeImport::GetEffectiveShapeDbFilename() const
{
    const QString table = GetShapeDbFilename();
    return table.isEmpty() && !GetShapeFilename().isEmpty() ? MakeShapeDbFilenameFromShapeFilename(GetShapeFilename())
                                                            : table;
}

void DlgShapeImport::SetGeoSystemForImportFile(const GeoSystemSettings& system)
{
    presetKeys.append(KeyImportFileGeoSystem);
    importFileGeoSystem = system;
    showGeoSystems();
}

void DlgShapeImport::SetGeoSystemForProject(const GeoSystemSettings& system)
{
    projectGeoSystem = system;
    showGeoSystems();
}

void DlgShapeImport::SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter)
{
    geoFilter = filter;
    showFilterAreas();
    updateState();
}

void DlgShapeImport::showFilterAreas()
{
    // The areas are in the project's system, the preview in the file's.
    QMap<QString, QPainterPath> areas;
    if (geoFilter) {
        const bool convert = !projectGeoSystem.IsNull() && !importFileGeoSystem.IsNull()
            && !projectGeoSystem.IsEqual(importFileGeoSystem);
        for (auto area = geoFilter->cbegin(); area != geoFilter->cend(); ++area) {
            QPainterPath path;
            bool ok = true;
            for (QPolygonF outline : area.value().toSubpathPolygons()) {
                if (convert)
                    ok = ok && ChangeGeoSystemEx(outline, projectGeoSystem, importFileGeoSystem, false);
                path.addPolygon(outline);
            }
            if (ok)
                areas.insert(area.key(), path);
        }
    }
    preview->SetFilterAreas(areas);
}

bool DlgShapeImport::GetUseGeoFilter() const
{
    return ui->chkUseGeoFilter->isEnabled() && ui->chkUseGeoFilter->isChecked();
}

void DlgShapeImport::SetCorrectVertexOrder(bool correct)
{
    presetKeys.append(KeyCorrectVertexOrder);
    ui->chkCorrectVertexOrder->setChecked(correct);
}

bool DlgShapeImport::GetCorrectVertexOrder() const
{
    return ui->chkCorrectVertexOrder->isChecked();
}

void DlgShapeImport::SetPointSelectMode(int mode)
{
    presetKeys.append(KeyPointSelectMode);
    showPointSelectMode(mode);
}

void DlgShapeImport::showPointSelectMode(int mode)
{
    // A mode neither button stands for checks neither.
    pointButtons->setExclusive(false);
    ui->rbtnPointsAutomatic->setChecked(mode == ImportSheetDataFromShapeFile::spsmAutomatic);
    ui->rbtnPointsManual->setChecked(mode == ImportSheetDataFromShapeFile::spsmManual);
    pointButtons->setExclusive(true);
    pointSelectMode = mode;
}

int DlgShapeImport::GetPointSelectMode() const
{
    return pointSelectMode;
}

void DlgShapeImport::showSpinValue(QSpinBox* box, int& kept, int value)
{
    // The box shows the nearest value it has; the importer gets this one.
    const QSignalBlocker blocker(box);
    box->setValue(value);
    kept = value;
}

void DlgShapeImport::SetIndexForPoint1(int index)
{
    presetKeys.append(KeyIndexForPoint1);
    showSpinValue(ui->sbxPointIndex1, indexForPoint1, index);
}

int DlgShapeImport::GetIndexForPoint1() const
{
    return indexForPoint1;
}

void DlgShapeImport::SetIndexForPoint2(int index)
{
    presetKeys.append(KeyIndexForPoint2);
    showSpinValue(ui->sbxPointIndex2, indexForPoint2, index);
}

int DlgShapeImport::GetIndexForPoint2() const
{
    return indexForPoint2;
}

void DlgShapeImport::SetScaleImportMode(int mode)
{
    presetKeys.append(KeyScaleImportMode);
    (mode == ImportSheetDataFromShapeFile::ssimFixed ? ui->rbtnFixedScale : ui->rbtnScaleFromTable)->setChecked(true);
}

int DlgShapeImport::GetScaleImportMode() const
{
    return ui->rbtnScaleFromTable->isChecked() ? ImportSheetDataFromShapeFile::ssimFromTable
                                               : ImportSheetDataFromShapeFile::ssimFixed;
}

void DlgShapeImport::SetFixedScale(int scale)
{
    presetKeys.append(KeyFixedScale);
    showSpinValue(ui->sbxFixedScale, fixedScale, scale);
}

int DlgShapeImport::GetFixedScale() const
{
    return fixedScale;
}

void DlgShapeImport::SetPageAdditionalText(const QString& text)
{
    presetKeys.append(KeyPageAdditionalText);
    ui->edtPageAdditionalText->setText(text);
}

QString DlgShapeImport::GetPageAdditionalText() const
{
    return ui->edtPageAdditionalText->text();
}

void DlgShapeImport::SetDefaultVariant(const QString& variant)
{
    presetKeys.append(KeyDefaultVariant);
    ui->edtDefaultVariant->setText(variant);
}

QString DlgShapeImport::GetDefaultVariant() const
{
    return ui->edtDefaultVariant->text();
}

QTreeWidget* DlgShapeImport::GetFieldAssignmentTree() const
{
    return ui->twFieldAssignment;
}

QString DlgShapeImport::GetAssignmentNote() const
{
    return ui->lblAssignmentNote->text();
}

void DlgShapeImport::OnImportModeChanged(int mode)
{
    targetFields = ShapeImportJob(static_cast<ShapeImportJob::ImportMode>(mode)).GetTargetFields();
    ui->gbxSheetOptions->setEnabled(mode == imSheets);
    ui->gbxRouteOptions->setEnabled(mode == imRoutes);
    loadNote.clear();
    buildChoiceLists();
    if (settings) {
        QMap<QString, int> stored;
        if (FieldAssignmentFile::Parse(
                settings->value(Group + KeyAssignments + ImportModeName(mode)).toString().toUtf8(), stored)
            == FieldAssignmentFile::Ok)
            applyAssignments(stored, false);
    }
    updateState();
}

void DlgShapeImport::reloadIfFilesChanged()
{
    // Every focus loss ends an editing, also the one OK causes; a reload
    // then would put back the assignments saved last time.
    if (GetShapeFilename() != loadedShapeFile || GetEffectiveShapeDbFilename() != loadedShapeDbFile)
        loadTable();
}

void DlgShapeImport::loadTable()
{
    QTreeWidget* tree = ui->twFieldAssignment;
    tree->clear();
    shapeReadable = false;
    const QString shapeFile = GetShapeFilename();
    loadedShapeFile = shapeFile;
    loadedShapeDbFile = GetEffectiveShapeDbFilename();
    QString info;
    if (!shapeFile.isEmpty()) {
        ShapeFileReader shapes;
        if (shapes.Open(QFile::encodeName(shapeFile)) == 0) {
            shapeReadable = true;
            // The file's own projection, when it has one PROJ recognises,
            // beats anything remembered; a system the host set beats both.
            const QFileInfo shapeInfo(shapeFile);
            const QString prj
                = shapeInfo.path() + QLatin1Char('/') + shapeInfo.completeBaseName() + QStringLiteral(".prj");
            if (shapeFile != prjCheckedFor && !presetKeys.contains(KeyImportFileGeoSystem)) {
                const GeoSystemSettings fromPrj = GeoSystemSettings::FromPrjFile(prj);
                if (!fromPrj.IsNull()) {
                    importFileGeoSystem = fromPrj;
                    showGeoSystems();
                }
            }
            prjCheckedFor = shapeFile;
            info = tr("%1, %n object(s)", nullptr, shapes.GetEntityCount())
                       .arg(ShapeObject::ShapeTypeName(shapes.GetShapeType()));
        } else {
            info = tr("The shape file cannot be read.");
        }
    }
    int entityCount = 0;
    if (shapeReadable) {
        ShapeFileReader shapes;
        shapes.Open(QFile::encodeName(shapeFile));
        entityCount = shapes.GetEntityCount();
    }
    preview->SetShapeFile(shapeFile);
    showFilterAreas();
    if (!attributes->SetTable(GetEffectiveShapeDbFilename(), entityCount))
        attributes->Clear();
    ShapeDbFileReader table;
    if (!GetEffectiveShapeDbFilename().isEmpty() && table.Open(QFile::encodeName(GetEffectiveShapeDbFilename())) == 0) {
        for (int i = 0; i < table.GetFieldCount(); ++i) {
            const ShapeDbFileReader::FieldInfo field = table.GetFieldInfo(i);
            new QTreeWidgetItem(tree, { field.name, QStringLiteral("%1 (%2)").arg(field.type).arg(field.width) });
        }
    } else if (shapeReadable) {
        info += QLatin1Char(' ') + tr("No attribute table: every attribute stays empty.");
    }
    ui->lblShapeInfo->setText(info);
    OnImportModeChanged(GetImportMode());
}

void DlgShapeImport::buildChoiceLists()
{
    QTreeWidget* tree = ui->twFieldAssignment;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        auto* choices = new QComboBox;
        choices->setObjectName(QStringLiteral("cbxTargetField"));
        choices->addItem(tr("<Not Assigned>"), -1);
        for (auto field = targetFields.cbegin(); field != targetFields.cend(); ++field)
            choices->addItem(field.value(), field.key());
        connect(choices, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &DlgShapeImport::OnTargetFieldAssignmentChanged);
        tree->setItemWidget(tree->topLevelItem(i), 2, choices);
    }
}

QList<QPair<QString, int>> DlgShapeImport::GetFieldAssignments() const
{
    QList<QPair<QString, int>> assignments;
    const QTreeWidget* tree = ui->twFieldAssignment;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = tree->topLevelItem(i);
        const QComboBox* choices = choiceList(tree, item);
        const int id = choices ? choices->currentData().toInt() : -1;
        if (choices && choices->currentIndex() >= 0 && id != -1)
            assignments.append({ item->text(0), id });
    }
    return assignments;
}

void DlgShapeImport::OnTargetFieldAssignmentChanged(int)
{
    updateState();
}

void DlgShapeImport::OnResetFieldAssignmentsClicked()
{
    const QTreeWidget* tree = ui->twFieldAssignment;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (QComboBox* choices = choiceList(tree, tree->topLevelItem(i)))
            choices->setCurrentIndex(0);
    }
}

void DlgShapeImport::applyAssignments(const QMap<QString, int>& assignments, bool report)
{
    OnResetFieldAssignmentsClicked();
    // Checked as the import checks them, against the table of the rows.
    ShapeImportJob import(static_cast<ShapeImportJob::ImportMode>(GetImportMode()));
    import.SetFiles(loadedShapeFile, loadedShapeDbFile);
    QStringList missing;
    QStringList refused;
    const QTreeWidget* tree = ui->twFieldAssignment;
    for (auto it = assignments.cbegin(); it != assignments.cend(); ++it) {
        switch (import.CheckAssignment(it.value(), it.key())) {
        case ShapeImportJob::acUnknownTarget:
            refused.append(tr("%1 (column %2)").arg(it.value()).arg(it.key()));
            break;
        case ShapeImportJob::acUnknownColumn:
            missing.append(it.key());
            break;
        case ShapeImportJob::acOk:
            for (QTreeWidgetItem* item : tree->findItems(it.key(), Qt::MatchExactly)) {
                if (QComboBox* choices = choiceList(tree, item))
                    choices->setCurrentIndex(choices->findData(it.value()));
            }
        }
    }
    if (!report)
        return;
    QStringList note;
    if (!missing.isEmpty())
        note.append(tr("Columns of the file not in this attribute table: %1.").arg(missing.join(QStringLiteral(", "))));
    if (!refused.isEmpty())
        note.append(tr("Target fields not offered for %1: %2.")
                        .arg(ui->cbxImportMode->currentText(), refused.join(QStringLiteral(", "))));
    loadNote = note.join(QLatin1Char(' '));
    updateState();
}

void DlgShapeImport::LoadFieldAssignments(const QString& file)
{
    QMap<QString, int> assignments;
    // Unreadable, empty, not JSON, too new or assigning nothing: the
    // choices stay as they are.
    if (FieldAssignmentFile::Read(file, assignments) != FieldAssignmentFile::Ok)
        return;
    rememberFile(file);
    applyAssignments(assignments, true);
}

void DlgShapeImport::OnLoadFieldAssignmentsClicked()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Import field assignments"), startFolder(), QStringLiteral("*") + QStringLiteral(".json"));
    if (!file.isEmpty())
        LoadFieldAssignments(file);
}

void DlgShapeImport::OnSaveFieldAssignmentsClicked()
{
    QString file = QFileDialog::getSaveFileName(
        this, tr("Export field assignments"), startFolder(), QStringLiteral("*") + QStringLiteral(".json"));
    if (file.isEmpty())
        return;
    if (QFileInfo(file).suffix().isEmpty())
        file += QStringLiteral(".json");
    SaveFieldAssignments(file);
}

bool DlgShapeImport::SaveFieldAssignments(const QString& file)
{
    QString error;
    if (!FieldAssignmentFile::Write(file, GetFieldAssignments(), &error)) {
        QMessageBox::warning(this, tr("Export field assignments"),
            tr("%1 cannot be written: %2").arg(QDir::toNativeSeparators(file), error));
        return false;
    }
    rememberFile(file);
    return true;
}

void DlgShapeImport::rememberFile(const QString& file)
{
    if (settings)
        settings->setValue(Group + KeyFieldAssignmentFileMRU, file);
}

QString DlgShapeImport::startFolder() const
{
    const QString recent = settings ? settings->value(Group + KeyFieldAssignmentFileMRU).toString() : QString();
    if (!recent.isEmpty())
        return recent;
    return GetShapeFilename().isEmpty() ? QString() : QFileInfo(GetShapeFilename()).path();
}

void DlgShapeImport::OnSelectShapeFileClicked()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Select shape file"),
        GetShapeFilename().isEmpty() ? QString() : QFileInfo(GetShapeFilename()).path(),
        tr("Shape files (*.shp);;All files (*)"));
    if (file.isEmpty())
        return;
    ui->edtShapeFile->setText(QDir::toNativeSeparators(file));
    ui->edtShapeDbFile->clear();
    loadTable();
}

void DlgShapeImport::OnSelectShapeDbFileClicked()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Select attribute table"),
        QFileInfo(GetEffectiveShapeDbFilename()).path(), tr("Attribute tables (*.dbf);;All files (*)"));
    if (file.isEmpty())
        return;
    ui->edtShapeDbFile->setText(QDir::toNativeSeparators(file));
    loadTable();
}

void DlgShapeImport::OnSelectImportFileGeoSystemClicked()
{
    if (GeoSysDlg::ChooseGeoSystem(this, importFileGeoSystem))
        showGeoSystems();
}

void DlgShapeImport::OnSelectProjectGeoSystemClicked()
{
    if (GeoSysDlg::ChooseGeoSystem(this, projectGeoSystem))
        showGeoSystems();
}

void DlgShapeImport::showGeoSystems()
{
    const auto show = [](QLineEdit* field, const GeoSystemSettings& system) {
        field->setText(system.IsNull() ? tr("not set: no conversion") : system.GetDescription());
        field->setToolTip(system.ToString());
        field->setCursorPosition(0);
    };
    show(ui->edtImportFileGeoSystem, importFileGeoSystem);
    show(ui->edtProjectGeoSystem, projectGeoSystem);
    if (preview)
        showFilterAreas();
}

void DlgShapeImport::updateState()
{
    // Two columns on one target: the later one counts, and the user should
    // see that before the import rather than after.
    QMap<int, QStringList> columnsOfTarget;
    for (const auto& assignment : GetFieldAssignments())
        columnsOfTarget[assignment.second].append(assignment.first);
    QStringList notes;
    if (!loadNote.isEmpty())
        notes.append(loadNote);
    for (auto it = columnsOfTarget.cbegin(); it != columnsOfTarget.cend(); ++it) {
        if (it.value().size() > 1)
            notes.append(tr("%1 is assigned to %2; the last of them counts.")
                             .arg(targetFields.value(it.key()), it.value().join(QStringLiteral(", "))));
    }
    ui->lblAssignmentNote->setText(notes.join(QLatin1Char('\n')));
    ui->lblAssignmentNote->setVisible(!notes.isEmpty());

    ui->chkUseGeoFilter->setEnabled(geoFilter && !geoFilter->isEmpty() && GetImportMode() != imSheets);
    if (QPushButton* ok = ui->buttonBox->button(QDialogButtonBox::Ok))
        ok->setEnabled(shapeReadable);
}

void DlgShapeImport::OnAccepted()
{
    saveSettings();
    accept();
}
