#ifndef KAMO_TOOLS_CHANGEHREFTYPETOSTANDARDBLOCKPROCESSOR_H
#define KAMO_TOOLS_CHANGEHREFTYPETOSTANDARDBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>

#include <QMap>
#include <QString>

#include <memory>

class ProjectFileIndex;

/// Turns the split links of the chosen objects into standard links for one
/// zone: one standard line per target that leads somewhere in that zone. A
/// link that leads nowhere in the zone stays split, so that no link is lost.
class ChangeHREFTypeToStandardBlockProcessor : public ObjectBlockProcessor
{
public:
    ChangeHREFTypeToStandardBlockProcessor();
    ~ChangeHREFTypeToStandardBlockProcessor() override;

    /// Finds the zone for the file when `targetZone` is 0.
    void BeginFile(const QString& path) override;
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    /// 1..4; 0: the zone the node of the file's document is shown in, zone 1
    /// when the document or its node is not known (or before any BeginFile).
    /// Any other value changes nothing.
    int targetZone = 0;
    /// Borrowed from the host, for the automatic zone.
    QMap<int, NodeInfo*>* nodes = nullptr;
    QMap<QString, NodeFileInfo>* files = nullptr; ///< keyed by document file name

private:
    int fileZone = 1;
    std::unique_ptr<ProjectFileIndex> index;
};

#endif
