#include "NodeCommand.h"

#include "TerminalProgress.h"

#include <Kamo_view/ProjectDescription.h>
#include <nodetools/AnalyzeProjectNT.h>
#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/BlockNodeTool.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/NodeOperationCatalogue.h>
#include <nodetools/NodeOperationOptions.h>
#include <nodetools/NodeToolBackup.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <memory>

using Catalogue = NodeOperationCatalogue;

// The options of "kamo-tools node": the common ones, and for each option
// that only some operations take, the catalogue's flag it belongs to.
struct NodeCommand::Arguments {
    QCommandLineParser parser;
    const QCommandLineOption help { QStringList { QStringLiteral("h"), QStringLiteral("help") } };
    const QCommandLineOption project { QStringLiteral("project"), QString(), QStringLiteral("ROOT") };
    const QCommandLineOption all { QStringLiteral("all") };
    const QCommandLineOption nodes { QStringLiteral("nodes"), QString(), QStringLiteral("NAMES") };
    const QCommandLineOption backup { QStringLiteral("backup") };
    const QCommandLineOption dryRun { QStringLiteral("dry-run") };
    const QCommandLineOption verbose { QStringList { QStringLiteral("v"), QStringLiteral("verbose") } };
    const QCommandLineOption force { QStringLiteral("force") };
    const QCommandLineOption category { QStringLiteral("category"), QString(), QStringLiteral("TEXT") };
    const QCommandLineOption nameFilter { QStringLiteral("name-filter"), QString(), QStringLiteral("REGEX") };
    const QCommandLineOption newTarget { QStringLiteral("new-target"), QString(), QStringLiteral("PATH") };
    const QCommandLineOption map { QStringLiteral("map"), QString(), QStringLiteral("FILE") };
    const QCommandLineOption ignorePath { QStringLiteral("ignore-path") };
    const QCommandLineOption zone { QStringLiteral("zone"), QString(), QStringLiteral("N") };
    const QCommandLineOption targetIndex { QStringLiteral("target-index"), QString(), QStringLiteral("N") };
    const QCommandLineOption envFactor { QStringLiteral("env-factor"), QString(), QStringLiteral("F") };
    const QCommandLineOption pageDelta { QStringLiteral("page-delta"), QString(), QStringLiteral("N") };
    const QCommandLineOption setName { QStringLiteral("set-name"), QString(), QStringLiteral("TEXT") };
    const QCommandLineOption setText { QStringLiteral("set-text"), QString(), QStringLiteral("TEXT") };
    const QCommandLineOption dimensions { QStringLiteral("dimensions-from"), QString(), QStringLiteral("NAME") };
    const QCommandLineOption noLeft { QStringLiteral("no-left-offset") };
    const QCommandLineOption noWidth { QStringLiteral("no-width") };
    const QCommandLineOption noHeight { QStringLiteral("no-height") };
    const QCommandLineOption noTopwards { QStringLiteral("no-topwards") };
    const std::pair<const QCommandLineOption*, int> specific[16] = { { &category, Catalogue::CategoryFilter },
        { &nameFilter, Catalogue::NameFilter }, { &newTarget, Catalogue::NewLinkTarget }, { &map, Catalogue::PathMap },
        { &ignorePath, Catalogue::IgnorePath }, { &zone, Catalogue::TargetZone },
        { &targetIndex, Catalogue::TargetOptions }, { &envFactor, Catalogue::TargetOptions },
        { &pageDelta, Catalogue::PageDelta }, { &setName, Catalogue::Properties }, { &setText, Catalogue::Properties },
        { &dimensions, Catalogue::Properties }, { &noLeft, Catalogue::Properties }, { &noWidth, Catalogue::Properties },
        { &noHeight, Catalogue::Properties }, { &noTopwards, Catalogue::Properties } };

    Arguments()
    {
        parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        parser.addOptions({ help, project, all, nodes, backup, dryRun, verbose, force });
        for (const auto& option : specific)
            parser.addOption(*option.first);
    }

    // What an operation was asked to work on: the positional names after it.
    QStringList documents;
    int operation = -1;
    QString root;
    QString restoreStamp;
};

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
    // The analysis has options of its own.
    if (arguments.value(1) == QLatin1String("analyze"))
        return RunAnalyze(QStringList { QStringLiteral("analyze") } + arguments.mid(2));

    Arguments args;
    int status = parse(arguments, args);
    if (status != Continue)
        return status;
    if (!args.restoreStamp.isNull())
        return runRestore(args.root, args.restoreStamp, args.parser.isSet(args.force));

    ProjectDescription description;
    NodeOperationOptions options;
    status = check(args, description, options);
    if (status != Continue)
        return status;
    if (args.parser.isSet(args.backup) && !options.dryRun) {
        status = backUp(args);
        if (status != Continue)
            return status;
    }

    const std::unique_ptr<NodeTool> tool = Catalogue::Create(args.operation, options);
    TerminalProgress progress(stderr);
    tool->SetProgressCallback(&progress);
    tool->Execute();
    progress.Finish();
    return report(args, static_cast<const BlockNodeTool&>(*tool).FileProcessor(), options.dryRun);
}

int NodeCommand::parse(const QStringList& arguments, Arguments& args)
{
    // "restore" gives --backup a value; every operation takes it as a switch.
    const bool restore = arguments.value(1) == QLatin1String("restore");
    QStringList toParse = QStringList { QStringLiteral("kamo-tools") } + arguments.mid(1);
    if (restore) {
        const int at = toParse.indexOf(QStringLiteral("--backup"));
        if (at < 0 || at + 1 >= toParse.size())
            return usageError(QStringLiteral("restore needs --backup STAMP"));
        args.restoreStamp = QFileInfo(toParse.at(at + 1)).fileName();
        toParse.erase(toParse.begin() + at, toParse.begin() + at + 2);
    }
    QCommandLineParser& parser = args.parser;
    if (!parser.parse(toParse))
        return usageError(parser.errorText());
    if (parser.isSet(args.help)) {
        out << HelpText();
        out.flush();
        return Success;
    }

    args.documents = parser.positionalArguments();
    if (args.documents.isEmpty())
        return usageError(QStringLiteral("missing OPERATION"));
    const QString operationName = args.documents.takeFirst();
    if (!parser.isSet(args.project))
        return usageError(QStringLiteral("--project ROOT is required"));
    args.root = QFileInfo(parser.value(args.project)).absoluteFilePath();

    const bool force = parser.isSet(args.force);
    if (restore) {
        if (!args.documents.isEmpty() || parser.optionNames().size() != 1 + int(force))
            return usageError(QStringLiteral("restore takes only --project ROOT, --backup STAMP and --force"));
        if (!QFileInfo(args.root).isDir())
            return usageError(QStringLiteral("project directory '%1' does not exist").arg(args.root));
        return Continue;
    }
    if (force)
        return usageError(QStringLiteral("--force applies to restore only"));
    args.operation = Catalogue::FromName(operationName);
    if (args.operation < 0 || args.operation == Catalogue::Analyze)
        return usageError(QStringLiteral("unknown operation '%1'").arg(operationName));
    return Continue;
}

int NodeCommand::check(const Arguments& args, ProjectDescription& description, NodeOperationOptions& options)
{
    const QCommandLineParser& parser = args.parser;
    const QString name = Catalogue::Name(args.operation);
    const int allowed = Catalogue::Options(args.operation);
    for (const auto& option : args.specific) {
        if (parser.isSet(*option.first) && !(allowed & option.second))
            return usageError(
                QStringLiteral("--%1 does not apply to %2").arg(option.first->names().constFirst(), name));
    }

    const int selections = int(parser.isSet(args.all)) + int(parser.isSet(args.nodes)) + int(!args.documents.isEmpty());
    if (allowed & Catalogue::AllFilesOnly) {
        if (selections > 0)
            return usageError(
                QStringLiteral("%1 works on every annotation file; give no documents or nodes").arg(name));
    } else if (selections == 0) {
        return usageError(QStringLiteral("give --all, --nodes NAMES or at least one DOCUMENT name"));
    } else if (selections > 1) {
        return usageError(QStringLiteral("give one of --all, --nodes or DOCUMENT names, not both"));
    }

    if ((allowed & Catalogue::NewLinkTarget) && !parser.isSet(args.newTarget))
        return usageError(QStringLiteral("%1 needs --new-target PATH").arg(name));
    if ((allowed & Catalogue::PathMap) && !parser.isSet(args.map))
        return usageError(QStringLiteral("%1 needs --map FILE").arg(name));
    if ((allowed & Catalogue::PageDelta) && !parser.isSet(args.pageDelta))
        return usageError(QStringLiteral("%1 needs --page-delta N").arg(name));
    if ((allowed & Catalogue::TargetOptions) && !parser.isSet(args.envFactor))
        return usageError(QStringLiteral("%1 needs --env-factor F").arg(name));
    if ((allowed & Catalogue::Properties) && !parser.isSet(args.setName) && !parser.isSet(args.setText)
        && !parser.isSet(args.dimensions))
        return usageError(QStringLiteral("%1 needs --set-name, --set-text or --dimensions-from").arg(name));
    const bool dimensionSwitch = parser.isSet(args.noLeft) || parser.isSet(args.noWidth) || parser.isSet(args.noHeight)
        || parser.isSet(args.noTopwards);
    if (dimensionSwitch && !parser.isSet(args.dimensions))
        return usageError(QStringLiteral("the --no-... switches need --dimensions-from NAME"));

    // Numbers in the ranges the dialog's fields allow.
    bool ok = true;
    options.targetZone = parser.isSet(args.zone) ? parser.value(args.zone).toInt(&ok) : 0;
    if (!ok || options.targetZone < 0 || options.targetZone > Catalogue::MaxTargetZone)
        return usageError(QStringLiteral("--zone must be 0 to %1").arg(Catalogue::MaxTargetZone));
    options.useTargetIndex = parser.isSet(args.targetIndex);
    options.targetIndex = options.useTargetIndex ? parser.value(args.targetIndex).toUInt(&ok) : 0;
    if (!ok || options.targetIndex > Catalogue::MaxTargetIndex)
        return usageError(QStringLiteral("--target-index must be 0 to %1").arg(Catalogue::MaxTargetIndex));
    options.useEnvFactor = true;
    options.envFactor = parser.isSet(args.envFactor) ? parser.value(args.envFactor).toFloat(&ok) : 1.0f;
    if (!ok || options.envFactor < 0.0f || options.envFactor > float(Catalogue::MaxEnvFactor)
        || (parser.isSet(args.envFactor)
            && !QRegularExpression(QStringLiteral("^\\d(\\.\\d)?$")).match(parser.value(args.envFactor)).hasMatch()))
        return usageError(QStringLiteral("--env-factor must be 0.0 to 9.9 with at most one decimal"));
    options.pageDelta = parser.isSet(args.pageDelta) ? parser.value(args.pageDelta).toInt(&ok) : 0;
    if (!ok || qAbs(options.pageDelta) > Catalogue::MaxPageDelta)
        return usageError(QStringLiteral("--page-delta must be -%1 to %1").arg(Catalogue::MaxPageDelta));
    options.nameFilter = parser.value(args.nameFilter);
    if (!QRegularExpression(options.nameFilter).isValid())
        return usageError(
            QStringLiteral("--name-filter: %1").arg(QRegularExpression(options.nameFilter).errorString()));

    if (!QFileInfo(args.root).isDir())
        return usageError(QStringLiteral("project directory '%1' does not exist").arg(args.root));
    if (!QFileInfo(AnnotationFileProcessor::DataDirectory(args.root)).isDir())
        return usageError(QStringLiteral("'%1' is not a project: it has no data folder '%2'")
                              .arg(args.root, AnnotationFileProcessor::DataDirectoryName));

    const bool needsDescription = (allowed & Catalogue::NeedsNodes) || parser.isSet(args.nodes);
    const bool descriptionPresent = QFileInfo::exists(args.root + QLatin1Char('/') + ProjectDescription::FileName);
    if ((needsDescription || ((allowed & Catalogue::UsesNodes) && descriptionPresent)) && !description.Load(args.root))
        return usageError(QStringLiteral("project description: %1").arg(description.ErrorString()));

    options.documents = args.documents;
    if (parser.isSet(args.nodes)) {
        for (const QString& nodeName : parser.value(args.nodes).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            const QList<NodeInfo*> found = description.FindNodes(nodeName.trimmed());
            if (found.isEmpty())
                return usageError(
                    QStringLiteral("no node named '%1' in %2").arg(nodeName, ProjectDescription::FileName));
            for (const NodeInfo* node : found)
                node->GetFilesForZone(node->Zone(), options.documents);
        }
        options.documents.removeDuplicates();
    }
    if (allowed & Catalogue::PathMap) {
        const QString mapFile = parser.value(args.map);
        if (!QFileInfo(mapFile).isFile())
            return usageError(QStringLiteral("map file '%1' does not exist").arg(mapFile));
        options.pathMap = LoadHREFPathMap(mapFile);
    }

    options.projectRootDir = args.root;
    options.allFiles = parser.isSet(args.all);
    options.dryRun = parser.isSet(args.dryRun);
    options.nodes = &description.Nodes();
    options.files = &description.Files();
    options.pins = &description.Pins();
    options.categoryFilter = parser.value(args.category);
    options.newLinkTarget = parser.value(args.newTarget);
    options.ignorePathOnCompare = parser.isSet(args.ignorePath);
    options.setName = parser.isSet(args.setName);
    options.name = parser.value(args.setName);
    options.setText = parser.isSet(args.setText);
    options.text = parser.value(args.setText);
    options.setDimensions = parser.isSet(args.dimensions);
    options.dimensions.templateName = parser.value(args.dimensions);
    options.dimensions.setLeftOffset = !parser.isSet(args.noLeft);
    options.dimensions.setWidth = !parser.isSet(args.noWidth);
    options.dimensions.setHeight = !parser.isSet(args.noHeight);
    options.dimensions.heightTopwards = !parser.isSet(args.noTopwards);
    return Continue;
}

int NodeCommand::backUp(const Arguments& args)
{
    NodeToolBackup backup;
    backup.projectRootDir = args.root;
    backup.logText = NodeToolBackup::LogText(QString::number(args.operation), args.root);
    if (!backup.Create()) {
        err << "kamo-tools: Error creating backup: " << backup.ErrorString() << "\n";
        printProblems(QStringLiteral("  not copied: "), backup.GetProblems(), 10);
        err << "Nothing was changed.\n";
        err.flush();
        return Failure;
    }
    out << "Backup: " << QDir::toNativeSeparators(backup.GetBackupFolder()) << "\n";
    out.flush();
    return Continue;
}

int NodeCommand::report(const Arguments& args, const AnnotationFileProcessor& files, bool dryRun)
{
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
    } else if (args.parser.isSet(args.verbose)) {
        for (const QString& path : files.GetChangedFiles())
            out << "changed: " << QDir::toNativeSeparators(path) << "\n";
    }
    out << "Files examined: " << files.GetFilesExamined() << "\n"
        << (dryRun ? "Files that would change: " : "Files changed: ") << files.GetFilesChanged() << "\n";
    out.flush();
    for (const QString& warning : files.GetWarnings())
        err << "warning: " << QDir::toNativeSeparators(warning) << "\n";
    // Documents of nodes often have no annotation file yet; one named on the
    // command line was meant to have one.
    const bool namedDocuments = !args.documents.isEmpty();
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
    backup.logText = NodeToolBackup::LogText(QStringLiteral("restore %1").arg(stamp), root);
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
