#ifndef KAMO_TOOLS_APP_DXFCOMMAND_H
#define KAMO_TOOLS_APP_DXFCOMMAND_H

#include <QString>
#include <QStringList>

class QTextStream;

// "kamo-tools dxf dump FILE": the entities of a DXF file as a readable
// listing.
class DxfCommand
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    DxfCommand(QTextStream& out, QTextStream& err);

    // `arguments` start with "dxf".
    int Run(const QStringList& arguments);

    static QString HelpText();

private:
    int dump(const QString& file);
    int usageError(const QString& message);
    int failure(const QString& message);
    int inserts(const QString& file);
    int gk2(QStringList arguments);

    QTextStream& out;
    QTextStream& err;
};

#endif
