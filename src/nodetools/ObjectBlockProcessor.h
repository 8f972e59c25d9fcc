#ifndef KAMO_TOOLS_OBJECTBLOCKPROCESSOR_H
#define KAMO_TOOLS_OBJECTBLOCKPROCESSOR_H

#include "kamo_tools_export.h"

#include <QString>
#include <QStringList>

/// Rewrites the object blocks of annotation files, one block at a time. A
/// processor may keep state across the blocks of a file (between BeginFile
/// and EndFile) and across files.
class KAMO_TOOLS_EXPORT ObjectBlockProcessor
{
public:
    ObjectBlockProcessor();
    virtual ~ObjectBlockProcessor();

    ObjectBlockProcessor(const ObjectBlockProcessor&) = delete;
    ObjectBlockProcessor& operator=(const ObjectBlockProcessor&) = delete;

    /// Called before the first block of the annotation file \p path; the base does nothing.
    virtual void BeginFile(const QString& path);

    /// `block` runs from the "BO" line to the "EO" line inclusive. Append to
    /// `result` what takes its place: the same lines leave the block as it
    /// was, nothing deletes it.
    virtual void ProcessBlock(const QStringList& block, QStringList& result) = 0;

    /// Called after the file's last block and AppendToFile(); the base does nothing.
    virtual void EndFile(const QString& path);

    /// Called once per file after its last block: lines appended to `lines`
    /// (whole object blocks) go to the end of the file. The base adds none.
    virtual void AppendToFile(QStringList& lines);
};

#endif
