#include "nodetools/ObjectBlockProcessor.h"

ObjectBlockProcessor::ObjectBlockProcessor() = default;

ObjectBlockProcessor::~ObjectBlockProcessor() = default;

void ObjectBlockProcessor::BeginFile(const QString&)
{ }

void ObjectBlockProcessor::AppendToFile(QStringList& lines)
{
    Q_UNUSED(lines)
}

void ObjectBlockProcessor::EndFile(const QString&)
{ }
