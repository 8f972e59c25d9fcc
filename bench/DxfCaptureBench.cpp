// Times the capture of a DXF drawing of sheet frames next to a bare dxflib
// read of the same file: dxflib's own parsing is a floor no reader of ours
// can go below, so the ratio tells what our model, conversions and the
// safety check cost on top. The correction, the export and the dump (in
// process and as the command line) follow on the same file.
//
// The drawing is generated: N inserts along a route of rows from west to
// east, each of its own block with one closed frame polyline, some frames
// with extra vertices on a side, each insert with a sheet number and one
// more attribute.

#include <dxf/DxfDrawing.h>
#include <dxf/DxfDump.h>
#include <dxf/DxfSheetExport.h>

#include "BestOf.h"
#include "SheetDrawingText.h"

#include <dl_creationadapter.h>
#include <dl_dxf.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace {

// Empty: what is left is dxflib parsing the file.
class NullAdapter : public DL_CreationAdapter
{ };

// Empty when the capture holds what was written, else what differs first.
QString checkCapture(const DxfDrawing& drawing, int inserts)
{
    if (drawing.inserts.size() != inserts)
        return QStringLiteral("%1 inserts read, %2 written").arg(drawing.inserts.size()).arg(inserts);
    if (drawing.blocks.size() != inserts)
        return QStringLiteral("%1 blocks read, %2 written").arg(drawing.blocks.size()).arg(inserts);
    for (int i = 0; i < inserts; ++i) {
        const DxfInsert& insert = drawing.inserts.at(i);
        if (insert.SheetNumber() != QString::fromLatin1(SheetDrawingNumber(i)) || insert.attributes.size() != 2)
            return QStringLiteral("insert %1: sheet number '%2', %3 attributes")
                .arg(i)
                .arg(insert.SheetNumber())
                .arg(insert.attributes.size());
        const DxfBlock* block = drawing.Block(insert.blockName);
        if (!block || block->polylines.size() != 1 || block->polylines.first().vertices.size() < 4)
            return QStringLiteral("insert %1: block '%2' without its frame").arg(i).arg(insert.blockName);
    }
    return QString();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("DXF capture of sheet frames against a bare dxflib read"));
    parser.addHelpOption();
    QCommandLineOption insertsOption(QStringLiteral("inserts"), QStringLiteral("Sheet inserts in the drawing."),
        QStringLiteral("n"), QStringLiteral("20000"));
    QCommandLineOption roundsOption(QStringLiteral("rounds"), QStringLiteral("Timed runs of each step (best)."),
        QStringLiteral("n"), QStringLiteral("3"));
    QCommandLineOption toolOption(QStringLiteral("kamo-tools"), QStringLiteral("The command line program."),
        QStringLiteral("path"), QCoreApplication::applicationDirPath() + QStringLiteral("/kamo-tools"));
    QCommandLineOption keepOption(QStringLiteral("keep"),
        QStringLiteral("Also save the generated drawing here, to try the workbench on it."), QStringLiteral("file"));
    parser.addOptions({ insertsOption, roundsOption, toolOption, keepOption });
    parser.process(app);

    const int inserts = std::max(1, parser.value(insertsOption).toInt());
    const int rounds = std::max(1, parser.value(roundsOption).toInt());
    const QString tool = parser.value(toolOption);

    QTextStream out(stdout);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sheets.dxf"));
    {
        QFile file(path);
        if (!dir.isValid() || !file.open(QIODevice::WriteOnly) || file.write(SheetDrawingText(inserts)) < 0) {
            out << "warning: cannot write " << path << '\n';
            return 1;
        }
    }
    if (parser.isSet(keepOption)) {
        QFile::remove(parser.value(keepOption));
        if (!QFile::copy(path, parser.value(keepOption)))
            out << "warning: cannot write " << parser.value(keepOption) << '\n';
    }
    out << "drawing: " << inserts << " inserts, " << QString::number(QFileInfo(path).size() / 1e6, 'f', 1) << " MB\n";

    const std::string nativePath = QFile::encodeName(path).toStdString();
    // Floor, check and capture take turns within each round, so that a load
    // coming and going on the machine falls on all three alike. Each round
    // reads into a drawing of its own: no round pays for freeing another.
    std::vector<DxfDrawing> captured(rounds);
    QString error;
    bool read = true;
    double floorMs = std::numeric_limits<double>::max();
    double checkMs = floorMs;
    double captureMs = floorMs;
    for (int r = 0; r < rounds; ++r) {
        floorMs = std::min(floorMs, BestOf(1, [&] {
            NullAdapter adapter;
            DL_Dxf().in(nativePath, &adapter);
        }));
        checkMs = std::min(checkMs, BestOf(1, [&] { DxfDump::CheckFile(path); }));
        captureMs = std::min(captureMs, BestOf(1, [&] { read = DxfDrawing::Read(path, captured[r], &error) && read; }));
    }
    const DxfDrawing& drawing = captured.front();

    QList<QPair<QString, double>> rows;
    rows.append({ QStringLiteral("dxflib read (floor)"), floorMs });
    rows.append({ QStringLiteral("safety check"), checkMs });
    rows.append({ QStringLiteral("capture (DxfDrawing::Read)"), captureMs });

    QStringList warnings;
    const QString problem = read ? checkCapture(drawing, inserts) : error;
    if (!problem.isEmpty())
        warnings.append(problem);

    // The correction labels the drawing in place; every round starts from
    // the drawing as read.
    QStringList log;
    double correctMs = std::numeric_limits<double>::max();
    DxfDrawing corrected;
    for (int r = 0; r < rounds; ++r) {
        DxfDrawing copy = drawing;
        correctMs = std::min(correctMs, BestOf(1, [&] { log = DxfSheetExport::CorrectVertexPositions(copy); }));
        corrected = copy;
    }
    if (!log.isEmpty())
        warnings.append(QStringLiteral("the correction logged %1 lines, first: %2").arg(log.size()).arg(log.first()));

    const QString gk2 = dir.filePath(QStringLiteral("sheets.gk2"));
    int written = 0;
    bool exported = true;
    const double exportMs
        = BestOf(rounds, [&] { exported = DxfSheetExport::ExportGK2(corrected, gk2, &written, &error) && exported; });
    if (!exported || written != inserts)
        warnings.append(QStringLiteral("the export wrote %1 of %2 inserts %3").arg(written).arg(inserts).arg(error));
    rows.append({ QStringLiteral("CorrectVertexPositions"), correctMs });
    rows.append({ QStringLiteral("ExportGK2"), exportMs });
    rows.append({ QStringLiteral("correction + export"), correctMs + exportMs });

    QString dumpText;
    rows.append({ QStringLiteral("dump (DumpFileToText)"),
        BestOf(rounds, [&] { DxfDump::DumpFileToText(path, dumpText, nullptr); }) });

    QString toolNote;
    if (QFileInfo(tool).isExecutable()) {
        const QString dumpFile = dir.filePath(QStringLiteral("dump.txt"));
        bool ran = true;
        const double toolMs = BestOf(rounds, [&] {
            QProcess process;
            process.setStandardOutputFile(dumpFile);
            process.start(tool, { QStringLiteral("dxf"), QStringLiteral("dump"), path });
            ran = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
                && ran;
        });
        rows.append({ QStringLiteral("kamo-tools dxf dump"), toolMs });
        if (!ran)
            warnings.append(QStringLiteral("%1 dxf dump failed").arg(tool));
    } else {
        toolNote = QStringLiteral("kamo-tools dxf dump: skipped, %1 not found").arg(tool);
    }

    out << QStringLiteral("%1 %2 %3\n")
               .arg(QStringLiteral("what"), -28)
               .arg(QStringLiteral("ms"), 9)
               .arg(QStringLiteral("/floor"), 7);
    for (const auto& row : rows)
        out << QStringLiteral("%1 %2 %3\n")
                   .arg(row.first, -28)
                   .arg(QString::number(row.second, 'f', 1), 9)
                   .arg(QString::number(row.second / floorMs, 'f', 2), 7);
    if (!toolNote.isEmpty())
        out << toolNote << '\n';
    out << "capture/floor: " << QString::number(captureMs / floorMs, 'f', 2) << " (goal 1.50)\n";
    for (const QString& warning : warnings)
        out << "warning: " << warning << '\n';
    out << "checked: " << (warnings.isEmpty() ? "yes" : "no") << '\n';
    return warnings.isEmpty() ? 0 : 1;
}
