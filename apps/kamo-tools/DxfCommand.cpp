#include "DxfCommand.h"

#include <dxf/DxfDump.h>

#include <QTextStream>

DxfCommand::DxfCommand(QTextStream& out, QTextStream& err)
    : out(out)
    , err(err)
{ }

QString DxfCommand::HelpText()
{
    return QStringLiteral("Usage: kamo-tools dxf dump FILE\n"
                          "\n"
                          "  dump FILE    list the layers, blocks and entities of a DXF file, one entity\n"
                          "               after the other with its layer, colour, width and line type\n"
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
    return usageError(QStringLiteral("unknown dxf action '%1'").arg(action));
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
