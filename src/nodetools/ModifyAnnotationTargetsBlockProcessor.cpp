#include "nodetools/ModifyAnnotationTargetsBlockProcessor.h"

#include "nodetools/AnnotationLine.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

#include <cmath>

ModifyAnnotationTargetsBlockProcessor::ModifyAnnotationTargetsBlockProcessor() = default;

ModifyAnnotationTargetsBlockProcessor::~ModifyAnnotationTargetsBlockProcessor() = default;

void ModifyAnnotationTargetsBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (!useEnvFactor || !std::isfinite(envFactor) || !AnnotationLine::IsInCategory(block, categoryFilter)
        || !AnnotationLine::NameFilter::Matches(compiledNameFilter, nameFilter, block)) {
        result.append(block);
        return;
    }
    const QString factor = QString::number(double(envFactor), 'f', 1);
    AnnotationLine::RewriteLinks(block, result, [this, &factor](QList<TargetInfo>& targets) {
        bool changed = false;
        for (int i = 0; i < targets.size(); ++i) {
            if (useTargetIndexFilter && unsigned(i) != targetIndex)
                continue;
            if (targets.at(i).GetField(TargetInfo::EnvFactorField) != factor) {
                targets[i].SetField(TargetInfo::EnvFactorField, factor);
                changed = true;
            }
        }
        return changed;
    });
}
