#ifndef KAMO_TESTS_SAMPLEPROJECT_H
#define KAMO_TESTS_SAMPLEPROJECT_H

#include <QDirIterator>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

// A copy of the bundled sample project (KAMO_SAMPLE_PROJECT) in `dir`, so
// that a program may change it; answers the copy's root.
inline QString copySample(const QTemporaryDir& dir)
{
    const QString source = KAMO_SAMPLE_PROJECT;
    QDirIterator it(source, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString to = dir.filePath("Projekt") + it.next().mid(source.size());
        QDir().mkpath(QFileInfo(to).path());
        QFile::copy(it.filePath(), to);
    }
    return dir.filePath("Projekt");
}

// Every file of the data folder, by its path there.
inline QMap<QString, QByteArray> dataFiles(const QString& root)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root + "/Daten", QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly))
            files.insert(file.fileName().mid(root.size() + 7), file.readAll());
    }
    return files;
}

struct Result {
    int exitCode = -1;
    QString out, err;
};

inline Result runTool(const QStringList& arguments, const QString& program = KAMO_TOOLS_EXECUTABLE)
{
    QProcess process;
    process.start(program, arguments);
    const bool finished = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
    return { finished ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError()) };
}

#endif
