#ifndef KAMO_TOOLS_APP_NODECOMMAND_H
#define KAMO_TOOLS_APP_NODECOMMAND_H

#include <QString>
#include <QStringList>

class QTextStream;

// "kamo-tools node ...": runs one node tool over a project's annotation files.
class NodeCommand
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    NodeCommand(QTextStream& out, QTextStream& err);

    // `arguments` start with "node".
    int Run(const QStringList& arguments);

    static QString HelpText();

private:
    int usageError(const QString& message);

    QTextStream& out;
    QTextStream& err;
};

#endif
