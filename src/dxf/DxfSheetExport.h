#ifndef KAMO_TOOLS_DXF_DXFSHEETEXPORT_H
#define KAMO_TOOLS_DXF_DXFSHEETEXPORT_H

#include "dxf/DxfCorrectionResult.h"
#include "dxf/DxfDrawing.h"
#include "kamo_tools_export.h"

#include <QString>
#include <QStringList>

/// Turns the sheet frames of a drawing (inserts of blocks holding one frame
/// polyline each, numbered by a sheet-number attribute) into sheet corners
/// for the host application.
class KAMO_TOOLS_EXPORT DxfSheetExport
{
public:
    /// Labels the frame corners of every used insert whose block holds
    /// exactly one polyline, treating the inserts in list order as one route
    /// of sheets. The labels go into the block's polyline, so inserts sharing
    /// a block share them too; only real corner labels are entered. Returns
    /// the lines for the output log, naming inserts by their 0-based position
    /// in `drawing.inserts`: one per insert whose frame is not exactly one
    /// rectangle, and, when the labelling along the route does not finish,
    /// its error and the inserts it left unlabelled.
    static QStringList CorrectVertexPositions(DxfDrawing& drawing);
    /// The same, and `result` receives what the log lines say, as insert
    /// numbers, and the order of the route.
    static QStringList CorrectVertexPositions(DxfDrawing& drawing, DxfCorrectionResult& result);

    /// Writes the labelled corners of every used insert with a sheet number
    /// and a block with polylines, in list order. The file is replaced only
    /// once it is completely written, except in a folder where no temporary
    /// file can be made: a writable file there is rewritten in place. `written` (optional) receives the
    /// number of inserts written; false with a reason in `error` when the
    /// file cannot be written.
    static bool ExportGK2(const DxfDrawing& drawing, const QString& file, int* written, QString* error);
};

#endif
