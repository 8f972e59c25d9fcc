#include "shapeimport/ImportFieldManager.h"

#include "shapeimport/ShapeDbFileReader.h"

void ImportFieldManager::AddTargetField(int id, const QString& displayName)
{
    targetFields.insert(id, displayName);
}

void ImportFieldManager::SetAssignment(int id, const QString& column)
{
    assignments.insert(id, column);
}

void ImportFieldManager::ClearAssignments()
{
    assignments.clear();
}

int ImportFieldManager::GetTargetIdOfColumn(const QString& column) const
{
    for (auto it = assignments.cbegin(); it != assignments.cend(); ++it) {
        if (it.value() == column)
            return it.key();
    }
    return -1;
}

bool ImportFieldManager::ReadString(int record, int id, QString& out) const
{
    if (!dbReader || !assignments.contains(id))
        return false;
    out = dbReader->ReadStringAttribute(record, assignments.value(id)).trimmed();
    return true;
}

bool ImportFieldManager::ReadDouble(int record, int id, double& out) const
{
    if (!dbReader || !assignments.contains(id))
        return false;
    out = dbReader->ReadDoubleAttribute(record, assignments.value(id));
    return true;
}

bool ImportFieldManager::ReadInteger(int record, int id, int& out) const
{
    if (!dbReader || !assignments.contains(id))
        return false;
    out = dbReader->ReadIntegerAttribute(record, assignments.value(id));
    return true;
}
