#include <nodetools/LineDiff.h>

#include <QTest>

using Row = LineDiff::Row;
Q_DECLARE_METATYPE(QVector<LineDiff::Row>)

class LineDiffTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removedAndAddedLinesPairUp_data();
    void removedAndAddedLinesPairUp();
    void splitKeepsEmptyLinesAndEveryLineEnd();
};

void LineDiffTest::removedAndAddedLinesPairUp_data()
{
    QTest::addColumn<QStringList>("oldLines");
    QTest::addColumn<QStringList>("newLines");
    QTest::addColumn<QVector<Row>>("rows");
    const auto same = LineDiff::Same;
    const auto changed = LineDiff::Changed;
    const auto removed = LineDiff::Removed;
    const auto added = LineDiff::Added;
    QTest::newRow("equal") << QStringList { "BO", "EO" } << QStringList { "BO", "EO" }
                           << QVector<Row> { { same, 0, 0 }, { same, 1, 1 } };
    QTest::newRow("one line changed") << QStringList { "BO", "HREF=a", "EO" } << QStringList { "BO", "HREF=b", "EO" }
                                      << QVector<Row> { { same, 0, 0 }, { changed, 1, 1 }, { same, 2, 2 } };
    QTest::newRow("link removed") << QStringList { "BO", "NA=x", "HREF=a", "HREF=b", "EO" }
                                  << QStringList { "BO", "NA=x", "EO" }
                                  << QVector<Row> { { same, 0, 0 }, { same, 1, 1 }, { removed, 2, -1 },
                                         { removed, 3, -1 }, { same, 4, 2 } };
    QTest::newRow("two replace one") << QStringList { "a", "b", "c", "z" } << QStringList { "a", "x", "z", "y" }
                                     << QVector<Row> { { same, 0, 0 }, { changed, 1, 1 }, { removed, 2, -1 },
                                            { same, 3, 2 }, { added, -1, 3 } };
    QTest::newRow("from nothing") << QStringList {} << QStringList { "a" } << QVector<Row> { { added, -1, 0 } };
}

void LineDiffTest::removedAndAddedLinesPairUp()
{
    QFETCH(QStringList, oldLines);
    QFETCH(QStringList, newLines);
    QFETCH(QVector<Row>, rows);
    QCOMPARE(LineDiff::Compare(oldLines, newLines), rows);
}

void LineDiffTest::splitKeepsEmptyLinesAndEveryLineEnd()
{
    QCOMPARE(LineDiff::SplitLines("a\r\n\r\nb\nc\rd"), (QStringList { "a", "", "b", "c", "d" }));
    QCOMPARE(LineDiff::SplitLines("a\r\n"), QStringList { "a" });
    QCOMPARE(LineDiff::SplitLines(""), QStringList {});
}

QTEST_GUILESS_MAIN(LineDiffTest)
#include "LineDiffTest.moc"
