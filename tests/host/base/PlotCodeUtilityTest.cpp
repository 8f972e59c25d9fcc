#include <Kamo_base/PlotCodeUtility.h>

#include <QTest>

class PlotCodeUtilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void normalise_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("normalised"); // empty: no plot code
        const auto row = [](const char* name, const QString& text, const QString& normalised) {
            QTest::newRow(name) << text << normalised;
        };
        row("no leading zeros", "1234-1-12/3", "001234-001-00012/0003");
        row("no denominator", "1234-1-12", "001234-001-00012");
        row("spaces", "  1234 - 1 - 12 / 3 ", "001234-001-00012/0003");
        row("words", "Gemarkung 1234 Flur 1 Flurst\u00fcck 12/3", "001234-001-00012/0003");
        row("words, commas, ue", "gemarkung 1234, Flur 1, Flurstueck 12", "001234-001-00012");
        row("words without field", "Gmk. 1234 Flst. 12/3", "001234-000-00012/0003");
        row("plot number only", "12/3", "000000-000-00012/0003");
        row("widest", "999999-999-99999/9999", "999999-999-99999/9999");
        row("bare number", "12", "");
        row("district too wide", "1234567-1-12", "");
        row("plot 0", "1234-1-0/3", "");
        row("denominator 0", "12/0", "");
        row("trailing text", "1234-1-12/3a", "");
        row("huge number", "1234-1-99999999999999999999", "");
        row("empty", "", "");
    }

    // The host's spelling must read back to itself.
    void normalise()
    {
        QFETCH(QString, text);
        QFETCH(QString, normalised);
        QCOMPARE(PlotCodeUtility::Normalise(text), normalised);
        QCOMPARE(PlotCodeUtility::Normalise(PlotCodeUtility::Normalise(text)), normalised);
    }
};

QTEST_GUILESS_MAIN(PlotCodeUtilityTest)
#include "PlotCodeUtilityTest.moc"
