#ifndef KAMO_TOOLS_APP_NODECOMMAND_H
#define KAMO_TOOLS_APP_NODECOMMAND_H

#include <nodetools/NodeToolBackupCheck.h>

#include <QString>
#include <QStringList>

class AnnotationFileProcessor;
class ProjectDescription;
class QTextStream;
struct NodeOperationOptions;

// "kamo-tools node ..." and "kamo-tools analyze ...": runs one node tool
// over a project's annotation files, restores a backup, or analyses which
// annotation files are in use.
class NodeCommand
{
public:
    // FilesLeftOut: the run went through, but some files it wanted could not
    // be read, written or found; each is named in a warning.
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2, FilesLeftOut = 3 };

    NodeCommand(QTextStream& out, QTextStream& err);

    // `arguments` start with "node".
    int Run(const QStringList& arguments);
    // `arguments` start with "analyze".
    int RunAnalyze(const QStringList& arguments);

    static QString HelpText();
    static QString AnalyzeHelpText();

private:
    int usageError(const QString& message, const QString& command = QStringLiteral("node"));
    struct Arguments;
    // Answered by the steps of Run() that found nothing to stop for.
    static constexpr int Continue = -1;

    int parse(const QStringList& arguments, Arguments& args);
    int check(const Arguments& args, ProjectDescription& description, NodeOperationOptions& options);
    int backUp(const Arguments& args);
    int report(const Arguments& args, const AnnotationFileProcessor& files, bool dryRun);
    int runRestore(const QString& root, const QString& stamp, bool force);
    void printProblems(const QString& prefix, const QList<NodeToolBackupCheck::Problem>& problems, int limit);

    QTextStream& out;
    QTextStream& err;
};

#endif
