#ifndef KAMO_TOOLS_NODETOOL_H
#define KAMO_TOOLS_NODETOOL_H

#include "kamo_tools_export.h"

class ProgressCallback;
class QWidget;

// One batch operation over the annotation files of a project. A tool lives
// for a single run: it is configured through its setters, executed once,
// asked for its results and destroyed.
class KAMO_TOOLS_EXPORT NodeTool
{
public:
    NodeTool();
    virtual ~NodeTool();

    NodeTool(const NodeTool&) = delete;
    NodeTool& operator=(const NodeTool&) = delete;

    virtual void Execute() = 0;
    virtual int GetFilesExamined() const;
    virtual int GetFilesChanged() const;

    // A tool whose result is more than two counters shows it itself.
    virtual bool HasOwnResultView() const;
    virtual void ShowResult(QWidget* parent);

    // Not owned; may stay null, a tool runs without progress reports.
    void SetProgressCallback(ProgressCallback* callback);

protected:
    ProgressCallback* progressCallback = nullptr;
};

#endif
