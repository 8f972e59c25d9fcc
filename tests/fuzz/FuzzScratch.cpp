#include "FuzzScratch.h"

const QByteArray FuzzScratch::Separator("\n--8<--kamo-fuzz-part--8<--\n");

QList<QByteArray> FuzzScratch::Split(const QByteArray& input, int count)
{
    QList<QByteArray> parts;
    int begin = 0;
    for (int end; parts.size() < count - 1 && (end = input.indexOf(Separator, begin)) >= 0;
         begin = end + Separator.size())
        parts.append(input.mid(begin, end - begin));
    parts.append(input.mid(begin));
    return parts;
}
