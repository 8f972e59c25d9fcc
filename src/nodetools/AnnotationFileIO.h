#ifndef KAMO_TOOLS_ANNOTATIONFILEIO_H
#define KAMO_TOOLS_ANNOTATIONFILEIO_H

#include <QByteArray>
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
// content untouched and no temporary file behind. On failure `error` says why.
bool ReplaceFile(const QString& path, const QByteArray& bytes, QString* error);

// Whether ReplaceFile could replace the file at `path` as far as can be told
// without writing: its folder takes new files. On failure `error` says why,
// as ReplaceFile would.
bool CanReplaceFile(const QString& path, QString* error);

} // namespace AnnotationFileIO

#endif
