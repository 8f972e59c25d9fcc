#include "nodetools/NodeToolBackup.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/AnnotationFileProcessor.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

#include <algorithm>

const QString NodeToolBackup::BackupRootName = QStringLiteral("ann_sic");
const QString NodeToolBackup::LogFileName = QStringLiteral("nodeToolOperation.log");
const QString NodeToolBackup::TimeStampFormat = QStringLiteral("dd.MM.yyyy hh.mm.ss");

bool NodeToolBackup::Create()
{
    if (projectRootDir.isEmpty())
        return false;
    const QString dataDir = AnnotationFileProcessor::DataDirectory(projectRootDir);
    if (!QFileInfo(dataDir).isDir())
        return false;

    const QString stamp = QDateTime::currentDateTime().toString(TimeStampFormat);
    const QString folder = QDir::cleanPath(dataDir) + QLatin1Char('/') + BackupRootName + QLatin1Char('/') + stamp;
    if (!QDir().mkpath(folder))
        return false;

    const QDir source(dataDir);
    const QStringList names
        = source.entryList({ QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files);
    for (const QString& name : names) {
        // Fails when the copy exists already (a second backup in the same
        // second), which is as good as done.
        QFile::copy(source.filePath(name), folder + QLatin1Char('/') + name);
    }

    // Not truncated: a second run in the same second overwrites the first
    // log from its start.
    QFile log(folder + QLatin1Char('/') + LogFileName);
    if (log.open(QIODevice::ReadWrite)) {
        log.write(logText.toUtf8());
        log.write("\n");
    }

    backupFolder = folder;
    return true;
}

bool NodeToolBackup::Restore(const QString& stamp, QStringList* restored)
{
    errorString.clear();
    const QString dataDir = AnnotationFileProcessor::DataDirectory(projectRootDir);
    if (projectRootDir.isEmpty() || !QFileInfo(dataDir).isDir()) {
        errorString = QStringLiteral("no data folder '%1'").arg(dataDir);
        return false;
    }
    const QString backupRoot = QDir::cleanPath(dataDir) + QLatin1Char('/') + BackupRootName;
    const QDir backup(backupRoot + QLatin1Char('/') + stamp);
    if (stamp.isEmpty() || stamp.contains(QLatin1Char('/')) || stamp.startsWith(QLatin1Char('.')) || !backup.exists()) {
        errorString = QStringLiteral("no backup '%1' in '%2'").arg(stamp, backupRoot);
        return false;
    }
    const QStringList names = backup.entryList(
        { QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files, QDir::Name);

    // Read everything first: nothing is touched unless the whole backup can
    // be read.
    QList<QByteArray> contents;
    for (const QString& name : names) {
        QFile file(backup.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            errorString = QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
            return false;
        }
        contents.append(file.readAll());
    }

    // The safety copy must not land in the folder being restored, which
    // happens when that one was made within the current second.
    while (QDateTime::currentDateTime().toString(TimeStampFormat) == stamp)
        QThread::msleep(50);
    if (!Create()) {
        errorString = QStringLiteral("the current state could not be backed up");
        return false;
    }

    for (int i = 0; i < names.size(); ++i) {
        const QString path = dataDir + QLatin1Char('/') + names.at(i);
        QString error;
        bool written = false;
        if (QFileInfo::exists(path)) {
            written = AnnotationFileIO::ReplaceFile(path, contents.at(i), &error);
        } else {
            // Deleted since the backup: created anew, as atomically.
            QSaveFile file(path);
            written = file.open(QIODevice::WriteOnly) && file.write(contents.at(i)) == contents.at(i).size()
                && file.commit();
            error = file.errorString();
        }
        if (!written) {
            errorString = QStringLiteral("%1: %2 (the state before the restore is in '%3')")
                              .arg(names.at(i), error, backupFolder);
            return false;
        }
        if (restored)
            restored->append(names.at(i));
    }
    return true;
}

QList<NodeToolBackupInfo> NodeToolBackup::List(const QString& projectRootDir)
{
    QList<NodeToolBackupInfo> backups;
    if (projectRootDir.isEmpty())
        return backups;
    const QDir root(
        QDir::cleanPath(AnnotationFileProcessor::DataDirectory(projectRootDir)) + QLatin1Char('/') + BackupRootName);
    const QStringList names = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : names) {
        NodeToolBackupInfo info;
        info.stamp = name;
        info.time = QDateTime::fromString(name, TimeStampFormat);
        const QDir folder(root.filePath(name));
        info.fileCount
            = folder.entryList({ QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files).size();

        QFile log(folder.filePath(LogFileName));
        if (log.open(QIODevice::ReadOnly)) {
            // Logs are short; a huge file here is no log of ours.
            const QByteArray bytes = log.read(64 * 1024);
            info.logRead = log.error() == QFileDevice::NoError;
            if (info.logRead) {
                info.logText = QString::fromUtf8(bytes);
                for (const QString& line : info.logText.split(QLatin1Char('\n'))) {
                    const QString value = line.section(QLatin1Char(':'), 1).trimmed();
                    if (line.startsWith(QLatin1String("Node Tool Operation:")))
                        info.operation = value;
                    else if (line.startsWith(QLatin1String("Source:")))
                        info.source = value;
                    else if (line.startsWith(QLatin1String("User:")))
                        info.user = value;
                }
            }
        }
        backups.append(info);
    }
    std::stable_sort(backups.begin(), backups.end(), [](const NodeToolBackupInfo& a, const NodeToolBackupInfo& b) {
        if (a.time.isValid() != b.time.isValid())
            return a.time.isValid();
        return a.time.isValid() && a.time > b.time;
    });
    return backups;
}
