#ifndef KAMO_TESTS_TESTPROJECT_H
#define KAMO_TESTS_TESTPROJECT_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class ObjectBlockProcessor;

// A throw-away project: a temporary root with its "Daten" folder.
class TestProject
{
public:
    // In a temporary folder of `parent`, or of the system's when empty.
    explicit TestProject(const QString& parent = QString());

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

// The separators of link values: between fields, targets and zones, and the
// mark that opens a split link.
const QString F(QChar(0x11));
const QString T(QChar(0x12));
const QString Z(QChar(0x13));
const QString S(QChar(0x00A4));

// An object block: "BO", `properties`, "EO".
QStringList block(const QStringList& properties);

// What `processor` makes of the block with `properties`.
QStringList run(ObjectBlockProcessor& processor, const QStringList& properties);

// `lines` joined with CR LF, as the host writes annotation files.
QByteArray HostText(const QStringList& lines);

#endif
