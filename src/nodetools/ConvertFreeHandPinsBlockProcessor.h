#ifndef KAMO_TOOLS_CONVERTFREEHANDPINSBLOCKPROCESSOR_H
#define KAMO_TOOLS_CONVERTFREEHANDPINSBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

#include <Kamo_view/PinObject.h>

#include <QList>
#include <QMap>
#include <QSet>

/// Appends the pins set by hand on a document's pages to its annotation file
/// as pin objects ("TY=PIN"), each once: a pin whose id already stands in a
/// "PIN" line of the file is left out.
class ConvertFreeHandPinsBlockProcessor : public ObjectBlockProcessor
{
public:
    /// Page -> the pins set on it.
    using PagePins = QMap<int, QList<PinObject>>;

    void BeginFile(const QString& path) override;
    void ProcessBlock(const QStringList& block, QStringList& result) override;
    void AppendToFile(QStringList& lines) override;

    /// Document file name -> page -> pins; borrowed, may be null.
    QMap<QString, PagePins>* filesPinMap = nullptr;
    /// The documents of the run, as the file loop gets them: a file is
    /// matched back to its document through this list.
    QStringList fileNames;

private:
    QString documentOf(const QString& path);
    PagePins pinsOf(const QString& document) const;

    PagePins currentPins;
    qint64 highestId = 0;
    QSet<int> presentPins;
    int nextDocument = 0;
};

#endif
