#ifndef KAMO_TOOLS_NODETOOLBACKUP_H
#define KAMO_TOOLS_NODETOOLBACKUP_H

#include "kamo_tools_export.h"
#include "nodetools/NodeToolBackupInfo.h"

#include <QList>

#include <QString>
#include <QStringList>

/// Copies the annotation files of a project's data folder into
/// "Daten/ann_sic/<dd.MM.yyyy hh.mm.ss>" and writes `logText` into
/// "nodeToolOperation.log" there, before a node tool changes anything.
///
/// Two backups within the same second share one folder: files already there
/// are not copied again, and the log is overwritten from its start.
class KAMO_TOOLS_EXPORT NodeToolBackup
{
public:
    /// False when the root is empty, the data folder is missing or the backup
    /// folder cannot be created; copies and the log may fail on their own
    /// without failing the backup.
    bool Create();

    /// The folder of the last successful Create(), empty before.
    QString GetBackupFolder() const { return backupFolder; }

    /// Puts the annotation files of the backup folder `stamp` (a folder name
    /// under "ann_sic") back into the data folder, byte for byte, after
    /// backing up the current state with Create() and `logText`, so that the
    /// restore can itself be undone. Files of the data folder that the backup
    /// does not hold are left alone. On failure ErrorString() says why;
    /// `restored` receives the file names put back.
    bool Restore(const QString& stamp, QStringList* restored = nullptr);
    /// Why the last Create() or Restore() failed; empty after success.
    QString ErrorString() const { return errorString; }

    /// Every folder under "Daten/ann_sic" of the project, newest first; folders
    /// whose name is no time stamp follow in name order. A log that is
    /// missing or unreadable leaves the run's fields empty, never the folder
    /// out.
    static QList<NodeToolBackupInfo> List(const QString& projectRootDir);

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
    QString backupFolder;
    QString errorString;
};

#endif
