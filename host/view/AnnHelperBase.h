#ifndef KAMO_VIEW_ANNHELPERBASE_H
#define KAMO_VIEW_ANNHELPERBASE_H

#include "TargetInfo.h"
#include "kamo_view_export.h"

#include <QList>
#include <QString>

/// Reads and writes the value of an annotation's HREF line. The two textual
/// forms are described in docs/annotation-format.md.
class KAMO_VIEW_EXPORT AnnHelperBase
{
public:
    static const QChar FieldSeparator;  ///< U+0011, between the fields of a record
    static const QChar TargetSeparator; ///< U+0012, between the targets of a split link
    static const QChar ZoneSeparator;   ///< U+0013, between the zone entries of a split record
    static const QChar SplitMarker;     ///< U+00A4, first character of a split link

    /// Replaces `targets` by the targets of `value` (the text after "HREF=").
    /// A value that names no target path at all yields no targets. Fields are
    /// kept as read, so an untouched list is written back unchanged.
    static void ParseLink(QList<TargetInfo>& targets, QString& value);

    /// Writes the complete line "HREF=..." for `targets` into `line`. A single
    /// standard target with at most one zone is written in the standard form,
    /// anything else in the split form. With `appendLineEnd` the line ends with
    /// "\r\n", as it is written into an annotation file.
    static void SaveLink(const QList<TargetInfo>& targets, QString& line, bool appendLineEnd);
};

#endif
