#ifndef KAMO_TOOLS_LINKCHECK_H
#define KAMO_TOOLS_LINKCHECK_H

#include "kamo_tools_export.h"
#include "nodetools/LinkTarget.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class ObjectBlockProcessor;
class ProgressCallback;

/// Finds the document links of a project that lead nowhere and proposes
/// where their files went. Reads only.
///
/// Every HREF of the chosen annotation files is read; each distinct document
/// path is looked up once, by listing each distinct folder once, so that a
/// project with a hundred thousand links on a network share costs a few
/// thousand folder listings, not a look-up per link. Windows paths compare
/// ignoring case, as their file systems do. With search folders, the file
/// names under them are indexed once, and every missing target gets the
/// files of its name (ignoring case) as candidates. The proposal is written
/// as a path map in the form operation 5 reads (see WriteMapFile()).
class KAMO_TOOLS_EXPORT LinkCheck
{
public:
    LinkCheck();
    ~LinkCheck();

    LinkCheck(const LinkCheck&) = delete;
    LinkCheck& operator=(const LinkCheck&) = delete;

    /// The files to read, as the node tools take them: the project root and
    /// the documents' file names, or every annotation file of the data folder.
    ///@{
    void SetProjectRootDir(const QString& dir);
    void SetFileNames(const QStringList& names);
    void SetAllAnnotationFiles(bool all);
    ///@}
    /// Folders searched, with their subfolders, for the files of missing
    /// targets; none means no proposal.
    void SetSearchDirs(const QStringList& dirs);
    /// Receives one report per annotation file read; not owned, may be null.
    void SetProgressCallback(ProgressCallback* callback);

    /// Reads the links, looks the targets up and, with search folders, proposes.
    void Execute();

    /// Every distinct target, sorted by path.
    const QList<LinkTarget>& Targets() const;
    /// The summary of the last run.
    ///@{
    int LinkCount() const;
    int MissingCount() const;
    int ProposedCount() const;
    int AmbiguousCount() const;
    /// Unresolved and unwritable targets together.
    int UnresolvedCount() const;
    ///@}
    /// Annotation files that could not be read or are not valid UTF-8, one
    /// message each, as the node tools word them.
    const QStringList& Warnings() const;

    /// The proposal as a path map: one line "old path,new path" per proposed
    /// target, in the order of Targets(), each ended by CRLF, in the
    /// platform's encoding, as operation 5 reads it.
    QString MapFileText() const;
    /// Writes MapFileText() to \p fileName; the file is replaced whole or not
    /// at all. On failure \p error (when given) says why.
    bool WriteMapFile(const QString& fileName, QString* error = nullptr) const;

    /// Whether \p path is written the Windows way: a drive (`C:\`, `C:/`) or
    /// a share (`\\server\share`).
    static bool IsWindowsPath(const QString& path);

private:
    void readLinks(ObjectBlockProcessor& collector);

    struct Private;
    std::unique_ptr<Private> d;
};

#endif
