#ifndef KAMO_TOOLS_CONVERTFREEHANDPINSNT_H
#define KAMO_TOOLS_CONVERTFREEHANDPINSNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <Kamo_view/PinObject.h>

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// "Betroffenheiten: Morwick-Verfahren": the pins set by hand on the pages of
/// the chosen documents become pin objects of their annotation files, so that
/// they are exchanged and printed with the other annotations.
class KAMO_TOOLS_EXPORT ConvertFreeHandPinsNT : public BlockNodeTool
{
public:
    ConvertFreeHandPinsNT();

    /// Document file name -> page -> pins; not owned, may be null.
    void SetFilesPinMap(QMap<QString, QMap<int, QList<PinObject>>>* pins);
    /// Hands the processor the document list too: it needs to know which
    /// document a file belongs to.
    void Execute() override;

private:
    QMap<QString, QMap<int, QList<PinObject>>>* filesPinMap = nullptr;
};

#endif
