#ifndef KAMO_TOOLS_ANNOTATIONFILEIO_H
#define KAMO_TOOLS_ANNOTATIONFILEIO_H

#include <QByteArray>
#include <QDateTime>
#include <QString>

// Byte-exact reading and safe writing of annotation files.
namespace AnnotationFileIO {

struct DecodedText {
    QString text;
    bool validUtf8 = false; // the bytes decode without loss and can be written back
    bool hasBom = false;    // the bytes start with a UTF-8 byte-order mark
};

// Decodes `bytes` as UTF-8. A leading byte-order mark is not part of the
// text but remembered, so that EncodeText gives it back.
DecodedText DecodeText(const QByteArray& bytes);
QByteArray EncodeText(const QString& text, bool withBom);

// Replaces the file at `path` by `bytes` through a temporary file in the
// same folder that is renamed over it: the file keeps its permissions, a
// symbolic link keeps pointing at it, and whatever goes wrong leaves the old
// content untouched and no temporary file behind. A file that does not exist
// yet is created with the default permissions. On failure `error` says why.
bool ReplaceFile(const QString& path, const QByteArray& bytes, QString* error);

// Removes the temporary files that ReplaceFile leaves beside annotation
// files in `folder` when the process is killed between naming and renaming
// them (".<name>.ann.kamo-<up to 7 letters or digits>"), as far as they were
// last written before `before` (a running replacement's file is newer).
// Answers how many went.
int RemoveStaleTemporaryFiles(const QString& folder, const QDateTime& before);

struct CopyResult {
    enum Kind { Copied, TargetExists, Failed } kind = Failed;
    qint64 size = 0;
    QByteArray sha256; // of the bytes copied, in hex
    QString error;     // why it failed
    // The failure lies with the target's file system (full, read-only, I/O
    // error): the next copy there will fail alike.
    bool targetFileSystemFailed = false;
};

// Copies `source` to the new file `target` with plain reads and writes,
// hashing on the way. An existing target is left alone (TargetExists); a
// failed copy leaves no target behind. The copy is not flushed to disk: see
// FileSystemSync.
CopyResult CopyFile(const QString& source, const QString& target);

// Whether ReplaceFile could replace the file at `path` as far as can be told
// without writing: its folder takes new files. On failure `error` says why,
// as ReplaceFile would.
bool CanReplaceFile(const QString& path, QString* error);

} // namespace AnnotationFileIO

#endif
