#include <nodetools/LineDiff.h>

#include <QTest>

using Row = LineDiff::Row;
Q_DECLARE_METATYPE(QVector<LineDiff::Row>)

class LineDiffTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The texts are cut by LineDiff::SplitLines, which keeps empty lines.
    void removedAndAddedLinesPairUp_data()
    {
        QTest::addColumn<QString>("oldText");
        QTest::addColumn<QString>("newText");
        QTest::addColumn<QVector<Row>>("rows");
        const auto row = [](const char* name, const char* oldText, const char* newText, const QVector<Row>& rows) {
            QTest::newRow(name) << QString(oldText) << QString(newText) << rows;
        };
        const auto same = LineDiff::Same, removed = LineDiff::Removed, added = LineDiff::Added;
        row("equal, every line end, the last one ignored", "BO\r\nA\nB\rEO\r\n", "BO\nA\rB\r\nEO",
            { { same, 0, 0 }, { same, 1, 1 }, { same, 2, 2 }, { same, 3, 3 } });
        row("link and empty line removed", "BO\nNA=x\n\nHREF=b\nEO", "BO\nNA=x\nEO",
            { { same, 0, 0 }, { same, 1, 1 }, { removed, 2, -1 }, { removed, 3, -1 }, { same, 4, 2 } });
        row("two replace one", "a\nb\nc\nz", "a\nx\nz\ny",
            { { same, 0, 0 }, { LineDiff::Changed, 1, 1 }, { removed, 2, -1 }, { same, 3, 2 }, { added, -1, 3 } });
        row("from nothing", "", "a", { { added, -1, 0 } });
    }

    void removedAndAddedLinesPairUp()
    {
        QFETCH(QString, oldText);
        QFETCH(QString, newText);
        QFETCH(QVector<Row>, rows);
        QCOMPARE(LineDiff::Compare(LineDiff::SplitLines(oldText), LineDiff::SplitLines(newText)), rows);
    }
};

QTEST_GUILESS_MAIN(LineDiffTest)
#include "LineDiffTest.moc"
