#ifndef KAMO_TOOLS_APP_SHAPECOMMAND_H
#define KAMO_TOOLS_APP_SHAPECOMMAND_H

#include <QString>
#include <QStringList>

class QCommandLineParser;
class QTextStream;
class ShapeImportJob;

// "kamo-tools shape info FILE" and "kamo-tools shape import KIND FILE":
// a short summary of a shape file, and an import of sheets, routes,
// districts or buildings printed as JSON.
class ShapeCommand
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    ShapeCommand(QTextStream& out, QTextStream& err);

    // `arguments` start with "shape".
    int Run(const QStringList& arguments);

    static QString HelpText();

private:
    int info(const QString& file);
    int import(const QStringList& arguments);
    int chooseFiles(const QCommandLineParser& parser, const QString& file, ShapeImportJob& job);
    int chooseAssignments(const QCommandLineParser& parser, const QString& kind, ShapeImportJob& job);
    int chooseOptions(const QCommandLineParser& parser, ShapeImportJob& job);
    int usageError(const QString& message);
    int failure(const QString& message);

    QTextStream& out;
    QTextStream& err;
};

#endif
