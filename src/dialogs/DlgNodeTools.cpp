#include "dialogs/DlgNodeTools.h"

#include "dialogs/DlgLinkCheck.h"
#include "dialogs/DlgNodeToolsBackups.h"
#include "dialogs/QtProgressCallback.h"

#include "ui_DlgNodeTools.h"

#include "nodetools/HREFPathMap.h"
#include "nodetools/LinkCheck.h"
#include "nodetools/NodeOperationCatalogue.h"

#include <Kamo_view/CheckableTree.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/TreeWidget.h>

#include <QDir>
#include <QDoubleValidator>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QIntValidator>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

namespace {

const QString KeyGeometry = QStringLiteral("NodeToolsDialog/NodeToolsDlg_geometry");
const QString KeyLastOperation = QStringLiteral("NodeToolsDialog/LastOperationIndex");
const QString KeyCategoryFilterEnabled = QStringLiteral("NodeToolsDialog/CategoryFilterEnabled");
const QString KeyCategoryFilter = QStringLiteral("NodeToolsDialog/CategoryFilter");
const QString KeyNameFilterEnabled = QStringLiteral("NodeToolsDialog/NameFilterEnabled");
const QString KeyNameFilterExpression = QStringLiteral("NodeToolsDialog/NameFilterExpression");
const QString KeyNewHREFTarget = QStringLiteral("NodeToolsDialog/NewHREFTarget");
const QString KeyPathMapFile = QStringLiteral("NodeToolsDialog/HREFReplacePathMapFile");
const QString KeySetName = QStringLiteral("NodeToolsDialog/SAPSetName");
const QString KeyName = QStringLiteral("NodeToolsDialog/SAPName");
const QString KeySetText = QStringLiteral("NodeToolsDialog/SAPSetText");
const QString KeyText = QStringLiteral("NodeToolsDialog/SAPText");
const QString KeySetPos = QStringLiteral("NodeToolsDialog/SAPSetPos");
const QString KeyPosUseTemplate = QStringLiteral("NodeToolsDialog/SAPSetPosUseTemplate");
const QString KeyPosTemplateName = QStringLiteral("NodeToolsDialog/SAPSetPosTplName");
const QString KeyPosLeftOffset = QStringLiteral("NodeToolsDialog/SAPSetPosSetOffsetLeft");
const QString KeyPosWidth = QStringLiteral("NodeToolsDialog/SAPSetPosSetWidth");
const QString KeyPosHeight = QStringLiteral("NodeToolsDialog/SAPSetPosSetHeight");
const QString KeyPosHeightTopwards = QStringLiteral("NodeToolsDialog/SAPSetPosSetHeightTopwards");
const QString KeyUseTargetIndex = QStringLiteral("NodeToolsDialog/CTPUseTargetFilterIndex");
const QString KeyTargetIndex = QStringLiteral("NodeToolsDialog/CTPTargetFilterIndex");
const QString KeyUseEnvFactor = QStringLiteral("NodeToolsDialog/CTPUseTargetEnvFactor");
const QString KeyEnvFactor = QStringLiteral("NodeToolsDialog/CTPTargetEnvFactor");

} // namespace

QList<int> DlgNodeTools::TabsOfOperation(int id)
{
    using Catalogue = NodeOperationCatalogue;
    switch (id) {
    case Catalogue::MatchNames:
        return { TabReplaceLinkDesc };
    case Catalogue::RemoveHREF:
    case Catalogue::HREFToSplit:
        return { TabNodeFilter, TabAnnotationFilter };
    case Catalogue::DuplicateHREF:
        return { TabNodeFilter, TabAnnotationFilter, TabDuplicateHREF };
    case Catalogue::ConvertPins:
        return { TabNodeFilter };
    case Catalogue::MapHREFPaths:
        return { TabNodeFilter, TabHREFPath };
    case Catalogue::SetProperties:
        return { TabNodeFilter, TabAnnotationFilter, TabSetAnnotationProperties };
    case Catalogue::HREFToStandard:
        // The category filter still applies, though its tab stays hidden.
        return { TabNodeFilter, TabChangeHREFType };
    case Catalogue::ModifyTargets:
        return { TabNodeFilter, TabAnnotationFilter, TabModifyTargets };
    case Catalogue::ChangePages:
        return { TabNodeFilter, TabAnnotationFilter, TabPageNumber };
    default:
        return {};
    }
}

DlgNodeTools::DlgNodeTools(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgNodeTools)
{
    ui->setupUi(this);

    // Old and new paths are alike in length: each column gets half.
    ui->treeHREFReplacePathPreview->header()->setSectionResizeMode(QHeaderView::Stretch);

    ui->edtlAnnModifyTargetFilterTargetIndex->setValidator(
        new QIntValidator(0, int(NodeOperationCatalogue::MaxTargetIndex), this));
    // The factor is read back with QString::toFloat, which knows only the
    // decimal point; the validator must not ask for a comma.
    auto* factorValidator = new QDoubleValidator(
        0.0, NodeOperationCatalogue::MaxEnvFactor, NodeOperationCatalogue::EnvFactorDecimals, this);
    factorValidator->setNotation(QDoubleValidator::StandardNotation);
    factorValidator->setLocale(QLocale::c());
    ui->edtAnnModifyTargetsEnvFactor->setValidator(factorValidator);
    ui->sbxPageCount->setRange(-NodeOperationCatalogue::MaxPageDelta, NodeOperationCatalogue::MaxPageDelta);

    connect(ui->tabOptions, &QTabWidget::currentChanged, this, &DlgNodeTools::OnCurrentOptionsTabChanged);
    connect(ui->btnSelectBaseDirFolder, &QAbstractButton::clicked, this, &DlgNodeTools::OnSelectBaseDirFolderClicked);
    connect(ui->cbxNodeOperationSelect, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &DlgNodeTools::OnOperationIdChanged);
    connect(ui->btnDuplicateHREFSelectNewLinkTarget, &QAbstractButton::clicked, this,
        &DlgNodeTools::OnSelectNewHREFLinkTargetClicked);
    connect(ui->btnHREFReplacePathMapFile, &QAbstractButton::clicked, this,
        &DlgNodeTools::OnSelectHREFReplacePathMapFileClicked);
    connect(ui->btnHREFReplacePathPropose, &QAbstractButton::clicked, this, &DlgNodeTools::OnProposePathMapClicked);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &DlgNodeTools::OnAccepted);
    // Beside OK rather than in the form: a run without them stays as it was.
    previewButton = ui->buttonBox->addButton(tr("Vorschau…"), QDialogButtonBox::ActionRole);
    previewButton->setObjectName(QStringLiteral("btnPreview"));
    previewButton->setAutoDefault(false);
    backupsButton = ui->buttonBox->addButton(tr("Sicherungen…"), QDialogButtonBox::ActionRole);
    backupsButton->setObjectName(QStringLiteral("btnBackups"));
    backupsButton->setAutoDefault(false);
    connect(previewButton, &QAbstractButton::clicked, this, &DlgNodeTools::PreviewRequested);
    connect(backupsButton, &QAbstractButton::clicked, this, &DlgNodeTools::OnBackupsClicked);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &DlgNodeTools::OnRejected);

    // A typed folder counts as much as a chosen one; red says it is missing.
    connect(ui->edtProjectRootDir, &QLineEdit::textEdited, this, [this](const QString& text) {
        dataDirectory = QDir::fromNativeSeparators(text);
        colourDataDirectory();
    });
    connect(ui->btnCheckAllNodes, &QAbstractButton::clicked, this, [this] {
        if (nodeTree)
            nodeTree->SetAllChecked(true);
    });
    connect(ui->btnUncheckAllNodes, &QAbstractButton::clicked, this, [this] {
        if (nodeTree)
            nodeTree->SetAllChecked(false);
    });

    // The form holds every tab once; the operations show a choice of them.
    for (int i = 0; i < ui->tabOptions->count(); ++i) {
        tabTitles.insert(i, ui->tabOptions->tabText(i));
        tabPages.insert(i, ui->tabOptions->widget(i));
    }
    ui->tabOptions->clear();
    OnOperationIdChanged(ui->cbxNodeOperationSelect->currentIndex());
}

DlgNodeTools::~DlgNodeTools()
{
    if (settings)
        settings->setValue(KeyGeometry, saveGeometry());
    delete nodeTree;
    delete ui;
}

void DlgNodeTools::Initialize()
{
    delete nodeTree;
    nodeTree = new CheckableTree(
        ui->qwTreeHolder, sourceTree, projectId, settings, QString(), false, nullptr, nullptr, false);

    // Not remembered: these start as the form has them on every opening.
    ui->chkbDoBackup->setChecked(true);
    ui->chkbReplaceDescIgnorePathOnCompare->setChecked(false);
    ui->cbxChangeHREFTypeTargetZone->setCurrentIndex(0);
    ui->sbxPageCount->setValue(0);

    restoreSettings();
    ui->cbxNodeOperationSelect->setFocus();
}

void DlgNodeTools::restoreSettings()
{
    const auto value = [this](const QString& key, const QVariant& initial) {
        return settings ? settings->value(key, initial) : initial;
    };
    restoreGeometry(value(KeyGeometry, QByteArray()).toByteArray());
    ui->cbxNodeOperationSelect->setCurrentIndex(value(KeyLastOperation, 0).toInt());
    ui->gbxFilterByAnnotationCategory->setChecked(value(KeyCategoryFilterEnabled, false).toBool());
    ui->edtCategoryFilter->setText(value(KeyCategoryFilter, QStringLiteral("_unbenannt")).toString());
    ui->gbxFilterByAnnotationName->setChecked(value(KeyNameFilterEnabled, false).toBool());
    ui->edtNameFilterExpression->setText(value(KeyNameFilterExpression, QString()).toString());
    ui->edtDuplicateHREFNewLinkTarget->setText(value(KeyNewHREFTarget, QString()).toString());
    ui->edtHREFReplacePathMapFile->setText(value(KeyPathMapFile, QString()).toString());
    ui->gbxSAPName->setChecked(value(KeySetName, false).toBool());
    ui->edtSAPName->setText(value(KeyName, QString()).toString());
    ui->gbxSAPText->setChecked(value(KeySetText, false).toBool());
    ui->edtSAPText->setText(value(KeyText, QString()).toString());
    ui->gbxSAPPosition->setChecked(value(KeySetPos, false).toBool());
    ui->rbtnSAPSetDimensionsFromOtherAnnotation->setChecked(value(KeyPosUseTemplate, true).toBool());
    ui->edtSAPDimensionsTemplateAnnotation->setText(value(KeyPosTemplateName, QString()).toString());
    ui->chkSAPSetDimensionsLeftOffset->setChecked(value(KeyPosLeftOffset, true).toBool());
    ui->chkSAPSetDimensionsWidth->setChecked(value(KeyPosWidth, true).toBool());
    ui->chkSAPSetDimensionsHeight->setChecked(value(KeyPosHeight, true).toBool());
    ui->chkSAPSetDimensionsHeightTopwardsMode->setChecked(value(KeyPosHeightTopwards, true).toBool());
    ui->gbxModifyTargetTargetFilter->setChecked(value(KeyUseTargetIndex, true).toBool());
    ui->edtlAnnModifyTargetFilterTargetIndex->setText(QString::number(value(KeyTargetIndex, 0u).toUInt()));
    ui->chkAnnModifyTargetEnvFactor->setChecked(value(KeyUseEnvFactor, true).toBool());
    ui->edtAnnModifyTargetsEnvFactor->setText(QString::number(value(KeyEnvFactor, 1.0f).toFloat(), 'g', 6));
}

void DlgNodeTools::saveSettings()
{
    if (!settings)
        return;
    settings->setValue(KeyLastOperation, ui->cbxNodeOperationSelect->currentIndex());
    settings->setValue(KeyCategoryFilterEnabled, ui->gbxFilterByAnnotationCategory->isChecked());
    settings->setValue(KeyCategoryFilter, ui->edtCategoryFilter->text());
    settings->setValue(KeyNameFilterEnabled, ui->gbxFilterByAnnotationName->isChecked());
    settings->setValue(KeyNameFilterExpression, ui->edtNameFilterExpression->text());
    settings->setValue(KeyNewHREFTarget, ui->edtDuplicateHREFNewLinkTarget->text());
    settings->setValue(KeyPathMapFile, ui->edtHREFReplacePathMapFile->text());
    settings->setValue(KeySetName, ui->gbxSAPName->isChecked());
    settings->setValue(KeyName, ui->edtSAPName->text());
    settings->setValue(KeySetText, ui->gbxSAPText->isChecked());
    settings->setValue(KeyText, ui->edtSAPText->text());
    settings->setValue(KeySetPos, ui->gbxSAPPosition->isChecked());
    settings->setValue(KeyPosUseTemplate, ui->rbtnSAPSetDimensionsFromOtherAnnotation->isChecked());
    settings->setValue(KeyPosTemplateName, ui->edtSAPDimensionsTemplateAnnotation->text());
    settings->setValue(KeyPosLeftOffset, ui->chkSAPSetDimensionsLeftOffset->isChecked());
    settings->setValue(KeyPosWidth, ui->chkSAPSetDimensionsWidth->isChecked());
    settings->setValue(KeyPosHeight, ui->chkSAPSetDimensionsHeight->isChecked());
    settings->setValue(KeyPosHeightTopwards, ui->chkSAPSetDimensionsHeightTopwardsMode->isChecked());
    settings->setValue(KeyUseTargetIndex, ui->gbxModifyTargetTargetFilter->isChecked());
    settings->setValue(KeyTargetIndex, ui->edtlAnnModifyTargetFilterTargetIndex->text().toUInt());
    settings->setValue(KeyUseEnvFactor, ui->chkAnnModifyTargetEnvFactor->isChecked());
    settings->setValue(KeyEnvFactor, ui->edtAnnModifyTargetsEnvFactor->text().toFloat());
}

void DlgNodeTools::ShowProjectData()
{
    ui->edtProjectDescription->setText(projectName);
    ui->edtProjectRootDir->setText(QDir::toNativeSeparators(dataDirectory));
    colourDataDirectory();
}

void DlgNodeTools::colourDataDirectory()
{
    const QString dir = QDir::fromNativeSeparators(ui->edtProjectRootDir->text());
    QPalette palette = ui->edtProjectRootDir->palette();
    const bool exists = !dir.isEmpty() && QDir(dir).exists();
    palette.setColor(QPalette::Text, exists ? QWidget::palette().color(QPalette::Text) : QColor(Qt::red));
    ui->edtProjectRootDir->setPalette(palette);
}

void DlgNodeTools::OnOperationIdChanged(int)
{
    ui->tabOptions->clear();
    const int operation = ui->cbxNodeOperationSelect->currentIndex();
    for (int tab : TabsOfOperation(operation))
        ui->tabOptions->addTab(tabPages.value(tab), tabTitles.value(tab));
    // What only reads has nothing to preview.
    if (previewButton)
        previewButton->setEnabled(NodeOperationCatalogue::Options(operation) & NodeOperationCatalogue::WritesFiles);
}

QStringList DlgNodeTools::OperationLabels() const
{
    QStringList labels;
    for (int i = 0; i < ui->cbxNodeOperationSelect->count(); ++i)
        labels.append(ui->cbxNodeOperationSelect->itemText(i));
    return labels;
}

void DlgNodeTools::OnBackupsClicked()
{
    DlgNodeToolsBackups backups(this);
    backups.SetProject(dataDirectory, OperationLabels());
    backups.exec();
}

void DlgNodeTools::OnCurrentOptionsTabChanged(int index)
{
    if (ui->tabOptions->widget(index) == ui->tabHREFPathOptions)
        refreshPathMapPreview();
}

void DlgNodeTools::refreshPathMapPreview()
{
    ui->treeHREFReplacePathPreview->clear();
    QList<QTreeWidgetItem*> rows;
    for (const QStringList& parts : ReadHREFPathMapLines(ui->edtHREFReplacePathMapFile->text())) {
        auto* row = new QTreeWidgetItem;
        row->setText(0, parts.at(0));
        row->setText(1, parts.at(1));
        rows.append(row);
    }
    ui->treeHREFReplacePathPreview->addTopLevelItems(rows);
}

void DlgNodeTools::OnSelectBaseDirFolderClicked()
{
    // The host's own start folder where there is one; elsewhere the current
    // data folder is the better place to begin.
    const QString windowsRoot = QStringLiteral("C:\\");
    const QString start = QDir(windowsRoot).exists() ? windowsRoot : dataDirectory;
    const QString dir = QFileDialog::getExistingDirectory(
        this, tr("Basisdaten-Verzeichnis"), start, QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (!dir.isEmpty() && QDir(dir).exists()) {
        dataDirectory = dir;
        ui->edtProjectRootDir->setText(QDir::toNativeSeparators(dir));
    }
    colourDataDirectory();
}

void DlgNodeTools::OnSelectNewHREFLinkTargetClicked()
{
    const QString file
        = QFileDialog::getOpenFileName(this, tr("Select new Link Target"), dataDirectory, QStringLiteral("*.*"));
    if (!file.isEmpty())
        ui->edtDuplicateHREFNewLinkTarget->setText(QDir::toNativeSeparators(file));
}

void DlgNodeTools::OnSelectHREFReplacePathMapFileClicked()
{
    const QString file
        = QFileDialog::getOpenFileName(this, tr("Select map file"), dataDirectory, QStringLiteral("*.csv"));
    if (!file.isEmpty())
        ui->edtHREFReplacePathMapFile->setText(QDir::toNativeSeparators(file));
    refreshPathMapPreview();
}

void DlgNodeTools::OnProposePathMapClicked()
{
    const QString root = QDir::fromNativeSeparators(ui->edtProjectRootDir->text());
    if (root.isEmpty() || !QDir(root).exists()) {
        QMessageBox::warning(this, QStringLiteral("Kamo"), tr("Data directory:\n\n'%1'\n\ninvalid").arg(root));
        return;
    }
    const QString searchDir = QFileDialog::getExistingDirectory(
        this, tr("Wo liegen die Dokumente jetzt?"), root, QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (searchDir.isEmpty())
        return;

    LinkCheck check;
    check.SetProjectRootDir(root);
    // No node chosen is no reason to check nothing: a moved server breaks
    // the links of every node alike.
    const QStringList files = GetFilesOfCheckedNodes();
    if (files.isEmpty())
        check.SetAllAnnotationFiles(true);
    else
        check.SetFileNames(files);
    check.SetSearchDirs({ searchDir });
    QtProgressCallback::Run(this, tr("Verknüpfungen prüfen"), [&check](ProgressCallback* callback) {
        check.SetProgressCallback(callback);
        check.Execute();
        check.SetProgressCallback(nullptr);
    });

    DlgLinkCheck result(this);
    result.SetResult(check, unusedMapFileName());
    if (result.exec() != QDialog::Accepted)
        return;
    ui->edtHREFReplacePathMapFile->setText(QDir::toNativeSeparators(result.MapFile()));
    refreshPathMapPreview();
}

QString DlgNodeTools::unusedMapFileName() const
{
    // Beside the map in use, or in the project; never over an existing map.
    QString dir = QFileInfo(QDir::fromNativeSeparators(ui->edtHREFReplacePathMapFile->text())).path();
    if (ui->edtHREFReplacePathMapFile->text().isEmpty() || !QDir(dir).exists())
        dir = QDir::fromNativeSeparators(ui->edtProjectRootDir->text());
    QString file = QDir(dir).filePath(QStringLiteral("Pfadzuordnung.csv"));
    for (int n = 2; QFileInfo::exists(file); ++n)
        file = QDir(dir).filePath(QStringLiteral("Pfadzuordnung-%1.csv").arg(n));
    return file;
}

void DlgNodeTools::OnAccepted()
{
    if (nodeTree)
        nodeTree->SaveSettings();
    saveSettings();
    accept();
}

void DlgNodeTools::OnRejected()
{
    reject();
}

QStringList DlgNodeTools::GetFilesOfCheckedNodes() const
{
    QStringList files;
    if (!nodeTree)
        return files;
    QList<ItemInfo*> items;
    nodeTree->GetCheckedItems(items);
    for (ItemInfo* item : qAsConst(items)) {
        if (const auto* node = dynamic_cast<const NodeInfo*>(item))
            node->GetFilesForZone(node->Zone(), files);
    }
    files.removeDuplicates();
    return files;
}

int DlgNodeTools::GetOperationId() const
{
    return ui->cbxNodeOperationSelect->currentIndex();
}
bool DlgNodeTools::GetDoBackup() const
{
    return ui->chkbDoBackup->isChecked();
}

NodeOperationOptions DlgNodeTools::GetOperationOptions() const
{
    NodeOperationOptions options;
    if (ui->gbxFilterByAnnotationCategory->isChecked())
        options.categoryFilter = ui->edtCategoryFilter->text();
    if (ui->gbxFilterByAnnotationName->isChecked())
        options.nameFilter = ui->edtNameFilterExpression->text();
    options.ignorePathOnCompare = ui->chkbReplaceDescIgnorePathOnCompare->isChecked();
    options.newLinkTarget = ui->edtDuplicateHREFNewLinkTarget->text();
    if (GetOperationId() == NodeOperationCatalogue::MapHREFPaths)
        options.pathMap = LoadHREFPathMap(ui->edtHREFReplacePathMapFile->text());
    options.setName = ui->gbxSAPName->isChecked();
    options.name = ui->edtSAPName->text();
    options.setText = ui->gbxSAPText->isChecked();
    options.text = ui->edtSAPText->text();
    options.setDimensions = ui->gbxSAPPosition->isChecked();
    options.dimensions.fromOtherAnnotation = ui->rbtnSAPSetDimensionsFromOtherAnnotation->isChecked();
    options.dimensions.templateName = ui->edtSAPDimensionsTemplateAnnotation->text();
    options.dimensions.setLeftOffset = ui->chkSAPSetDimensionsLeftOffset->isChecked();
    options.dimensions.setWidth = ui->chkSAPSetDimensionsWidth->isChecked();
    options.dimensions.setHeight = ui->chkSAPSetDimensionsHeight->isChecked();
    options.dimensions.heightTopwards = ui->chkSAPSetDimensionsHeightTopwardsMode->isChecked();
    options.targetZone = ui->cbxChangeHREFTypeTargetZone->currentIndex();
    options.useTargetIndex = ui->gbxModifyTargetTargetFilter->isChecked();
    options.targetIndex = ui->edtlAnnModifyTargetFilterTargetIndex->text().toUInt();
    options.useEnvFactor = ui->chkAnnModifyTargetEnvFactor->isChecked();
    options.envFactor = ui->edtAnnModifyTargetsEnvFactor->text().toFloat();
    options.pageDelta = ui->sbxPageCount->value();
    return options;
}
