#ifndef KAMO_TOOLS_CHANGEHREFPATHNT_H
#define KAMO_TOOLS_CHANGEHREFPATHNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <QMap>
#include <QString>

/// "HREF: Pfad ändern": redirects the target paths of all links through a
/// map of old to new paths (see LoadHREFPathMap).
class KAMO_TOOLS_EXPORT ChangeHREFPathNT : public BlockNodeTool
{
public:
    ChangeHREFPathNT();

    /// Old path -> new path, both lower case, as LoadHREFPathMap() reads them.
    void SetPathMap(const QMap<QString, QString>& map);

private:
    QMap<QString, QString> pathMap;
};

#endif
