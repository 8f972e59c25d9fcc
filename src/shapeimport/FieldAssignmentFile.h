#ifndef KAMO_TOOLS_FIELDASSIGNMENTFILE_H
#define KAMO_TOOLS_FIELDASSIGNMENTFILE_H

#include "kamo_tools_export.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>

/// A saved set of field assignments: which attribute column feeds which
/// target field. JSON: {"Version": 1, "FieldAssignments": [{"FieldName":
/// column, "TargetFieldId": id}, ...]}.
class KAMO_TOOLS_EXPORT FieldAssignmentFile
{
public:
    /// The format version this library writes and the newest it reads.
    static constexpr int Version = 1;

    /// The outcome of reading an assignment file.
    enum Status {
        Ok,
        CannotOpen,
        Empty,         ///< the file has no bytes
        NotJson,       ///< no JSON object at the top
        TooNew,        ///< "Version" greater than ours
        NoAssignments, ///< nothing to apply
    };

    /// Column name -> target id; a later entry for a column replaces an
    /// earlier one. A missing "Version" counts as an old file, not as an
    /// error. `assignments` is only changed on Ok.
    static Status Read(const QString& path, QMap<QString, int>& assignments);
    /// As Read(), from the file's bytes.
    static Status Parse(const QByteArray& json, QMap<QString, int>& assignments);
    /// A line for people about a status that is not Ok.
    static QString StatusText(Status status);

    /// (column, id) pairs in the order given. The file is replaced whole or
    /// not at all; false with `error` set when it cannot be written.
    static bool Write(const QString& path, const QList<QPair<QString, int>>& assignments, QString* error = nullptr);
    /// The bytes Write() writes (indented JSON, UTF-8).
    static QByteArray ToJson(const QList<QPair<QString, int>>& assignments);
};

#endif
