#ifndef KAMO_TOOLS_NODETOOLBACKUPCHECK_H
#define KAMO_TOOLS_NODETOOLBACKUPCHECK_H

#include "kamo_tools_export.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

/// Checks the files of one backup folder against the manifest written with
/// it: each file must be there, with its size and SHA-256 digest, and no
/// other annotation file may have joined it. A backup without a manifest
/// (made by an older version or by the host) cannot be checked; its files
/// are only read.
///
/// The check goes one file at a time (CheckNext()), so that a caller can
/// show progress or spread a long check over its event loop.
class KAMO_TOOLS_EXPORT NodeToolBackupCheck
{
public:
    /// Pending: not all files are checked and no problem is found yet.
    /// NoManifest: the files could be read, but not checked.
    enum class State { Pending, Intact, Damaged, NoManifest };

    /// A file that is not as it was backed up, or the manifest itself.
    struct Problem {
        QString fileName; ///< in the backup folder
        QString reason;   ///< "missing", "1000 bytes instead of 12431", ...
    };

    /// Reads the manifest of `folder` and lists its files; checks no file yet.
    /// A plain file or nothing at `folder` makes a damaged backup with no files.
    explicit NodeToolBackupCheck(const QString& folder);
    ~NodeToolBackupCheck();
    NodeToolBackupCheck(const NodeToolBackupCheck&) = delete;
    NodeToolBackupCheck& operator=(const NodeToolBackupCheck&) = delete;

    /// Checks the next file, in name order. Answers false when all are
    /// checked. `fileName` receives its name; `bytes`, when given, what was
    /// read (empty for a file that is missing or unreadable), and `intact`
    /// whether the file may be restored: it is as listed, or, without a
    /// manifest, it could be read.
    bool CheckNext(QString* fileName = nullptr, QByteArray* bytes = nullptr, bool* intact = nullptr);
    /// Checks all files that are left.
    void CheckAll();

    /// Files in the manifest or the folder, and how many are checked.
    ///@{
    int GetFileCount() const;
    int GetFilesChecked() const;
    ///@}
    /// Whether every file is checked.
    bool IsDone() const { return GetFilesChecked() == GetFileCount(); }

    /// The result so far: Damaged as soon as a problem is found (an
    /// unreadable file in a backup without manifest too), Intact or
    /// NoManifest only when done without one.
    State GetState() const;
    /// The problems found so far, in name order; the manifest's own come first.
    const QList<Problem>& GetProblems() const;

    /// The manifest's file name in every backup folder, "nodeToolOperation.manifest".
    static const QString ManifestFileName;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
