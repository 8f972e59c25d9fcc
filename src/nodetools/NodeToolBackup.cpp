#include "nodetools/NodeToolBackup.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/BackupManifest.h"
#include "nodetools/FileSystemSync.h"
#include "nodetools/Sha256.h"

#include <Kamo_base/Vex.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <algorithm>

const QString NodeToolBackup::BackupRootName = QStringLiteral("ann_sic");
const QString NodeToolBackup::LogFileName = QStringLiteral("nodeToolOperation.log");
const QString NodeToolBackup::TimeStampFormat = QStringLiteral("dd.MM.yyyy hh.mm.ss");

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("NodeToolBackup", text);
}

QString backupRoot(const QString& projectRootDir)
{
    return QDir::cleanPath(AnnotationFileProcessor::DataDirectory(projectRootDir)) + QLatin1Char('/')
        + NodeToolBackup::BackupRootName;
}

QStringList annotationFiles(const QDir& folder)
{
    return folder.entryList({ QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files);
}

// Not truncated: a second run in the same second overwrites the first log
// from its start.
void writeLog(const QString& folder, const QString& text)
{
    QFile log(folder + QLatin1Char('/') + NodeToolBackup::LogFileName);
    if (log.open(QIODevice::ReadWrite)) {
        log.write(text.toUtf8());
        log.write("\n");
    }
}

} // namespace

bool NodeToolBackup::fail(const QString& message)
{
    errorString = message;
    return false;
}

QString NodeToolBackup::LogText(const QString& operation, const QString& source)
{
    return QStringLiteral("Node Tool Operation: %1\nSource: %2\nUser: %3")
        .arg(operation, source, Vex::GetCurrentUserName());
}

QString NodeToolBackup::BackupFolder(const QString& projectRootDir, const QString& stamp)
{
    return backupRoot(projectRootDir) + QLatin1Char('/') + stamp;
}

bool NodeToolBackup::Create()
{
    errorString.clear();
    problems.clear();
    if (projectRootDir.isEmpty())
        return fail(tr("no project folder given"));
    const QString dataDir = AnnotationFileProcessor::DataDirectory(projectRootDir);
    if (!QFileInfo(dataDir).isDir())
        return fail(tr("no data folder '%1'").arg(QDir::toNativeSeparators(dataDir)));

    const QString stamp = QDateTime::currentDateTime().toString(TimeStampFormat);
    const QString folder = BackupFolder(projectRootDir, stamp);
    // A folder of this second is another run's backup: ours only adds to it.
    const bool ours = !QFileInfo::exists(folder);
    if (!QDir().mkpath(folder) || !QFileInfo(folder).isDir())
        return fail(tr("the backup folder '%1' cannot be created").arg(QDir::toNativeSeparators(folder)));

    FileSystemSync sync(folder);
    const QString manifestPath = folder + QLatin1Char('/') + NodeToolBackupCheck::ManifestFileName;
    QStringList copied;
    // Removes what this run added; where that fails, the backup says that it
    // is incomplete, in its log and through its unfinished manifest.
    auto abandon = [&](const QString& message) {
        bool removed = true;
        if (ours) {
            removed = QDir(folder).removeRecursively();
        } else {
            for (const QString& name : qAsConst(copied))
                removed = QFile::remove(folder + QLatin1Char('/') + name) && removed;
        }
        if (!removed)
            writeLog(folder, logText + QLatin1Char('\n') + tr("Incomplete: %1").arg(message));
        return fail(message);
    };

    QString error;
    if (ours && !AnnotationFileIO::ReplaceFile(manifestPath, BackupManifest::Unfinished(), &error))
        return abandon(tr("the manifest cannot be written (%1)").arg(error));

    const QDir source(dataDir);
    BackupManifest manifest;
    for (const QString& name : annotationFiles(source)) {
        const QString target = folder + QLatin1Char('/') + name;
        const AnnotationFileIO::CopyResult copy = AnnotationFileIO::CopyFile(source.filePath(name), target);
        if (copy.kind == AnnotationFileIO::CopyResult::Copied) {
            copied.append(name);
            manifest.Add(name, copy.size, copy.sha256);
        } else if (copy.kind == AnnotationFileIO::CopyResult::Failed) {
            problems.append({ name, copy.error });
            // A full or failing disk fails every copy that follows alike.
            if (copy.targetFileSystemFailed)
                break;
        }
    }
    if (!problems.isEmpty()) {
        return abandon(tr("%1 could not be copied (%2)")
                           .arg(QDir::toNativeSeparators(source.filePath(problems.constFirst().fileName)),
                               problems.constFirst().reason));
    }

    // What an earlier run of this second copied belongs to this backup too.
    for (const QString& name : annotationFiles(QDir(folder))) {
        if (manifest.Entries().contains(name))
            continue;
        QFile file(folder + QLatin1Char('/') + name);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (file.error() != QFileDevice::NoError) {
            problems.append({ name, file.errorString() });
            return abandon(
                tr("%1 cannot be read (%2)").arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
        }
        manifest.Add(name, bytes.size(), Sha256::Hash(bytes));
    }

    if (!AnnotationFileIO::ReplaceFile(manifestPath, manifest.ToText(), &error))
        return abandon(tr("the manifest cannot be written (%1)").arg(error));
    writeLog(folder, logText);
    if (!sync.Flush(&error))
        return abandon(tr("the backup could not be written to disk (%1)").arg(error));

    backupFolder = folder;
    return true;
}

bool NodeToolBackup::Restore(const QString& stamp, QStringList* restored, bool skipDamaged)
{
    errorString.clear();
    problems.clear();
    checked = false;
    const QString dataDir = AnnotationFileProcessor::DataDirectory(projectRootDir);
    if (projectRootDir.isEmpty() || !QFileInfo(dataDir).isDir())
        return fail(tr("no data folder '%1'").arg(QDir::toNativeSeparators(dataDir)));
    const QString folder = BackupFolder(projectRootDir, stamp);
    if (stamp.isEmpty() || stamp.contains(QLatin1Char('/')) || stamp.startsWith(QLatin1Char('.'))
        || !QFileInfo(folder).isDir()) {
        return fail(tr("no backup '%1' in '%2'").arg(stamp, QDir::toNativeSeparators(backupRoot(projectRootDir))));
    }

    // Everything is read and checked first: nothing is touched unless the
    // backup is whole, or the user chose to restore what is.
    NodeToolBackupCheck check(folder);
    QStringList names;
    QList<QByteArray> contents;
    QString name;
    QByteArray bytes;
    bool intact = false;
    while (check.CheckNext(&name, &bytes, &intact)) {
        if (intact) {
            names.append(name);
            contents.append(bytes);
        }
    }
    checked = check.GetState() != NodeToolBackupCheck::State::NoManifest;
    problems = check.GetProblems();
    if (!problems.isEmpty() && !skipDamaged)
        return fail(tr("the backup is damaged"));

    // The safety copy must not land in the folder being restored, which
    // happens when that one was made within the current second.
    while (QDateTime::currentDateTime().toString(TimeStampFormat) == stamp)
        QThread::msleep(50);
    const QList<NodeToolBackupCheck::Problem> damaged = problems;
    const bool created = Create();
    problems = damaged;
    if (!created)
        return fail(tr("the current state could not be backed up: %1").arg(errorString));

    AnnotationFileIO::RemoveStaleTemporaryFiles(dataDir, QDateTime::currentDateTimeUtc());
    for (int i = 0; i < names.size(); ++i) {
        QString error;
        if (!AnnotationFileIO::ReplaceFile(dataDir + QLatin1Char('/') + names.at(i), contents.at(i), &error)) {
            problems.append({ names.at(i), error });
            continue;
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
    const QDir root(backupRoot(projectRootDir));
    const QFileInfoList entries = root.entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& entry : entries) {
        NodeToolBackupInfo info;
        info.stamp = entry.fileName();
        info.time = QDateTime::fromString(info.stamp, TimeStampFormat);
        info.isFolder = entry.isDir();
        // Other files are no backups: notes or exports someone put there.
        if (!info.isFolder && !info.time.isValid())
            continue;
        const QDir folder(entry.filePath());
        info.fileCount = info.isFolder ? annotationFiles(folder).size() : 0;

        QFile log(folder.filePath(LogFileName));
        if (info.isFolder && log.open(QIODevice::ReadOnly)) {
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
