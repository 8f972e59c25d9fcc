#ifndef KAMO_TOOLS_APP_NODECOMMAND_H
#define KAMO_TOOLS_APP_NODECOMMAND_H

#include <QString>
#include <QStringList>

class QCommandLineParser;
class QTextStream;

// "kamo-tools node ..." and "kamo-tools analyze ...": runs one node tool
// over a project's annotation files, restores a backup, or analyses which
// annotation files are in use.
class NodeCommand
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    NodeCommand(QTextStream& out, QTextStream& err);

    // `arguments` start with "node".
    int Run(const QStringList& arguments);
    // `arguments` start with "analyze".
    int RunAnalyze(const QStringList& arguments);

    static QString HelpText();
    static QString AnalyzeHelpText();

private:
    int usageError(const QString& message, const QString& command = QStringLiteral("node"));
    int runRestore(const QCommandLineParser& parser, const QString& root);

    QTextStream& out;
    QTextStream& err;
};

#endif
