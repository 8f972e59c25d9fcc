#ifndef KAMO_TOOLS_DUPLICATEHREFINANNOTATIONSNT_H
#define KAMO_TOOLS_DUPLICATEHREFINANNOTATIONSNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

/// "HREF: In Objekten duplizieren/umlenken": gives the objects of one
/// category, or all objects, a second link to a new target.
class KAMO_TOOLS_EXPORT DuplicateHREFInAnnotationsNT : public BlockNodeTool
{
public:
    DuplicateHREFInAnnotationsNT();

    /// Chooses the objects of one category ("KA=" line, compared exactly); empty chooses all.
    void SetCategoryFilter(const QString& filter);
    /// The path of the new link's target document.
    void SetNewLinkTarget(const QString& target);

private:
    QString categoryFilter;
    QString newLinkTarget;
};

#endif
