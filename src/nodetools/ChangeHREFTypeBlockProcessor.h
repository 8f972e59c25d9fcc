#ifndef KAMO_TOOLS_CHANGEHREFTYPEBLOCKPROCESSOR_H
#define KAMO_TOOLS_CHANGEHREFTYPEBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>

#include <QMap>
#include <QString>

#include <memory>

class ProjectFileIndex;
class TargetInfo;

/// Turns the standard links of the chosen objects into split links. A link
/// to a document of the project is spread over the zones of its node: every
/// zone whose list holds a document at the same position leads to that
/// document, in the folder of the original path. Any other link becomes a
/// split link with its one zone.
class ChangeHREFTypeBlockProcessor : public ObjectBlockProcessor
{
public:
    ChangeHREFTypeBlockProcessor();
    ~ChangeHREFTypeBlockProcessor() override;

    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    /// Borrowed from the host; without both, no document is known.
    QMap<int, NodeInfo*>* nodes = nullptr;
    QMap<QString, NodeFileInfo>* files = nullptr; ///< keyed by document file name

private:
    bool spreadOverZones(TargetInfo& target);

    std::unique_ptr<ProjectFileIndex> index;
};

#endif
