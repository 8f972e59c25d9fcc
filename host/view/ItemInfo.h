#ifndef KAMO_VIEW_ITEMINFO_H
#define KAMO_VIEW_ITEMINFO_H

#include "kamo_view_export.h"

#include <QString>

// What an entry of the project tree stands for. The tree's items carry a
// pointer to one of these (a node, a table, a participant or a gallery);
// the records belong to the project, never to the tree.
class KAMO_VIEW_EXPORT ItemInfo
{
public:
    enum class Kind { Node, Table, Participant, Gallery };

    ItemInfo(Kind kind, int id, const QString& name);
    virtual ~ItemInfo();

    Kind GetKind() const { return kind; }
    int Id() const { return id; } // unique among the records of one kind

    const QString& Name() const { return name; }
    void SetName(const QString& newName) { name = newName; }

    // "Node:12": names the record across sessions, for remembered selections.
    QString Key() const;

protected:
    ItemInfo(const ItemInfo&) = default;
    ItemInfo& operator=(const ItemInfo&) = default;

private:
    Kind kind;
    int id;
    QString name;
};

#endif
