#ifndef KAMO_TOOLS_MODIFYANNOTATIONTARGETSNT_H
#define KAMO_TOOLS_MODIFYANNOTATIONTARGETSNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <QString>

/// "Verknüpfungen: Ziel anpassen": sets the environment factor of the link
/// targets of the chosen objects.
class KAMO_TOOLS_EXPORT ModifyAnnotationTargetsNT : public BlockNodeTool
{
public:
    ModifyAnnotationTargetsNT();

    /// Choose the objects by category ("KA=" line, compared exactly; empty chooses all) and by a regular expression
    /// searched in their names (an invalid one chooses none).
    ///@{
    void SetCategoryFilter(const QString& filter);
    void SetNameFilter(const QString& regex);
    ///@}
    /// With the filter on, only the target at `index` (0-based) of each link.
    void SetUseTargetIndexFilter(bool use);
    /// The target index used by the filter above.
    void SetTargetIndex(unsigned index);
    /// Without it, the tool changes nothing.
    void SetUseEnvFactor(bool use);
    /// The environment factor written, with one decimal; a factor that is not finite changes nothing.
    void SetEnvFactor(float factor);

private:
    QString categoryFilter;
    QString nameFilter;
    bool useTargetIndexFilter = false;
    unsigned targetIndex = 0;
    bool useEnvFactor = false;
    float envFactor = 1.0f;
};

#endif
