#ifndef KAMO_TOOLS_LINEDIFF_H
#define KAMO_TOOLS_LINEDIFF_H

#include <QStringList>
#include <QVector>

/// Lines of an old and a new text aligned for a side-by-side view: the
/// shortest edit between them, with the lines removed and added at one place
/// paired up as changed lines, as a reader compares them.
class LineDiff
{
public:
    /// How a row pairs the texts: an equal line on both sides, a changed line, or a line on one side only.
    enum Kind { Same, Changed, Removed, Added };

    /// One row of the view; a line number is 0-based, -1 where that side has
    /// no line (an added line has no old one, a removed line no new one).
    struct Row {
        /// The row's kind and its line on either side.
        ///@{
        Kind kind;
        int oldLine;
        int newLine;
        ///@}
        /// Rows are equal when kind and both line numbers are.
        bool operator==(const Row& other) const
        {
            return kind == other.kind && oldLine == other.oldLine && newLine == other.newLine;
        }
    };

    /// The rows of the side-by-side view of \p oldLines against \p newLines, in text order.
    static QVector<Row> Compare(const QStringList& oldLines, const QStringList& newLines);

    /// A text cut at every line end (CR LF, LF or CR), empty lines kept.
    static QStringList SplitLines(const QString& text);
};

#endif
