#ifndef KAMO_TOOLS_NODETOOL_H
#define KAMO_TOOLS_NODETOOL_H

#include "kamo_tools_export.h"

class ProgressCallback;
class QWidget;

/// One batch operation over the annotation files of a project. A tool lives
/// for a single run: it is configured through its setters, executed once,
/// asked for its results and destroyed.
class KAMO_TOOLS_EXPORT NodeTool
{
public:
    NodeTool();
    virtual ~NodeTool();

    NodeTool(const NodeTool&) = delete;
    NodeTool& operator=(const NodeTool&) = delete;

    /// Runs the operation once. Problems with single files do not stop the run; a tool reports them through its own
    /// result accessors.
    virtual void Execute() = 0;
    /// The counters of the run: files looked at and files changed (or, in a dry run, that would change). The base
    /// answers 0.
    ///@{
    virtual int GetFilesExamined() const;
    virtual int GetFilesChanged() const;
    ///@}

    /// A tool whose result is more than two counters shows it itself.
    virtual bool HasOwnResultView() const;
    /// Shows the tool's own result view, modal over \p parent, when HasOwnResultView(); the base shows nothing.
    virtual void ShowResult(QWidget* parent);

    /// Not owned; may stay null, a tool runs without progress reports.
    void SetProgressCallback(ProgressCallback* callback);

protected:
    /// The callback set with SetProgressCallback(); null for none.
    ProgressCallback* progressCallback = nullptr;
};

#endif
