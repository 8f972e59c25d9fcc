#ifndef KAMO_TOOLS_CHANGEHREFPATHBLOCKPROCESSOR_H
#define KAMO_TOOLS_CHANGEHREFPATHBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <QMap>

/// Redirects the target paths of every HREF line through a table of old to
/// new paths. Matching is by whole path, ignoring case only; a replaced path
/// is written as the table holds it (lower case).
class ChangeHREFPathBlockProcessor : public ObjectBlockProcessor
{
public:
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QMap<QString, QString> pathMap; ///< lower-case old path -> lower-case new path
};

#endif
