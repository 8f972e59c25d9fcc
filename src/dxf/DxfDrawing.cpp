#include "dxf/DxfDrawing.h"

#include "dxf/DxfConvertCreationAdapter.h"
#include "dxf/DxfGuardedRead.h"

#include <QRegularExpression>

const DxfBlock* DxfDrawing::Block(const QString& name) const
{
    for (const DxfBlock& block : blocks) {
        if (block.name == name)
            return &block;
    }
    return nullptr;
}

DxfBlock* DxfDrawing::Block(const QString& name)
{
    // Not through the const lookup: that one does not detach, and a change
    // through its pointer would reach every copy of the drawing.
    for (int i = 0; i < blocks.size(); ++i) {
        if (blocks.at(i).name == name)
            return &blocks[i];
    }
    return nullptr;
}

QHash<QString, int> DxfDrawing::BlockIndex() const
{
    QHash<QString, int> index;
    index.reserve(blocks.size());
    for (int i = blocks.size() - 1; i >= 0; --i)
        index.insert(blocks.at(i).name, i);
    return index;
}

void DxfDrawing::UseInsertsOfBlocks(const QRegularExpression& filter)
{
    const bool all = filter.pattern().isEmpty();
    for (DxfInsert& insert : inserts)
        insert.use = all || filter.match(insert.blockName).hasMatch();
}

bool DxfDrawing::Read(const QString& path, DxfDrawing& drawing, QString* error)
{
    drawing = DxfDrawing();
    DxfConvertCreationAdapter adapter(drawing);
    return DxfGuardedRead(path, adapter, error);
}
