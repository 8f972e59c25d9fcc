#include "nodetools/HREFPathMap.h"
#include "nodetools/LocaleTextStream.h"

#include <QFile>
#include <QTextStream>

QList<QStringList> ReadHREFPathMapLines(const QString& fileName)
{
    QList<QStringList> lines;
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return lines;
    QTextStream stream(&file);
    UseLocaleEncoding(stream);
    while (!stream.atEnd()) {
        const QStringList fields = stream.readLine().split(QLatin1Char(','), Qt::KeepEmptyParts);
        if (fields.size() >= 2)
            lines.append(fields);
    }
    return lines;
}

QMap<QString, QString> LoadHREFPathMap(const QString& fileName)
{
    QMap<QString, QString> map;
    for (const QStringList& fields : ReadHREFPathMapLines(fileName)) {
        const QString oldPath = fields.at(0).toLower();
        if (!map.contains(oldPath))
            map.insert(oldPath, fields.at(1).toLower());
    }
    return map;
}
