#include "DxfCommand.h"
#include "LinksCommand.h"
#include "NodeCommand.h"
#include "ShapeCommand.h"

#include <QCoreApplication>
#include <QTextStream>

#include <csignal>
#include <cstdio>

namespace {

const char generalHelp[] = "Usage: kamo-tools COMMAND [options]\n"
                           "\n"
                           "Commands:\n"
                           "  node OPERATION    batch operations over a project's annotation files,\n"
                           "                    and the restore of a backup of them\n"
                           "  analyze           which annotation files of a project are used\n"
                           "  links check       which document links of a project lead nowhere, and\n"
                           "                    the path map that would mend them\n"
                           "  shape ACTION      summary of a shape file, import of sheets, routes,\n"
                           "                    districts or buildings as JSON\n"
                           "  dxf ACTION        listing of a DXF drawing or of its block inserts,\n"
                           "                    export of its sheet corners as a GK2 file\n"
                           "\n"
                           "'kamo-tools COMMAND --help' describes a command.\n";

} // namespace

int main(int argc, char* argv[])
{
#ifdef SIGXFSZ
    // At a file-size limit a write should fail and be reported for that file,
    // not end the whole run. (Windows has no such signal; the write fails.)
    std::signal(SIGXFSZ, SIG_IGN);
#endif

    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kamo-tools"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KAMO_TOOLS_VERSION));

    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList arguments = QCoreApplication::arguments().mid(1);

    if (arguments.isEmpty()) {
        err << generalHelp;
        return NodeCommand::UsageError;
    }
    const QString command = arguments.first();
    if (command == QLatin1String("-h") || command == QLatin1String("--help")) {
        out << generalHelp;
        return NodeCommand::Success;
    }
    if (command == QLatin1String("--version")) {
        out << "kamo-tools " << QCoreApplication::applicationVersion() << "\n";
        return NodeCommand::Success;
    }
    if (command == QLatin1String("node"))
        return NodeCommand(out, err).Run(arguments);
    if (command == QLatin1String("analyze"))
        return NodeCommand(out, err).RunAnalyze(arguments);
    if (command == QLatin1String("links"))
        return LinksCommand(out, err).Run(arguments);
    if (command == QLatin1String("shape"))
        return ShapeCommand(out, err).Run(arguments);
    if (command == QLatin1String("dxf"))
        return DxfCommand(out, err).Run(arguments);

    err << "kamo-tools: unknown command '" << command << "'\n\n" << generalHelp;
    return NodeCommand::UsageError;
}
