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

using Blocks = QList<QStringList>;

} // namespace

class ProcessTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitsIntoBlocksAndJoinsWithCrLf_data();
    void splitsIntoBlocksAndJoinsWithCrLf();
    void resultLinesTakeThePlaceOfTheBlock();
};

void ProcessTextTest::splitsIntoBlocksAndJoinsWithCrLf_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<Blocks>("blocks");

    const auto row = [](const char* name, const QString& input, const QString& expected, bool changed,
                         const Blocks& blocks) { QTest::newRow(name) << input << expected << changed << blocks; };
    const QStringList a { "BO", "A=1", "EO" };
    row("host form stays untouched", "H\r\nBO\r\nA=1\r\nEO", "H\r\nBO\r\nA=1\r\nEO", false, { a });
    row("LF line ends", "H\nBO\nA=1\nEO", "H\r\nBO\r\nA=1\r\nEO", true, { a });
    row("text without blocks", "A\nB", "A\r\nB", true, {});
    row("lone CR ends a line", "A\rB", "A\r\nB", true, {});
    row("final line end dropped", "BO\r\nA=1\r\nEO\r\n", "BO\r\nA=1\r\nEO", true, { a });
    row("empty lines vanish", "BO\r\n\r\nA=1\n\nEO", "BO\r\nA=1\r\nEO", true, { a });
    // Blocks of different lengths: what a processor kept of an earlier
    // block must not change when the next one is read.
    row("two blocks, lines between them copied", "BO\r\nNA=erstes Objekt\r\nEO\r\nX=9\r\nBO\r\nB=2\r\nEO",
        "BO\r\nNA=erstes Objekt\r\nEO\r\nX=9\r\nBO\r\nB=2\r\nEO", false,
        { { "BO", "NA=erstes Objekt", "EO" }, { "BO", "B=2", "EO" } });
    row("unclosed block loses the tail", "H\r\nBO\r\nA=1\r\nB=2", "H", true, {});
    row("unclosed block after a closed one", "BO\r\nA=1\r\nEO\r\nX\r\nBO\r\nB=2", "BO\r\nA=1\r\nEO\r\nX", true, { a });
    row("markers stand alone, in capitals", " BO\r\nbo\r\nBO \r\nEO", " BO\r\nbo\r\nBO \r\nEO", false, {});
    row("EO outside, BO inside a block are ordinary", "EO\r\nBO\r\nBO\r\nA=1\r\nEO", "EO\r\nBO\r\nBO\r\nA=1\r\nEO",
        false, { { "BO", "BO", "A=1", "EO" } });
    row("only line ends", "\r\n\n", QString(), true, {});
}

void ProcessTextTest::splitsIntoBlocksAndJoinsWithCrLf()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QFETCH(bool, changed);
    QFETCH(Blocks, blocks);

    RecordingProcessor processor;
    QString text = input;
    QCOMPARE(AnnotationFileProcessor::ProcessText(text, processor), changed);
    QCOMPARE(text, expected);
    QCOMPARE(processor.blocks, blocks);
}

void ProcessTextTest::resultLinesTakeThePlaceOfTheBlock()
{
    RecordingProcessor processor;
    processor.rewrite = [](const QStringList& block, QStringList& result) {
        if (block.contains("NA=weg"))
            return; // deleted
        for (const QString& line : block)
            result.append(line == "A=1" ? "A=2" : line);
    };
    QString text = "H\r\nBO\r\nNA=weg\r\nEO\r\nBO\r\nA=1\r\nEO\r\nT";
    QVERIFY(AnnotationFileProcessor::ProcessText(text, processor));
    QCOMPARE(text, "H\r\nBO\r\nA=2\r\nEO\r\nT");
}

QTEST_GUILESS_MAIN(ProcessTextTest)
#include "ProcessTextTest.moc"
