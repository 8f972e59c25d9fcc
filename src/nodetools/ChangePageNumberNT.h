#ifndef KAMO_TOOLS_CHANGEPAGENUMBERNT_H
#define KAMO_TOOLS_CHANGEPAGENUMBERNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <QString>

/// "Verknüpfungen: Seitenzahl anpassen": shifts the target pages of the
/// document links of the chosen objects, for example after pages were
/// inserted into or taken out of the target documents.
class KAMO_TOOLS_EXPORT ChangePageNumberNT : public BlockNodeTool
{
public:
    ChangePageNumberNT();

    /// Choose the objects by category ("KA=" line, compared exactly; empty chooses all) and by a regular expression
    /// searched in their names (an invalid one chooses none).
    ///@{
    void SetCategoryFilter(const QString& filter);
    void SetNameFilter(const QString& regex);
    ///@}
    /// Pages added to each target page (negative: taken off); a page never goes below 1.
    void SetPageDelta(int delta);

private:
    QString categoryFilter;
    QString nameFilter;
    int pageDelta = 0;
};

#endif
