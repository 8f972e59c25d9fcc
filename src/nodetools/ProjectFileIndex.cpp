#include "nodetools/ProjectFileIndex.h"

#include "nodetools/AnnotationFileProcessor.h"

#include <QFileInfo>

#include <algorithm>

void ProjectFileIndex::Update(const QMap<QString, NodeFileInfo>* newFiles)
{
    const QMap<QString, NodeFileInfo> current = newFiles ? *newFiles : QMap<QString, NodeFileInfo>();
    if (current.isSharedWith(files) && !keyByFoldedName.isEmpty())
        return;
    files = current;
    keyByFoldedName.clear();
    keysByStem.clear();
    for (auto it = files.cbegin(); it != files.cend(); ++it) {
        const QString& key = it.key();
        const QString folded = FileNamePart(key).toCaseFolded();
        if (!keyByFoldedName.contains(folded))
            keyByFoldedName.insert(folded, key);

        // The two names AnnotationFilePath can give a document.
        const QFileInfo document(key);
        QString fallback = document.fileName();
        const int lastDot = fallback.lastIndexOf(QLatin1Char('.'));
        if (lastDot >= 0)
            fallback.remove(lastDot, 1);
        keysByStem[document.baseName()].append(key);
        if (fallback != document.baseName())
            keysByStem[fallback].append(key);
    }
}

const NodeFileInfo* ProjectFileIndex::FindByFileName(const QString& fileName) const
{
    if (fileName.isEmpty())
        return nullptr;
    return entry(keyByFoldedName.value(fileName.toCaseFolded()));
}

const NodeFileInfo* ProjectFileIndex::FindByAnnotationFile(const QString& annotationPath) const
{
    const int slash = annotationPath.lastIndexOf(QLatin1Char('/'));
    const QString dataDir = annotationPath.left(std::max(slash, 0));
    QString stem = annotationPath.mid(slash + 1);
    if (!stem.endsWith(AnnotationFileProcessor::AnnotationExtension))
        return nullptr;
    stem.chop(AnnotationFileProcessor::AnnotationExtension.size());
    for (const QString& key : keysByStem.value(stem)) {
        if (AnnotationFileProcessor::AnnotationFilePath(dataDir, key) == annotationPath)
            return entry(key);
    }
    return nullptr;
}

QString ProjectFileIndex::FileNamePart(const QString& path)
{
    const int separator = std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    return path.mid(separator + 1);
}

const NodeFileInfo* ProjectFileIndex::entry(const QString& key) const
{
    if (key.isNull())
        return nullptr;
    const auto it = files.constFind(key);
    return it == files.cend() ? nullptr : &it.value();
}
