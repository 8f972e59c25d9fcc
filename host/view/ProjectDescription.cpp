#include "ProjectDescription.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <cmath>

const QString ProjectDescription::FileName = QStringLiteral("Projekt.json");

namespace {

// A JSON number that is a whole number in int range.
bool toInt(const QJsonValue& value, int& out)
{
    if (!value.isDouble())
        return false;
    const double d = value.toDouble();
    if (d != std::floor(d) || d < -2147483648.0 || d > 2147483647.0)
        return false;
    out = static_cast<int>(d);
    return true;
}

// The one field each kind of record has beside its id and name.
TableInfo* makeRecord(int id, const QString& name, const QJsonObject& entry, TableInfo*)
{
    QStringList columns;
    for (const QJsonValue& column : entry.value(QStringLiteral("Columns")).toArray())
        columns.append(column.toString());
    return new TableInfo(id, name, columns);
}

ParticipantInfo* makeRecord(int id, const QString& name, const QJsonObject& entry, ParticipantInfo*)
{
    return new ParticipantInfo(id, name, entry.value(QStringLiteral("Organisation")).toString());
}

GalleryInfo* makeRecord(int id, const QString& name, const QJsonObject& entry, GalleryInfo*)
{
    return new GalleryInfo(id, name, entry.value(QStringLiteral("Folder")).toString());
}

// A zone or page key: a decimal number without sign or leading zeros.
bool toPositiveKey(const QString& key, int& out)
{
    bool ok = false;
    out = key.toInt(&ok);
    return ok && out > 0 && QString::number(out) == key;
}

} // namespace

ProjectDescription::ProjectDescription() = default;

ProjectDescription::~ProjectDescription()
{
    clear();
}

void ProjectDescription::clear()
{
    qDeleteAll(nodes);
    nodes.clear();
    qDeleteAll(tables);
    tables.clear();
    qDeleteAll(participants);
    participants.clear();
    qDeleteAll(galleries);
    galleries.clear();
    nodeOrder.clear();
    files.clear();
    pins.clear();
    zoneNames.clear();
    geoSystem.clear();
    areas.clear();
    id.clear();
    name.clear();
}

bool ProjectDescription::fail(const QString& message)
{
    clear();
    errorString = message;
    return false;
}

template <typename Record>
bool ProjectDescription::readRecords(
    const QJsonObject& root, const QString& key, const QString& path, QMap<int, Record*>& records)
{
    const QJsonArray list = root.value(key).toArray();
    for (int n = 0; n < list.size(); ++n) {
        const QJsonObject entry = list.at(n).toObject();
        int recordId = 0;
        if (!toInt(entry.value(QStringLiteral("Id")), recordId) || recordId <= 0)
            return fail(QStringLiteral("%1: %2 %3: \"Id\" must be a positive whole number").arg(path, key).arg(n + 1));
        if (records.contains(recordId))
            return fail(QStringLiteral("%1: %2 %3: id %4 is used twice").arg(path, key).arg(n + 1).arg(recordId));
        records.insert(recordId,
            makeRecord(recordId, entry.value(QStringLiteral("Name")).toString(), entry, static_cast<Record*>(nullptr)));
    }
    return true;
}

bool ProjectDescription::Load(const QString& projectRoot)
{
    return LoadFile(QDir::cleanPath(projectRoot) + QLatin1Char('/') + FileName);
}

bool ProjectDescription::LoadFile(const QString& path)
{
    clear();
    errorString.clear();

    QFile file(path);
    if (!file.exists())
        return fail(QStringLiteral("%1: no such file").arg(path));
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1: %2").arg(path, file.errorString()));
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(QStringLiteral("%1: not valid JSON at offset %2: %3")
                        .arg(path, QString::number(parseError.offset), parseError.errorString()));
    if (!document.isObject())
        return fail(QStringLiteral("%1: the top level must be an object").arg(path));

    const QJsonObject root = document.object();
    int version = 0;
    if (!toInt(root.value(QStringLiteral("Version")), version) || version != 1)
        return fail(QStringLiteral("%1: \"Version\" must be 1").arg(path));
    id = root.value(QStringLiteral("Id")).toString();
    name = root.value(QStringLiteral("Name")).toString();
    for (const QJsonValue& zone : root.value(QStringLiteral("Zones")).toArray())
        zoneNames.append(zone.toString());
    geoSystem = root.value(QStringLiteral("GeoSystem")).toString();
    const QJsonObject areaList = root.value(QStringLiteral("Areas")).toObject();
    for (auto area = areaList.begin(); area != areaList.end(); ++area) {
        QPolygonF outline;
        for (const QJsonValue& point : area.value().toArray()) {
            const QJsonArray xy = point.toArray();
            if (xy.size() != 2 || !xy.at(0).isDouble() || !xy.at(1).isDouble())
                return fail(QStringLiteral("%1: area \"%2\": points are [x, y] pairs").arg(path, area.key()));
            outline.append(QPointF(xy.at(0).toDouble(), xy.at(1).toDouble()));
        }
        if (outline.size() < 3)
            return fail(QStringLiteral("%1: area \"%2\" needs at least three points").arg(path, area.key()));
        QPainterPath shape;
        shape.addPolygon(outline);
        shape.closeSubpath();
        areas.insert(area.key(), shape);
    }
    if (zoneNames.size() > NodeInfo::MaxZones)
        return fail(QStringLiteral("%1: at most %2 zones").arg(path).arg(NodeInfo::MaxZones));

    const QJsonValue nodeList = root.value(QStringLiteral("Nodes"));
    if (!nodeList.isArray())
        return fail(QStringLiteral("%1: \"Nodes\" must be a list").arg(path));
    const QJsonArray nodeArray = nodeList.toArray();
    for (int n = 0; n < nodeArray.size(); ++n) {
        const QString where = QStringLiteral("%1: node %2").arg(path).arg(n + 1);
        const QJsonObject entry = nodeArray.at(n).toObject();
        int nodeId = 0;
        int parentId = 0;
        int zone = 1;
        if (!toInt(entry.value(QStringLiteral("Id")), nodeId) || nodeId <= 0)
            return fail(QStringLiteral("%1: \"Id\" must be a positive whole number").arg(where));
        if (nodes.contains(nodeId))
            return fail(QStringLiteral("%1: id %2 is used twice").arg(where).arg(nodeId));
        if (entry.contains(QStringLiteral("Parent")) && !toInt(entry.value(QStringLiteral("Parent")), parentId))
            return fail(QStringLiteral("%1: \"Parent\" must be a node id or 0").arg(where));
        if (parentId != 0 && !nodes.contains(parentId))
            return fail(QStringLiteral("%1: parent %2 must be listed before its children").arg(where).arg(parentId));
        if (entry.contains(QStringLiteral("Zone"))
            && (!toInt(entry.value(QStringLiteral("Zone")), zone) || zone < 1 || zone > NodeInfo::MaxZones))
            return fail(QStringLiteral("%1: \"Zone\" must be 1 to %2").arg(where).arg(NodeInfo::MaxZones));

        auto* node = new NodeInfo(nodeId, entry.value(QStringLiteral("Name")).toString(), parentId);
        node->SetZone(zone);
        nodes.insert(nodeId, node);
        nodeOrder.append(nodeId);

        const QJsonObject documents = entry.value(QStringLiteral("Documents")).toObject();
        for (auto it = documents.begin(); it != documents.end(); ++it) {
            int documentZone = 0;
            if (!toPositiveKey(it.key(), documentZone) || documentZone > NodeInfo::MaxZones)
                return fail(QStringLiteral("%1: document zone \"%2\" must be 1 to %3")
                                .arg(where, it.key())
                                .arg(NodeInfo::MaxZones));
            QStringList names;
            for (const QJsonValue& document : it.value().toArray()) {
                if (!document.isString() || document.toString().isEmpty())
                    return fail(QStringLiteral("%1: documents must be file names").arg(where));
                names.append(document.toString());
            }
            node->SetDocuments(documentZone, names);
        }
    }

    for (NodeInfo* node : qAsConst(nodes)) {
        for (int zone : node->Zones()) {
            const QStringList names = node->Documents(zone);
            for (int index = 0; index < names.size(); ++index) {
                if (!files.contains(names.at(index)))
                    files.insert(names.at(index), NodeFileInfo(names.at(index), node->Id(), zone, index));
            }
        }
    }

    if (!readRecords(root, QStringLiteral("Tables"), path, tables)
        || !readRecords(root, QStringLiteral("Participants"), path, participants)
        || !readRecords(root, QStringLiteral("Galleries"), path, galleries))
        return false;

    const QJsonObject pinsByDocument = root.value(QStringLiteral("Pins")).toObject();
    for (auto document = pinsByDocument.begin(); document != pinsByDocument.end(); ++document) {
        const QJsonObject pages = document.value().toObject();
        for (auto page = pages.begin(); page != pages.end(); ++page) {
            const QString where = QStringLiteral("%1: pins of \"%2\"").arg(path, document.key());
            int pageNumber = 0;
            if (!toPositiveKey(page.key(), pageNumber))
                return fail(QStringLiteral("%1: page \"%2\" must be a number from 1").arg(where, page.key()));
            QList<PinObject>& list = pins[document.key()][pageNumber];
            for (const QJsonValue& value : page.value().toArray()) {
                const QJsonObject pin = value.toObject();
                int pinId = 0;
                int participant = 0;
                if (!toInt(pin.value(QStringLiteral("Id")), pinId) || pinId <= 0)
                    return fail(QStringLiteral("%1: a pin needs a positive whole \"Id\"").arg(where));
                if (!pin.value(QStringLiteral("X")).isDouble() || !pin.value(QStringLiteral("Y")).isDouble())
                    return fail(QStringLiteral("%1: pin %2 needs numbers \"X\" and \"Y\"").arg(where).arg(pinId));
                if (pin.contains(QStringLiteral("Participant"))
                    && !toInt(pin.value(QStringLiteral("Participant")), participant))
                    return fail(
                        QStringLiteral("%1: pin %2: \"Participant\" must be a whole number").arg(where).arg(pinId));
                list.append(PinObject(pinId, pin.value(QStringLiteral("X")).toDouble(),
                    pin.value(QStringLiteral("Y")).toDouble(), pin.value(QStringLiteral("Label")).toString(),
                    participant, pin.value(QStringLiteral("Note")).toString()));
            }
        }
    }
    return true;
}

QList<NodeInfo*> ProjectDescription::FindNodes(const QString& nodeName) const
{
    QList<NodeInfo*> found;
    for (NodeInfo* node : nodes) {
        if (node->Name() == nodeName)
            found.append(node);
    }
    return found;
}
