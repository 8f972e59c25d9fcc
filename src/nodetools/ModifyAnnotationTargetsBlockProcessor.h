#ifndef KAMO_TOOLS_MODIFYANNOTATIONTARGETSBLOCKPROCESSOR_H
#define KAMO_TOOLS_MODIFYANNOTATIONTARGETSBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <QString>

#include <memory>

namespace AnnotationLine {
class NameFilter;
}

/// Sets the environment factor of the link targets of the chosen objects:
/// of every target, or only of the target at one position within each link.
class ModifyAnnotationTargetsBlockProcessor : public ObjectBlockProcessor
{
public:
    ModifyAnnotationTargetsBlockProcessor();
    ~ModifyAnnotationTargetsBlockProcessor() override;

    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    QString nameFilter;     ///< regular expression searched in the name; empty: every object
    /// Whether only the target at targetIndex is changed.
    bool useTargetIndexFilter = false;
    unsigned targetIndex = 0; ///< 0-based position of the target within its link
    /// Off by default, so that a tool that was not told what to set leaves
    /// the files alone.
    bool useEnvFactor = false;
    float envFactor = 1.0f; ///< written with one decimal; not finite: nothing changes

private:
    std::unique_ptr<AnnotationLine::NameFilter> compiledNameFilter;
};

#endif
