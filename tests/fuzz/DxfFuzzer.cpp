// A DXF drawing through everything the workbench does with one: the dump,
// the capture of its inserts, the corner correction and the GK2 export.
#include <dxf/DxfDrawing.h>
#include <dxf/DxfDump.h>
#include <dxf/DxfSheetExport.h>

#include "FuzzScratch.h"

#include <QRegularExpression>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    const QString path = scratch.Write(QStringLiteral("fuzz.dxf"), FuzzScratch::Bytes(data, size));

    QString text, error;
    DxfDump::DumpFileToText(path, text, &error);

    DxfDrawing drawing;
    if (!DxfDrawing::Read(path, drawing, &error))
        return 0;
    drawing.UseInsertsOfBlocks(QRegularExpression(QStringLiteral("^Blatt|BS")));
    drawing.UseInsertsOfBlocks(QRegularExpression());
    DxfSheetExport::CorrectVertexPositions(drawing);
    int written = 0;
    DxfSheetExport::ExportGK2(drawing, scratch.Path(QStringLiteral("fuzz.gk2")), &written, &error);
    return 0;
}
