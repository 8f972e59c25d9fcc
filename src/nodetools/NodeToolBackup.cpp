#include "nodetools/NodeToolBackup.h"

#include "nodetools/AnnotationFileProcessor.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

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
