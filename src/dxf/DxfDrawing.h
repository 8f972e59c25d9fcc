#ifndef KAMO_TOOLS_DXF_DXFDRAWING_H
#define KAMO_TOOLS_DXF_DXFDRAWING_H

#include "dxf/DxfBlock.h"
#include "dxf/DxfInsert.h"
#include "kamo_tools_export.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

class QRegularExpression;

/// What the DXF workbench keeps of a drawing: layers, block definitions with
/// their polylines and the model-space inserts with their attributes.
/// Entities other than these are not kept.
struct KAMO_TOOLS_EXPORT DxfDrawing {
    /// The layer names of the layer table, and the block definitions in file order.
    ///@{
    QStringList layers;
    QList<DxfBlock> blocks;
    ///@}
    /// Model space only: inserts nested in block definitions are parts of
    /// those blocks, not sheets.
    QList<DxfInsert> inserts;

    /// The first block of that exact name, null when there is none.
    ///@{
    const DxfBlock* Block(const QString& name) const;
    DxfBlock* Block(const QString& name);
    ///@}
    /// Block name -> position in `blocks` of the first block of that name.
    /// Drawings hold a block per sheet: whoever looks up the block of every
    /// insert needs this, or the lookups grow with the square of the sheets.
    QHash<QString, int> BlockIndex() const;

    /// Sets the use flag of every insert to whether the filter finds a match
    /// in its block name; an empty pattern uses all. The filter must be valid.
    void UseInsertsOfBlocks(const QRegularExpression& filter);

    /// Replaces `drawing` by the file's content. False, with the reason in
    /// `error`, for a missing file or one that cannot be read safely;
    /// `drawing` then holds what was read before the failure.
    static bool Read(const QString& path, DxfDrawing& drawing, QString* error);
};

#endif
