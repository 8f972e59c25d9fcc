#ifndef KAMO_TOOLS_ANNOTATIONFILEPROCESSOR_H
#define KAMO_TOOLS_ANNOTATIONFILEPROCESSOR_H

#include "kamo_tools_export.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class ObjectBlockProcessor;
class ProgressCallback;

/// The per-file loop shared by the block-based node tools: finds the
/// annotation file of each document, lets an ObjectBlockProcessor rewrite its
/// object blocks and writes the file back when its text changed.
///
/// A changed file is replaced atomically (a failed write leaves the old bytes
/// in place) and a file that is not valid UTF-8 is never rewritten; both are
/// reported through GetWarnings().
class KAMO_TOOLS_EXPORT AnnotationFileProcessor
{
public:
    /// Creates a loop with no files and no progress callback.
    AnnotationFileProcessor();
    /// Destroys the loop; the progress callback is not owned.
    ~AnnotationFileProcessor();

    /// The project root (the data folder is DataDirectory() of it) and the document file names whose annotation files
    /// are processed, in order.
    ///@{
    void SetProjectRootDir(const QString& dir) { projectRootDir = dir; }
    void SetFileNames(const QStringList& names) { fileNames = names; }
    const QStringList& GetFileNames() const { return fileNames; }
    ///@}

    /// Instead of the documents' files, take every annotation file directly in
    /// the data folder (not its subfolders), in name order.
    void SetAllAnnotationFiles(bool all) { allAnnotationFiles = all; }

    /// Receives one report per file before it is processed; not owned, may be null.
    void SetProgressCallback(ProgressCallback* callback) { progressCallback = callback; }

    /// Processes and counts everything as a real run would, but writes
    /// nothing: GetChangedFiles() then lists the files that would be written,
    /// GetChangedContents() what they would hold, and a file whose folder
    /// would not take the replacement is warned about as in a real run.
    void SetDryRun(bool dry) { dryRun = dry; }

    /// Processes the files with \p processor: each existing annotation file gets BeginFile(), its blocks,
    /// AppendToFile() and EndFile(); missing files are skipped silently. Does nothing when the data folder does not
    /// exist.
    void Run(ObjectBlockProcessor& processor);

    /// Splits `text` into lines and object blocks, lets `processor` rewrite
    /// each block and joins the lines with "\r\n". Answers whether the text
    /// changed; only then is `text` replaced. `changedBlocks`, when given,
    /// receives the number of blocks the processor did not return as they
    /// were, plus one when it appended lines at the end.
    static bool ProcessText(QString& text, ObjectBlockProcessor& processor, int* changedBlocks = nullptr);

    /// The files found and processed, and those written (or, in a dry run, that would be).
    ///@{
    int GetFilesExamined() const { return filesExamined; }
    int GetFilesChanged() const { return filesChanged; }
    ///@}

    /// Files that were found but could not be handled as asked (not UTF-8,
    /// unreadable, not writable), one message each, in processing order.
    const QStringList& GetWarnings() const { return warnings; }

    /// Full paths of the files written by Run, in processing order, and for
    /// each the number of its blocks that changed (see ProcessText); a file
    /// with 0 changed only by the normalised line ends.
    ///@{
    const QStringList& GetChangedFiles() const { return changedFiles; }
    const QList<int>& GetChangedBlockCounts() const { return changedBlockCounts; }
    ///@}
    /// After a dry run: for each of GetChangedFiles() the bytes that a real
    /// run would write. Empty after a real run.
    const QList<QByteArray>& GetChangedContents() const { return changedContents; }

    /// The project's data folder: the cleaned root followed by "/Daten".
    static QString DataDirectory(const QString& projectRootDir);

    /// The annotation file of a document in `dataDir`: the document's base
    /// name (up to its first ".") + ".ann"; when no such file exists, the file
    /// name with only its last "." removed + ".ann" (plan.rev.pdf gives
    /// plan.ann, else plan.revpdf.ann). Folders in `documentFileName` are
    /// ignored, whether written with "/" or "\".
    static QString AnnotationFilePath(const QString& dataDir, const QString& documentFileName);

    static const QString AnnotationExtension; ///< ".ann"
    static const QString DataDirectoryName;   ///< "Daten"

private:
    void processFile(const QString& path, ObjectBlockProcessor& processor);

    QString projectRootDir;
    QStringList fileNames;
    QString unusedText; ///< kept for layout compatibility; never read
    int filesExamined = 0;
    int filesChanged = 0;
    ProgressCallback* progressCallback = nullptr;
    bool allAnnotationFiles = false;
    bool dryRun = false;
    QStringList warnings;
    QStringList changedFiles;
    QList<int> changedBlockCounts;
    QList<QByteArray> changedContents;
};

#endif
