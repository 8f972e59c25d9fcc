#ifndef KAMO_VIEW_GALLERYINFO_H
#define KAMO_VIEW_GALLERYINFO_H

#include "ItemInfo.h"
#include "kamo_view_export.h"

#include <QString>

/// A collection of photos kept with the project, in a folder relative to the
/// project root.
class KAMO_VIEW_EXPORT GalleryInfo : public ItemInfo
{
public:
    /// A gallery with its id, name and folder (relative to the project root).
    GalleryInfo(int id = 0, const QString& name = QString(), const QString& folder = QString());
    ~GalleryInfo() override;

    /// The gallery's folder, relative to the project root.
    const QString& Folder() const { return folder; }

private:
    QString folder;
};

#endif
