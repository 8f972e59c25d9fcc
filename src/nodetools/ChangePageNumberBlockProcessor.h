#ifndef KAMO_TOOLS_CHANGEPAGENUMBERBLOCKPROCESSOR_H
#define KAMO_TOOLS_CHANGEPAGENUMBERBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <QString>

#include <memory>

namespace AnnotationLine {
class NameFilter;
}

/// Shifts the target pages of the document links of the chosen objects, in
/// every linked zone, never below page 1. Pages that are not a plain
/// positive number are left as written.
class ChangePageNumberBlockProcessor : public ObjectBlockProcessor
{
public:
    ChangePageNumberBlockProcessor();
    ~ChangePageNumberBlockProcessor() override;

    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    QString nameFilter;     ///< regular expression searched in the name; empty: every object
    /// Pages added to each target page (negative: taken off).
    int pageDelta = 0;

private:
    std::unique_ptr<AnnotationLine::NameFilter> compiledNameFilter;
};

#endif
