#include "NodeCommand.h"

#include "TerminalProgress.h"

#include <Kamo_base/Vex.h>
#include <Kamo_view/ProjectDescription.h>
#include <nodetools/AnalyzeProjectNT.h>
#include <nodetools/AnnotationDimensionOptions.h>
#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ChangeHREFPathNT.h>
#include <nodetools/ChangeHREFTypeNT.h>
#include <nodetools/ChangeHREFTypeToStandardNT.h>
#include <nodetools/ChangePageNumberNT.h>
#include <nodetools/ConvertFreeHandPinsNT.h>
#include <nodetools/DuplicateHREFInAnnotationsNT.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/ModifyAnnotationTargetsNT.h>
#include <nodetools/NodeToolBackup.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>
#include <nodetools/ReplaceNameInAnnotationsNT.h>
#include <nodetools/SetAnnotationPropertiesNT.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>

#include <memory>

namespace {

// Options an operation may take besides the common ones.
enum OptionFlag {
    Category = 1 << 0,
    NameFilter = 1 << 1,
    NewTarget = 1 << 2,
    MapFile = 1 << 3,
    IgnorePath = 1 << 4,
    Zone = 1 << 5,
    TargetOptions = 1 << 6,
    PageDelta = 1 << 7,
    Properties = 1 << 8,
    // Works on every annotation file; takes no documents or nodes.
    AllFilesOnly = 1 << 9,
    // Needs the project description (Projekt.json); others use it if there.
    NeedsDescription = 1 << 10,
    UsesDescription = 1 << 11,
};

struct Operation {
    const char* name;
    int id; // the operation's number in the node-tools dialog, logged with a backup
    int options;
};

const Operation operations[] = {
    { "match-names", 0, IgnorePath | AllFilesOnly | NeedsDescription },
    { "remove-href", 1, Category },
    { "duplicate-href", 2, Category | NewTarget },
    { "href-to-split", 3, Category | UsesDescription },
    { "convert-pins", 4, NeedsDescription },
    { "map-href-paths", 5, MapFile },
    { "set-properties", 6, Category | NameFilter | Properties },
    { "analyze", 7, NeedsDescription },
    { "href-to-standard", 8, Category | Zone | UsesDescription },
    { "modify-targets", 9, Category | NameFilter | TargetOptions },
    { "change-pages", 10, Category | NameFilter | PageDelta },
};

const Operation* findOperation(const QString& name)
{
    for (const Operation& operation : operations) {
        if (name == QLatin1String(operation.name))
            return &operation;
    }
    return nullptr;
}

QString logText(const QString& operation, const QString& source)
{
    return QStringLiteral("Node Tool Operation: %1\nSource: %2\nUser: %3")
        .arg(operation, source, Vex::GetCurrentUserName());
}

} // namespace

NodeCommand::NodeCommand(QTextStream& out, QTextStream& err)
    : out(out)
    , err(err)
{ }

QString NodeCommand::HelpText()
{
    return QStringLiteral(
        "Usage: kamo-tools node OPERATION --project ROOT [options] [--all | --nodes NAMES | DOCUMENT...]\n"
        "       kamo-tools node restore --project ROOT --backup STAMP [--force]\n"
        "\n"
        "Runs a node tool over the annotation files (.ann) in ROOT/Daten.\n"
        "\n"
        "Operations (the number is the one of the node-tools dialog):\n"
        "  match-names       0  set link captions to the names of the nodes whose\n"
        "                       documents they lead to; every annotation file\n"
        "  remove-href       1  delete the HREF lines of objects\n"
        "  duplicate-href    2  add to objects a copy of their first standard link that\n"
        "                       points to --new-target\n"
        "  href-to-split     3  turn standard links into split links, leading in each\n"
        "                       zone to the node's document of that zone\n"
        "  convert-pins      4  turn the pins set by hand on the documents' pages into\n"
        "                       pin objects (\"Betroffenheit\")\n"
        "  map-href-paths    5  redirect link paths through the map file given by --map\n"
        "                       (lines \"old path,new path\"; matched ignoring case)\n"
        "  set-properties    6  set the name, text or dimensions of objects\n"
        "  analyze           7  which annotation files are used (see 'kamo-tools\n"
        "                       analyze --help')\n"
        "  href-to-standard  8  turn split links into standard links for one zone\n"
        "  modify-targets    9  set the environment factor of link targets\n"
        "  change-pages     10  shift the target pages of links\n"
        "  restore              check the annotation files of a backup against its\n"
        "                       manifest and put them back, after backing up the\n"
        "                       current state\n"
        "\n"
        "Choosing files:\n"
        "  --project ROOT    project root directory (required)\n"
        "  --all             every annotation file in ROOT/Daten\n"
        "  --nodes NAMES     the documents of these nodes (comma-separated names from\n"
        "                    ROOT/Projekt.json), in the zone each node is shown in\n"
        "  DOCUMENT...       document file names; each one's annotation file is\n"
        "                    Daten/<name up to the first dot>.ann, or else\n"
        "                    Daten/<name without its last dot>.ann\n"
        "\n"
        "Running:\n"
        "  --backup          first copy the annotation files to\n"
        "                    Daten/ann_sic/<dd.MM.yyyy hh.mm.ss> with an operation log\n"
        "                    and a manifest of their sizes and SHA-256 digests; when a\n"
        "                    file cannot be copied, nothing is changed\n"
        "  --dry-run         change nothing; list the files that would change and how\n"
        "                    many of their objects\n"
        "  -v, --verbose     list every file written\n"
        "\n"
        "Options of the operations:\n"
        "  --category TEXT      only objects whose category (KA) is exactly TEXT\n"
        "                       (1, 2, 3, 6, 8, 9, 10)\n"
        "  --name-filter REGEX  only objects whose name (NA) contains a match (6, 9, 10)\n"
        "  --new-target PATH    target path of the copied links (2, required)\n"
        "  --map FILE           path map file (5, required)\n"
        "  --ignore-path        compare file names only, not whole paths (0)\n"
        "  --zone N             zone 1-4 to keep; 0 (default): the zone the node of the\n"
        "                       annotated document is shown in (8)\n"
        "  --target-index N     only the target with this 0-based number in each link (9)\n"
        "  --env-factor F       environment factor 0.0-9.9 to set (9, required)\n"
        "  --page-delta N       pages to add, -99 to 99; pages never drop below 1\n"
        "                       (10, required)\n"
        "  --set-name TEXT      set the objects' name (6)\n"
        "  --set-text TEXT      set the objects' text (6)\n"
        "  --dimensions-from NAME\n"
        "                       take over left offset, width and height from the\n"
        "                       rectangle named NAME in the same file, keeping the\n"
        "                       bottom edge (6); switched off one by one with\n"
        "                       --no-left-offset, --no-width, --no-height, --no-topwards\n"
        "  --backup STAMP       (restore) the backup folder under Daten/ann_sic\n"
        "  --force              (restore) restore the intact files of a damaged backup\n"
        "                       and leave the damaged ones out\n"
        "\n"
        "A progress bar is shown on stderr when it is a terminal. Files that are not\n"
        "valid UTF-8 are never rewritten. Every file that could not be read, written\n"
        "or found (a named document without annotation file) is named in a warning\n"
        "with the reason, and so is a file whose last object is not closed (its lines\n"
        "from the unclosed \"BO\" on are dropped, as every run does).\n"
        "\n"
        "Exit status:\n"
        "  0  done: every file the operation wanted to change was written\n"
        "  1  the backup could not be created, or the restore failed or found the\n"
        "     backup damaged; nothing was changed\n"
        "  2  bad usage or no such project\n"
        "  3  done, but files were left out (could not be read, written or found,\n"
        "     or a damaged file of a backup restored with --force); see the warnings\n");
}

QString NodeCommand::AnalyzeHelpText()
{
    return QStringLiteral("Usage: kamo-tools analyze --project ROOT [--move-unused DIR]\n"
                          "\n"
                          "Lists, for the nodes of ROOT/Projekt.json, which annotation file each document\n"
                          "has, which annotation files of ROOT/Daten (subfolders included, backups and\n"
                          "set-aside files excluded) are used and which are not. Changes nothing unless\n"
                          "--move-unused is given.\n"
                          "\n"
                          "  --project ROOT      project root directory (required)\n"
                          "  --move-unused DIR   move the unused annotation files into DIR (created if\n"
                          "                      missing; never the data folder itself), keeping their\n"
                          "                      names relative to Daten; a file that exists there\n"
                          "                      already is not replaced, and a subfolder missing in DIR\n"
                          "                      leaves its files where they are\n");
}

int NodeCommand::usageError(const QString& message, const QString& command)
{
    err << "kamo-tools: " << message << "\n"
        << "Try 'kamo-tools " << command << " --help'.\n";
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
    const QCommandLineOption nodesOption(QStringLiteral("nodes"), QString(), QStringLiteral("NAMES"));
    const QCommandLineOption backupOption(QStringLiteral("backup"));
    const QCommandLineOption dryRunOption(QStringLiteral("dry-run"));
    const QCommandLineOption verboseOption(QStringList { QStringLiteral("v"), QStringLiteral("verbose") });
    const QCommandLineOption categoryOption(QStringLiteral("category"), QString(), QStringLiteral("TEXT"));
    const QCommandLineOption nameFilterOption(QStringLiteral("name-filter"), QString(), QStringLiteral("REGEX"));
    const QCommandLineOption newTargetOption(QStringLiteral("new-target"), QString(), QStringLiteral("PATH"));
    const QCommandLineOption mapOption(QStringLiteral("map"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption ignorePathOption(QStringLiteral("ignore-path"));
    const QCommandLineOption zoneOption(QStringLiteral("zone"), QString(), QStringLiteral("N"));
    const QCommandLineOption targetIndexOption(QStringLiteral("target-index"), QString(), QStringLiteral("N"));
    const QCommandLineOption envFactorOption(QStringLiteral("env-factor"), QString(), QStringLiteral("F"));
    const QCommandLineOption pageDeltaOption(QStringLiteral("page-delta"), QString(), QStringLiteral("N"));
    const QCommandLineOption setNameOption(QStringLiteral("set-name"), QString(), QStringLiteral("TEXT"));
    const QCommandLineOption setTextOption(QStringLiteral("set-text"), QString(), QStringLiteral("TEXT"));
    const QCommandLineOption dimensionsOption(QStringLiteral("dimensions-from"), QString(), QStringLiteral("NAME"));
    const QCommandLineOption noLeftOption(QStringLiteral("no-left-offset"));
    const QCommandLineOption noWidthOption(QStringLiteral("no-width"));
    const QCommandLineOption noHeightOption(QStringLiteral("no-height"));
    const QCommandLineOption noTopwardsOption(QStringLiteral("no-topwards"));
    const QCommandLineOption forceOption(QStringLiteral("force"));
    parser.addOptions({ helpOption, projectOption, allOption, nodesOption, backupOption, dryRunOption, verboseOption,
        categoryOption, nameFilterOption, newTargetOption, mapOption, ignorePathOption, zoneOption, targetIndexOption,
        envFactorOption, pageDeltaOption, setNameOption, setTextOption, dimensionsOption, noLeftOption, noWidthOption,
        noHeightOption, noTopwardsOption, forceOption });

    // The analysis has options of its own.
    if (arguments.value(1) == QLatin1String("analyze"))
        return RunAnalyze(QStringList { QStringLiteral("analyze") } + arguments.mid(2));

    // "restore" gives --backup a value; every operation takes it as a switch.
    const bool restore = arguments.value(1) == QLatin1String("restore");
    QStringList toParse = QStringList { QStringLiteral("kamo-tools") } + arguments.mid(1);
    QString restoreStamp;
    if (restore) {
        const int at = toParse.indexOf(QStringLiteral("--backup"));
        if (at < 0 || at + 1 >= toParse.size())
            return usageError(QStringLiteral("restore needs --backup STAMP"));
        restoreStamp = QFileInfo(toParse.at(at + 1)).fileName();
        toParse.erase(toParse.begin() + at, toParse.begin() + at + 2);
    }
    if (!parser.parse(toParse))
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
    if (!parser.isSet(projectOption))
        return usageError(QStringLiteral("--project ROOT is required"));
    const QString root = QFileInfo(parser.value(projectOption)).absoluteFilePath();

    if (restore) {
        const bool force = parser.isSet(forceOption);
        if (!positional.isEmpty() || parser.optionNames().size() != 1 + int(force))
            return usageError(QStringLiteral("restore takes only --project ROOT, --backup STAMP and --force"));
        if (!QFileInfo(root).isDir())
            return usageError(QStringLiteral("project directory '%1' does not exist").arg(root));
        return runRestore(root, restoreStamp, force);
    }
    if (parser.isSet(forceOption))
        return usageError(QStringLiteral("--force applies to restore only"));

    const Operation* operation = findOperation(operationName);
    if (!operation)
        return usageError(QStringLiteral("unknown operation '%1'").arg(operationName));
    const QString name = QLatin1String(operation->name);
    const int allowed = operation->options;

    const std::pair<const QCommandLineOption*, int> specific[] = { { &categoryOption, Category },
        { &nameFilterOption, NameFilter }, { &newTargetOption, NewTarget }, { &mapOption, MapFile },
        { &ignorePathOption, IgnorePath }, { &zoneOption, Zone }, { &targetIndexOption, TargetOptions },
        { &envFactorOption, TargetOptions }, { &pageDeltaOption, PageDelta }, { &setNameOption, Properties },
        { &setTextOption, Properties }, { &dimensionsOption, Properties }, { &noLeftOption, Properties },
        { &noWidthOption, Properties }, { &noHeightOption, Properties }, { &noTopwardsOption, Properties } };
    for (const auto& option : specific) {
        if (parser.isSet(*option.first) && !(allowed & option.second))
            return usageError(
                QStringLiteral("--%1 does not apply to %2").arg(option.first->names().constFirst(), name));
    }

    const int selections = int(parser.isSet(allOption)) + int(parser.isSet(nodesOption)) + int(!positional.isEmpty());
    if (allowed & AllFilesOnly) {
        if (selections > 0)
            return usageError(
                QStringLiteral("%1 works on every annotation file; give no documents or nodes").arg(name));
    } else if (selections == 0) {
        return usageError(QStringLiteral("give --all, --nodes NAMES or at least one DOCUMENT name"));
    } else if (selections > 1) {
        return usageError(QStringLiteral("give one of --all, --nodes or DOCUMENT names, not both"));
    }

    if ((allowed & NewTarget) && !parser.isSet(newTargetOption))
        return usageError(QStringLiteral("%1 needs --new-target PATH").arg(name));
    if ((allowed & MapFile) && !parser.isSet(mapOption))
        return usageError(QStringLiteral("%1 needs --map FILE").arg(name));
    if ((allowed & PageDelta) && !parser.isSet(pageDeltaOption))
        return usageError(QStringLiteral("%1 needs --page-delta N").arg(name));
    if ((allowed & TargetOptions) && !parser.isSet(envFactorOption))
        return usageError(QStringLiteral("%1 needs --env-factor F").arg(name));
    if ((allowed & Properties) && !parser.isSet(setNameOption) && !parser.isSet(setTextOption)
        && !parser.isSet(dimensionsOption))
        return usageError(QStringLiteral("%1 needs --set-name, --set-text or --dimensions-from").arg(name));
    const bool dimensionSwitch = parser.isSet(noLeftOption) || parser.isSet(noWidthOption)
        || parser.isSet(noHeightOption) || parser.isSet(noTopwardsOption);
    if (dimensionSwitch && !parser.isSet(dimensionsOption))
        return usageError(QStringLiteral("the --no-... switches need --dimensions-from NAME"));

    // Numbers in the ranges the dialog's fields allow.
    bool ok = true;
    const int zone = parser.isSet(zoneOption) ? parser.value(zoneOption).toInt(&ok) : 0;
    if (!ok || zone < 0 || zone > 4)
        return usageError(QStringLiteral("--zone must be 0 to 4"));
    const uint targetIndex = parser.isSet(targetIndexOption) ? parser.value(targetIndexOption).toUInt(&ok) : 0;
    if (!ok || targetIndex > 99)
        return usageError(QStringLiteral("--target-index must be 0 to 99"));
    const float envFactor = parser.isSet(envFactorOption) ? parser.value(envFactorOption).toFloat(&ok) : 1.0f;
    if (!ok || envFactor < 0.0f || envFactor > 9.9f
        || (parser.isSet(envFactorOption)
            && !QRegularExpression(QStringLiteral("^\\d(\\.\\d)?$")).match(parser.value(envFactorOption)).hasMatch()))
        return usageError(QStringLiteral("--env-factor must be 0.0 to 9.9 with at most one decimal"));
    const int pageDelta = parser.isSet(pageDeltaOption) ? parser.value(pageDeltaOption).toInt(&ok) : 0;
    if (!ok || pageDelta < -99 || pageDelta > 99)
        return usageError(QStringLiteral("--page-delta must be -99 to 99"));
    if (parser.isSet(nameFilterOption)) {
        const QRegularExpression expression(parser.value(nameFilterOption));
        if (!expression.isValid())
            return usageError(QStringLiteral("--name-filter: %1").arg(expression.errorString()));
    }

    if (!QFileInfo(root).isDir())
        return usageError(QStringLiteral("project directory '%1' does not exist").arg(root));
    const QString dataDir = AnnotationFileProcessor::DataDirectory(root);
    if (!QFileInfo(dataDir).isDir())
        return usageError(QStringLiteral("'%1' is not a project: it has no data folder '%2'")
                              .arg(root, AnnotationFileProcessor::DataDirectoryName));

    ProjectDescription description;
    const bool needsDescription = (allowed & NeedsDescription) || parser.isSet(nodesOption);
    const bool descriptionPresent = QFileInfo::exists(root + QLatin1Char('/') + ProjectDescription::FileName);
    if ((needsDescription || ((allowed & UsesDescription) && descriptionPresent)) && !description.Load(root))
        return usageError(QStringLiteral("project description: %1").arg(description.ErrorString()));

    QStringList documents = positional;
    if (parser.isSet(nodesOption)) {
        for (const QString& nodeName : parser.value(nodesOption).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            const QList<NodeInfo*> found = description.FindNodes(nodeName.trimmed());
            if (found.isEmpty())
                return usageError(
                    QStringLiteral("no node named '%1' in %2").arg(nodeName, ProjectDescription::FileName));
            for (const NodeInfo* node : found)
                node->GetFilesForZone(node->Zone(), documents);
        }
        documents.removeDuplicates();
    }

    QMap<QString, QString> pathMap;
    if (allowed & MapFile) {
        const QString mapFile = parser.value(mapOption);
        if (!QFileInfo(mapFile).isFile())
            return usageError(QStringLiteral("map file '%1' does not exist").arg(mapFile));
        pathMap = LoadHREFPathMap(mapFile);
    }

    const bool dryRun = parser.isSet(dryRunOption);
    if (parser.isSet(backupOption) && !dryRun) {
        NodeToolBackup backup;
        backup.projectRootDir = root;
        backup.logText = logText(QString::number(operation->id), root);
        if (!backup.Create()) {
            err << "kamo-tools: Error creating backup: " << backup.ErrorString() << "\n";
            printProblems(QStringLiteral("  not copied: "), backup.GetProblems(), 10);
            err << "Nothing was changed.\n";
            err.flush();
            return Failure;
        }
        out << "Backup: " << QDir::toNativeSeparators(backup.GetBackupFolder()) << "\n";
        out.flush();
    }

    const QString category = parser.value(categoryOption);
    const QString nameFilter = parser.value(nameFilterOption);
    std::unique_ptr<BlockNodeTool> tool;
    switch (operation->id) {
    case 0: {
        auto match = std::make_unique<ReplaceNameInAnnotationsNT>();
        match->SetNodesMap(&description.Nodes());
        match->SetIgnorePathOnCompare(parser.isSet(ignorePathOption));
        tool = std::move(match);
        break;
    }
    case 1: {
        auto remove = std::make_unique<RemoveHREFInAnnotationNT>();
        remove->SetCategoryFilter(category);
        tool = std::move(remove);
        break;
    }
    case 2: {
        auto duplicate = std::make_unique<DuplicateHREFInAnnotationsNT>();
        duplicate->SetCategoryFilter(category);
        duplicate->SetNewLinkTarget(parser.value(newTargetOption));
        tool = std::move(duplicate);
        break;
    }
    case 3: {
        auto toSplit = std::make_unique<ChangeHREFTypeNT>();
        toSplit->SetCategoryFilter(category);
        toSplit->SetNodesMap(&description.Nodes());
        toSplit->SetFilesMap(&description.Files());
        tool = std::move(toSplit);
        break;
    }
    case 4: {
        auto pins = std::make_unique<ConvertFreeHandPinsNT>();
        pins->SetFilesPinMap(&description.Pins());
        tool = std::move(pins);
        break;
    }
    case 5: {
        auto map = std::make_unique<ChangeHREFPathNT>();
        map->SetPathMap(pathMap);
        tool = std::move(map);
        break;
    }
    case 6: {
        auto properties = std::make_unique<SetAnnotationPropertiesNT>();
        properties->SetCategoryFilter(category);
        properties->SetNameFilter(nameFilter);
        properties->SetNameOption(parser.isSet(setNameOption), parser.value(setNameOption));
        properties->SetTextOption(parser.isSet(setTextOption), parser.value(setTextOption));
        AnnotationDimensionOptions dimensions;
        dimensions.fromOtherAnnotation = true;
        dimensions.templateName = parser.value(dimensionsOption);
        dimensions.setLeftOffset = !parser.isSet(noLeftOption);
        dimensions.setWidth = !parser.isSet(noWidthOption);
        dimensions.setHeight = !parser.isSet(noHeightOption);
        dimensions.heightTopwards = !parser.isSet(noTopwardsOption);
        properties->SetDimensionOption(parser.isSet(dimensionsOption), dimensions);
        tool = std::move(properties);
        break;
    }
    case 8: {
        auto toStandard = std::make_unique<ChangeHREFTypeToStandardNT>();
        toStandard->SetCategoryFilter(category);
        toStandard->SetTargetZone(zone);
        toStandard->SetNodesMap(&description.Nodes());
        toStandard->SetFilesMap(&description.Files());
        tool = std::move(toStandard);
        break;
    }
    case 9: {
        auto targets = std::make_unique<ModifyAnnotationTargetsNT>();
        targets->SetCategoryFilter(category);
        targets->SetNameFilter(nameFilter);
        targets->SetUseTargetIndexFilter(parser.isSet(targetIndexOption));
        targets->SetTargetIndex(targetIndex);
        targets->SetUseEnvFactor(true);
        targets->SetEnvFactor(envFactor);
        tool = std::move(targets);
        break;
    }
    case 10: {
        auto pages = std::make_unique<ChangePageNumberNT>();
        pages->SetCategoryFilter(category);
        pages->SetNameFilter(nameFilter);
        pages->SetPageDelta(pageDelta);
        tool = std::move(pages);
        break;
    }
    default:
        return usageError(QStringLiteral("unknown operation '%1'").arg(operationName));
    }

    tool->SetProjectRootDir(root);
    if (parser.isSet(allOption) && operation->id == 4)
        tool->SetFileNames(description.Pins().keys()); // every document with pins
    else if (parser.isSet(allOption))
        tool->SetAllAnnotationFiles(true);
    else if (!(allowed & AllFilesOnly))
        tool->SetFileNames(documents);
    tool->SetDryRun(dryRun);

    TerminalProgress progress(stderr);
    tool->SetProgressCallback(&progress);
    tool->Execute();
    progress.Finish();

    const AnnotationFileProcessor& files = tool->FileProcessor();
    if (dryRun) {
        out << "Dry run: nothing was written.\n";
        for (int i = 0; i < files.GetChangedFiles().size(); ++i) {
            const int blocks = files.GetChangedBlockCounts().value(i);
            out << "would change: " << QDir::toNativeSeparators(files.GetChangedFiles().at(i)) << " ("
                << (blocks == 0 ? QStringLiteral("line ends only")
                                : QStringLiteral("%1 object%2")
                                      .arg(blocks)
                                      .arg(blocks == 1 ? QString() : QStringLiteral("s")))
                << ")\n";
        }
    } else if (parser.isSet(verboseOption)) {
        for (const QString& path : files.GetChangedFiles())
            out << "changed: " << QDir::toNativeSeparators(path) << "\n";
    }
    out << "Files examined: " << tool->GetFilesExamined() << "\n"
        << (dryRun ? "Files that would change: " : "Files changed: ") << tool->GetFilesChanged() << "\n";
    out.flush();
    for (const QString& warning : files.GetWarnings())
        err << "warning: " << QDir::toNativeSeparators(warning) << "\n";
    // Documents of nodes often have no annotation file yet; one named on the
    // command line was meant to have one.
    const bool namedDocuments = !positional.isEmpty();
    if (namedDocuments) {
        for (const QString& document : files.GetDocumentsWithoutFile())
            err << "warning: no annotation file for document " << document << "\n";
    }
    err.flush();
    const bool leftOut
        = !files.GetLeftOutFiles().isEmpty() || (namedDocuments && !files.GetDocumentsWithoutFile().isEmpty());
    return leftOut ? FilesLeftOut : Success;
}

int NodeCommand::runRestore(const QString& root, const QString& stamp, bool force)
{
    NodeToolBackup backup;
    backup.projectRootDir = root;
    backup.logText = logText(QStringLiteral("restore %1").arg(stamp), root);
    QStringList restored;
    if (!backup.Restore(stamp, &restored, force)) {
        err << "kamo-tools: restore failed: " << backup.ErrorString() << "\n";
        printProblems(QStringLiteral("  damaged: "), backup.GetProblems(), -1);
        if (!backup.GetProblems().isEmpty())
            err << "Nothing was changed. 'kamo-tools node restore --force' restores the intact files.\n";
        err.flush();
        return Failure;
    }
    out << "Backup of the state before: " << QDir::toNativeSeparators(backup.GetBackupFolder()) << "\n"
        << "Files restored: " << restored.size() << "\n";
    out.flush();
    if (!backup.WasChecked()) {
        err << "warning: the backup has no manifest (made by an older version or by the host): its files could "
               "not be checked\n";
    }
    printProblems(QStringLiteral("warning: not restored: "), backup.GetProblems(), -1);
    return backup.GetProblems().isEmpty() ? Success : FilesLeftOut;
}

void NodeCommand::printProblems(const QString& prefix, const QList<NodeToolBackupCheck::Problem>& problems, int limit)
{
    const int shown = limit < 0 ? problems.size() : std::min(limit, int(problems.size()));
    for (int i = 0; i < shown; ++i)
        err << prefix << problems.at(i).fileName << ": " << problems.at(i).reason << "\n";
    if (shown < problems.size())
        err << prefix << "and " << problems.size() - shown << " more\n";
    err.flush();
}

int NodeCommand::RunAnalyze(const QStringList& arguments)
{
    const QString command = QStringLiteral("analyze");
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption helpOption(QStringList { QStringLiteral("h"), QStringLiteral("help") });
    const QCommandLineOption projectOption(QStringLiteral("project"), QString(), QStringLiteral("ROOT"));
    const QCommandLineOption moveOption(QStringLiteral("move-unused"), QString(), QStringLiteral("DIR"));
    parser.addOptions({ helpOption, projectOption, moveOption });
    if (!parser.parse(QStringList { QStringLiteral("kamo-tools") } + arguments.mid(1)))
        return usageError(parser.errorText(), command);
    if (parser.isSet(helpOption)) {
        out << AnalyzeHelpText();
        out.flush();
        return Success;
    }
    if (!parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("unexpected '%1'").arg(parser.positionalArguments().constFirst()), command);
    if (!parser.isSet(projectOption))
        return usageError(QStringLiteral("--project ROOT is required"), command);
    const QString root = QFileInfo(parser.value(projectOption)).absoluteFilePath();
    const QString dataDir = AnnotationFileProcessor::DataDirectory(root);
    if (!QFileInfo(dataDir).isDir())
        return usageError(QStringLiteral("'%1' is not a project: it has no data folder '%2'")
                              .arg(root, AnnotationFileProcessor::DataDirectoryName),
            command);
    ProjectDescription description;
    if (!description.Load(root))
        return usageError(QStringLiteral("project description: %1").arg(description.ErrorString()), command);

    QString target;
    if (parser.isSet(moveOption)) {
        target = QFileInfo(parser.value(moveOption)).absoluteFilePath();
        if (QFileInfo(target).exists()
            && QFileInfo(target).canonicalFilePath() == QFileInfo(dataDir).canonicalFilePath())
            return usageError(QStringLiteral("--move-unused: not into the data folder itself"), command);
    }

    AnalyzeProjectNT analysis;
    analysis.SetProjectRootDir(root);
    analysis.SetNodesMap(&description.Nodes());
    analysis.SetFilesMap(&description.Files());
    TerminalProgress progress(stderr);
    analysis.SetProgressCallback(&progress);
    analysis.Execute();
    progress.Finish();

    auto list = [this](const QString& title, const QStringList& entries) {
        out << title << ": " << entries.size() << "\n";
        for (const QString& entry : entries)
            out << "  " << entry << "\n";
    };
    const QMap<QString, QString>& referenced = analysis.GetReferencedFiles();
    out << "Documents with annotation file: " << referenced.size() << "\n";
    for (auto it = referenced.constBegin(); it != referenced.constEnd(); ++it)
        out << "  " << it.key() << " -> " << it.value() << "\n";
    list(QStringLiteral("Documents without annotation file"), analysis.GetDocumentsWithoutAnnotations());
    list(QStringLiteral("Used annotation files"), analysis.GetUsedAnnotationFiles());
    list(QStringLiteral("Unused annotation files"), analysis.GetUnusedAnnotationFiles());

    if (!target.isEmpty() && !analysis.GetUnusedAnnotationFiles().isEmpty()) {
        if (!QDir().mkpath(target)) {
            out.flush();
            err << "kamo-tools: cannot create '" << target << "'\n";
            err.flush();
            return Failure;
        }
        const QStringList moved
            = AnalyzeProjectNT::MoveAnnotationFiles(dataDir, analysis.GetUnusedAnnotationFiles(), target);
        out << "Moved to " << QDir::toNativeSeparators(target) << ": " << moved.size() << "\n";
        for (const QString& name : analysis.GetUnusedAnnotationFiles()) {
            if (!moved.contains(name))
                out << "  not moved (exists there, or its folder is missing): " << name << "\n";
        }
    }
    out.flush();
    return Success;
}
