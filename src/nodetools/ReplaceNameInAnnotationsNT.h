#ifndef KAMO_TOOLS_REPLACENAMEINANNOTATIONSNT_H
#define KAMO_TOOLS_REPLACENAMEINANNOTATIONSNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <QMap>

class NodeInfo;

/// "Bezeichnungen abgleichen": after nodes were renamed, the captions of the
/// links to them and to their documents take over the new names, in every
/// annotation file of the project.
class KAMO_TOOLS_EXPORT ReplaceNameInAnnotationsNT : public BlockNodeTool
{
public:
    ReplaceNameInAnnotationsNT();

    /// The project's nodes by id; not owned, may be null (nothing changes).
    void SetNodesMap(QMap<int, NodeInfo*>* nodes);
    /// Match documents by file name alone instead of by whole path.
    void SetIgnorePathOnCompare(bool ignore);

private:
    QMap<int, NodeInfo*>* nodes = nullptr;
    bool ignorePathOnCompare = false;
};

#endif
