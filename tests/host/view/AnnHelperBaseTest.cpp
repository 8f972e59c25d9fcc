#include <AnnHelperBase.h>

#include <QRandomGenerator>
#include <QTest>

namespace {

const QChar F(0x11); // field separator
const QChar T(0x12); // target separator
const QChar Z(0x13); // zone separator
const QChar S(0x00A4);

QString record(QStringList fields)
{
    while (fields.size() < 23)
        fields.append(QString());
    return fields.join(F);
}

QString parseAndSave(const QString& value)
{
    QString copy = value;
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, copy);
    QString line;
    AnnHelperBase::SaveLink(targets, line, false);
    return line;
}

// Field text as users type it: umlauts, separators of other notations,
// "=" and the split marker inside (never at the start of a value).
QString randomText(QRandomGenerator& random, bool allowEmpty)
{
    static const QString alphabet = QStringLiteral("abcXYZ019 _-.:\\/=;,äöüßÄ€¤#{}");
    const int length = int(random.bounded(allowEmpty ? 0 : 1, 12));
    QString text;
    for (int i = 0; i < length; ++i)
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
    void changedZonePathIsWrittenInItsZone();
    void formIsChosenByTargetsAndZones();
    void lineEndIsAppendedOnlyOnRequest();
    void malformedValuesNeverCrashAndSettle();
};

void AnnHelperBaseTest::wellFormedValuesRoundTrip_data()
{
    QTest::addColumn<QString>("value");

    QTest::newRow("standard, typical") << record({ QStringLiteral("0"), QStringLiteral("C:\\PDF\\P1.PDF"),
        QStringLiteral("3"), QStringLiteral("Schacht 12 – Straße"), QStringLiteral("1.0") });
    QTest::newRow("standard, only a path") << record({ QString(), QStringLiteral("a.pdf") });
    QTest::newRow("standard, every field set") << [] {
        QStringList fields;
        for (int i = 0; i < 23; ++i)
            fields.append(QStringLiteral("f%1").arg(i));
        return fields.join(F);
    }();
    QTest::newRow("standard, = and ¤ inside fields")
        << record({ QStringLiteral("0"), QStringLiteral("a=b.pdf"), QString(), QStringLiteral("Preis ¤ 5") });
    QTest::newRow("standard, 22 fields kept as they are")
        << QStringLiteral("0") + F + QStringLiteral("x") + QString(20, F);
    QTest::newRow("standard, 24 fields kept as they are")
        << record({ QStringLiteral("0"), QStringLiteral("x") }) + F + QStringLiteral("extra");
    QTest::newRow("standard, two fields") << QStringLiteral("0") + F + QStringLiteral("x.pdf");
    QTest::newRow("split, one target one zone") << S + record({ QStringLiteral("0"), QStringLiteral("a.pdf") });
    QTest::newRow("split, four zones with pages") << S
            + record({ QStringLiteral("0"),
                QStringLiteral("a.pdf") + Z + QStringLiteral("b.pdf") + Z + QStringLiteral("c.pdf") + Z
                    + QStringLiteral("d.pdf"),
                QStringLiteral("1") + Z + QStringLiteral("2") + Z + QStringLiteral("3") + Z + QStringLiteral("4"),
                QStringLiteral("Varianten") });
    QTest::newRow("split, unlinked middle zone") << S
            + record(
                { QStringLiteral("0"), QStringLiteral("a.pdf") + Z + Z + QStringLiteral("c.pdf"), Z + QString(Z) });
    QTest::newRow("split, two targets") << S
            + record({ QStringLiteral("0"), QStringLiteral("a.pdf") + Z + QStringLiteral("b.pdf"), QString(Z) }) + T
            + record({ QStringLiteral("1"), QStringLiteral("https://example.org/x"), QString() });
    QTest::newRow("split, second target without path")
        << S + record({ QStringLiteral("0"), QStringLiteral("a.pdf") }) + T + record({ QStringLiteral("0") });
    QTest::newRow("split, record without page field") << S + QStringLiteral("0") + F + QStringLiteral("a.pdf");
}

void AnnHelperBaseTest::wellFormedValuesRoundTrip()
{
    QFETCH(QString, value);
    QCOMPARE(parseAndSave(value), QStringLiteral("HREF=") + value);
}

void AnnHelperBaseTest::randomWellFormedValuesRoundTrip()
{
    QRandomGenerator random(20240307);
    for (int n = 0; n < 3000; ++n) {
        QString value;
        if (random.bounded(2) == 0) {
            QStringList fields;
            for (int i = 0; i < 23; ++i)
                fields.append(randomText(random, i != 1));
            if (fields.at(0).startsWith(S))
                fields[0].remove(0, 1);
            value = fields.join(F);
        } else {
            QStringList records;
            const int targets = int(random.bounded(1, 4));
            for (int t = 0; t < targets; ++t) {
                const int zones = int(random.bounded(1, 5));
                QStringList paths;
                QStringList pages;
                for (int z = 0; z < zones; ++z) {
                    paths.append(randomText(random, z > 0));
                    pages.append(random.bounded(2) ? QString::number(random.bounded(1, 300)) : QString());
                }
                QStringList fields;
                for (int i = 0; i < 23; ++i)
                    fields.append(randomText(random, true));
                fields[1] = paths.join(Z);
                fields[2] = pages.join(Z);
                records.append(fields.join(F));
            }
            value = S + records.join(T);
        }
        const QString saved = parseAndSave(value);
        if (saved != QStringLiteral("HREF=") + value)
            QFAIL(qPrintable(QStringLiteral("round trip changed value #%1: %2").arg(n).arg(value)));
    }
}

void AnnHelperBaseTest::valuesWithoutTargetPathYieldNoTargets_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("empty") << QString();
    QTest::newRow("only the split marker") << QString(S);
    QTest::newRow("one field") << QStringLiteral("0");
    QTest::newRow("standard with empty path") << record({ QStringLiteral("0"), QString(), QStringLiteral("3") });
    QTest::newRow("split with unlinked zones only") << S + record({ QStringLiteral("0"), Z + QString(Z) });
    QTest::newRow("split with empty records") << QString(S) + T + T;
}

void AnnHelperBaseTest::valuesWithoutTargetPathYieldNoTargets()
{
    QFETCH(QString, value);
    QList<TargetInfo> targets { TargetInfo() };
    AnnHelperBase::ParseLink(targets, value);
    QVERIFY(targets.isEmpty());
}

void AnnHelperBaseTest::splitLinkExposesZonesInOrder()
{
    QString value = S
        + record({ QStringLiteral("0"), QStringLiteral("A.pdf") + Z + Z + QStringLiteral("C.pdf"),
            QStringLiteral("4") + Z + Z + QStringLiteral("x"), QStringLiteral("Bez") })
        + T + record({ QStringLiteral("2"), QStringLiteral("node:17") });
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, value);

    QCOMPARE(targets.size(), 2);
    QVERIFY(targets.at(0).IsSplit());
    QCOMPARE(targets.at(0).ZoneCount(), 3);
    QCOMPARE(targets.at(0).ZonePath(0), QStringLiteral("A.pdf"));
    QVERIFY(!targets.at(0).Zone(1).IsLinked());
    QCOMPARE(targets.at(0).ZonePath(2), QStringLiteral("C.pdf"));
    QCOMPARE(targets.at(0).Zone(0).PageNumber(), 4);
    QCOMPARE(targets.at(0).Zone(2).PageNumber(), 1); // unreadable page: first page
    QCOMPARE(targets.at(0).Description(), QStringLiteral("Bez"));
    QCOMPARE(targets.at(1).ZoneCount(), 1);
    QCOMPARE(targets.at(1).GetField(TargetInfo::TypeField), QStringLiteral("2"));
}

void AnnHelperBaseTest::changedZonePathIsWrittenInItsZone()
{
    QString value = S
        + record({ QStringLiteral("0"), QStringLiteral("a") + Z + QStringLiteral("b"),
            QStringLiteral("1") + Z + QStringLiteral("2") });
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, value);
    targets[0].SetZonePath(1, QStringLiteral("neu"));
    QString line;
    AnnHelperBase::SaveLink(targets, line, false);
    QCOMPARE(line,
        QStringLiteral("HREF=") + S
            + record({ QStringLiteral("0"), QStringLiteral("a") + Z + QStringLiteral("neu"),
                QStringLiteral("1") + Z + QStringLiteral("2") }));
}

void AnnHelperBaseTest::formIsChosenByTargetsAndZones()
{
    QString standard = record({ QStringLiteral("0"), QStringLiteral("a.pdf"), QStringLiteral("2") });
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, standard);
    QString line;

    // Two standard targets cannot be written in the standard form.
    AnnHelperBase::SaveLink(targets + targets, line, false);
    QCOMPARE(line, QStringLiteral("HREF=") + S + standard + T + standard);

    // A standard target that gains a zone becomes a split target.
    targets[0].SetZones({ ZoneInfo(QStringLiteral("a.pdf"), QStringLiteral("2")), ZoneInfo(QStringLiteral("b.pdf")) });
    AnnHelperBase::SaveLink(targets, line, false);
    QCOMPARE(line,
        QStringLiteral("HREF=") + S
            + record({ QStringLiteral("0"), QStringLiteral("a.pdf") + Z + QStringLiteral("b.pdf"),
                QStringLiteral("2") + Z }));

    // A split target with one zone, marked standard, is written standard.
    QString split = S + standard;
    AnnHelperBase::ParseLink(targets, split);
    targets[0].SetSplit(false);
    AnnHelperBase::SaveLink(targets, line, false);
    QCOMPARE(line, QStringLiteral("HREF=") + standard);
}

void AnnHelperBaseTest::lineEndIsAppendedOnlyOnRequest()
{
    QString value = record({ QStringLiteral("0"), QStringLiteral("a.pdf") });
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, value);
    QString line;
    AnnHelperBase::SaveLink(targets, line, true);
    QCOMPARE(line, QStringLiteral("HREF=") + value + QStringLiteral("\r\n"));
    AnnHelperBase::SaveLink({}, line, false);
    QCOMPARE(line, QStringLiteral("HREF="));
}

// Whatever the reader is given, the writer's output must read back to
// itself: a second pass through the tools changes nothing more.
void AnnHelperBaseTest::malformedValuesNeverCrashAndSettle()
{
    const QString alphabet = QString(F) + T + Z + S + QStringLiteral("ab1");
    QRandomGenerator random(4711);
    for (int n = 0; n < 20000; ++n) {
        QString value;
        const int length = int(random.bounded(0, 40));
        for (int i = 0; i < length; ++i)
            value += alphabet.at(int(random.bounded(alphabet.size())));
        const QString once = parseAndSave(value);
        const QString twice = parseAndSave(once.mid(5));
        if (once != QStringLiteral("HREF=") && once != twice)
            QFAIL(qPrintable(QStringLiteral("not settled after one pass: #%1").arg(n)));
    }
}

QTEST_GUILESS_MAIN(AnnHelperBaseTest)
#include "AnnHelperBaseTest.moc"
