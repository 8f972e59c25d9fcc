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
    return const_cast<DxfBlock*>(static_cast<const DxfDrawing*>(this)->Block(name));
}

bool DxfDrawing::Read(const QString& path, DxfDrawing& drawing, QString* error)
{
    drawing = DxfDrawing();
    DxfConvertCreationAdapter adapter(drawing);
    return DxfGuardedRead(path, adapter, error);
}
