#include "dxf/DxfSheetExport.h"

#include "dxf/PrintfFixed.h"
#include "gk/CGKSheet.h"
#include "gk/CRoutingTilesRevisor.h"
#include "gk/RectangleDetector.h"
#include "gk/VtxPosition.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QSaveFile>
#include <QTextCodec>

#include <vector>

namespace {

const DxfBlock* findBlock(const DxfDrawing& drawing, const QHash<QString, int>& index, const QString& name)
{
    const int i = index.value(name, -1);
    return i < 0 ? nullptr : &drawing.blocks.at(i);
}

// What a revision that did not finish leaves unlabelled, for the log. It
// stops at the first sheet whose frame has no pair of parallel sides, leaving
// that sheet and all after it unlabelled; a frame with only one pair is
// reported but labelled all the same.
QStringList revisionFailure(
    GK::CRoutingTilesRevisor::GKError error, const std::vector<GK::CGKSheet>& ensemble, DxfCorrectionResult& result)
{
    const QString name = error == GK::CRoutingTilesRevisor::geSidesMissing ? QStringLiteral("geSidesMissing")
                                                                           : QString::number(int(error));
    QStringList log;
    QStringList unlabelled;
    for (const GK::CGKSheet& sheet : ensemble) {
        if (!unlabelled.isEmpty() || sheet.sides[GK::CGKSheet::stLong].vector1 < 0) {
            unlabelled.append(QString::number(sheet.tileIndex));
            result.unlabelled.append(sheet.tileIndex);
        } else if (sheet.sides[GK::CGKSheet::stShort].vector1 < 0) {
            result.oneParallelPair.append(sheet.tileIndex);
            log.append(QCoreApplication::translate("DxfSheetExport",
                "Vertex revision reported %1 for insert %2: its frame has only one pair of parallel sides; its "
                "corners are labelled all the same")
                           .arg(name, QString::number(sheet.tileIndex)));
        }
    }
    if (!unlabelled.isEmpty())
        log.append(QCoreApplication::translate("DxfSheetExport",
            "Vertex revision stopped with %1 at insert %2: its frame has no parallel sides; inserts left without "
            "corner labels: %3")
                       .arg(name, unlabelled.first(), unlabelled.join(QLatin1String(", "))));
    if (log.isEmpty())
        log.append(QCoreApplication::translate("DxfSheetExport", "Vertex revision ended with %1").arg(name));
    return log;
}

} // namespace

QStringList DxfSheetExport::CorrectVertexPositions(DxfDrawing& drawing)
{
    DxfCorrectionResult result;
    return CorrectVertexPositions(drawing, result);
}

QStringList DxfSheetExport::CorrectVertexPositions(DxfDrawing& drawing, DxfCorrectionResult& result)
{
    result = DxfCorrectionResult();
    QStringList log;
    std::vector<GK::CGKSheet> ensemble;
    const QHash<QString, int> blocks = drawing.BlockIndex();
    for (int i = 0; i < drawing.inserts.size(); ++i) {
        const DxfInsert& insert = drawing.inserts.at(i);
        const DxfBlock* block = findBlock(drawing, blocks, insert.blockName);
        if (!block || block->polylines.size() != 1 || !insert.use)
            continue;
        QList<YPoint> points;
        for (const QPointF& vertex : block->polylines.first().vertices)
            points.append(YPoint { vertex.x(), vertex.y() });
        QList<QList<YPoint>> rectangles;
        RectangleDetector(points).Analyze(rectangles);
        if (rectangles.size() != 1) {
            // The missing parenthesis is what existing log readers expect.
            log.append(QStringLiteral("Rectangle detector detected less or more than one rectangle (Block:%1").arg(i));
            result.notOneRectangle.append(i);
            continue;
        }
        const QList<YPoint>& rectangle = rectangles.first();
        GK::CGKVertex corners[4];
        for (int c = 0; c < 4; ++c)
            corners[c] = GK::CGKVertex(rectangle.at(c).x, rectangle.at(c).y);
        GK::CGKSheet sheet(corners);
        sheet.tileIndex = i;
        ensemble.push_back(sheet);
        result.route.append(i);
    }
    if (ensemble.empty())
        return log;

    const GK::CRoutingTilesRevisor::GKError error = GK::CRoutingTilesRevisor(ensemble).Revise();
    if (error != GK::CRoutingTilesRevisor::geNone)
        log += revisionFailure(error, ensemble, result);

    for (const GK::CGKSheet& sheet : ensemble) {
        // Non-const access detaches the drawing from any copy of it.
        DxfBlock& block = drawing.blocks[blocks.value(drawing.inserts.at(sheet.tileIndex).blockName)];
        DxfPolyline& polyline = block.polylines.first();
        for (const GK::CGKVertex& corner : sheet.vertices) {
            // A corner the revision left at 0 has no label: an entry for it
            // would count the insert as labelled, and would overwrite the
            // label of another insert of the same block.
            if (GK::VtxPositionRingSlot(corner.position) < 0)
                continue;
            for (int v = 0; v < polyline.vertices.size(); ++v) {
                // The corners are copies of vertex coordinates, so exact
                // comparison finds them.
                const QPointF& vertex = polyline.vertices.at(v);
                if (vertex.x() == corner.x && vertex.y() == corner.y) {
                    polyline.labels.insert(v, corner.position);
                    break;
                }
            }
        }
    }
    return log;
}

bool DxfSheetExport::ExportGK2(const DxfDrawing& drawing, const QString& file, int* written, QString* error)
{
    int count = 0;
    if (written)
        *written = 0;
    QString text = QStringLiteral("GK2\r\n");
    const QHash<QString, int> blocks = drawing.BlockIndex();
    for (const DxfInsert& insert : drawing.inserts) {
        const DxfBlock* block = findBlock(drawing, blocks, insert.blockName);
        if (!block || !insert.HasSheetNumber() || block->polylines.isEmpty() || !insert.use)
            continue;
        text += QLatin1String("\r\n") + insert.SheetNumber() + QLatin1String("\r\n");
        for (const DxfPolyline& polyline : block->polylines) {
            const QPointF* slots[4] = {};
            for (auto label = polyline.labels.cbegin(); label != polyline.labels.cend(); ++label) {
                if (label.key() < 0 || label.key() >= polyline.vertices.size())
                    continue;
                const int slot = GK::VtxPositionRingSlot(label.value());
                if (slot >= 0)
                    slots[slot] = &polyline.vertices.at(label.key());
            }
            for (const QPointF* vertex : slots) {
                if (!vertex)
                    continue;
                // "%7.2lf     %7.2lf" with decimal commas: the host reads the
                // file with them.
                QString line = PrintfFixed(vertex->x(), 7, 2) + QLatin1String("     ") + PrintfFixed(vertex->y(), 7, 2);
                text += line.replace(QLatin1Char('.'), QLatin1Char(',')) + QLatin1String("    \r\n");
            }
        }
        ++count;
    }

    // The host on the same machine reads the file back in the encoding a
    // text stream writes by default, the locale's; sheet numbers with
    // umlauts must come back as they went out.
    const QByteArray bytes = QTextCodec::codecForLocale()->fromUnicode(text);
    QSaveFile out(file);
    // A folder the user may not write to can still hold a file he may:
    // then the file is rewritten in place, as truncating it and writing
    // would, rather than not at all.
    out.setDirectWriteFallback(true);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit()) {
        if (error)
            *error = QCoreApplication::translate("DxfSheetExport", "%1: cannot write the file: %2")
                         .arg(QDir::toNativeSeparators(file), out.errorString());
        return false;
    }
    if (written)
        *written = count;
    return true;
}
