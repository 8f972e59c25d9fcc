#ifndef KAMO_VIEW_GALLERYINFO_H
#define KAMO_VIEW_GALLERYINFO_H

#include "ItemInfo.h"
#include "kamo_view_export.h"

#include <QString>

// A collection of photos kept with the project, in a folder relative to the
// project root.
class KAMO_VIEW_EXPORT GalleryInfo : public ItemInfo
{
public:
    GalleryInfo(int id = 0, const QString& name = QString(), const QString& folder = QString());
    ~GalleryInfo() override;

    const QString& Folder() const { return folder; }

private:
    QString folder;
};

#endif
