#include "DxfCommand.h"

#include <dxf/DxfDrawing.h>
#include <dxf/DxfDump.h>
#include <dxf/DxfSheetExport.h>

#include <QDir>
#include <QRegularExpression>

#include <QTextStream>

DxfCommand::DxfCommand(QTextStream& out, QTextStream& err)
    : out(out)
    , err(err)
{ }

QString DxfCommand::HelpText()
{
    return QStringLiteral("Usage: kamo-tools dxf dump FILE\n"
                          "       kamo-tools dxf inserts FILE\n"
                          "       kamo-tools dxf gk2 FILE OUT [--blocks REGEX] [--no-correct]\n"
                          "\n"
                          "  dump FILE    list the layers, blocks and entities of a DXF file, one entity\n"
                          "               after the other with its layer, colour, width and line type\n"
                          "  inserts FILE the block inserts: number, block, layer, position, attributes\n"
                          "               (tab-separated, one insert per line)\n"
                          "  gk2 FILE OUT label the corners of the sheet frames along the route of\n"
                          "               inserts and write them as a GK2 file; --blocks takes only the\n"
                          "               inserts whose block name matches REGEX, --no-correct writes\n"
                          "               the labels as they are (none, for a fresh drawing)\n"
                          "\n"
                          "Exit status: 0 done, 1 the file is missing or cannot be read, 2 usage error.\n");
}

int DxfCommand::Run(const QStringList& arguments)
{
    const QString action = arguments.value(1);
    if (action.isEmpty() || action == QLatin1String("-h") || action == QLatin1String("--help")) {
        (action.isEmpty() ? err : out) << HelpText();
        return action.isEmpty() ? UsageError : Success;
    }
    if (action == QLatin1String("dump")) {
        if (arguments.size() != 3)
            return usageError(QStringLiteral("dxf dump takes one file"));
        return dump(arguments.at(2));
    }
    if (action == QLatin1String("inserts")) {
        if (arguments.size() != 3)
            return usageError(QStringLiteral("dxf inserts takes one file"));
        return inserts(arguments.at(2));
    }
    if (action == QLatin1String("gk2"))
        return gk2(arguments.mid(2));
    return usageError(QStringLiteral("unknown dxf action '%1'").arg(action));
}

int DxfCommand::failure(const QString& message)
{
    err << "kamo-tools: " << message << "\n";
    err.flush();
    return Failure;
}

int DxfCommand::inserts(const QString& file)
{
    DxfDrawing drawing;
    QString error;
    if (!DxfDrawing::Read(file, drawing, &error))
        return failure(error);
    for (int i = 0; i < drawing.inserts.size(); ++i) {
        const DxfInsert& insert = drawing.inserts.at(i);
        QStringList attributes;
        for (const auto& attribute : insert.attributes)
            attributes.append(attribute.first + QLatin1Char('=') + attribute.second);
        out << i << '\t' << insert.blockName << '\t' << insert.layer << '\t' << QString::number(insert.x, 'f', 3)
            << '\t' << QString::number(insert.y, 'f', 3) << '\t' << attributes.join(QLatin1Char('\t')) << '\n';
    }
    out.flush();
    return Success;
}

int DxfCommand::gk2(QStringList arguments)
{
    bool correct = true;
    QString blocks;
    QStringList files;
    while (!arguments.isEmpty()) {
        const QString argument = arguments.takeFirst();
        if (argument == QLatin1String("--no-correct"))
            correct = false;
        else if (argument == QLatin1String("--blocks") && !arguments.isEmpty())
            blocks = arguments.takeFirst();
        else if (argument.startsWith(QLatin1String("--")))
            return usageError(QStringLiteral("unknown option '%1'").arg(argument));
        else
            files.append(argument);
    }
    if (files.size() != 2)
        return usageError(QStringLiteral("dxf gk2 takes a DXF file and the GK2 file to write"));
    const QRegularExpression filter(blocks);
    if (!filter.isValid())
        return usageError(QStringLiteral("--blocks: %1").arg(filter.errorString()));

    DxfDrawing drawing;
    QString error;
    if (!DxfDrawing::Read(files.at(0), drawing, &error))
        return failure(error);
    drawing.UseInsertsOfBlocks(filter);
    if (correct) {
        for (const QString& line : DxfSheetExport::CorrectVertexPositions(drawing))
            err << line << '\n';
        err.flush();
    }
    int written = 0;
    if (!DxfSheetExport::ExportGK2(drawing, files.at(1), &written, &error))
        return failure(error);
    out << QStringLiteral("Export completed - Inserts written: %1").arg(written) << '\n';
    out.flush();
    err.flush();
    return Success;
}

int DxfCommand::dump(const QString& file)
{
    QString text;
    QString error;
    const bool ok = DxfDump::DumpFileToText(file, text, &error);
    // What was read before a failure still helps to find the fault.
    if (!text.isEmpty())
        out << text << "\n";
    out.flush();
    if (ok)
        return Success;
    err << "kamo-tools: " << error << "\n";
    err.flush();
    return Failure;
}

int DxfCommand::usageError(const QString& message)
{
    err << "kamo-tools: " << message << "\nTry 'kamo-tools dxf --help'.\n";
    err.flush();
    return UsageError;
}
