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

    QString Root() const { return dir.path(); }
    QString DataDir() const { return dir.path() + "/Daten"; }
    QString DataPath(const QString& name) const { return DataDir() + '/' + name; }

    void Write(const QString& name, const QByteArray& bytes) const;
    QByteArray Read(const QString& name) const;

    // The data folder's entries, hidden ones included, sorted.
    QStringList DataEntries() const;

private:
    QTemporaryDir dir;
};

// A standard link value: 23 fields with `path` in the second one.
QString StandardLink(const QString& path, const QString& page = "1", const QString& description = "Detail");

// `lines` joined with CR LF, as the host writes annotation files.
QByteArray HostText(const QStringList& lines);

#endif
