#include "nodetools/HREFPathMap.h"

#include <QFile>
#include <QTextStream>

QMap<QString, QString> LoadHREFPathMap(const QString& fileName)
{
    QMap<QString, QString> map;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return map;

    QTextStream stream(&file);
    while (!stream.atEnd()) {
        const QStringList fields = stream.readLine().split(QLatin1Char(','), Qt::KeepEmptyParts);
        if (fields.size() < 2)
            continue;
        const QString oldPath = fields.at(0).toLower();
        if (!map.contains(oldPath))
            map.insert(oldPath, fields.at(1).toLower());
    }
    return map;
}
