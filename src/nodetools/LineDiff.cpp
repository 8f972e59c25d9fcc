#include "nodetools/LineDiff.h"

#include <dtl/dtl.hpp>

#include <vector>

QVector<LineDiff::Row> LineDiff::Compare(const QStringList& oldLines, const QStringList& newLines)
{
    const std::vector<QString> a(oldLines.begin(), oldLines.end());
    const std::vector<QString> b(newLines.begin(), newLines.end());
    // Deletions before additions within a change, so that they pair up.
    dtl::Diff<QString, std::vector<QString>> diff(a, b, true);
    // Annotation files run to hundreds of thousands of lines; past dtl's
    // limit of coordinates it finds a longer edit instead of running out of
    // memory.
    diff.onHuge();
    diff.compose();

    QVector<Row> rows;
    rows.reserve(qMax(oldLines.size(), newLines.size()));
    QVector<int> removed;
    QVector<int> added;
    const auto flush = [&] {
        const int paired = qMin(removed.size(), added.size());
        for (int i = 0; i < paired; ++i)
            rows.append({ Changed, removed.at(i), added.at(i) });
        for (int i = paired; i < removed.size(); ++i)
            rows.append({ Removed, removed.at(i), -1 });
        for (int i = paired; i < added.size(); ++i)
            rows.append({ Added, -1, added.at(i) });
        removed.clear();
        added.clear();
    };
    for (const auto& element : diff.getSes().getSequence()) {
        const dtl::elemInfo& info = element.second;
        switch (info.type) {
        case dtl::SES_DELETE:
            removed.append(int(info.beforeIdx - 1));
            break;
        case dtl::SES_ADD:
            added.append(int(info.afterIdx - 1));
            break;
        default:
            flush();
            rows.append({ Same, int(info.beforeIdx - 1), int(info.afterIdx - 1) });
            break;
        }
    }
    flush();
    return rows;
}

QStringList LineDiff::SplitLines(const QString& text)
{
    QStringList lines;
    int start = 0;
    const int size = text.size();
    for (int i = 0; i < size; ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            lines.append(text.mid(start, i - start));
            if (c == QLatin1Char('\r') && i + 1 < size && text.at(i + 1) == QLatin1Char('\n'))
                ++i;
            start = i + 1;
        }
    }
    if (start < size)
        lines.append(text.mid(start));
    return lines;
}
