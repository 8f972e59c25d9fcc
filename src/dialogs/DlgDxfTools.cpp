#include "dialogs/DlgDxfTools.h"

#include "dialogs/DxfSheetMapWidget.h"
#include "dxf/DxfCorrectionResult.h"
#include "dxf/DxfDump.h"
#include "dxf/DxfSheetExport.h"
#include "gk/VtxPosition.h"
#include "ui_DlgDxfTools.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHeaderView>
#include <QMessageBox>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QSignalBlocker>
#include <QStyle>

namespace {

const QString Group = QStringLiteral("DxfToolsDialog/");
const QString KeyGeometry = QStringLiteral("Dialog_Geometry");
const QString KeyLastUsedFile = QStringLiteral("LastUsedFile");
const QString KeyBlockFilter = QStringLiteral("BlockFilter");
const QString KeyLastExportFile = QStringLiteral("LastExportFile");
const QString KeyMainSplitter = QStringLiteral("MainSplitter");
const QString KeyTopSplitter = QStringLiteral("TopSplitter");
const QString KeyDetailSplitter = QStringLiteral("DetailSplitter");

enum InsertColumn { ColIndex, ColBlock, ColSheet, ColLayer, ColCorners, ColPosition };

QString coordinate(double value)
{
    return QString::number(value, 'f', 3);
}

int labelCount(const DxfBlock* block)
{
    int count = 0;
    if (block) {
        for (const DxfPolyline& polyline : block->polylines)
            count += polyline.labels.size();
    }
    return count;
}

// Restores the cursor however the work ends.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

DlgDxfTools::DlgDxfTools(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgDxfTools)
{
    ui->setupUi(this);
    ui->outputEdit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // Sized once per drawing: kept fitted to their contents, the columns
    // would be measured again for every check box and label count that
    // changes, which takes minutes on a drawing of thousands of sheets.
    ui->insertTree->header()->setStretchLastSection(true);
    ui->vertexTree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ui->topSplitter->setSizes({ 580, 600 });
    ui->vertexTree->setIndentation(12);
    ui->mainSplitter->setSizes({ 560, 200 });
    ui->detailSplitter->setSizes({ 370, 190 });
    ui->sheetMap->SetDrawing(&drawing);

    connect(ui->openButton, &QPushButton::clicked, this, &DlgDxfTools::OnOpenClicked);
    connect(ui->applyFilterButton, &QPushButton::clicked, this, &DlgDxfTools::OnApplyFilterClicked);
    connect(ui->blockFilterEdit, &QLineEdit::returnPressed, this, &DlgDxfTools::OnApplyFilterClicked);
    connect(ui->blockFilterEdit, &QLineEdit::textChanged, this, &DlgDxfTools::OnBlockFilterChanged);
    connect(ui->useAllButton, &QPushButton::clicked, this, [this]() { SetAllUsed(true); });
    connect(ui->useNoneButton, &QPushButton::clicked, this, [this]() { SetAllUsed(false); });
    connect(ui->dumpButton, &QPushButton::clicked, this, &DlgDxfTools::OnDumpClicked);
    connect(ui->correctButton, &QPushButton::clicked, this, &DlgDxfTools::OnCorrectClicked);
    connect(ui->exportButton, &QPushButton::clicked, this, &DlgDxfTools::OnExportClicked);
    connect(ui->clearOutputButton, &QPushButton::clicked, ui->outputEdit, &QPlainTextEdit::clear);
    connect(ui->insertTree, &QTreeWidget::itemChanged, this, &DlgDxfTools::OnInsertItemChanged);
    connect(ui->insertTree, &QTreeWidget::currentItemChanged, this, &DlgDxfTools::OnCurrentInsertChanged);
    connect(ui->insertTree, &QTreeWidget::currentItemChanged, this, &DlgDxfTools::centerMapOn);
    connect(ui->insertTree, &QTreeWidget::itemSelectionChanged, this, &DlgDxfTools::showSelectionOnMap);
    connect(ui->sheetMap, &DxfSheetMapWidget::InsertClicked, this, &DlgDxfTools::OnMapInsertClicked);
    connect(ui->fitAllButton, &QPushButton::clicked, ui->sheetMap, &DxfSheetMapWidget::FitAll);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showSummary();
}

DlgDxfTools::~DlgDxfTools()
{
    delete ui;
}

void DlgDxfTools::Initialize()
{
    if (settings) {
        restoreGeometry(settings->value(Group + KeyGeometry).toByteArray());
        ui->mainSplitter->restoreState(settings->value(Group + KeyMainSplitter).toByteArray());
        ui->topSplitter->restoreState(settings->value(Group + KeyTopSplitter).toByteArray());
        ui->detailSplitter->restoreState(settings->value(Group + KeyDetailSplitter).toByteArray());
        ui->blockFilterEdit->setText(settings->value(Group + KeyBlockFilter).toString());
    }
    QString file = presetFile;
    if (file.isEmpty() && settings)
        file = settings->value(Group + KeyLastUsedFile).toString();
    // A drawing that has gone since is no reason for an error at start.
    if (!file.isEmpty() && QFileInfo(file).isFile() && file != fileName)
        OpenFile(file);
}

bool DlgDxfTools::OpenFile(const QString& file)
{
    DxfDrawing read;
    QString error;
    bool ok;
    {
        WaitCursor wait;
        ok = DxfDrawing::Read(file, read, &error);
    }
    lastError = error;
    if (!ok) {
        appendOutput(error);
        return false;
    }
    drawing = std::move(read);
    // Drawings hold a block per sheet: a search along the list per insert
    // would make every refresh of the list quadratic.
    blockIndex = drawing.BlockIndex();
    fileName = file;
    ui->dxfFileEdit->setText(QDir::toNativeSeparators(file));
    if (settings)
        settings->setValue(Group + KeyLastUsedFile, file);
    // The filter on display is the one in effect; a new drawing gets it too.
    const QString pattern = ui->blockFilterEdit->text();
    if (QRegularExpression(pattern).isValid())
        drawing.UseInsertsOfBlocks(QRegularExpression(pattern));
    ui->sheetMap->SetDrawing(&drawing);
    fillInsertTree();
    showSelectionOnMap();
    appendOutput(tr("Opened %1: %2 layers, %3 blocks, %4 inserts")
                     .arg(QDir::toNativeSeparators(file))
                     .arg(drawing.layers.size())
                     .arg(drawing.blocks.size())
                     .arg(drawing.inserts.size()));
    return true;
}

bool DlgDxfTools::ApplyBlockFilter(const QString& pattern)
{
    const QRegularExpression filter(pattern);
    if (!filter.isValid())
        return false;
    drawing.UseInsertsOfBlocks(filter);
    showCheckStates();
    return true;
}

void DlgDxfTools::SetAllUsed(bool use)
{
    for (DxfInsert& insert : drawing.inserts)
        insert.use = use;
    showCheckStates();
}

void DlgDxfTools::SetInsertUsed(int insert, bool use)
{
    if (insert < 0 || insert >= drawing.inserts.size())
        return;
    drawing.inserts[insert].use = use;
    showCheckStates();
}

bool DlgDxfTools::DumpDxf()
{
    if (fileName.isEmpty())
        return false;
    setBusy(true);
    stopDump = false;
    ui->dumpButton->setText(tr("&Stop Dump"));
    QString error;
    // A large drawing reads for a while; the listing should grow visibly,
    // and "Stop" must get through meanwhile.
    const auto show = [this](const QString& line) {
        ui->outputEdit->appendPlainText(line);
        ui->outputEdit->repaint();
        QCoreApplication::processEvents();
    };
    const bool ok = DxfDump::DumpFile(fileName, show, &error, &stopDump);
    ui->dumpButton->setText(tr("&Dump DXF"));
    setBusy(false);
    if (!ok)
        appendOutput(error);
    else if (stopDump)
        appendOutput(tr("Dump stopped"));
    return ok;
}

void DlgDxfTools::CorrectVertexPositions()
{
    QStringList log;
    DxfCorrectionResult result;
    {
        WaitCursor wait;
        for (DxfBlock& block : drawing.blocks) {
            for (DxfPolyline& polyline : block.polylines)
                polyline.labels.clear();
        }
        log = DxfSheetExport::CorrectVertexPositions(drawing, result);
    }
    ui->sheetMap->SetCorrection(result);
    for (const QString& line : qAsConst(log))
        appendOutput(line);
    int labelled = 0;
    for (int i = 0; i < drawing.inserts.size(); ++i) {
        if (drawing.inserts.at(i).use && labelCount(blockOf(i)) > 0)
            ++labelled;
    }
    appendOutput(tr("Correction completed - Inserts labelled: %1").arg(labelled));
    showCorners();
    OnCurrentInsertChanged(ui->insertTree->currentItem());
}

bool DlgDxfTools::ExportGK2(const QString& file)
{
    int written = 0;
    QString error;
    if (!DxfSheetExport::ExportGK2(drawing, file, &written, &error)) {
        appendOutput(error);
        QMessageBox::warning(this, windowTitle(), error);
        return false;
    }
    if (settings)
        settings->setValue(Group + KeyLastExportFile, file);
    appendOutput(tr("Export completed - Inserts written: %1").arg(written));
    bool labelled = false;
    for (int i = 0; i < drawing.inserts.size() && !labelled; ++i)
        labelled = drawing.inserts.at(i).use && labelCount(blockOf(i)) > 0;
    if (written > 0 && !labelled)
        appendOutput(tr("No corner was labelled, so only the sheet numbers were written: run the correction first"));
    return true;
}

QString DlgDxfTools::OutputText() const
{
    return ui->outputEdit->toPlainText();
}

void DlgDxfTools::OnOpenClicked()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Open DXF Drawing"), startFolder(), tr("DXF drawings (*.dxf *.DXF);;All files (*)"));
    if (file.isEmpty())
        return;
    if (!OpenFile(file))
        QMessageBox::warning(this, windowTitle(), lastError);
}

void DlgDxfTools::OnApplyFilterClicked()
{
    ApplyBlockFilter(ui->blockFilterEdit->text());
}

void DlgDxfTools::OnDumpClicked()
{
    // While a dump runs, the same button stops it.
    if (busy)
        stopDump = true;
    else
        DumpDxf();
}

void DlgDxfTools::OnCorrectClicked()
{
    CorrectVertexPositions();
}

void DlgDxfTools::OnExportClicked()
{
    QString suggested;
    if (settings)
        suggested = QFileInfo(settings->value(Group + KeyLastExportFile).toString()).absolutePath();
    if (suggested.isEmpty() || !QFileInfo(suggested).isDir())
        suggested = QFileInfo(fileName).absolutePath();
    suggested = QDir(suggested).filePath(QFileInfo(fileName).completeBaseName() + QStringLiteral(".gk2"));
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Export to Kamo as GK2"), suggested, tr("GK2 files (*.gk2);;All files (*)"));
    if (!file.isEmpty())
        ExportGK2(file);
}

void DlgDxfTools::OnBlockFilterChanged(const QString& text)
{
    const QRegularExpression filter(text);
    QPalette palette = ui->blockFilterEdit->style()->standardPalette();
    if (!filter.isValid())
        palette.setColor(QPalette::Text, Qt::red);
    ui->blockFilterEdit->setPalette(palette);
    ui->blockFilterEdit->setToolTip(filter.isValid() ? QString() : filter.errorString());
    ui->applyFilterButton->setEnabled(filter.isValid() && !busy);
}

void DlgDxfTools::OnInsertItemChanged(QTreeWidgetItem* item, int column)
{
    if (column != ColIndex)
        return;
    const int index = item->data(ColIndex, Qt::UserRole).toInt();
    if (index >= 0 && index < drawing.inserts.size())
        drawing.inserts[index].use = item->checkState(ColIndex) == Qt::Checked;
    showSummary();
    ui->sheetMap->update();
}

void DlgDxfTools::OnCurrentInsertChanged(QTreeWidgetItem* current)
{
    showVertices(current ? current->data(ColIndex, Qt::UserRole).toInt() : -1);
}

void DlgDxfTools::OnMapInsertClicked(int insert)
{
    QTreeWidgetItem* item = ui->insertTree->topLevelItem(insert);
    if (!item)
        return;
    selectingFromMap = true;
    ui->insertTree->setCurrentItem(item);
    selectingFromMap = false;
    ui->insertTree->scrollToItem(item);
}

void DlgDxfTools::done(int result)
{
    if (busy)
        return;
    saveState();
    QDialog::done(result);
}

void DlgDxfTools::appendOutput(const QString& line)
{
    ui->outputEdit->appendPlainText(line);
    ui->outputEdit->verticalScrollBar()->setValue(ui->outputEdit->verticalScrollBar()->maximum());
}

void DlgDxfTools::fillInsertTree()
{
    QTreeWidget* tree = ui->insertTree;
    const QSignalBlocker blocker(tree);
    tree->clear();
    ui->vertexTree->clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(drawing.inserts.size());
    for (int i = 0; i < drawing.inserts.size(); ++i) {
        const DxfInsert& insert = drawing.inserts.at(i);
        auto* item = new QTreeWidgetItem;
        // The number the correction log names an insert by.
        item->setText(ColIndex, QString::number(i));
        item->setData(ColIndex, Qt::UserRole, i);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(ColIndex, insert.use ? Qt::Checked : Qt::Unchecked);
        item->setText(ColBlock, insert.blockName);
        item->setText(ColSheet, insert.SheetNumber());
        item->setText(ColLayer, insert.layer);
        item->setText(ColPosition, coordinate(insert.x) + QStringLiteral(", ") + coordinate(insert.y));
        item->setTextAlignment(ColIndex, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(ColCorners, Qt::AlignRight | Qt::AlignVCenter);
        if (!blockOf(i)) {
            item->setForeground(ColBlock, palette().brush(QPalette::Disabled, QPalette::Text));
            item->setToolTip(ColBlock, tr("The drawing defines no block of this name"));
        }
        items.append(item);
    }
    tree->addTopLevelItems(items);
    showCorners();
    for (int column = 0; column < tree->columnCount(); ++column)
        tree->resizeColumnToContents(column);
    showSummary();
    if (!items.isEmpty())
        tree->setCurrentItem(items.first());
    showVertices(items.isEmpty() ? -1 : 0);
}

void DlgDxfTools::showCheckStates()
{
    QTreeWidget* tree = ui->insertTree;
    const QSignalBlocker blocker(tree);
    for (int i = 0; i < tree->topLevelItemCount() && i < drawing.inserts.size(); ++i)
        tree->topLevelItem(i)->setCheckState(ColIndex, drawing.inserts.at(i).use ? Qt::Checked : Qt::Unchecked);
    showSummary();
    ui->sheetMap->update();
}

void DlgDxfTools::showSelectionOnMap()
{
    QList<int> inserts;
    const QList<QTreeWidgetItem*> items = ui->insertTree->selectedItems();
    inserts.reserve(items.size());
    for (const QTreeWidgetItem* item : items)
        inserts.append(item->data(ColIndex, Qt::UserRole).toInt());
    ui->sheetMap->SetSelectedInserts(inserts);
}

void DlgDxfTools::centerMapOn(QTreeWidgetItem* current)
{
    // The frame clicked on is where the user looks already.
    if (current && !selectingFromMap)
        ui->sheetMap->CenterOn(current->data(ColIndex, Qt::UserRole).toInt());
}

void DlgDxfTools::showCorners()
{
    QTreeWidget* tree = ui->insertTree;
    const QSignalBlocker blocker(tree);
    for (int i = 0; i < tree->topLevelItemCount() && i < drawing.inserts.size(); ++i) {
        const int count = labelCount(blockOf(i));
        tree->topLevelItem(i)->setText(ColCorners, count > 0 ? QString::number(count) : QString());
    }
}

void DlgDxfTools::showSummary()
{
    if (fileName.isEmpty()) {
        ui->summaryLabel->setText(tr("No drawing loaded"));
    } else {
        int used = 0;
        for (const DxfInsert& insert : qAsConst(drawing.inserts))
            used += insert.use ? 1 : 0;
        ui->summaryLabel->setText(tr("%1 layers, %2 blocks, %3 inserts, %4 of them used")
                                      .arg(drawing.layers.size())
                                      .arg(drawing.blocks.size())
                                      .arg(drawing.inserts.size())
                                      .arg(used));
    }
    setBusy(busy);
}

void DlgDxfTools::showVertices(int insert)
{
    QTreeWidget* tree = ui->vertexTree;
    tree->clear();
    if (insert < 0 || insert >= drawing.inserts.size()) {
        ui->verticesGroup->setTitle(tr("Vertices"));
        return;
    }
    const QString& blockName = drawing.inserts.at(insert).blockName;
    ui->verticesGroup->setTitle(tr("Vertices of block %1").arg(blockName));
    const DxfBlock* block = blockOf(insert);
    if (!block) {
        tree->addTopLevelItem(new QTreeWidgetItem({ tr("The drawing defines no block of this name") }));
        return;
    }
    if (block->polylines.isEmpty())
        tree->addTopLevelItem(new QTreeWidgetItem({ tr("The block holds no polyline") }));
    for (int p = 0; p < block->polylines.size(); ++p) {
        const DxfPolyline& polyline = block->polylines.at(p);
        auto* parent
            = new QTreeWidgetItem({ tr("Polyline %1 (vertices: %2)").arg(p + 1).arg(polyline.vertices.size()) });
        tree->addTopLevelItem(parent);
        parent->setFirstColumnSpanned(true);
        for (int v = 0; v < polyline.vertices.size(); ++v) {
            const QPointF& vertex = polyline.vertices.at(v);
            const auto label = polyline.labels.constFind(v);
            auto* item = new QTreeWidgetItem(parent,
                { QString::number(v), coordinate(vertex.x()), coordinate(vertex.y()),
                    label == polyline.labels.cend() ? QString() : GK::VtxPositionText(label.value()) });
            item->setTextAlignment(0, Qt::AlignRight | Qt::AlignVCenter);
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        }
        parent->setExpanded(true);
    }
}

const DxfBlock* DlgDxfTools::blockOf(int insert) const
{
    const int block = blockIndex.value(drawing.inserts.at(insert).blockName, -1);
    return block < 0 ? nullptr : &drawing.blocks.at(block);
}

void DlgDxfTools::setBusy(bool on)
{
    busy = on;
    const bool loaded = !fileName.isEmpty();
    ui->openButton->setEnabled(!busy);
    ui->dumpButton->setEnabled(loaded);
    ui->correctButton->setEnabled(loaded && !busy && !drawing.inserts.isEmpty());
    ui->exportButton->setEnabled(loaded && !busy && !drawing.inserts.isEmpty());
    ui->applyFilterButton->setEnabled(!busy && QRegularExpression(ui->blockFilterEdit->text()).isValid());
    ui->useAllButton->setEnabled(!busy);
    ui->useNoneButton->setEnabled(!busy);
    ui->clearOutputButton->setEnabled(!busy);
    ui->buttonBox->setEnabled(!busy);
}

void DlgDxfTools::saveState()
{
    if (!settings)
        return;
    settings->setValue(Group + KeyGeometry, saveGeometry());
    settings->setValue(Group + KeyMainSplitter, ui->mainSplitter->saveState());
    settings->setValue(Group + KeyTopSplitter, ui->topSplitter->saveState());
    settings->setValue(Group + KeyDetailSplitter, ui->detailSplitter->saveState());
    settings->setValue(Group + KeyBlockFilter, ui->blockFilterEdit->text());
}

QString DlgDxfTools::startFolder() const
{
    QString file = fileName;
    if (file.isEmpty() && settings)
        file = settings->value(Group + KeyLastUsedFile).toString();
    const QString folder = QFileInfo(file).absolutePath();
    return !file.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath();
}
