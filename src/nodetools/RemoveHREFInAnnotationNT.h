#ifndef KAMO_TOOLS_REMOVEHREFINANNOTATIONNT_H
#define KAMO_TOOLS_REMOVEHREFINANNOTATIONNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

/// "HREF: In Objekten entfernen": deletes the links of the objects of one
/// category, or of all objects.
class KAMO_TOOLS_EXPORT RemoveHREFInAnnotationNT : public BlockNodeTool
{
public:
    RemoveHREFInAnnotationNT();

    /// Chooses the objects of one category ("KA=" line, compared exactly); empty chooses all.
    void SetCategoryFilter(const QString& filter);

private:
    QString categoryFilter;
};

#endif
