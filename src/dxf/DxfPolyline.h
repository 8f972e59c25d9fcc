#ifndef KAMO_TOOLS_DXF_DXFPOLYLINE_H
#define KAMO_TOOLS_DXF_DXFPOLYLINE_H

#include "gk/VtxPosition.h"
#include "kamo_tools_export.h"

#include <QMap>
#include <QPointF>
#include <QVector>

/// A polyline of a block as read from a DXF file (legacy POLYLINE and
/// LWPOLYLINE alike), with the corner labels the vertex correction found.
struct KAMO_TOOLS_EXPORT DxfPolyline {
    QVector<QPointF> vertices; ///< in file order
    /// Vertex index -> corner label; a vertex without an entry has none.
    QMap<int, GK::VtxPosition> labels;
};

#endif
