#include "dialogs/DialogNodeTools.h"

#include "dialogs/DialogOwnership.h"
#include "dialogs/DlgNodeTools.h"
#include "dialogs/DlgNodeToolsPreview.h"
#include "dialogs/QtProgressCallback.h"
#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/BlockNodeTool.h"
#include "nodetools/NodeOperationCatalogue.h"
#include "nodetools/NodeOperationOptions.h"
#include "nodetools/NodeToolBackup.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>

#include <memory>

namespace {

QString trDialog(const char* text)
{
    return QCoreApplication::translate("DlgNodeTools", text);
}

// Runs `work` under a wait cursor, also when it leaves early.
template <typename Work> auto withWaitCursor(Work work)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    struct Restore {
        ~Restore() { QApplication::restoreOverrideCursor(); }
    } restore;
    return work();
}

// The files of a problem list, one per line, the first `limit` of them.
QString fileList(const QStringList& lines, int limit)
{
    QStringList shown = lines.mid(0, limit);
    if (lines.size() > limit)
        shown.append(trDialog("… und %1 weitere").arg(lines.size() - limit));
    return shown.join(QLatin1Char('\n'));
}

// After the result box, which keeps its text: what the run left out or
// should be known about, every file with its reason.
void showWarnings(QWidget* parent, const AnnotationFileProcessor& files)
{
    const QStringList& warnings = files.GetWarnings();
    if (warnings.isEmpty())
        return;
    QStringList lines;
    for (const QString& warning : warnings)
        lines.append(QDir::toNativeSeparators(warning));
    const int leftOut = files.GetLeftOutFiles().size();
    QMessageBox box(parent);
    box.setIcon(QMessageBox::Warning);
    box.setWindowTitle(QStringLiteral("Kamo"));
    box.setText(leftOut > 0 ? trDialog("Dateien, die nicht bearbeitet werden konnten: %1").arg(leftOut)
                            : trDialog("Hinweise zu %1 Dateien").arg(warnings.size()));
    box.setInformativeText(fileList(lines, 10));
    if (lines.size() > 10)
        box.setDetailedText(lines.join(QLatin1Char('\n')));
    box.exec();
}

} // namespace

DialogNodeTools::DialogNodeTools(QWidget* parent)
    : parent(parent)
    , dialog(new DlgNodeTools(parent))
    , dialogOwner(ShareDialogOwnership(dialog.data()))
{ }

DialogNodeTools::~DialogNodeTools() = default;

void DialogNodeTools::SetProjectId(const QString& id)
{
    projectId = id;
}
void DialogNodeTools::SetProjectName(const QString& name)
{
    projectName = name;
}
void DialogNodeTools::SetProjectRootDir(const QString& dir)
{
    projectRootDir = dir;
}
void DialogNodeTools::SetSettings(QSettings* store)
{
    settings = store;
}
void DialogNodeTools::SetSourceTreeWidget(TreeWidget* tree)
{
    sourceTree = tree;
}
void DialogNodeTools::SetNodesMap(QMap<int, NodeInfo*>* map)
{
    nodes = map;
}
void DialogNodeTools::SetTableMap(QMap<int, TableInfo*>* map)
{
    tables = map;
}
void DialogNodeTools::SetParticipantsMap(QMap<int, ParticipantInfo*>* map)
{
    participants = map;
}
void DialogNodeTools::SetGalleryMap(QMap<int, GalleryInfo*>* map)
{
    galleries = map;
}
void DialogNodeTools::SetFilesMap(QMap<QString, NodeFileInfo>* map)
{
    files = map;
}
void DialogNodeTools::SetFilesPinMap(QMap<QString, QMap<int, QList<PinObject>>>* map)
{
    filesPins = map;
}

void DialogNodeTools::ShowModal()
{
    if (!nodes || !dialog)
        return;

    dialog->SetProjectName(projectName);
    dialog->SetDataDirectory(projectRootDir);
    dialog->SetProjectId(projectId);
    dialog->SetSourceTree(sourceTree);
    dialog->SetNodesMap(nodes);
    dialog->SetParticipantsMap(participants);
    dialog->SetGalleryMap(galleries);
    dialog->SetTableMap(tables);
    dialog->SetSettings(settings);
    dialog->Initialize();
    dialog->ShowProjectData();

    // Only while this call runs: a copy of the facade may outlive this one.
    const QMetaObject::Connection previewConnection
        = QObject::connect(dialog.data(), &DlgNodeTools::PreviewRequested, dialog.data(), [this] { preview(); });
    const int answer = dialog->exec();
    QObject::disconnect(previewConnection);
    if (answer != QDialog::Accepted)
        return;

    projectRootDir = dialog->GetDataDirectory();
    if (projectRootDir.isEmpty() || !QDir(projectRootDir).exists()) {
        QMessageBox::warning(nullptr, QStringLiteral("Kamo"),
            trDialog("Data directory:\n\n'%1'\n\ninvalid").arg(projectRootDir), QMessageBox::Ok);
        return;
    }

    const int operation = dialog->GetOperationId();
    if (dialog->GetDoBackup()) {
        NodeToolBackup backup;
        backup.projectRootDir = projectRootDir;
        backup.logText = NodeToolBackup::LogText(QString::number(operation), projectRootDir);
        if (!withWaitCursor([&backup] { return backup.Create(); })) {
            QMessageBox box(
                QMessageBox::Warning, QStringLiteral("Kamo"), trDialog("Error creating backup"), QMessageBox::Ok);
            QStringList lines;
            for (const NodeToolBackupCheck::Problem& problem : backup.GetProblems())
                lines.append(problem.fileName + QStringLiteral(": ") + problem.reason);
            box.setInformativeText(backup.ErrorString() + QStringLiteral("\n\n")
                + (lines.isEmpty() ? QString() : fileList(lines, 10) + QStringLiteral("\n\n"))
                + trDialog("Es wurde nichts verändert."));
            box.exec();
            return;
        }
    }

    std::unique_ptr<NodeTool> tool = createTool(operation, projectRootDir, false);
    if (!tool)
        return;
    execute(*tool, parent);

    if (tool->HasOwnResultView()) {
        tool->ShowResult(parent);
    } else {
        QMessageBox result(parent);
        result.setIcon(QMessageBox::Information);
        result.setWindowTitle(trDialog("Vorgang abgeschlossen"));
        // The examined count is replaced at once: only the changed count is
        // seen, as users of the tools know it.
        result.setText(trDialog("Dateien untersucht: %1").arg(tool->GetFilesExamined()));
        result.setText(trDialog("Dateien verändert: %1").arg(tool->GetFilesChanged()));
        result.exec();
        if (auto* blockTool = dynamic_cast<BlockNodeTool*>(tool.get()))
            showWarnings(parent, blockTool->FileProcessor());
    }
}

void DialogNodeTools::execute(NodeTool& tool, QWidget* progressParent)
{
    QtProgressCallback::Run(progressParent, trDialog("Werkzeuge"), [&tool](ProgressCallback* callback) {
        tool.SetProgressCallback(callback);
        tool.Execute();
        tool.SetProgressCallback(nullptr);
    });
}

void DialogNodeTools::preview()
{
    const QString root = dialog->GetDataDirectory();
    if (root.isEmpty() || !QDir(root).exists()) {
        QMessageBox::warning(
            dialog, QStringLiteral("Kamo"), trDialog("Data directory:\n\n'%1'\n\ninvalid").arg(root), QMessageBox::Ok);
        return;
    }
    const int operation = dialog->GetOperationId();
    if (!(NodeOperationCatalogue::Options(operation) & NodeOperationCatalogue::WritesFiles))
        return;
    std::unique_ptr<NodeTool> tool = createTool(operation, root, true);
    auto* blockTool = dynamic_cast<BlockNodeTool*>(tool.get());
    if (!blockTool)
        return;
    execute(*blockTool, dialog);

    DlgNodeToolsPreview view(dialog);
    view.SetResult(dialog->OperationLabels().value(operation), *blockTool);
    // "Ausführen" is OK pressed from the preview: the run that follows is
    // the one OK starts, backup and all.
    if (view.exec() == QDialog::Accepted && dialog)
        dialog->OnAccepted();
}

std::unique_ptr<NodeTool> DialogNodeTools::createTool(int operation, const QString& root, bool dryRun) const
{
    NodeOperationOptions options = dialog->GetOperationOptions();
    options.projectRootDir = root;
    options.documents = dialog->GetFilesOfCheckedNodes();
    options.dryRun = dryRun;
    options.nodes = nodes;
    options.files = files;
    options.pins = filesPins;
    return NodeOperationCatalogue::Create(operation, options);
}
