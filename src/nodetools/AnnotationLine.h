#ifndef KAMO_TOOLS_ANNOTATIONLINE_H
#define KAMO_TOOLS_ANNOTATIONLINE_H

#include <QString>
#include <QStringList>

// Property lines of object blocks: KEY=VALUE, the key being the text before
// the first "=" and the value everything after it.
namespace AnnotationLine {

extern const QString HrefKey;     // "HREF"
extern const QString CategoryKey; // "KA"

// True when the line's key is exactly `key` (a line without "=" has no key).
bool HasKey(const QString& line, const QString& key);

// The text after the first "=", empty for a line without one.
QString Value(const QString& line);

// True when `filter` is empty, or the block's first non-empty category line
// ("KA=" with at least one character after it) holds exactly `filter`.
bool IsInCategory(const QStringList& block, const QString& filter);

} // namespace AnnotationLine

#endif
