#include <PlotCodeUtility.h>

#include <QTest>

class PlotCodeUtilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void normalise_data();
    void normalise();
};

void PlotCodeUtilityTest::normalise_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("normalised"); // empty: no plot code
    QTest::newRow("host's spelling") << "051234-001-00012/0003"
                                     << "051234-001-00012/0003";
    QTest::newRow("no leading zeros") << "1234-1-12/3"
                                      << "001234-001-00012/0003";
    QTest::newRow("no denominator") << "1234-1-12"
                                    << "001234-001-00012";
    QTest::newRow("spaces") << "  1234 - 1 - 12 / 3 "
                            << "001234-001-00012/0003";
    QTest::newRow("words") << "Gemarkung 1234 Flur 1 Flurst\u00fcck 12/3"
                           << "001234-001-00012/0003";
    QTest::newRow("words, commas, ue") << "gemarkung 1234, Flur 1, Flurstueck 12"
                                       << "001234-001-00012";
    QTest::newRow("words without field") << "Gmk. 1234 Flst. 12/3"
                                         << "001234-000-00012/0003";
    QTest::newRow("plot number only") << "12/3"
                                      << "000000-000-00012/0003";
    QTest::newRow("widest") << "999999-999-99999/9999"
                            << "999999-999-99999/9999";
    QTest::newRow("bare number") << "12"
                                 << "";
    QTest::newRow("district too wide") << "1234567-1-12"
                                       << "";
    QTest::newRow("plot 0") << "1234-1-0/3"
                            << "";
    QTest::newRow("denominator 0") << "12/0"
                                   << "";
    QTest::newRow("trailing text") << "1234-1-12/3a"
                                   << "";
    QTest::newRow("huge number") << "1234-1-99999999999999999999"
                                 << "";
    QTest::newRow("empty") << ""
                           << "";
}

void PlotCodeUtilityTest::normalise()
{
    QFETCH(QString, text);
    QFETCH(QString, normalised);
    QCOMPARE(PlotCodeUtility::Normalise(text), normalised);
    // The host's spelling must read back to itself.
    if (!normalised.isEmpty())
        QCOMPARE(PlotCodeUtility::Normalise(normalised), normalised);
}

QTEST_GUILESS_MAIN(PlotCodeUtilityTest)
#include "PlotCodeUtilityTest.moc"
