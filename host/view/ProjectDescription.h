#ifndef KAMO_VIEW_PROJECTDESCRIPTION_H
#define KAMO_VIEW_PROJECTDESCRIPTION_H

#include "GalleryInfo.h"
#include "NodeFileInfo.h"
#include "NodeInfo.h"
#include "ParticipantInfo.h"
#include "PinObject.h"
#include "TableInfo.h"
#include "kamo_view_export.h"

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QPainterPath>
#include <QString>
#include <QStringList>

/// The description of a project as the host keeps it: its node tree with the
/// documents of each node per zone and the pins set on the documents' pages.
/// Read from the file "Projekt.json" in the project root (see
/// docs/project-format.md). Owns its records; the maps are the ones the host
/// lends to the tools.
class KAMO_VIEW_EXPORT ProjectDescription
{
public:
    static const QString FileName; ///< "Projekt.json"

    ProjectDescription();
    ~ProjectDescription();

    ProjectDescription(const ProjectDescription&) = delete;
    ProjectDescription& operator=(const ProjectDescription&) = delete;

    /// Reads `projectRoot`/Projekt.json, replacing what was loaded before.
    /// On failure the description is empty and ErrorString() says why.
    bool Load(const QString& projectRoot);
    /// Reads the given file, as Load() does.
    bool LoadFile(const QString& path);
    /// Why the last load failed; empty after success.
    const QString& ErrorString() const { return errorString; }

    /// The project's id and name as the file has them.
    ///@{
    const QString& Id() const { return id; }
    const QString& Name() const { return name; }
    ///@}
    /// The project's geo reference system as GeoSystemSettings reads it
    /// ("EPSG:25832"); empty when the project has none.
    const QString& GeoSystem() const { return geoSystem; }
    /// Named areas of the project (construction fields, study areas) in its
    /// geo system: imports can be limited to them.
    const QMap<QString, QPainterPath>& Areas() const { return areas; }
    /// Names of the zones 1.., as many as the project uses; may be empty.
    const QStringList& ZoneNames() const { return zoneNames; }

    /// The nodes by id, owned by the description; the host lends the map to the tools.
    ///@{
    QMap<int, NodeInfo*>& Nodes() { return nodes; }
    const QMap<int, NodeInfo*>& Nodes() const { return nodes; }
    ///@}
    /// Node ids in the order of the file: parents before their children.
    const QList<int>& NodeOrder() const { return nodeOrder; }
    /// Every document of every node, keyed by its name as the node lists it;
    /// a document filed under several nodes or zones is registered where it
    /// is met first (nodes by ascending id, zones ascending).
    QMap<QString, NodeFileInfo>& Files() { return files; }
    /// Pins by document name and page.
    QMap<QString, QMap<int, QList<PinObject>>>& Pins() { return pins; }

    /// The tables, participants and galleries by id, owned by the description.
    ///@{
    QMap<int, TableInfo*>& Tables() { return tables; }
    QMap<int, ParticipantInfo*>& Participants() { return participants; }
    QMap<int, GalleryInfo*>& Galleries() { return galleries; }
    ///@}

    /// The nodes named exactly `nodeName`, by ascending id.
    QList<NodeInfo*> FindNodes(const QString& nodeName) const;

private:
    void clear();
    bool fail(const QString& message);
    template <typename Record>
    bool readRecords(const QJsonObject& root, const QString& key, const QString& path, QMap<int, Record*>& records);

    QString errorString;
    QString id;
    QString name;
    QStringList zoneNames;
    QString geoSystem;
    QMap<QString, QPainterPath> areas;
    QMap<int, NodeInfo*> nodes;
    QList<int> nodeOrder;
    QMap<QString, NodeFileInfo> files;
    QMap<QString, QMap<int, QList<PinObject>>> pins;
    QMap<int, TableInfo*> tables;
    QMap<int, ParticipantInfo*> participants;
    QMap<int, GalleryInfo*> galleries;
};

#endif
