#include "nodetools/AnalyzeProjectNT.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/ProgressCallback.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

// Folders of the tools themselves inside the data folder: what lies there
// is kept on purpose and never counts as left over.
const QStringList ownFolders { QStringLiteral("ann_sic"), QStringLiteral("ann_obsolet") };

bool isInOwnFolder(const QString& relativePath)
{
    const int slash = relativePath.indexOf(QLatin1Char('/'));
    return slash > 0 && ownFolders.contains(relativePath.left(slash));
}

} // namespace

AnalyzeProjectNT::AnalyzeProjectNT() = default;

AnalyzeProjectNT::~AnalyzeProjectNT() = default;

QString AnalyzeProjectNT::GetDataDirectory() const
{
    return AnnotationFileProcessor::DataDirectory(projectRootDir);
}

void AnalyzeProjectNT::Execute()
{
    const QString dataDir = GetDataDirectory();
    if (!QFileInfo(dataDir).isDir())
        return;

    QStringList documents;
    QSet<QString> seen;
    auto addDocument = [&](const QString& document) {
        if (!document.isEmpty() && !seen.contains(document)) {
            seen.insert(document);
            documents.append(document);
        }
    };
    if (nodes) {
        for (const NodeInfo* node : qAsConst(*nodes)) {
            if (!node)
                continue;
            for (int zone : node->Zones()) {
                QStringList names;
                node->GetFilesForZone(zone, names);
                for (const QString& name : qAsConst(names))
                    addDocument(name);
            }
        }
    }
    if (files) {
        for (auto it = files->constBegin(); it != files->constEnd(); ++it)
            addDocument(it.key());
    }

    const QDir data(dataDir);
    QSet<QString> usedSet;
    const int total = documents.size();
    for (int i = 0; i < total; ++i) {
        const QString& document = documents.at(i);
        const QString path = AnnotationFileProcessor::AnnotationFilePath(dataDir, document);
        if (progressCallback)
            progressCallback->Progress(path, i + 1, total);
        ++documentsExamined;
        if (!QFileInfo(path).isFile()) {
            withoutAnnotations.append(document);
            continue;
        }
        const QString relative = data.relativeFilePath(path);
        referenced.insert(document, relative);
        usedSet.insert(relative);
    }

    QDirIterator it(dataDir, { QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files,
        QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString relative = data.relativeFilePath(it.next());
        if (isInOwnFolder(relative))
            continue;
        (usedSet.contains(relative) ? used : unused).append(relative);
    }
    used.sort();
    unused.sort();
    withoutAnnotations.sort();
}

QStringList AnalyzeProjectNT::MoveAnnotationFiles(
    const QString& dataDir, const QStringList& relativeNames, const QString& target)
{
    QStringList moved;
    const QFileInfo targetInfo(target);
    if (!targetInfo.isDir() || targetInfo.canonicalFilePath() == QFileInfo(dataDir).canonicalFilePath())
        return moved;
    for (const QString& name : relativeNames) {
        const QString source = QDir::cleanPath(dataDir) + QLatin1Char('/') + name;
        const QString destination = QDir::cleanPath(target) + QLatin1Char('/') + name;
        // QFile::rename never replaces an existing file.
        if (QFileInfo(source).isFile() && QFile::rename(source, destination))
            moved.append(name);
    }
    return moved;
}
