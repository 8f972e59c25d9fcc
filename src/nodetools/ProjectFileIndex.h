#ifndef KAMO_TOOLS_PROJECTFILEINDEX_H
#define KAMO_TOOLS_PROJECTFILEINDEX_H

#include <Kamo_view/NodeFileInfo.h>

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

// Lookups into the host's map of project documents (keyed by document file
// name) that the link tools need once per link or once per annotation file.
class ProjectFileIndex
{
public:
    // Reads `files` again unless it is still the map read last; null reads
    // as an empty map. The host's map is shared, not copied: any change the
    // host makes to it detaches it from the copy kept here, which is how a
    // changed map is noticed without comparing its entries.
    void Update(const QMap<QString, NodeFileInfo>* files);

    // The document whose file name equals `fileName` ignoring case; with
    // several, the first key in map order. Null when there is none.
    const NodeFileInfo* FindByFileName(const QString& fileName) const;

    // The document whose annotation file (AnnotationFileProcessor::
    // AnnotationFilePath in the folder of `annotationPath`) is exactly
    // `annotationPath`; with several, the first key in map order.
    const NodeFileInfo* FindByAnnotationFile(const QString& annotationPath) const;

    // The part of `path` after its last "/" or "\", as link paths are
    // written on the host's platform.
    static QString FileNamePart(const QString& path);

private:
    const NodeFileInfo* entry(const QString& key) const;

    QMap<QString, NodeFileInfo> files;
    QHash<QString, QString> keyByFoldedName;
    // Annotation file name without ".ann" -> the keys that may own it.
    QHash<QString, QStringList> keysByStem;
};

#endif
