#ifndef KAMO_TOOLS_BACKUPMANIFEST_H
#define KAMO_TOOLS_BACKUPMANIFEST_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

// The list of a backup's files with their sizes and SHA-256 digests, kept
// beside the operation log so that the backup can be checked before it is
// restored. The text form is described in docs/node-tools.md:
//
//   KAMO-BACKUP-MANIFEST 1
//   <sha256 hex> <size> <file name>
//   ...
//   END <number of files>
//
// A manifest without its END line belongs to a backup that was not finished.
class BackupManifest
{
public:
    struct Entry {
        qint64 size = -1;
        QByteArray sha256; // hex
    };

    void Add(const QString& fileName, qint64 size, const QByteArray& sha256);
    const QMap<QString, Entry>& Entries() const { return entries; }

    // The manifest of a backup still being made: the header alone.
    static QByteArray Unfinished();
    QByteArray ToText() const;

    // Reads `text`; what cannot be read is described in Problems(), one line
    // each, and the lines that can are kept.
    void Parse(const QByteArray& text);
    bool IsFinished() const { return finished; }
    const QStringList& Problems() const { return problems; }

private:
    QMap<QString, Entry> entries;
    bool finished = false;
    QStringList problems;
};

#endif
