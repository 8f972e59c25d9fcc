#ifndef KAMO_TOOLS_NODETOOLBACKUP_H
#define KAMO_TOOLS_NODETOOLBACKUP_H

#include "kamo_tools_export.h"
#include "nodetools/NodeToolBackupCheck.h"
#include "nodetools/NodeToolBackupInfo.h"

#include <QList>

#include <QString>
#include <QStringList>

/// Copies the annotation files of a project's data folder into
/// "Daten/ann_sic/<dd.MM.yyyy hh.mm.ss>" and writes `logText` into
/// "nodeToolOperation.log" there, before a node tool changes anything.
///
/// A backup is whole or it fails: every file is copied and listed with its
/// size and SHA-256 digest in the manifest (NodeToolBackupCheck), and all of
/// it is flushed to disk before Create() succeeds. Two backups within the
/// same second share one folder: files already there are not copied again,
/// and the log is overwritten from its start.
class KAMO_TOOLS_EXPORT NodeToolBackup
{
public:
    /// False when the root is empty, the data folder is missing, the backup
    /// folder cannot be created, a file cannot be copied (other than because
    /// its copy exists already), or the manifest cannot be written or the
    /// backup flushed to disk. Then ErrorString() says why, GetProblems()
    /// names the files that could not be copied, and the incomplete backup is
    /// removed again (where that fails, its log says that it is incomplete
    /// and its unfinished manifest marks it as damaged). A log that cannot be
    /// written does not fail the backup.
    bool Create();

    /// The folder of the last successful Create(), empty before.
    QString GetBackupFolder() const { return backupFolder; }

    /// Puts the annotation files of the backup folder `stamp` (a folder name
    /// under "ann_sic") back into the data folder, byte for byte. First every
    /// file is read and checked against the backup's manifest; a damaged
    /// backup is not restored unless `skipDamaged`, which restores the intact
    /// files and leaves the others out. Then the current state is backed up
    /// with Create() and `logText`, so that the restore can itself be undone.
    /// Files of the data folder that the backup does not hold are left alone.
    ///
    /// False when nothing was changed: ErrorString() says why (for a current
    /// state that cannot be backed up, with the first file that could not be
    /// copied), GetProblems() names the damaged files. True when the restore ran: `restored`
    /// receives the file names put back, GetProblems() those left out
    /// (damaged, or not written) with the reason.
    bool Restore(const QString& stamp, QStringList* restored = nullptr, bool skipDamaged = false);
    /// Why the last Create() or Restore() failed; empty after success.
    QString ErrorString() const { return errorString; }
    /// The files the last Create() could not copy, or the last Restore()
    /// found damaged or, after it ran, could not write.
    const QList<NodeToolBackupCheck::Problem>& GetProblems() const { return problems; }
    /// After Restore(): whether the backup had a manifest to check against.
    bool WasChecked() const { return checked; }

    /// Every folder under "Daten/ann_sic" of the project, newest first; folders
    /// whose name is no time stamp follow in name order. A log that is
    /// missing or unreadable leaves the run's fields empty, never the folder
    /// out. A plain file with a time stamp as its name is listed too (as
    /// damaged, see NodeToolBackupInfo::isFolder).
    static QList<NodeToolBackupInfo> List(const QString& projectRootDir);

    /// The folder of the backup `stamp` of the project.
    static QString BackupFolder(const QString& projectRootDir, const QString& stamp);

    /// The log of a run: "Node Tool Operation: <operation>\nSource: <source>\nUser: <login>",
    /// `operation` being the operation's number (NodeOperationCatalogue) or
    /// "restore <stamp>", `source` the project folder.
    static QString LogText(const QString& operation, const QString& source);

    static const QString BackupRootName; ///< "ann_sic"
    static const QString LogFileName;    ///< "nodeToolOperation.log"
    /// The QDateTime format of a backup folder's name, "dd.MM.yyyy hh.mm.ss".
    static const QString TimeStampFormat;

    /// The project root whose data folder is backed up, and the text written into the log; set both before Create() or
    /// Restore().
    ///@{
    QString projectRootDir;
    QString logText;
    ///@}

private:
    bool fail(const QString& message);

    QString backupFolder;
    QString errorString;
    QList<NodeToolBackupCheck::Problem> problems;
    bool checked = false;
};

#endif
