// A backup's manifest as a damaged disk, an editor or a half-finished backup
// leaves it, checked against an annotation file beside it.
#include <nodetools/NodeToolBackupCheck.h>

#include "FuzzScratch.h"

#include <QFileInfo>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    const QList<QByteArray> parts = FuzzScratch::Split(FuzzScratch::Bytes(data, size), 2);
    scratch.Write(NodeToolBackupCheck::ManifestFileName, parts.value(0));
    const QString file = scratch.Write(QStringLiteral("Lageplan.ann"), parts.value(1));
    NodeToolBackupCheck check(QFileInfo(file).path());
    check.CheckAll();
    return 0;
}
