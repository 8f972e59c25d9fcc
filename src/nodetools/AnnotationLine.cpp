#include "nodetools/AnnotationLine.h"

namespace AnnotationLine {

const QString HrefKey = QStringLiteral("HREF");
const QString CategoryKey = QStringLiteral("KA");

bool HasKey(const QString& line, const QString& key)
{
    // Keys never contain "=", so the first "=" of the line must follow the key.
    return line.size() > key.size() && line.at(key.size()) == QLatin1Char('=') && line.startsWith(key);
}

QString Value(const QString& line)
{
    const int equals = line.indexOf(QLatin1Char('='));
    return equals < 0 ? QString() : line.mid(equals + 1);
}

bool IsInCategory(const QStringList& block, const QString& filter)
{
    if (filter.isEmpty())
        return true;
    // Same as matching "^KA=.+" against the whole line; an empty "KA=" line
    // does not count and later category lines are not looked at.
    const int valueStart = CategoryKey.size() + 1;
    for (const QString& line : block) {
        if (line.size() > valueStart && HasKey(line, CategoryKey))
            return line.midRef(valueStart) == filter;
    }
    return false;
}

} // namespace AnnotationLine
