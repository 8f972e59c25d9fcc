#include "LinksCommand.h"

#include "TerminalProgress.h"

#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/LinkCheck.h>

#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/ProjectDescription.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace {

QString stateText(LinkTarget::State state)
{
    switch (state) {
    case LinkTarget::State::Exists:
        return QStringLiteral("exists");
    case LinkTarget::State::Missing:
        return QStringLiteral("no such file");
    case LinkTarget::State::FolderMissing:
        return QStringLiteral("no such folder");
    case LinkTarget::State::Foreign:
        return QStringLiteral("Windows path, cannot exist here");
    case LinkTarget::State::Relative:
        return QStringLiteral("relative path, not checked");
    }
    return QString();
}

QString proposalText(const LinkTarget& target)
{
    switch (target.GetProposal()) {
    case LinkTarget::Proposal::None:
        return QString();
    case LinkTarget::Proposal::Proposed:
        return QStringLiteral("-> ") + target.Candidates().constFirst();
    case LinkTarget::Proposal::Ambiguous:
        return QStringLiteral("ambiguous: ") + target.Candidates().join(QStringLiteral(" | "));
    case LinkTarget::Proposal::Unresolved:
        return QStringLiteral("unresolved");
    case LinkTarget::Proposal::Unwritable:
        return QStringLiteral("unresolved: a path map cannot hold ") + target.Candidates().constFirst();
    }
    return QString();
}

} // namespace

LinksCommand::LinksCommand(QTextStream& out, QTextStream& err)
    : out(out)
    , err(err)
{ }

QString LinksCommand::HelpText()
{
    return QStringLiteral("Usage: kamo-tools links check --project ROOT [--search DIR]... [--write-map FILE]\n"
                          "                              [--all | --nodes NAMES | DOCUMENT...]\n"
                          "\n"
                          "Reads the document links of the annotation files in ROOT/Daten and lists each\n"
                          "target that is gone, with the number of its links. With --search, every file\n"
                          "under DIR (and its subfolders) of the same name as a missing target, ignoring\n"
                          "case, is proposed: one file is a proposal, several are ambiguous, none leaves\n"
                          "the target unresolved. Targets that exist are never proposed.\n"
                          "\n"
                          "Options:\n"
                          "  --project ROOT    the project folder\n"
                          "  --search DIR      where the documents may have gone (repeatable)\n"
                          "  --write-map FILE  writes the proposal as a path map for 'kamo-tools node\n"
                          "                    map-paths --map FILE' (and the dialog's operation 5)\n"
                          "  --all             every annotation file in ROOT/Daten (the default)\n"
                          "  --nodes NAMES     the documents of these nodes (comma-separated names from\n"
                          "                    ROOT/Projekt.json)\n"
                          "  DOCUMENT...       the annotation files of these documents\n"
                          "\n"
                          "Exit status: 0 nothing missing, 1 error, 2 usage error, 3 nothing missing but\n"
                          "annotation files left out (named in warnings), 4 targets missing.\n");
}

int LinksCommand::usageError(const QString& message)
{
    err << "kamo-tools links: " << message << "\n"
        << "Try 'kamo-tools links --help'.\n";
    return UsageError;
}

int LinksCommand::Run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help { QStringList { QStringLiteral("h"), QStringLiteral("help") } };
    const QCommandLineOption project { QStringLiteral("project"), QString(), QStringLiteral("ROOT") };
    const QCommandLineOption search { QStringLiteral("search"), QString(), QStringLiteral("DIR") };
    const QCommandLineOption writeMap { QStringLiteral("write-map"), QString(), QStringLiteral("FILE") };
    const QCommandLineOption all { QStringLiteral("all") };
    const QCommandLineOption nodes { QStringLiteral("nodes"), QString(), QStringLiteral("NAMES") };
    parser.addOptions({ help, project, search, writeMap, all, nodes });
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(help)) {
        out << HelpText();
        return NothingMissing;
    }
    QStringList positional = parser.positionalArguments();
    if (positional.isEmpty() || positional.takeFirst() != QLatin1String("check"))
        return usageError(QStringLiteral("the only action is 'check'"));
    if (!parser.isSet(project))
        return usageError(QStringLiteral("give --project ROOT"));
    if (int(parser.isSet(all)) + int(parser.isSet(nodes)) + int(!positional.isEmpty()) > 1)
        return usageError(QStringLiteral("give one of --all, --nodes or DOCUMENT names, not both"));
    const QString root = QDir::cleanPath(parser.value(project));
    if (!QFileInfo(AnnotationFileProcessor::DataDirectory(root)).isDir())
        return usageError(QStringLiteral("'%1' is not a project: it has no data folder '%2'")
                              .arg(root, AnnotationFileProcessor::DataDirectoryName));
    for (const QString& dir : parser.values(search)) {
        if (!QFileInfo(dir).isDir())
            return usageError(QStringLiteral("search folder '%1' does not exist").arg(dir));
    }

    LinkCheck check;
    check.SetProjectRootDir(root);
    QStringList documents = positional;
    if (parser.isSet(nodes)) {
        ProjectDescription description;
        if (!description.Load(root))
            return usageError(QStringLiteral("project description: %1").arg(description.ErrorString()));
        for (const QString& nodeName : parser.value(nodes).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            const QList<NodeInfo*> found = description.FindNodes(nodeName.trimmed());
            if (found.isEmpty())
                return usageError(
                    QStringLiteral("no node named '%1' in %2").arg(nodeName, ProjectDescription::FileName));
            for (const NodeInfo* node : found)
                node->GetFilesForZone(node->Zone(), documents);
        }
        documents.removeDuplicates();
    }
    check.SetFileNames(documents);
    check.SetAllAnnotationFiles(documents.isEmpty() && !parser.isSet(nodes));
    check.SetSearchDirs(parser.values(search));
    TerminalProgress progress(stderr);
    check.SetProgressCallback(&progress);
    check.Execute();
    progress.Finish();

    for (const QString& warning : check.Warnings())
        err << "warning: " << warning << "\n";
    for (const LinkTarget& target : check.Targets()) {
        if (!target.IsMissing())
            continue;
        out << QStringLiteral("%1  %2  (%3)").arg(target.Links(), 5).arg(target.Path(), stateText(target.GetState()));
        const QString proposal = proposalText(target);
        if (!proposal.isEmpty())
            out << "  " << proposal;
        out << "\n";
    }
    out << QStringLiteral("targets: %1, links: %2, missing: %3")
               .arg(check.Targets().size())
               .arg(check.LinkCount())
               .arg(check.MissingCount());
    if (parser.isSet(search))
        out << QStringLiteral(", proposed: %1, ambiguous: %2, unresolved: %3")
                   .arg(check.ProposedCount())
                   .arg(check.AmbiguousCount())
                   .arg(check.UnresolvedCount());
    out << "\n";

    if (parser.isSet(writeMap)) {
        QString error;
        if (!check.WriteMapFile(parser.value(writeMap), &error)) {
            out.flush();
            err << "kamo-tools links: the path map " << parser.value(writeMap) << " was not written: " << error << "\n";
            return Failure;
        }
        out << QStringLiteral("path map: %1 (%2 lines)").arg(parser.value(writeMap)).arg(check.ProposedCount()) << "\n";
    }
    if (check.MissingCount() > 0)
        return MissingTargets;
    return check.Warnings().isEmpty() ? NothingMissing : FilesLeftOut;
}
