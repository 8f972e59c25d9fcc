#include "GalleryInfo.h"

GalleryInfo::GalleryInfo(int id, const QString& name, const QString& folder)
    : ItemInfo(Kind::Gallery, id, name)
    , folder(folder)
{ }

GalleryInfo::~GalleryInfo() = default;
