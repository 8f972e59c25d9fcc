#ifndef KAMO_TESTS_TESTPROJECT_H
#define KAMO_TESTS_TESTPROJECT_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// A throw-away project: a temporary root with its "Daten" folder.
class TestProject
{
public:
    TestProject();

    bool IsValid() const { return dir.isValid(); }
    QString Root() const { return dir.path(); }
    QString DataDir() const { return dir.path() + QStringLiteral("/Daten"); }
    QString DataPath(const QString& name) const { return DataDir() + QLatin1Char('/') + name; }

    void Write(const QString& name, const QByteArray& bytes) const;
    QByteArray Read(const QString& name) const;

    // Names of the entries of the data folder, hidden ones included, sorted.
    QStringList DataEntries() const;

private:
    QTemporaryDir dir;
};

// A standard link value: 23 fields with `path` in the second one.
QString StandardLink(const QString& path, const QString& page = QStringLiteral("1"),
    const QString& description = QStringLiteral("Detail"));

// `lines` joined with CR LF, as the host writes annotation files.
QByteArray HostText(const QStringList& lines);

#endif
