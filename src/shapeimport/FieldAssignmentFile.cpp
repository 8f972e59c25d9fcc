#include "shapeimport/FieldAssignmentFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace {

const QString VersionKey = QStringLiteral("Version");
const QString AssignmentsKey = QStringLiteral("FieldAssignments");
const QString FieldNameKey = QStringLiteral("FieldName");
const QString TargetIdKey = QStringLiteral("TargetFieldId");

} // namespace

FieldAssignmentFile::Status FieldAssignmentFile::Read(const QString& path, QMap<QString, int>& assignments)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return CannotOpen;
    return Parse(file.readAll(), assignments);
}

FieldAssignmentFile::Status FieldAssignmentFile::Parse(const QByteArray& json, QMap<QString, int>& assignments)
{
    if (json.isEmpty())
        return Empty;
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return NotJson;
    const QJsonObject root = document.object();
    if (root.value(VersionKey).toInt() > Version)
        return TooNew;
    QMap<QString, int> read;
    for (const QJsonValue& entry : root.value(AssignmentsKey).toArray()) {
        const QJsonObject assignment = entry.toObject();
        read.insert(assignment.value(FieldNameKey).toString(), assignment.value(TargetIdKey).toInt());
    }
    if (read.isEmpty())
        return NoAssignments;
    assignments = read;
    return Ok;
}

QString FieldAssignmentFile::StatusText(Status status)
{
    switch (status) {
    case Ok:
        return QString();
    case CannotOpen:
        return QCoreApplication::translate("FieldAssignmentFile", "The file cannot be opened");
    case Empty:
        return QCoreApplication::translate("FieldAssignmentFile", "The file is empty");
    case NotJson:
        return QCoreApplication::translate("FieldAssignmentFile", "The file holds no field assignments (not JSON)");
    case TooNew:
        return QCoreApplication::translate("FieldAssignmentFile", "The file was written by a newer version");
    case NoAssignments:
        return QCoreApplication::translate("FieldAssignmentFile", "The file assigns no field");
    }
    return QString();
}

QByteArray FieldAssignmentFile::ToJson(const QList<QPair<QString, int>>& assignments)
{
    QJsonArray list;
    for (const auto& assignment : assignments)
        list.append(QJsonObject { { FieldNameKey, assignment.first }, { TargetIdKey, assignment.second } });
    return QJsonDocument(QJsonObject { { VersionKey, Version }, { AssignmentsKey, list } }).toJson();
}

bool FieldAssignmentFile::Write(const QString& path, const QList<QPair<QString, int>>& assignments, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text) || file.write(ToJson(assignments)) < 0
        || !file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}
