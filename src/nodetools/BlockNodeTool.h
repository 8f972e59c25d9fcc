#ifndef KAMO_TOOLS_BLOCKNODETOOL_H
#define KAMO_TOOLS_BLOCKNODETOOL_H

#include "kamo_tools_export.h"
#include "nodetools/NodeTool.h"

#include <QString>
#include <QStringList>

#include <memory>

class AnnotationFileProcessor;
class ObjectBlockProcessor;

// A node tool that rewrites object blocks: it runs the shared file loop with
// its own block processor and reports the loop's counters.
class KAMO_TOOLS_EXPORT BlockNodeTool : public NodeTool
{
public:
    ~BlockNodeTool() override;

    void Execute() override;
    int GetFilesExamined() const override;
    int GetFilesChanged() const override;

    void SetProjectRootDir(const QString& dir);
    void SetFileNames(const QStringList& names);
    void SetAllAnnotationFiles(bool all);
    // See AnnotationFileProcessor::SetDryRun.
    void SetDryRun(bool dry);

    // The loop of the last run, for its warnings and the files it wrote.
    const AnnotationFileProcessor& FileProcessor() const { return *fileProcessor; }

protected:
    explicit BlockNodeTool(std::unique_ptr<ObjectBlockProcessor> processor);

    ObjectBlockProcessor& BlockProcessor() { return *blockProcessor; }

private:
    // Declared in this order so that the block processor goes first.
    std::unique_ptr<AnnotationFileProcessor> fileProcessor;
    std::unique_ptr<ObjectBlockProcessor> blockProcessor;
};

#endif
