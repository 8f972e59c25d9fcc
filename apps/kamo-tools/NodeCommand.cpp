#include "NodeCommand.h"

#include "TerminalProgress.h"

#include <Vex.h>
#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ChangeHREFPathNT.h>
#include <nodetools/DuplicateHREFInAnnotationsNT.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/NodeToolBackup.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <memory>

namespace {

struct Operation {
    const char* name;
    int id; // the operation's number in the node-tools dialog, logged with a backup
};

const Operation operations[] = {
    { "remove-href", 1 },
    { "duplicate-href", 2 },
    { "map-href-paths", 5 },
};

const Operation* findOperation(const QString& name)
{
    for (const Operation& operation : operations) {
        if (name == QLatin1String(operation.name))
            return &operation;
    }
    return nullptr;
}

} // namespace

NodeCommand::NodeCommand(QTextStream& out, QTextStream& err)
    : out(out)
    , err(err)
{ }

QString NodeCommand::HelpText()
{
    return QStringLiteral("Usage: kamo-tools node OPERATION --project ROOT [options] (--all | DOCUMENT...)\n"
                          "\n"
                          "Runs a node tool over the annotation files (.ann) in ROOT/Daten.\n"
                          "\n"
                          "Operations:\n"
                          "  remove-href       delete the HREF lines of objects\n"
                          "  duplicate-href    add to objects a copy of their first standard link that\n"
                          "                    points to --new-target\n"
                          "  map-href-paths    redirect link paths through the map file given by --map\n"
                          "                    (lines \"old path,new path\"; matched ignoring case)\n"
                          "\n"
                          "Options:\n"
                          "  --project ROOT    project root directory (required)\n"
                          "  --all             process every annotation file in ROOT/Daten\n"
                          "  DOCUMENT...       document file names; each one's annotation file is\n"
                          "                    Daten/<name up to the first dot>.ann, or else\n"
                          "                    Daten/<name without its last dot>.ann\n"
                          "  --backup          first copy the annotation files to\n"
                          "                    Daten/ann_sic/<dd.MM.yyyy hh.mm.ss> with an operation log\n"
                          "  --category TEXT   only objects whose category (KA) is exactly TEXT\n"
                          "                    (remove-href, duplicate-href)\n"
                          "  --new-target PATH target path of the copied links (duplicate-href, required)\n"
                          "  --map FILE        path map file (map-href-paths, required)\n"
                          "  -v, --verbose     list every file written\n"
                          "  -h, --help        show this help\n"
                          "\n"
                          "A progress bar is shown on stderr when it is a terminal. Files that are not\n"
                          "valid UTF-8 are never rewritten; they and any file that could not be written\n"
                          "are listed as warnings.\n"
                          "\n"
                          "Exit status: 0 done, 1 the backup could not be created (nothing was changed),\n"
                          "2 bad usage or no such project.\n");
}

int NodeCommand::usageError(const QString& message)
{
    err << "kamo-tools: " << message << "\n"
        << "Try 'kamo-tools node --help'.\n";
    err.flush();
    return UsageError;
}

int NodeCommand::Run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption helpOption(QStringList { QStringLiteral("h"), QStringLiteral("help") });
    const QCommandLineOption projectOption(QStringLiteral("project"), QString(), QStringLiteral("ROOT"));
    const QCommandLineOption allOption(QStringLiteral("all"));
    const QCommandLineOption backupOption(QStringLiteral("backup"));
    const QCommandLineOption categoryOption(QStringLiteral("category"), QString(), QStringLiteral("TEXT"));
    const QCommandLineOption newTargetOption(QStringLiteral("new-target"), QString(), QStringLiteral("PATH"));
    const QCommandLineOption mapOption(QStringLiteral("map"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption verboseOption(QStringList { QStringLiteral("v"), QStringLiteral("verbose") });
    parser.addOptions({ helpOption, projectOption, allOption, backupOption, categoryOption, newTargetOption, mapOption,
        verboseOption });

    // The parser takes the first argument as the program name.
    if (!parser.parse(QStringList { QStringLiteral("kamo-tools") } + arguments.mid(1)))
        return usageError(parser.errorText());
    if (parser.isSet(helpOption)) {
        out << HelpText();
        out.flush();
        return Success;
    }

    QStringList positional = parser.positionalArguments();
    if (positional.isEmpty())
        return usageError(QStringLiteral("missing OPERATION"));
    const QString operationName = positional.takeFirst();
    const Operation* operation = findOperation(operationName);
    if (!operation)
        return usageError(QStringLiteral("unknown operation '%1'").arg(operationName));
    const QString name = QLatin1String(operation->name);

    if (!parser.isSet(projectOption))
        return usageError(QStringLiteral("--project ROOT is required"));
    if (parser.isSet(allOption) && !positional.isEmpty())
        return usageError(QStringLiteral("give either --all or DOCUMENT names, not both"));
    if (!parser.isSet(allOption) && positional.isEmpty())
        return usageError(QStringLiteral("give --all or at least one DOCUMENT name"));

    const bool takesCategory = name != QLatin1String("map-href-paths");
    if (parser.isSet(categoryOption) && !takesCategory)
        return usageError(QStringLiteral("--category does not apply to %1").arg(name));
    const bool isDuplicate = name == QLatin1String("duplicate-href");
    if (parser.isSet(newTargetOption) != isDuplicate)
        return usageError(isDuplicate ? QStringLiteral("duplicate-href needs --new-target PATH")
                                      : QStringLiteral("--new-target does not apply to %1").arg(name));
    const bool isMap = name == QLatin1String("map-href-paths");
    if (parser.isSet(mapOption) != isMap)
        return usageError(isMap ? QStringLiteral("map-href-paths needs --map FILE")
                                : QStringLiteral("--map does not apply to %1").arg(name));

    const QString root = QFileInfo(parser.value(projectOption)).absoluteFilePath();
    if (!QFileInfo(root).isDir())
        return usageError(QStringLiteral("project directory '%1' does not exist").arg(root));
    const QString dataDir = AnnotationFileProcessor::DataDirectory(root);
    if (!QFileInfo(dataDir).isDir())
        return usageError(QStringLiteral("'%1' is not a project: it has no data folder '%2'")
                              .arg(root, AnnotationFileProcessor::DataDirectoryName));

    QMap<QString, QString> pathMap;
    if (isMap) {
        const QString mapFile = parser.value(mapOption);
        if (!QFileInfo(mapFile).isFile())
            return usageError(QStringLiteral("map file '%1' does not exist").arg(mapFile));
        pathMap = LoadHREFPathMap(mapFile);
    }

    if (parser.isSet(backupOption)) {
        NodeToolBackup backup;
        backup.projectRootDir = root;
        backup.logText = QStringLiteral("Node Tool Operation: %1\nSource: %2\nUser: %3")
                             .arg(QString::number(operation->id), root, Vex::GetCurrentUserName());
        if (!backup.Create()) {
            err << "kamo-tools: Error creating backup\n";
            err.flush();
            return Failure;
        }
        out << "Backup: " << QDir::toNativeSeparators(backup.GetBackupFolder()) << "\n";
        out.flush();
    }

    std::unique_ptr<BlockNodeTool> tool;
    if (name == QLatin1String("remove-href")) {
        auto remove = std::make_unique<RemoveHREFInAnnotationNT>();
        remove->SetCategoryFilter(parser.value(categoryOption));
        tool = std::move(remove);
    } else if (isDuplicate) {
        auto duplicate = std::make_unique<DuplicateHREFInAnnotationsNT>();
        duplicate->SetCategoryFilter(parser.value(categoryOption));
        duplicate->SetNewLinkTarget(parser.value(newTargetOption));
        tool = std::move(duplicate);
    } else {
        auto map = std::make_unique<ChangeHREFPathNT>();
        map->SetPathMap(pathMap);
        tool = std::move(map);
    }
    tool->SetProjectRootDir(root);
    if (parser.isSet(allOption))
        tool->SetAllAnnotationFiles(true);
    else
        tool->SetFileNames(positional);

    TerminalProgress progress(stderr);
    tool->SetProgressCallback(&progress);
    tool->Execute();
    progress.Finish();

    const AnnotationFileProcessor& files = tool->FileProcessor();
    if (parser.isSet(verboseOption)) {
        for (const QString& path : files.GetChangedFiles())
            out << "changed: " << QDir::toNativeSeparators(path) << "\n";
    }
    out << "Files examined: " << tool->GetFilesExamined() << "\n"
        << "Files changed: " << tool->GetFilesChanged() << "\n";
    out.flush();
    for (const QString& warning : files.GetWarnings())
        err << "warning: " << warning << "\n";
    err.flush();
    return Success;
}
