#include "MainWindow.h"

#include <Kamo_view/GalleryInfo.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/ParticipantInfo.h>
#include <Kamo_view/ProjectDescription.h>
#include <Kamo_view/TableInfo.h>
#include <Kamo_view/TreeWidget.h>
#include <dialogs/DialogDxfTools.h>
#include <dialogs/DialogImportShapeFile.h>
#include <dialogs/DialogNodeTools.h>

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>

#include <algorithm>

namespace {

const QString GeometryKey = QStringLiteral("MainWindow/Geometry");
const QString StateKey = QStringLiteral("MainWindow/State");
const QString SplitterKey = QStringLiteral("MainWindow/Splitter");
const QString LastProjectKey = QStringLiteral("Project/Last");

// Documents are listed with the paths of the machine that filed them, often
// Windows paths; the name alone is what the reader looks for.
QString documentName(const QString& path)
{
    const int slash = std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')));
    return path.mid(slash + 1);
}

QString htmlList(const QStringList& entries)
{
    if (entries.isEmpty())
        return QStringLiteral("<p><i>keine</i></p>");
    QString html = QStringLiteral("<ul>");
    for (const QString& entry : entries)
        html += QStringLiteral("<li>%1</li>").arg(entry.toHtmlEscaped());
    return html + QStringLiteral("</ul>");
}

QString field(const QString& label, const QString& value)
{
    return QStringLiteral("<p><b>%1:</b> %2</p>").arg(label, value.toHtmlEscaped());
}

} // namespace

MainWindow::MainWindow(QSettings* settings, QWidget* parent)
    : QMainWindow(parent)
    , settings(settings)
    , tree(new TreeWidget)
    , details(new QTextBrowser)
    , pages(new QTabWidget)
    , importResults(new QTreeWidget)
    , status(new QLabel)
{
    auto* splitter = new QSplitter;
    splitter->setObjectName(QStringLiteral("splitter"));
    splitter->addWidget(tree);
    pages->addTab(details, QStringLiteral("Details"));
    pages->addTab(importResults, QStringLiteral("Import"));
    importResults->setObjectName(QStringLiteral("importResults"));
    importResults->setHeaderLabels({ QStringLiteral("Objekt"), QStringLiteral("Angaben") });
    splitter->addWidget(pages);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    setCentralWidget(splitter);
    tree->setObjectName(QStringLiteral("projectTree"));
    details->setObjectName(QStringLiteral("details"));
    details->setOpenLinks(false);
    // A label rather than a status message, which menu hints would replace.
    status->setObjectName(QStringLiteral("projectStatus"));
    statusBar()->addWidget(status, 1);

    QMenu* projectMenu = menuBar()->addMenu(QStringLiteral("&Projekt"));
    QAction* open = projectMenu->addAction(QStringLiteral("Ö&ffnen…"), this, &MainWindow::chooseProject);
    open->setShortcut(QKeySequence::Open);
    projectMenu->addSeparator();
    QAction* quit = projectMenu->addAction(QStringLiteral("&Beenden"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    toolsMenu = menuBar()->addMenu(QStringLiteral("&Werkzeuge"));
    addTool(QStringLiteral("node-tools"), QStringLiteral("&Knotenwerkzeuge…"), &MainWindow::openNodeTools);
    addTool(QStringLiteral("shape-import"), QStringLiteral("&Shape-Import…"), &MainWindow::openShapeImport);
    addTool(QStringLiteral("dxf-tools"), QStringLiteral("&DXF-Werkbank…"), &MainWindow::openDxfTools);

    connect(tree, &QTreeWidget::currentItemChanged, this, &MainWindow::showDetails);
    updateProjectState();
}

MainWindow::~MainWindow()
{
    // The tree's items point into the project; empty it while both exist.
    nodeTools.reset();
    tree->clear();
}

QAction* MainWindow::addTool(const QString& id, const QString& text, void (MainWindow::*run)())
{
    QAction* action = toolsMenu->addAction(text, this, run);
    action->setObjectName(id);
    projectActions.append(action);
    action->setEnabled(project != nullptr);
    return action;
}

bool MainWindow::RunTool(const QString& id)
{
    for (QAction* action : toolsMenu->actions()) {
        if (action->objectName() == id && action->isEnabled()) {
            action->trigger();
            return true;
        }
    }
    return false;
}

bool MainWindow::LoadProject(const QString& root, QString* error)
{
    auto loaded = std::make_unique<ProjectDescription>();
    if (!loaded->Load(root)) {
        if (error)
            *error = loaded->ErrorString();
        return false;
    }
    // The facades borrow the maps of the project they were given.
    nodeTools.reset();
    shapeImport.reset();
    dxfTools.reset();
    importResults->clear();
    tree->ShowProject(
        loaded->Nodes(), loaded->NodeOrder(), loaded->Tables(), loaded->Participants(), loaded->Galleries());
    project = std::move(loaded);
    // Something to read in the details pane from the start.
    tree->setCurrentItem(tree->topLevelItem(0));
    projectRoot = QDir::cleanPath(QFileInfo(root).absoluteFilePath());
    settings->setValue(LastProjectKey, projectRoot);
    updateProjectState();
    return true;
}

bool MainWindow::OpenProject(const QString& root)
{
    QString error;
    if (LoadProject(root, &error))
        return true;
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Projekt öffnen"),
        QStringLiteral("Das Projekt in „%1“ kann nicht geöffnet werden.").arg(QDir::toNativeSeparators(root)),
        QMessageBox::Ok, this);
    box.setInformativeText(error);
    box.exec();
    return false;
}

QString MainWindow::LastProject() const
{
    return settings->value(LastProjectKey).toString();
}

QString MainWindow::DetailsText() const
{
    return details->toPlainText();
}

void MainWindow::RestoreWindowState()
{
    if (!restoreGeometry(settings->value(GeometryKey).toByteArray()))
        resize(1000, 700);
    restoreState(settings->value(StateKey).toByteArray());
    if (auto* splitter = qobject_cast<QSplitter*>(centralWidget()))
        splitter->restoreState(settings->value(SplitterKey).toByteArray());
}

void MainWindow::SaveWindowState()
{
    settings->setValue(GeometryKey, saveGeometry());
    settings->setValue(StateKey, saveState());
    if (auto* splitter = qobject_cast<QSplitter*>(centralWidget()))
        settings->setValue(SplitterKey, splitter->saveState());
    settings->sync();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    SaveWindowState();
    event->accept();
}

void MainWindow::chooseProject()
{
    const QString start = projectRoot.isEmpty() ? LastProject() : projectRoot;
    const QString root = QFileDialog::getExistingDirectory(this, QStringLiteral("Projektordner öffnen"), start);
    if (!root.isEmpty())
        OpenProject(root);
}

void MainWindow::openNodeTools()
{
    if (!project)
        return;
    if (!nodeTools) {
        nodeTools = std::make_unique<DialogNodeTools>(this);
        nodeTools->SetProjectId(project->Id());
        nodeTools->SetProjectName(project->Name());
        nodeTools->SetProjectRootDir(projectRoot);
        nodeTools->SetSettings(settings);
        nodeTools->SetSourceTreeWidget(tree);
        nodeTools->SetNodesMap(&project->Nodes());
        nodeTools->SetTableMap(&project->Tables());
        nodeTools->SetParticipantsMap(&project->Participants());
        nodeTools->SetGalleryMap(&project->Galleries());
        nodeTools->SetFilesMap(&project->Files());
        nodeTools->SetFilesPinMap(&project->Pins());
    }
    nodeTools->ShowModal();
    updateProjectState();
}

void MainWindow::openShapeImport()
{
    if (!project)
        return;
    if (!shapeImport) {
        shapeImport = std::make_unique<DialogImportShapeFile>(this, settings);
        shapeImport->SetGeoSystemForProject(GeoSystemSettings::FromString(project->GeoSystem()));
        shapeImport->SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>>::create(project->Areas()));
    }
    shapeImport->Initialize();
    if (shapeImport->Execute()) {
        showImportResults(*shapeImport);
        pages->setCurrentWidget(importResults);
    }
}

void MainWindow::openDxfTools()
{
    if (!project)
        return;
    if (!dxfTools) {
        dxfTools = std::make_unique<DialogDxfTools>(this, settings);
        // Until the user has chosen a drawing, offer the project's first.
        if (!settings->contains(QStringLiteral("DxfToolsDialog/LastUsedFile"))) {
            QDirIterator it(projectRoot, { QStringLiteral("*.dxf"), QStringLiteral("*.DXF") }, QDir::Files,
                QDirIterator::Subdirectories);
            QStringList drawings;
            while (it.hasNext())
                drawings.append(it.next());
            std::sort(drawings.begin(), drawings.end());
            if (!drawings.isEmpty())
                dxfTools->SetDxfFilename(drawings.first());
        }
    }
    dxfTools->Initialize();
    dxfTools->ShowModal();
}

namespace {

QString pointsText(const QList<QVector<PointF>>& lines)
{
    int points = 0;
    for (const auto& line : lines)
        points += line.size();
    return QStringLiteral("%1 Teil(e), %2 Punkte").arg(lines.size()).arg(points);
}

} // namespace

void MainWindow::showImportResults(const DialogImportShapeFile& import)
{
    importResults->clear();
    const auto add = [this](QTreeWidgetItem* parent, const QString& object, const QString& text) {
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(importResults);
        item->setText(0, object);
        item->setText(1, text);
        return item;
    };
    switch (import.GetImportMode()) {
    case DialogImportShapeFile::imSheets: {
        QMap<int, QMap<QString, QList<PointF>>> scales;
        import.GetScalesMap(scales);
        for (auto scale = scales.cbegin(); scale != scales.cend(); ++scale) {
            QTreeWidgetItem* group = add(
                nullptr, QStringLiteral("1:%1").arg(scale.key()), QStringLiteral("%1 Blätter").arg(scale->size()));
            for (auto sheet = scale->cbegin(); sheet != scale->cend(); ++sheet) {
                QStringList points;
                for (const PointF& point : sheet.value())
                    points.append(QStringLiteral("(%1 %2)").arg(point.X(), 0, 'f', 2).arg(point.Y(), 0, 'f', 2));
                add(group, sheet.key(), points.join(QLatin1Char(' ')));
            }
        }
        break;
    }
    case DialogImportShapeFile::imRoutes:
        for (const RoadObject& road : import.GetRoads())
            add(nullptr, road.name.isEmpty() ? road.id : road.name,
                QStringLiteral("%1 %2, %3").arg(road.number, road.variant, pointsText(road.lines)).simplified());
        break;
    case DialogImportShapeFile::imDistricts:
        for (const DistrictPiece& piece : import.GetDistrictPieces())
            add(nullptr, piece.number,
                QStringLiteral("%1 %2").arg(piece.normalisedNumber, pointsText(piece.rings)).simplified());
        break;
    case DialogImportShapeFile::imBuildings:
        for (const BuildingObject& building : import.GetBuildings())
            add(nullptr, building.id,
                QStringLiteral("%1 %2, %3 %4 – %5")
                    .arg(building.street, building.houseNumber, building.zipCode, building.town,
                        pointsText(building.rings))
                    .simplified());
        break;
    }
    importResults->expandAll();
    importResults->resizeColumnToContents(0);
    for (const QString& warning : import.GetWarnings())
        add(nullptr, QStringLiteral("Hinweis"), warning);
}

QStringList MainWindow::ImportResultLines() const
{
    QStringList lines;
    for (QTreeWidgetItemIterator it(importResults); *it; ++it)
        lines.append((*it)->text(0) + QStringLiteral(": ") + (*it)->text(1));
    return lines;
}

void MainWindow::showDetails()
{
    pages->setCurrentWidget(details);
    details->setHtml(describe(TreeWidget::GetItemInfo(tree->currentItem())));
}

QString MainWindow::describe(const ItemInfo* info) const
{
    if (!info)
        return QString();
    QString html = QStringLiteral("<h3>%1</h3>").arg(info->Name().toHtmlEscaped());
    switch (info->GetKind()) {
    case ItemInfo::Kind::Node: {
        const auto* node = static_cast<const NodeInfo*>(info);
        const int zone = node->Zone();
        const QString zoneName = project ? project->ZoneNames().value(zone - 1) : QString();
        html += field(QStringLiteral("Zone"),
            zoneName.isEmpty() ? QString::number(zone) : QStringLiteral("%1 (%2)").arg(zone).arg(zoneName));
        QStringList documents;
        for (const QString& path : node->Documents(zone))
            documents.append(documentName(path));
        html += QStringLiteral("<p><b>Dokumente dieser Zone:</b></p>") + htmlList(documents);
        break;
    }
    case ItemInfo::Kind::Table:
        html += QStringLiteral("<p><b>Spalten:</b></p>") + htmlList(static_cast<const TableInfo*>(info)->Columns());
        break;
    case ItemInfo::Kind::Participant:
        html += field(QStringLiteral("Organisation"), static_cast<const ParticipantInfo*>(info)->Organisation());
        break;
    case ItemInfo::Kind::Gallery:
        html += field(
            QStringLiteral("Ordner"), QDir::toNativeSeparators(static_cast<const GalleryInfo*>(info)->Folder()));
        break;
    }
    return html;
}

void MainWindow::updateProjectState()
{
    for (QAction* action : qAsConst(projectActions))
        action->setEnabled(project != nullptr);
    if (!project) {
        setWindowTitle(QStringLiteral("Kamo Demo"));
        status->setText(QStringLiteral("Kein Projekt geöffnet"));
        return;
    }
    setWindowTitle(QStringLiteral("%1 – Kamo Demo").arg(project->Name()));
    QString text = QStringLiteral("Projekt: %1").arg(QDir::toNativeSeparators(projectRoot));
    // A data folder chosen in the node tools is where they work next time.
    if (nodeTools && !nodeTools->GetProjectRootDir().isEmpty()
        && QDir::cleanPath(nodeTools->GetProjectRootDir()) != projectRoot)
        text += QStringLiteral("   Daten: %1").arg(QDir::toNativeSeparators(nodeTools->GetProjectRootDir()));
    status->setText(text);
    showDetails();
}
