#ifndef KAMO_TOOLS_DXF_DXFDUMP_H
#define KAMO_TOOLS_DXF_DXFDUMP_H

#include "kamo_tools_export.h"

#include <QString>

#include <functional>

/// A readable listing of the entities of a DXF file, line by line, for
/// looking into a drawing before working with it.
class KAMO_TOOLS_EXPORT DxfDump
{
public:
    /// Hands the listing to `line` one line at a time while reading, so that
    /// a caller can show it growing. False, with a reason in `error`, for a
    /// file that is missing or cannot be read safely; the lines handed over
    /// before that stay handed over. Once `*stop` (set by the caller
    /// meanwhile, from `line` or an event it processes there) is true,
    /// nothing more is handed over and the rest of the file is read quickly.
    static bool DumpFile(const QString& path, const std::function<void(const QString&)>& line, QString* error,
        const bool* stop = nullptr);

    /// The whole listing, its lines joined by line feeds.
    static bool DumpFileToText(const QString& path, QString& text, QString* error);

    /// Counts from which a reader would allocate memory, checked against the
    /// file's size first. Empty when the file looks safe to read, else why not.
    static QString CheckFile(const QString& path);
};

#endif
