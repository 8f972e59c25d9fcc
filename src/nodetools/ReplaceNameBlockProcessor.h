#ifndef KAMO_TOOLS_REPLACENAMEBLOCKPROCESSOR_H
#define KAMO_TOOLS_REPLACENAMEBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <QHash>
#include <QMap>

class NodeInfo;

/// Gives links the name of the node they lead to as their description: node
/// links by the node id in their path, document links by a node that holds
/// the linked document in one of its zones (the lowest node id first).
class ReplaceNameBlockProcessor : public ObjectBlockProcessor
{
public:
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    /// Borrowed; null: nothing changes. Its documents are looked up at the
    /// first block and then kept.
    QMap<int, NodeInfo*>* nodes = nullptr;
    /// Compare document file names only, not their folders.
    bool ignorePathOnCompare = false;

private:
    QString nameForNode(const QString& path) const;
    QString nameForDocument(const QString& path) const;
    QString documentKey(const QString& path) const;
    void indexDocuments();

    /// Document key -> name of the node with the lowest id holding it.
    QHash<QString, QString> documentNames;
    const QMap<int, NodeInfo*>* indexedNodes = nullptr;
    bool indexedIgnorePath = false;
    bool indexed = false;
};

#endif
