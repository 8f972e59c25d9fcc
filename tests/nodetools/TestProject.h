#ifndef KAMO_TESTS_TESTPROJECT_H
#define KAMO_TESTS_TESTPROJECT_H

#include <QStringList>
#include <QTemporaryDir>

#include <functional>

// A throw-away project: a temporary root with its "Daten" folder.
class TestProject
{
public:
    // In a temporary folder of `parent`, or of the system's when empty.
    explicit TestProject(const QString& parent = QString());

    QString Root() const { return dir.path(); }
    QString DataDir() const { return dir.path() + "/Daten"; }
    QString DataPath(const QString& name) const { return DataDir() + '/' + name; }

    // Writes `name` in the data folder, making the folders on its way.
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
const QString F(QChar(0x11)), T(QChar(0x12)), Z(QChar(0x13)), S(QChar(0x00A4));

// An object block: "BO", `properties`, "EO".
inline QStringList block(const QStringList& properties)
{
    return QStringList { "BO" } + properties + QStringList { "EO" };
}

// `lines` joined with CR LF, as the host writes annotation files.
inline QByteArray HostText(const QStringList& lines)
{
    return lines.join("\r\n").toUtf8();
}

// Runs `body` in a child process, killed after `killAfterMs` when that is not
// negative, and answers its exit code or minus the signal that ended it.
int InChild(const std::function<int()>& body, int killAfterMs = -1);

#endif
