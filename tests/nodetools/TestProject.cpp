#include "TestProject.h"

#include <nodetools/ObjectBlockProcessor.h>

#include <QDir>
#include <QFile>

TestProject::TestProject(const QString& parent)
    : dir(parent.isEmpty() ? QDir::tempPath() + "/kamo-test-XXXXXX" : parent + "/project-XXXXXX")
{
    QDir(dir.path()).mkdir("Daten");
}

void TestProject::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(DataPath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray TestProject::Read(const QString& name) const
{
    QFile file(DataPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

QStringList TestProject::DataEntries() const
{
    return QDir(DataDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

QString StandardLink(const QString& path, const QString& page, const QString& description)
{
    QStringList fields;
    while (fields.size() < 23)
        fields.append(QString());
    fields[0] = "0";
    fields[1] = path;
    fields[2] = page;
    fields[3] = description;
    fields[4] = "1.0";
    fields[17] = "2024-03-07T14:05:09";
    return fields.join(QChar(0x11));
}

QByteArray HostText(const QStringList& lines)
{
    return lines.join("\r\n").toUtf8();
}

QStringList block(const QStringList& properties)
{
    return QStringList { "BO" } + properties + QStringList { "EO" };
}

QStringList run(ObjectBlockProcessor& processor, const QStringList& properties)
{
    QStringList result;
    processor.ProcessBlock(block(properties), result);
    return result;
}
