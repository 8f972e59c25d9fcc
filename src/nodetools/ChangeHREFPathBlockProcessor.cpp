#include "nodetools/ChangeHREFPathBlockProcessor.h"

#include "nodetools/AnnotationLine.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

void ChangeHREFPathBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    QList<TargetInfo> targets;
    for (const QString& line : block) {
        if (!AnnotationLine::HasKey(line, AnnotationLine::HrefKey)) {
            result.append(line);
            continue;
        }
        QString value = AnnotationLine::Value(line);
        AnnHelperBase::ParseLink(targets, value);
        if (targets.isEmpty()) {
            // Left as an empty line on purpose: the next run of any tool drops it.
            result.append(QString());
            continue;
        }
        for (TargetInfo& target : targets) {
            for (int zone = 0; zone < target.ZoneCount(); ++zone) {
                const QString oldPath = target.ZonePath(zone).toLower();
                const auto entry = pathMap.constFind(oldPath);
                if (entry != pathMap.constEnd() && entry.value() != oldPath)
                    target.SetZonePath(zone, entry.value());
            }
        }
        QString newLine;
        AnnHelperBase::SaveLink(targets, newLine, false);
        result.append(newLine);
    }
}
