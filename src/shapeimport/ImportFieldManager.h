#ifndef KAMO_TOOLS_IMPORTFIELDMANAGER_H
#define KAMO_TOOLS_IMPORTFIELDMANAGER_H

#include "kamo_tools_export.h"

#include <QMap>
#include <QString>

class ShapeDbFileReader;

/// The target fields an importer reads (numbered ids with display names) and
/// the attribute column the user assigned to each. Importers read every
/// attribute by target id, never by column name, since column names differ
/// from file to file.
class KAMO_TOOLS_EXPORT ImportFieldManager
{
public:
    /// Both replace an earlier entry under the same id.
    ///@{
    void AddTargetField(int id, const QString& displayName);
    void SetAssignment(int id, const QString& column);
    ///@}
    /// Removes every assignment; the target fields stay.
    void ClearAssignments();

    /// Whether target \p id has a column, and its column (empty when none).
    ///@{
    bool HasAssignment(int id) const { return assignments.contains(id); }
    QString GetAssignedColumn(int id) const { return assignments.value(id); }
    ///@}
    /// The lowest id assigned to `column` (exact comparison); -1 when none.
    int GetTargetIdOfColumn(const QString& column) const;

    /// Target id -> display name, and target id -> assigned column.
    ///@{
    const QMap<int, QString>& GetTargetFields() const { return targetFields; }
    const QMap<int, QString>& GetAssignments() const { return assignments; }
    ///@}

    /// The open attribute table the reads go to; not owned, may be null.
    void SetDbFileReader(const ShapeDbFileReader* reader) { dbReader = reader; }

    /// False when no table is attached or `id` is unassigned. Text is
    /// trimmed; a column the table lacks reads as empty text, -1 or 0.0.
    ///@{
    bool ReadString(int record, int id, QString& out) const;
    bool ReadDouble(int record, int id, double& out) const;
    bool ReadInteger(int record, int id, int& out) const;
    ///@}

private:
    const ShapeDbFileReader* dbReader = nullptr;
    QMap<int, QString> targetFields;
    QMap<int, QString> assignments;
};

#endif
