#include "dialogs/DlgAnalyzeProject.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "ui_DlgAnalyzeProject.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>

namespace {

void fillFileList(QTreeWidget* tree, const QStringList& files)
{
    tree->setUpdatesEnabled(false);
    tree->clear();
    for (const QString& file : files)
        new QTreeWidgetItem(tree, QStringList { file });
    tree->sortItems(0, Qt::AscendingOrder);
    tree->setUpdatesEnabled(true);
}

} // namespace

DlgAnalyzeProject::DlgAnalyzeProject(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::DlgAnalyzeProject>())
{
    ui->setupUi(this);
    connect(ui->btnMoveUnusedAnnotationFiles, &QPushButton::clicked, this,
        &DlgAnalyzeProject::OnMoveUnusedAnnotationFilesClicked);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &DlgAnalyzeProject::OnRejected);
}

DlgAnalyzeProject::~DlgAnalyzeProject() = default;

void DlgAnalyzeProject::SetDataDirectory(const QString& directory)
{
    dataDirectory = directory;
}

void DlgAnalyzeProject::SetFileNames(const QStringList& names)
{
    fileNames = names;
}

void DlgAnalyzeProject::SetReferencedFiles(const QMap<QString, QString>& files)
{
    referencedFiles = files;
}

void DlgAnalyzeProject::SetUnusedAnnotationFiles(const QStringList& files)
{
    unusedAnnotationFiles = files;
}

void DlgAnalyzeProject::SetUsedAnnotationFiles(const QStringList& files)
{
    usedAnnotationFiles = files;
}

void DlgAnalyzeProject::FillLists()
{
    QTreeWidget* tree = ui->treeUsedFiles;
    tree->setUpdatesEnabled(false);
    tree->clear();
    for (auto it = referencedFiles.constBegin(); it != referencedFiles.constEnd(); ++it)
        new QTreeWidgetItem(tree, QStringList { it.key(), it.value() });
    tree->sortItems(0, Qt::AscendingOrder);
    // Document names with their folders are long; the annotation file beside
    // them must stay in view as far as the width allows.
    tree->resizeColumnToContents(0);
    tree->setUpdatesEnabled(true);

    fillFileList(ui->treeUsedAnnotationFiles, usedAnnotationFiles);
    fillFileList(ui->treeUnusedAnnotationFiles, unusedAnnotationFiles);
}

void DlgAnalyzeProject::OnMoveUnusedAnnotationFilesClicked()
{
    const QString dataFolder
        = QDir::cleanPath(dataDirectory + QLatin1Char('/') + AnnotationFileProcessor::DataDirectoryName);
    const QString defaultTarget = dataFolder + QStringLiteral("/ann_obsolet");
    // The chooser should open on the usual place even the first time.
    QDir().mkpath(defaultTarget);

    const QString target = QFileDialog::getExistingDirectory(
        this, tr("Zielverzeichnis"), defaultTarget, QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    // A cancelled chooser answers an empty path, which QDir would take for
    // the working directory.
    if (target.isEmpty() || !QFileInfo(target).isDir() || target == dataFolder)
        return;

    for (const QString& entry : qAsConst(unusedAnnotationFiles)) {
        const QString source = dataFolder + QLatin1Char('/') + entry;
        if (!QFileInfo::exists(source))
            continue;
        // Never replaces a file already in the target, and a subfolder the
        // target lacks makes it fail: either way the file stays where it is.
        QFile::rename(source, target + QLatin1Char('/') + entry);
    }
}

void DlgAnalyzeProject::OnRejected()
{
    reject();
}
