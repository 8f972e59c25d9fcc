#ifndef KAMO_TOOLS_NODETOOLS_LOCALETEXTSTREAM_H
#define KAMO_TOOLS_NODETOOLS_LOCALETEXTSTREAM_H

#include <QTextStream>
#include <QtGlobal>

// Text files that users write by hand (the path map) are read in the
// platform's encoding: the ANSI code page on Windows, UTF-8 elsewhere. A
// Qt 5 stream starts out so; a Qt 6 stream starts out in UTF-8 everywhere.
inline void UseLocaleEncoding(QTextStream& stream)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    stream.setEncoding(QStringConverter::System);
#else
    Q_UNUSED(stream)
#endif
}

#endif
