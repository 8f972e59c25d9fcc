#ifndef KAMO_TOOLS_HREFPATHMAP_H
#define KAMO_TOOLS_HREFPATHMAP_H

#include "kamo_tools_export.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

// Reads a path map file: one "old path,new path" pair per line, in the
// platform's text encoding. Both paths are lower-cased and kept with their
// blanks; further fields are ignored, lines without a comma are skipped and
// the first line for an old path wins. A missing or unreadable file gives an
// empty map.
KAMO_TOOLS_EXPORT QMap<QString, QString> LoadHREFPathMap(const QString& fileName);

// The lines of a path map file as they stand, split at "," with empty parts
// kept, those with fewer than two parts left out: what LoadHREFPathMap reads
// before it lower-cases and drops repeated old paths, and what a preview of
// the file shows.
QList<QStringList> ReadHREFPathMapLines(const QString& fileName);

#endif
