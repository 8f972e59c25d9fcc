#ifndef KAMO_VIEW_ITEMINFO_H
#define KAMO_VIEW_ITEMINFO_H

#include "kamo_view_export.h"

#include <QString>

/// What an entry of the project tree stands for. The tree's items carry a
/// pointer to one of these (a node, a table, a participant or a gallery);
/// the records belong to the project, never to the tree.
class KAMO_VIEW_EXPORT ItemInfo
{
public:
    /// The kinds of record a tree entry can stand for.
    enum class Kind { Node, Table, Participant, Gallery };

    /// A record of kind \p kind; \p id is unique among the records of that kind.
    ItemInfo(Kind kind, int id, const QString& name);
    /// Destroys the record.
    virtual ~ItemInfo();

    /// The record's kind and id (unique among the records of one kind).
    ///@{
    Kind GetKind() const { return kind; }
    int Id() const { return id; }
    ///@}

    /// The name shown in the tree.
    ///@{
    const QString& Name() const { return name; }
    void SetName(const QString& newName) { name = newName; }
    ///@}

    /// "Node:12": names the record across sessions, for remembered selections.
    QString Key() const;

protected:
    /// Copying is for the derived records only, which copy as values.
    ///@{
    ItemInfo(const ItemInfo&) = default;
    ItemInfo& operator=(const ItemInfo&) = default;
    ///@}

private:
    Kind kind;
    int id;
    QString name;
};

#endif
