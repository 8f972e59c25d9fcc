#ifndef KAMO_TOOLS_DXF_DXFDUMP_H
#define KAMO_TOOLS_DXF_DXFDUMP_H

#include "kamo_tools_export.h"

#include <QString>

class QObject;
class QPlainTextEdit;

/// A readable listing of the entities of a DXF file, line by line, for
/// looking into a drawing before working with it.
class KAMO_TOOLS_EXPORT DxfDump
{
public:
    /// Appends the listing to `output` while reading (null: reads, prints
    /// nothing), repainting and processing events per line. False, with a
    /// reason in `error`, for a file that is missing or cannot be read
    /// safely; the lines read before that stay printed. Once `*stop` (set by
    /// an event handler meanwhile) is true, nothing more is printed and the
    /// rest of the file is read quickly.
    static bool DumpFile(const QString& path, QPlainTextEdit* output, QString* error, const bool* stop = nullptr);

    /// The same text as `output->toPlainText()` would hold, without a widget
    /// and without event processing.
    static bool DumpFileToText(const QString& path, QString& text, QString* error);

    /// Counts from which a reader would allocate memory, checked against the
    /// file's size first. Empty when the file looks safe to read, else why not.
    static QString CheckFile(const QString& path);
};

#endif
