// Times the DXF workbench's map on a generated drawing of sheet frames, each
// step next to a reference run in the same process: opening the drawing in
// the dialog next to capturing it alone, and a redraw of the map next to
// QPainter drawing every frame as one polygon and nothing else, which no
// map showing all frames can undercut by much.
//
// The frames lie in a grid of rows nearly as long as the grid is high
// (or --rows rows): fitted into the map, every frame is then a few pixels
// wide and drawn as an outline, the costliest case; long rows of sheets
// shrink to dots.

#include <dialogs/DlgDxfTools.h>
#include <dialogs/DxfSheetMapWidget.h>
#include <dxf/DxfDrawing.h>

#include "BestOf.h"
#include "SheetDrawingText.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

// Every polyline of every insert's block as one polygon, fitted into an
// image of the map's size: the floor for a redraw.
void paintFloor(const DxfDrawing& drawing, const DxfSheetMapWidget& map, QImage& image)
{
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(QColor(47, 93, 138), 1.2);
    pen.setCosmetic(true);
    painter.setPen(pen);
    painter.setBrush(QColor(47, 93, 138, 40));
    const QHash<QString, int> blocks = drawing.BlockIndex();
    QPolygonF polygon;
    for (const DxfInsert& insert : drawing.inserts) {
        const int block = blocks.value(insert.blockName, -1);
        if (block < 0)
            continue;
        for (const DxfPolyline& polyline : drawing.blocks.at(block).polylines) {
            polygon.resize(0);
            for (const QPointF& vertex : polyline.vertices)
                polygon.append(map.WorldToWidget(vertex));
            painter.drawPolygon(polygon);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    // Measured without a display unless one is asked for.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The DXF workbench's map of sheet frames against references"));
    parser.addHelpOption();
    QCommandLineOption insertsOption(QStringLiteral("inserts"), QStringLiteral("Sheet inserts in the drawing."),
        QStringLiteral("n"), QStringLiteral("20000"));
    QCommandLineOption rowsOption(QStringLiteral("rows"),
        QStringLiteral("Rows of sheets; 0: about as many as fill a square."), QStringLiteral("n"), QStringLiteral("0"));
    QCommandLineOption roundsOption(QStringLiteral("rounds"), QStringLiteral("Timed runs of each step (best)."),
        QStringLiteral("n"), QStringLiteral("3"));
    parser.addOptions({ insertsOption, rowsOption, roundsOption });
    parser.process(app);

    const int inserts = std::max(1, parser.value(insertsOption).toInt());
    const int rounds = std::max(1, parser.value(roundsOption).toInt());
    int rows = parser.value(rowsOption).toInt();
    if (rows <= 0) // 400 x 280 sheets: a square takes 10 rows for every 7 columns
        rows = std::max(1, int(std::lround(std::sqrt(inserts * 400.0 / 280.0))));

    QTextStream out(stdout);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sheets.dxf"));
    {
        QFile file(path);
        if (!dir.isValid() || !file.open(QIODevice::WriteOnly) || file.write(SheetDrawingText(inserts, rows)) < 0) {
            out << "warning: cannot write " << path << '\n';
            return 1;
        }
    }
    out << "drawing: " << inserts << " inserts in " << rows << " rows, "
        << QString::number(QFileInfo(path).size() / 1e6, 'f', 1) << " MB\n";

    QStringList warnings;
    QList<QPair<QString, double>> openRows;
    QList<QPair<QString, double>> drawRows;

    // Opening: the dialog reads the file, fills the list and the map.
    // Capture and dialog take turns, so that load from elsewhere on the
    // machine falls on both alike.
    DlgDxfTools dialog;
    dialog.resize(1200, 860);
    dialog.show();
    QApplication::processEvents();
    auto* map = dialog.findChild<DxfSheetMapWidget*>(QStringLiteral("sheetMap"));
    auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("insertTree"));
    double captureMs = std::numeric_limits<double>::max();
    double openMs = captureMs;
    for (int r = 0; r < rounds; ++r) {
        DxfDrawing drawing;
        captureMs = std::min(captureMs, BestOf(1, [&] { DxfDrawing::Read(path, drawing, nullptr); }));
        openMs = std::min(openMs, BestOf(1, [&] {
            if (!dialog.OpenFile(path))
                warnings.append(dialog.GetLastError());
            map->repaint();
        }));
    }
    const DxfDrawing& drawing = dialog.GetDrawing();
    openRows.append({ QStringLiteral("capture alone (reference)"), captureMs });
    openRows.append({ QStringLiteral("open in the dialog, drawn"), openMs });
    openRows.append(
        { QStringLiteral("of which the map's frames"), BestOf(rounds, [&] { map->SetDrawing(&drawing); }) });
    out << "map: " << map->width() << " x " << map->height() << " pixels\n";

    int framed = 0;
    for (int i = 0; i < drawing.inserts.size(); ++i)
        framed += map->GetFrameState(i) == DxfSheetMapWidget::FrameState::Used ? 1 : 0;
    if (framed != inserts)
        warnings.append(QStringLiteral("%1 of %2 frames on the map").arg(framed).arg(inserts));

    QImage image(map->size(), QImage::Format_ARGB32_Premultiplied);
    map->FitAll();
    drawRows.append({ QStringLiteral("every frame a polygon (reference)"),
        BestOf(rounds, [&] { paintFloor(drawing, *map, image); }) });
    drawRows.append({ QStringLiteral("redraw, all fitted"), BestOf(rounds, [&] { map->repaint(); }) });
    drawRows.append({ QStringLiteral("Fit All from zoomed in, drawn"), BestOf(rounds, [&] {
                         map->ZoomAt(64.0, QRectF(map->rect()).center());
                         map->FitAll();
                         map->repaint();
                     }) });

    // Zoomed in until frames are no longer dots: as many outlines as fit
    // into the map, the most a redraw has to draw.
    const int middle = inserts / 2;
    map->CenterOn(middle);
    map->ZoomAt(4.0 / 400.0 / map->GetScale(), QRectF(map->rect()).center());
    drawRows.append({ QStringLiteral("redraw, frames 4 pixels wide"), BestOf(rounds, [&] { map->repaint(); }) });
    map->FitAll();

    double correctMs = BestOf(1, [&] {
        dialog.CorrectVertexPositions();
        map->repaint();
    });
    openRows.append({ QStringLiteral("correction in the dialog, drawn"), correctMs });
    if (map->GetRoute().size() != inserts)
        warnings.append(
            QStringLiteral("the route runs through %1 of %2 sheets").arg(map->GetRoute().size()).arg(inserts));
    drawRows.append({ QStringLiteral("redraw, all fitted, with route"), BestOf(rounds, [&] { map->repaint(); }) });

    // A user's look at a few sheets, labels and all: the middle sheet about
    // a third of the map wide.
    map->CenterOn(middle);
    map->ZoomAt(map->width() / 3.0 / 400.0 / map->GetScale(), QRectF(map->rect()).center());
    drawRows.append({ QStringLiteral("redraw, a few sheets labelled"), BestOf(rounds, [&] { map->repaint(); }) });
    if (map->GetCornerLabels().isEmpty())
        warnings.append(QStringLiteral("no corner labels shown near sheet %1").arg(middle));
    if (map->InsertAt(map->WorldToWidget(map->GetFrameCenter(middle))) != middle)
        warnings.append(QStringLiteral("a click on sheet %1 finds another").arg(middle));

    drawRows.append(
        { QStringLiteral("list selects, map centres, drawn"), BestOf(rounds, [&] {
             tree->setCurrentItem(tree->topLevelItem(inserts - 1 - middle / 2));
             map->repaint();
             tree->setCurrentItem(tree->topLevelItem(middle));
             map->repaint();
         }) / 2 });
    drawRows.append({ QStringLiteral("click on a frame, list follows"), BestOf(rounds, [&] {
                         const int insert = map->InsertAt(map->WorldToWidget(map->GetFrameCenter(middle + 1)));
                         dialog.OnMapInsertClicked(insert);
                         map->repaint();
                     }) });
    if (!tree->currentItem() || tree->currentItem()->text(0).toInt() != middle + 1)
        warnings.append(QStringLiteral("the list does not follow a click on sheet %1").arg(middle + 1));

    const auto print = [&out](const QList<QPair<QString, double>>& table) {
        const double reference = table.first().second;
        out << QStringLiteral("%1 %2 %3\n")
                   .arg(QStringLiteral("what"), -34)
                   .arg(QStringLiteral("ms"), 9)
                   .arg(QStringLiteral("/ref"), 7);
        for (const auto& row : table)
            out << QStringLiteral("%1 %2 %3\n")
                       .arg(row.first, -34)
                       .arg(QString::number(row.second, 'f', 1), 9)
                       .arg(QString::number(row.second / reference, 'f', 2), 7);
    };
    print(openRows);
    print(drawRows);
    for (const QString& warning : qAsConst(warnings))
        out << "warning: " << warning << '\n';
    out << "checked: " << (warnings.isEmpty() ? "yes" : "no") << '\n';
    return warnings.isEmpty() ? 0 : 1;
}
