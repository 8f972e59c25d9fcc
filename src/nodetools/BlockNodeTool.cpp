#include "nodetools/BlockNodeTool.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/ObjectBlockProcessor.h"

BlockNodeTool::BlockNodeTool(std::unique_ptr<ObjectBlockProcessor> processor)
    : fileProcessor(std::make_unique<AnnotationFileProcessor>())
    , blockProcessor(std::move(processor))
{ }

BlockNodeTool::~BlockNodeTool() = default;

void BlockNodeTool::Execute()
{
    fileProcessor->SetProgressCallback(progressCallback);
    fileProcessor->Run(*blockProcessor);
}

int BlockNodeTool::GetFilesExamined() const
{
    return fileProcessor->GetFilesExamined();
}

int BlockNodeTool::GetFilesChanged() const
{
    return fileProcessor->GetFilesChanged();
}

void BlockNodeTool::SetProjectRootDir(const QString& dir)
{
    fileProcessor->SetProjectRootDir(dir);
}

void BlockNodeTool::SetFileNames(const QStringList& names)
{
    fileProcessor->SetFileNames(names);
}

void BlockNodeTool::SetAllAnnotationFiles(bool all)
{
    fileProcessor->SetAllAnnotationFiles(all);
}

void BlockNodeTool::SetDryRun(bool dry)
{
    fileProcessor->SetDryRun(dry);
}

bool BlockNodeTool::PreviewFile(const QString& path, QByteArray* current, QByteArray* result)
{
    return AnnotationFileProcessor::PreviewFile(path, *blockProcessor, current, result);
}
