#ifndef KAMO_TOOLS_ANNOTATIONLINE_H
#define KAMO_TOOLS_ANNOTATIONLINE_H

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class TargetInfo;

// Property lines of object blocks: KEY=VALUE, the key being the text before
// the first "=" and the value everything after it.
namespace AnnotationLine {

extern const QString HrefKey;     // "HREF"
extern const QString CategoryKey; // "KA"
extern const QString IdKey;       // "ID"
extern const QString TypeKey;     // "TY"
extern const QString PageKey;     // "PG"
extern const QString GeometryKey; // "GEO"
extern const QString NameKey;     // "NA"
extern const QString TextKey;     // "TX"

// True when the line's key is exactly `key` (a line without "=" has no key).
bool HasKey(const QString& line, const QString& key);

// The text after the first "=", empty for a line without one.
QString Value(const QString& line);

// True when `filter` is empty, or the block's first non-empty category line
// ("KA=" with at least one character after it) holds exactly `filter`.
bool IsInCategory(const QStringList& block, const QString& filter);

// The value of the block's first line with `key`; `found` tells whether
// there was one.
QString BlockValue(const QStringList& block, const QString& key, bool* found = nullptr);

// Appends the block's lines to `result`. Each HREF line is parsed and given
// to `change`; only when it answers true (it changed the targets) is the
// line written anew, every other line keeps its bytes.
void RewriteLinks(
    const QStringList& block, QStringList& result, const std::function<bool(QList<TargetInfo>& targets)>& change);

// Selects objects by name: the regular expression is searched in the value
// of the block's first "NA" line, case-sensitively. An empty expression
// selects every object; otherwise an object without a name line is not
// selected, and an invalid expression selects nothing.
class NameFilter
{
public:
    NameFilter() = default;
    explicit NameFilter(const QString& pattern);

    bool IsEmpty() const { return empty; }
    bool IsValid() const { return empty || expression.isValid(); }
    QString ErrorString() const { return expression.errorString(); }
    bool Matches(const QStringList& block) const;

    // Whether the block matches `pattern`; `cache` keeps the compiled filter
    // and is compiled again only when the pattern changed.
    static bool Matches(std::unique_ptr<NameFilter>& cache, const QString& pattern, const QStringList& block);

private:
    QString pattern;
    QRegularExpression expression;
    bool empty = true;
};

} // namespace AnnotationLine

#endif
