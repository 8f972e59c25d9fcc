#ifndef KAMO_TOOLS_NODETOOLBACKUPINFO_H
#define KAMO_TOOLS_NODETOOLBACKUPINFO_H

#include "kamo_tools_export.h"

#include <QDateTime>
#include <QString>

/// What a backup folder under "Daten/ann_sic" says about itself: its time
/// from the folder name, the run from its operation log.
struct KAMO_TOOLS_EXPORT NodeToolBackupInfo {
    QString stamp;  ///< the folder name, as Restore() takes it
    QDateTime time; ///< invalid when the name is no time stamp
    /// After "Node Tool Operation:": the operation's number for a run of the
    /// dialog, a word such as "restore 07.03.2024 14.05.09" for other runs.
    QString operation;
    /// The "Source:" and "User:" lines of the log.
    ///@{
    QString source;
    QString user;
    ///@}
    int fileCount = 0; ///< annotation files in the folder
    /// False for a plain file where a backup folder should be: a backup
    /// that is lost, to be shown as damaged rather than hidden.
    bool isFolder = true;
    /// Whether the log could be read.
    bool logRead = false;
    QString logText; ///< the whole log when it could be read
};

#endif
