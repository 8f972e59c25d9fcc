#ifndef KAMO_TESTS_SAMPLEPROJECT_H
#define KAMO_TESTS_SAMPLEPROJECT_H

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

// A copy of the bundled sample project (KAMO_SAMPLE_PROJECT) in `dir`, so
// that a program may change it; answers the copy's root.
inline QString copySample(const QTemporaryDir& dir)
{
    const QString source = KAMO_SAMPLE_PROJECT;
    const QString root = dir.filePath("Projekt");
    QDirIterator it(source, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString from = it.next();
        const QString to = root + from.mid(source.size());
        QDir().mkpath(QFileInfo(to).path());
        QFile::copy(from, to);
    }
    return root;
}

#endif
