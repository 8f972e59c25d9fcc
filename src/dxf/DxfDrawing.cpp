#include "dxf/DxfDrawing.h"

#include "dxf/DxfConvertCreationAdapter.h"
#include "dxf/DxfGuardedRead.h"

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

bool DxfDrawing::Read(const QString& path, DxfDrawing& drawing, QString* error)
{
    drawing = DxfDrawing();
    DxfConvertCreationAdapter adapter(drawing);
    return DxfGuardedRead(path, adapter, error);
}
