#ifndef KAMO_TOOLS_BLOCKNODETOOL_H
#define KAMO_TOOLS_BLOCKNODETOOL_H

#include "kamo_tools_export.h"
#include "nodetools/NodeTool.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class AnnotationFileProcessor;
class ObjectBlockProcessor;

/// A node tool that rewrites object blocks: it runs the shared file loop with
/// its own block processor and reports the loop's counters.
class KAMO_TOOLS_EXPORT BlockNodeTool : public NodeTool
{
public:
    /// Destroys the tool with its block processor.
    ~BlockNodeTool() override;

    /// Runs the file loop over the chosen files with the tool's block processor.
    void Execute() override;
    /// The loop's counters (see AnnotationFileProcessor).
    ///@{
    int GetFilesExamined() const override;
    int GetFilesChanged() const override;
    ///@}

    /// The files to work on, as AnnotationFileProcessor takes them: the project root, the document names, or all
    /// annotation files of the data folder.
    ///@{
    void SetProjectRootDir(const QString& dir);
    void SetFileNames(const QStringList& names);
    void SetAllAnnotationFiles(bool all);
    ///@}
    /// See AnnotationFileProcessor::SetDryRun.
    void SetDryRun(bool dry);
    /// What a run would make of the annotation file `path`, with this tool's
    /// options; see AnnotationFileProcessor::PreviewFile.
    bool PreviewFile(const QString& path, QByteArray* current, QByteArray* result);

    /// The loop of the last run, for its warnings and the files it wrote.
    const AnnotationFileProcessor& FileProcessor() const { return *fileProcessor; }

protected:
    /// Takes ownership of the derived tool's block processor.
    explicit BlockNodeTool(std::unique_ptr<ObjectBlockProcessor> processor);

    /// The block processor, for the derived tool to configure before Execute().
    ObjectBlockProcessor& BlockProcessor() { return *blockProcessor; }

private:
    /// Declared in this order so that the block processor goes first.
    std::unique_ptr<AnnotationFileProcessor> fileProcessor;
    std::unique_ptr<ObjectBlockProcessor> blockProcessor;
};

#endif
