#include "nodetools/NodeTool.h"

NodeTool::NodeTool() = default;

NodeTool::~NodeTool() = default;

int NodeTool::GetFilesExamined() const
{
    return 0;
}

int NodeTool::GetFilesChanged() const
{
    return 0;
}

bool NodeTool::HasOwnResultView() const
{
    return false;
}

void NodeTool::ShowResult(QWidget*)
{ }

void NodeTool::SetProgressCallback(ProgressCallback* callback)
{
    progressCallback = callback;
}
