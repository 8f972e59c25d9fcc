#include "ZoneInfo.h"

ZoneInfo::ZoneInfo(const QString& path, const QString& page)
    : path(path)
    , page(page)
{ }

int ZoneInfo::PageNumber() const
{
    bool ok = false;
    const int number = page.toInt(&ok);
    return ok && number >= 1 ? number : 1;
}

void ZoneInfo::SetPageNumber(int number)
{
    page = QString::number(number < 1 ? 1 : number);
}
