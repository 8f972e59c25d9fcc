// A saved set of field assignments, read as the import dialog reads it.
#include <shapeimport/FieldAssignmentFile.h>

#include "FuzzScratch.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    QMap<QString, int> assignments;
    FieldAssignmentFile::Read(
        scratch.Write(QStringLiteral("Zuordnung.json"), FuzzScratch::Bytes(data, size)), assignments);
    return 0;
}
