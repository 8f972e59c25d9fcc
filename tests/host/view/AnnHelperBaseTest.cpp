#include <Kamo_view/AnnHelperBase.h>

#include <QRandomGenerator>
#include <QTest>

namespace {

const QString F(QChar(0x11)); // between fields
const QString T(QChar(0x12)); // between targets
const QString Z(QChar(0x13)); // between zone entries
const QString S(QChar(0x00A4));

QString record(QStringList fields)
{
    while (fields.size() < 23)
        fields.append(QString());
    return fields.join(F);
}

QList<TargetInfo> parse(QString value)
{
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, value);
    return targets;
}

QString save(const QList<TargetInfo>& targets)
{
    QString line;
    AnnHelperBase::SaveLink(targets, line, false);
    return line;
}

// Field text as users type it, with "=" and the split marker inside.
QString randomText(QRandomGenerator& random, int minLength)
{
    static const QString alphabet = "abcXYZ019 _-.:\\/=;,äöüßÄ€¤#{}";
    QString text;
    for (int i = int(random.bounded(minLength, 12)); i > 0; --i)
        text += alphabet.at(int(random.bounded(alphabet.size())));
    return text;
}

} // namespace

class AnnHelperBaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wellFormedValuesRoundTrip_data();
    void wellFormedValuesRoundTrip();
    void randomWellFormedValuesRoundTrip();
    void valuesWithoutTargetPathYieldNoTargets_data();
    void valuesWithoutTargetPathYieldNoTargets();
    void splitLinkExposesZonesInOrder();
    void formFollowsTargetsAndZones();
    void malformedValuesSettleAfterOnePass();
};

void AnnHelperBaseTest::wellFormedValuesRoundTrip_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("standard") << record({ "0", "C:\\PDF\\P1.PDF", "3", "Schacht 12 – Straße", "1.0" });
    QTest::newRow("standard, 22 fields kept") << "0" + F + "x" + F.repeated(20);
    QTest::newRow("standard, 24 fields kept") << record({ "0", "x" }) + F + "extra";
    QTest::newRow("split, two targets, unlinked zone")
        << S + record({ "0", "a.pdf" + Z + Z + "c.pdf", Z + Z }) + T + record({ "1", "https://example.org/x" });
    QTest::newRow("split, target without path") << S + record({ "0", "a.pdf" }) + T + record({ "0" });
    QTest::newRow("split, record without page field") << S + "0" + F + "a.pdf";
}

void AnnHelperBaseTest::wellFormedValuesRoundTrip()
{
    QFETCH(QString, value);
    QCOMPARE(save(parse(value)), "HREF=" + value);
}

void AnnHelperBaseTest::randomWellFormedValuesRoundTrip()
{
    QRandomGenerator random(20240307);
    for (int n = 0; n < 3000; ++n) {
        const bool split = random.bounded(2);
        QStringList records;
        for (int t = int(random.bounded(1, split ? 4 : 2)); t > 0; --t) {
            QStringList fields;
            for (int i = 0; i < 23; ++i)
                fields.append(randomText(random, 0));
            QStringList paths { randomText(random, 1) };
            QStringList pages { QString::number(random.bounded(300)) };
            for (int z = split ? int(random.bounded(4)) : 0; z > 0; --z) {
                paths.append(randomText(random, 0));
                pages.append(randomText(random, 0));
            }
            fields[1] = paths.join(Z);
            fields[2] = pages.join(Z);
            records.append(fields.join(F));
        }
        const QString value = split ? S + records.join(T) : records.first().mid(records.first().startsWith(S));
        if (save(parse(value)) != "HREF=" + value)
            QFAIL(qPrintable("round trip changed: " + value));
    }
}

void AnnHelperBaseTest::valuesWithoutTargetPathYieldNoTargets_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("empty") << QString();
    QTest::newRow("only the split marker") << S;
    QTest::newRow("one field") << "0";
    QTest::newRow("standard with empty path") << record({ "0", "", "3" });
    QTest::newRow("split with unlinked zones only") << S + record({ "0", Z + Z });
    QTest::newRow("split with empty records") << S + T + T;
}

void AnnHelperBaseTest::valuesWithoutTargetPathYieldNoTargets()
{
    QFETCH(QString, value);
    QVERIFY(parse(value).isEmpty());
}

void AnnHelperBaseTest::splitLinkExposesZonesInOrder()
{
    const QList<TargetInfo> targets = parse(
        S + record({ "0", "A.pdf" + Z + Z + "C.pdf", "4" + Z + Z + "x", "Bez" }) + T + record({ "2", "node:17" }));
    QCOMPARE(targets.size(), 2);
    const TargetInfo& first = targets.at(0);
    QVERIFY(first.IsSplit());
    QCOMPARE(first.ZoneCount(), 3);
    QCOMPARE(first.ZonePath(0), "A.pdf");
    QVERIFY(!first.Zone(1).IsLinked());
    QCOMPARE(first.ZonePath(2), "C.pdf");
    QCOMPARE(first.Zone(0).PageNumber(), 4);
    QCOMPARE(first.Zone(2).PageNumber(), 1); // unreadable page: the first
    QCOMPARE(first.Description(), "Bez");
    QCOMPARE(targets.at(1).GetField(TargetInfo::TypeField), "2");
}

void AnnHelperBaseTest::formFollowsTargetsAndZones()
{
    const QString standard = record({ "0", "a.pdf", "2" });
    QList<TargetInfo> targets = parse(standard);

    QCOMPARE(save(targets + targets), "HREF=" + S + standard + T + standard);

    targets[0].SetZones({ ZoneInfo("a.pdf", "2"), ZoneInfo("b.pdf") });
    QCOMPARE(save(targets), "HREF=" + S + record({ "0", "a.pdf" + Z + "b.pdf", "2" + Z }));

    targets = parse(S + standard);
    targets[0].SetZonePath(0, "neu.pdf");
    QCOMPARE(save(targets), "HREF=" + S + record({ "0", "neu.pdf", "2" }));
    targets[0].SetSplit(false);
    QCOMPARE(save(targets), "HREF=" + record({ "0", "neu.pdf", "2" }));

    QString line;
    AnnHelperBase::SaveLink(targets, line, true);
    QVERIFY(line.endsWith(".pdf" + F + "2" + F.repeated(20) + "\r\n"));
}

// Whatever the reader is given, what the writer makes of it must read back
// to itself, so a second run of a tool changes nothing more.
void AnnHelperBaseTest::malformedValuesSettleAfterOnePass()
{
    const QString alphabet = F + T + Z + S + "ab1";
    QRandomGenerator random(4711);
    for (int n = 0; n < 20000; ++n) {
        QString value;
        for (int i = int(random.bounded(40)); i > 0; --i)
            value += alphabet.at(int(random.bounded(alphabet.size())));
        const QString once = save(parse(value));
        if (once != "HREF=" && save(parse(once.mid(5))) != once)
            QFAIL(qPrintable(QString("not settled after one pass: #%1").arg(n)));
    }
}

QTEST_GUILESS_MAIN(AnnHelperBaseTest)
#include "AnnHelperBaseTest.moc"
