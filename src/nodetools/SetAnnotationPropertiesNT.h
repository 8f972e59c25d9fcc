#ifndef KAMO_TOOLS_SETANNOTATIONPROPERTIESNT_H
#define KAMO_TOOLS_SETANNOTATIONPROPERTIESNT_H

#include "kamo_tools_export.h"
#include "nodetools/AnnotationDimensionOptions.h"
#include "nodetools/BlockNodeTool.h"

#include <QString>

/// "Verknüpfung: Eigenschaften setzen": gives the objects chosen by category
/// and name a new name, a new text and the measures of a template rectangle.
class KAMO_TOOLS_EXPORT SetAnnotationPropertiesNT : public BlockNodeTool
{
public:
    SetAnnotationPropertiesNT();

    /// Chooses the objects of one category ("KA=" line, compared exactly); empty chooses all.
    void SetCategoryFilter(const QString& filter);
    /// A regular expression searched in the objects' names as they were
    /// before the run; an invalid one selects nothing.
    void SetNameFilter(const QString& regex);
    /// What the run sets on the chosen objects: name, text, and measures (rectangles only); each only when \p set is
    /// true.
    ///@{
    void SetNameOption(bool set, const QString& name);
    void SetTextOption(bool set, const QString& text);
    void SetDimensionOption(bool set, const AnnotationDimensionOptions& options);
    ///@}

private:
    QString categoryFilter;
    QString nameFilter;
    bool setName = false;
    QString name;
    bool setText = false;
    QString text;
    bool setDimensions = false;
    AnnotationDimensionOptions dimensions;
};

#endif
