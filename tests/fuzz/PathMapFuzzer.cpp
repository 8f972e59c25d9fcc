// A path map file as a user writes it (any encoding, any line ends).
#include <nodetools/HREFPathMap.h>

#include "FuzzScratch.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    LoadHREFPathMap(scratch.Write(QStringLiteral("Pfadumsetzung.csv"), FuzzScratch::Bytes(data, size)));
    return 0;
}
