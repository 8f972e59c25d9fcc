#ifndef KAMO_TOOLS_NODETOOLBACKUP_H
#define KAMO_TOOLS_NODETOOLBACKUP_H

#include "kamo_tools_export.h"

#include <QString>

// Copies the annotation files of a project's data folder into
// "Daten/ann_sic/<dd.MM.yyyy hh.mm.ss>" and writes `logText` into
// "nodeToolOperation.log" there, before a node tool changes anything.
//
// Two backups within the same second share one folder: files already there
// are not copied again, and the log is overwritten from its start.
class KAMO_TOOLS_EXPORT NodeToolBackup
{
public:
    // False when the root is empty, the data folder is missing or the backup
    // folder cannot be created; copies and the log may fail on their own
    // without failing the backup.
    bool Create();

    // The folder of the last successful Create(), empty before.
    QString GetBackupFolder() const { return backupFolder; }

    static const QString BackupRootName; // "ann_sic"
    static const QString LogFileName;    // "nodeToolOperation.log"
    static const QString TimeStampFormat;

    QString projectRootDir;
    QString logText;

private:
    QString backupFolder;
};

#endif
