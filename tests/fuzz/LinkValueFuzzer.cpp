// The value of an HREF line as a file holds it. Whatever the reader makes of
// it, writing the targets and reading them again must give the same line:
// otherwise every run of an operation would change links it did not touch.
#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

#include "FuzzScratch.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QString value = QString::fromUtf8(FuzzScratch::Bytes(data, size));
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, value);
    QString line;
    AnnHelperBase::SaveLink(targets, line, false);

    const QString prefix = QStringLiteral("HREF=");
    if (!line.startsWith(prefix))
        std::abort();
    QString written = line.mid(prefix.size());
    QList<TargetInfo> again;
    AnnHelperBase::ParseLink(again, written);
    QString lineAgain;
    AnnHelperBase::SaveLink(again, lineAgain, false);
    if (!targets.isEmpty() && lineAgain != line)
        std::abort();
    return 0;
}
