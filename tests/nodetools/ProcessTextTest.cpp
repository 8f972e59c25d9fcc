#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ObjectBlockProcessor.h>

#include <QTest>

#include <functional>

namespace {

// Records the blocks it is given; leaves them as they are unless told how
// to rewrite them.
class RecordingProcessor : public ObjectBlockProcessor
{
public:
    void ProcessBlock(const QStringList& block, QStringList& result) override
    {
        blocks.append(block);
        if (rewrite)
            rewrite(block, result);
        else
            result.append(block);
    }

    QList<QStringList> blocks;
    std::function<void(const QStringList&, QStringList&)> rewrite;
};

} // namespace

class ProcessTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitsIntoBlocksAndJoinsWithCrLf_data();
    void splitsIntoBlocksAndJoinsWithCrLf();
    void blockWithNoResultLinesIsDeleted();
    void rewrittenBlockTakesThePlaceOfTheOld();
    void processorMayKeepLinesOfEarlierBlocks();
};

void ProcessTextTest::splitsIntoBlocksAndJoinsWithCrLf_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<QList<QStringList>>("blocks");

    const QStringList blockA { QStringLiteral("BO"), QStringLiteral("A=1"), QStringLiteral("EO") };
    const QStringList blockB { QStringLiteral("BO"), QStringLiteral("B=2"), QStringLiteral("EO") };

    QTest::newRow("host form stays untouched")
        << QStringLiteral("H\r\nBO\r\nA=1\r\nEO") << QStringLiteral("H\r\nBO\r\nA=1\r\nEO") << false
        << QList<QStringList> { blockA };
    QTest::newRow("LF line ends are normalised")
        << QStringLiteral("H\nBO\nA=1\nEO") << QStringLiteral("H\r\nBO\r\nA=1\r\nEO") << true
        << QList<QStringList> { blockA };
    QTest::newRow("text without blocks is normalised too")
        << QStringLiteral("A\nB") << QStringLiteral("A\r\nB") << true << QList<QStringList> {};
    QTest::newRow("lone CR ends a line") << QStringLiteral("A\rB") << QStringLiteral("A\r\nB") << true
                                         << QList<QStringList> {};
    QTest::newRow("final line end is dropped")
        << QStringLiteral("BO\r\nA=1\r\nEO\r\n") << QStringLiteral("BO\r\nA=1\r\nEO") << true
        << QList<QStringList> { blockA };
    QTest::newRow("empty lines vanish, also inside blocks")
        << QStringLiteral("BO\r\n\r\nA=1\n\nEO") << QStringLiteral("BO\r\nA=1\r\nEO") << true
        << QList<QStringList> { blockA };
    QTest::newRow("two blocks in a row, each with its markers")
        << QStringLiteral("BO\r\nA=1\r\nEO\r\nBO\r\nB=2\r\nEO") << QStringLiteral("BO\r\nA=1\r\nEO\r\nBO\r\nB=2\r\nEO")
        << false << QList<QStringList> { blockA, blockB };
    QTest::newRow("lines between blocks are copied") << QStringLiteral("BO\r\nA=1\r\nEO\r\nX=9\r\nBO\r\nB=2\r\nEO")
                                                     << QStringLiteral("BO\r\nA=1\r\nEO\r\nX=9\r\nBO\r\nB=2\r\nEO")
                                                     << false << QList<QStringList> { blockA, blockB };
    QTest::newRow("unclosed block loses the tail of the file")
        << QStringLiteral("H\r\nBO\r\nA=1\r\nB=2") << QStringLiteral("H") << true << QList<QStringList> {};
    QTest::newRow("unclosed block after a closed one")
        << QStringLiteral("BO\r\nA=1\r\nEO\r\nX\r\nBO\r\nB=2") << QStringLiteral("BO\r\nA=1\r\nEO\r\nX") << true
        << QList<QStringList> { blockA };
    QTest::newRow("markers must stand alone and in capitals")
        << QStringLiteral(" BO\r\nbo\r\nBO \r\nEO") << QStringLiteral(" BO\r\nbo\r\nBO \r\nEO") << false
        << QList<QStringList> {};
    QTest::newRow("EO outside a block is an ordinary line")
        << QStringLiteral("EO\r\nBO\r\nA=1\r\nEO") << QStringLiteral("EO\r\nBO\r\nA=1\r\nEO") << false
        << QList<QStringList> { blockA };
    QTest::newRow("BO inside a block is an ordinary line")
        << QStringLiteral("BO\r\nBO\r\nA=1\r\nEO") << QStringLiteral("BO\r\nBO\r\nA=1\r\nEO") << false
        << QList<QStringList> { QStringList {
               QStringLiteral("BO"), QStringLiteral("BO"), QStringLiteral("A=1"), QStringLiteral("EO") } };
    QTest::newRow("empty text") << QString() << QString() << false << QList<QStringList> {};
    QTest::newRow("only line ends") << QStringLiteral("\r\n\n") << QString() << true << QList<QStringList> {};
}

void ProcessTextTest::splitsIntoBlocksAndJoinsWithCrLf()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QFETCH(bool, changed);
    QFETCH(QList<QStringList>, blocks);

    RecordingProcessor processor;
    QString text = input;
    QCOMPARE(AnnotationFileProcessor::ProcessText(text, processor), changed);
    QCOMPARE(text, expected);
    QCOMPARE(processor.blocks, blocks);
}

void ProcessTextTest::blockWithNoResultLinesIsDeleted()
{
    RecordingProcessor processor;
    processor.rewrite = [](const QStringList& block, QStringList& result) {
        if (!block.contains(QStringLiteral("NA=weg")))
            result.append(block);
    };
    QString text = QStringLiteral("H\r\nBO\r\nNA=weg\r\nEO\r\nBO\r\nNA=bleibt\r\nEO");
    QVERIFY(AnnotationFileProcessor::ProcessText(text, processor));
    QCOMPARE(text, QStringLiteral("H\r\nBO\r\nNA=bleibt\r\nEO"));
}

void ProcessTextTest::rewrittenBlockTakesThePlaceOfTheOld()
{
    RecordingProcessor processor;
    processor.rewrite = [](const QStringList& block, QStringList& result) {
        for (const QString& line : block)
            result.append(line == QStringLiteral("A=1") ? QStringLiteral("A=2") : line);
    };
    QString text = QStringLiteral("H\r\nBO\r\nA=1\r\nEO\r\nT");
    QVERIFY(AnnotationFileProcessor::ProcessText(text, processor));
    QCOMPARE(text, QStringLiteral("H\r\nBO\r\nA=2\r\nEO\r\nT"));
}

// Processors may remember lines across blocks (to compare objects, say);
// what they keep must not change when the next block is read.
void ProcessTextTest::processorMayKeepLinesOfEarlierBlocks()
{
    RecordingProcessor processor;
    QString text = QStringLiteral("BO\r\nNA=erstes Objekt\r\nEO\r\nBO\r\nNA=zweites\r\nEO\r\nBO\r\nX\r\nEO");
    AnnotationFileProcessor::ProcessText(text, processor);
    QCOMPARE(processor.blocks.size(), 3);
    QCOMPARE(processor.blocks.at(0).at(1), QStringLiteral("NA=erstes Objekt"));
    QCOMPARE(processor.blocks.at(1).at(1), QStringLiteral("NA=zweites"));
    QCOMPARE(processor.blocks.at(2).at(1), QStringLiteral("X"));
}

QTEST_GUILESS_MAIN(ProcessTextTest)
#include "ProcessTextTest.moc"
