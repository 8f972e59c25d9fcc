#include "nodetools/AnnotationLine.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

namespace AnnotationLine {

const QString HrefKey = QStringLiteral("HREF");
const QString CategoryKey = QStringLiteral("KA");
const QString IdKey = QStringLiteral("ID");
const QString TypeKey = QStringLiteral("TY");
const QString PageKey = QStringLiteral("PG");
const QString GeometryKey = QStringLiteral("GEO");
const QString NameKey = QStringLiteral("NA");
const QString TextKey = QStringLiteral("TX");

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
            return QStringView(line).mid(valueStart) == filter;
    }
    return false;
}

QString BlockValue(const QStringList& block, const QString& key, bool* found)
{
    for (const QString& line : block) {
        if (HasKey(line, key)) {
            if (found)
                *found = true;
            return line.mid(key.size() + 1);
        }
    }
    if (found)
        *found = false;
    return QString();
}

void RewriteLinks(
    const QStringList& block, QStringList& result, const std::function<bool(QList<TargetInfo>& targets)>& change)
{
    QList<TargetInfo> targets;
    for (const QString& line : block) {
        if (!HasKey(line, HrefKey)) {
            result.append(line);
            continue;
        }
        QString value = Value(line);
        AnnHelperBase::ParseLink(targets, value);
        if (!change(targets)) {
            result.append(line);
            continue;
        }
        QString newLine;
        AnnHelperBase::SaveLink(targets, newLine, false);
        result.append(newLine);
    }
}

NameFilter::NameFilter(const QString& pattern)
    : pattern(pattern)
    , expression(pattern)
    , empty(pattern.isEmpty())
{ }

bool NameFilter::Matches(std::unique_ptr<NameFilter>& cache, const QString& pattern, const QStringList& block)
{
    if (!cache || cache->pattern != pattern)
        cache = std::make_unique<NameFilter>(pattern);
    return cache->Matches(block);
}

bool NameFilter::Matches(const QStringList& block) const
{
    if (empty)
        return true;
    if (!expression.isValid())
        return false;
    bool found = false;
    const QString name = BlockValue(block, NameKey, &found);
    return found && expression.match(name).hasMatch();
}

} // namespace AnnotationLine
