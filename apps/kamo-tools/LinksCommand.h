#ifndef KAMO_TOOLS_APP_LINKSCOMMAND_H
#define KAMO_TOOLS_APP_LINKSCOMMAND_H

#include <QString>
#include <QStringList>

class QTextStream;

// "kamo-tools links check ...": lists the document links of a project whose
// targets are gone and proposes the path map that operation 5 needs.
class LinksCommand
{
public:
    // The status says first whether anything is missing: MissingTargets
    // wins over FilesLeftOut (annotation files that could not be read).
    enum ExitCode { NothingMissing = 0, Failure = 1, UsageError = 2, FilesLeftOut = 3, MissingTargets = 4 };

    LinksCommand(QTextStream& out, QTextStream& err);

    // `arguments` start with "links".
    int Run(const QStringList& arguments);

    static QString HelpText();

private:
    int usageError(const QString& message);

    QTextStream& out;
    QTextStream& err;
};

#endif
