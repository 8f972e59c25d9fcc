#ifndef KAMO_VIEW_NODEINFO_H
#define KAMO_VIEW_NODEINFO_H

#include "ItemInfo.h"
#include "kamo_view_export.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// A node of the project tree: a place, a structure or a topic that
/// documents are filed under. A project has up to four zones (planning
/// variants, construction phases); a node keeps its own list of documents for
/// each zone and is shown in one zone at a time.
class KAMO_VIEW_EXPORT NodeInfo : public ItemInfo
{
public:
    /// The most zones a project has.
    static constexpr int MaxZones = 4;

    /// A node shown in zone 1 without documents; \p parentId 0 makes it a top-level node.
    NodeInfo(int id = 0, const QString& name = QString(), int parentId = 0);
    /// Destroys the node.
    ~NodeInfo() override;

    /// The parent node's id; 0 for a top-level node.
    int ParentId() const { return parentId; }

    /// The zone the node is shown in, 1..MaxZones.
    ///@{
    int Zone() const { return zone; }
    void SetZone(int newZone) { zone = newZone; }
    ///@}

    /// Document file names of a zone, in the order the node lists them.
    ///@{
    QStringList Documents(int zone) const { return documents.value(zone); }
    void SetDocuments(int zone, const QStringList& names) { documents[zone] = names; }
    ///@}
    /// Zones that have documents, ascending.
    QList<int> Zones() const { return documents.keys(); }

    /// Appends the documents of `zone` to `files`.
    void GetFilesForZone(int zone, QStringList& files) const;

private:
    int parentId;
    int zone = 1;
    QMap<int, QStringList> documents;
};

#endif
