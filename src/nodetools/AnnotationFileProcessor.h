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
/// in place) and a file that is not valid UTF-8 is never rewritten; every
/// file left out is named with its reason in GetWarnings().
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

    /// Processes, counts and warns as a real run would, but writes nothing:
    /// GetChangedFiles() then lists the files that would be written, and a
    /// file whose folder would not take the replacement is warned about as in
    /// a real run. What a file would hold is not kept (a preview of thousands
    /// of files would hold them all): PreviewFile() makes it again.
    void SetDryRun(bool dry) { dryRun = dry; }

    /// Processes the files with \p processor: each existing annotation file gets BeginFile(), its blocks,
    /// AppendToFile() and EndFile(); documents without an annotation file are skipped and listed in
    /// GetDocumentsWithoutFile(). Does nothing when the data folder does not exist. A real run first removes
    /// the temporary files that a killed run left in the data folder.
    void Run(ObjectBlockProcessor& processor);

    /// What ProcessText() found besides the new text.
    struct TextReport {
        /// Blocks the processor did not return as they were, plus one when it
        /// appended lines at the end, plus one for a block that is not closed.
        int changedBlocks = 0;
        /// The line (1-based, counted in the text as given) of a "BO" that
        /// no "EO" follows, 0 when every block is closed; its lines and all
        /// after it are left out of the result.
        int unclosedBlockLine = 0;
        /// How many non-empty lines that leaves out.
        int droppedLines = 0;
    };

    /// Splits `text` into lines and object blocks, lets `processor` rewrite
    /// each block and joins the lines with "\r\n". Answers whether the text
    /// changed; only then is `text` replaced. `changedBlocks`, when given,
    /// receives TextReport::changedBlocks.
    static bool ProcessText(QString& text, ObjectBlockProcessor& processor, int* changedBlocks = nullptr);
    /// As above, with all that was found in `report`.
    static bool ProcessText(QString& text, ObjectBlockProcessor& processor, TextReport* report);

    /// Processes the annotation file `path` as a run would, without writing
    /// or counting it: `current` receives its bytes, `result` what a run
    /// would write (the same bytes when it would not write the file). False
    /// when the file cannot be read.
    static bool PreviewFile(
        const QString& path, ObjectBlockProcessor& processor, QByteArray* current, QByteArray* result);

    /// The files found and processed, and those written (or, in a dry run, that would be).
    ///@{
    int GetFilesExamined() const { return filesExamined; }
    int GetFilesChanged() const { return filesChanged; }
    ///@}

    /// Everything a user should hear of, one message each, in processing
    /// order: the files of GetLeftOutFiles() with the reason ("Permission
    /// denied", "not valid UTF-8", "is a folder", ...), and files written
    /// without the lines of a block that is not closed.
    const QStringList& GetWarnings() const { return warnings; }
    /// Full paths of the files that could not be read, or that would have
    /// changed but could not be written, in processing order.
    const QStringList& GetLeftOutFiles() const { return leftOutFiles; }
    /// The document names (as given to SetFileNames()) that have no
    /// annotation file: usual for documents nobody annotated yet.
    const QStringList& GetDocumentsWithoutFile() const { return documentsWithoutFile; }

    /// Full paths of the files written by Run, in processing order, and for
    /// each the number of its blocks that changed (TextReport::changedBlocks);
    /// a file with 0 changed only by the normalised line ends.
    ///@{
    const QStringList& GetChangedFiles() const { return changedFiles; }
    const QList<int>& GetChangedBlockCounts() const { return changedBlockCounts; }
    ///@}

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
    void leaveOut(const QString& path, const QString& message);

    QString projectRootDir;
    QStringList fileNames;
    QString unusedText; ///< kept for layout compatibility; never read
    int filesExamined = 0;
    int filesChanged = 0;
    ProgressCallback* progressCallback = nullptr;
    bool allAnnotationFiles = false;
    bool dryRun = false;
    QStringList warnings;
    QStringList leftOutFiles;
    QStringList documentsWithoutFile;
    QStringList changedFiles;
    QList<int> changedBlockCounts;
};

#endif
