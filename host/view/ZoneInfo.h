#ifndef KAMO_VIEW_ZONEINFO_H
#define KAMO_VIEW_ZONEINFO_H

#include "kamo_view_export.h"

#include <QString>

/// Where a link leads within one zone of the project: a target document and
/// the page to open in it. An empty path means the zone is not linked.
class KAMO_VIEW_EXPORT ZoneInfo
{
public:
    /// An unlinked zone.
    ZoneInfo() = default;
    /// A zone leading to page \p page (as written in a link) of document \p path.
    explicit ZoneInfo(const QString& path, const QString& page = QString());

    /// The target document's path; empty when the zone is not linked.
    ///@{
    const QString& Path() const { return path; }
    void SetPath(const QString& newPath) { path = newPath; }
    ///@}

    /// The page as written in the link, kept verbatim so that a link the
    /// tools do not touch is written back unchanged.
    ///@{
    const QString& Page() const { return page; }
    void SetPage(const QString& newPage) { page = newPage; }
    ///@}

    /// 1-based page number; an empty or unreadable page means the first page.
    int PageNumber() const;
    /// Writes \p number as the page.
    void SetPageNumber(int number);

    /// Whether the zone leads to a document.
    bool IsLinked() const { return !path.isEmpty(); }

    /// Zones are equal when path and page are, verbatim.
    ///@{
    bool operator==(const ZoneInfo& other) const { return path == other.path && page == other.page; }
    bool operator!=(const ZoneInfo& other) const { return !(*this == other); }
    ///@}

private:
    QString path;
    QString page;
};

#endif
