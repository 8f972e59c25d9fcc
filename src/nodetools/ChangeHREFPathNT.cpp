#include "nodetools/ChangeHREFPathNT.h"

#include "nodetools/ChangeHREFPathBlockProcessor.h"

ChangeHREFPathNT::ChangeHREFPathNT()
    : BlockNodeTool(std::make_unique<ChangeHREFPathBlockProcessor>())
{ }

void ChangeHREFPathNT::SetPathMap(const QMap<QString, QString>& map)
{
    pathMap = map;
    static_cast<ChangeHREFPathBlockProcessor&>(BlockProcessor()).pathMap = map;
}
