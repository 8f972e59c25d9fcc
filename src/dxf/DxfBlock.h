#ifndef KAMO_TOOLS_DXF_DXFBLOCK_H
#define KAMO_TOOLS_DXF_DXFBLOCK_H

#include "dxf/DxfPolyline.h"
#include "kamo_tools_export.h"

#include <QList>
#include <QString>

/// A block definition; only its polylines matter for sheet frames.
struct KAMO_TOOLS_EXPORT DxfBlock {
    /// The block's name and its polylines, in file order.
    ///@{
    QString name;
    QList<DxfPolyline> polylines;
    ///@}
};

#endif
