// The project description the command line and the demo host read.
#include <Kamo_view/ProjectDescription.h>

#include "FuzzScratch.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    ProjectDescription description;
    if (description.LoadFile(scratch.Write(QStringLiteral("Projekt.json"), FuzzScratch::Bytes(data, size))))
        description.FindNodes(QStringLiteral("Haltung H0815"));
    return 0;
}
