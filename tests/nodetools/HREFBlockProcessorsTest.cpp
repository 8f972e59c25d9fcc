#include "TestProject.h"

#include <nodetools/ChangeHREFPathBlockProcessor.h>
#include <nodetools/DuplicateHREFBlockProcessor.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/RemoveHREFBlockProcessor.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QChar F(0x11);
const QChar T(0x12);
const QChar Z(0x13);
const QChar S(0x00A4);

QString href(const QString& value)
{
    return QStringLiteral("HREF=") + value;
}

QStringList block(const QStringList& properties)
{
    return QStringList { QStringLiteral("BO") } + properties + QStringList { QStringLiteral("EO") };
}

template <class Processor> QStringList run(Processor& processor, const QStringList& lines)
{
    QStringList result;
    processor.ProcessBlock(lines, result);
    return result;
}

// A standard value whose fields are numbered, to see which one moved.
QString numberedLink(int fields)
{
    QStringList values;
    for (int i = 0; i < fields; ++i)
        values.append(QStringLiteral("f%1").arg(i));
    return values.join(F);
}

QString withTarget(QString value, const QString& target)
{
    QStringList fields = value.split(F);
    fields[1] = target;
    return fields.join(F);
}

} // namespace

class HREFBlockProcessorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void categoryFilterSelectsBlocks_data();
    void categoryFilterSelectsBlocks();
    void removalDeletesOnlyHrefLines();
    void duplicationCopiesFirstStandardLink_data();
    void duplicationCopiesFirstStandardLink();
    void pathMappingRewritesWholePathsIgnoringCase_data();
    void pathMappingRewritesWholePathsIgnoringCase();
    void pathMapFileIsReadAsWritten_data();
    void pathMapFileIsReadAsWritten();
    void missingPathMapFileGivesEmptyMap();
};

void HREFBlockProcessorsTest::categoryFilterSelectsBlocks_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("properties");
    QTest::addColumn<bool>("selected");

    const QString link = href(StandardLink(QStringLiteral("a.pdf")));
    QTest::newRow("empty filter, no category line") << QString() << QStringList { link } << true;
    QTest::newRow("exact category") << QStringLiteral("Baum") << QStringList { QStringLiteral("KA=Baum"), link }
                                    << true;
    QTest::newRow("case differs") << QStringLiteral("Baum") << QStringList { QStringLiteral("KA=baum"), link } << false;
    QTest::newRow("trailing blank") << QStringLiteral("Baum") << QStringList { QStringLiteral("KA=Baum "), link }
                                    << false;
    QTest::newRow("no category line") << QStringLiteral("Baum") << QStringList { link } << false;
    QTest::newRow("empty category line does not count")
        << QStringLiteral("Baum") << QStringList { QStringLiteral("KA="), QStringLiteral("KA=Baum"), link } << true;
    QTest::newRow("only the first category line counts")
        << QStringLiteral("Baum") << QStringList { QStringLiteral("KA=Kanal"), QStringLiteral("KA=Baum"), link }
        << false;
    QTest::newRow("KAT is another key") << QStringLiteral("Baum") << QStringList { QStringLiteral("KAT=Baum"), link }
                                        << false;
    QTest::newRow("category with = inside")
        << QStringLiteral("a=b") << QStringList { QStringLiteral("KA=a=b"), link } << true;
}

// Both processors share the category test; removal shows its outcome.
void HREFBlockProcessorsTest::categoryFilterSelectsBlocks()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, properties);
    QFETCH(bool, selected);

    RemoveHREFBlockProcessor remove;
    remove.categoryFilter = filter;
    const QStringList result = run(remove, block(properties));
    QCOMPARE(result.size() < properties.size() + 2, selected);

    DuplicateHREFBlockProcessor duplicate;
    duplicate.categoryFilter = filter;
    duplicate.newLinkTarget = QStringLiteral("neu.pdf");
    QCOMPARE(run(duplicate, block(properties)).size() > properties.size() + 2, selected);
}

void HREFBlockProcessorsTest::removalDeletesOnlyHrefLines()
{
    RemoveHREFBlockProcessor remove;
    const QStringList input
        = block({ QStringLiteral("NA=Schacht"), href(QStringLiteral("a")), QStringLiteral("HREFX=b"),
            href(S + QStringLiteral("0") + F + QStringLiteral("c")), QStringLiteral("TX=HREF=d"), href(QString()) });
    QCOMPARE(run(remove, input),
        block({ QStringLiteral("NA=Schacht"), QStringLiteral("HREFX=b"), QStringLiteral("TX=HREF=d") }));
}

void HREFBlockProcessorsTest::duplicationCopiesFirstStandardLink_data()
{
    QTest::addColumn<QStringList>("properties");
    QTest::addColumn<QStringList>("expected");

    const QString first = numberedLink(23);
    const QString second = StandardLink(QStringLiteral("zweites.pdf"));
    const QString copy = href(withTarget(first, QStringLiteral("neu.pdf")));
    QTest::newRow("copy goes right after the first standard link")
        << QStringList { QStringLiteral("NA=x"), href(first), href(second), QStringLiteral("TX=t") }
        << QStringList { QStringLiteral("NA=x"), href(first), copy, href(second), QStringLiteral("TX=t") };
    QTest::newRow("split link is skipped, the standard one after it is copied")
        << QStringList { href(S + first), href(first) } << QStringList { href(S + first), href(first), copy };
    QTest::newRow("22 fields are not the standard form")
        << QStringList { href(numberedLink(22)) } << QStringList { href(numberedLink(22)) };
    QTest::newRow("24 fields are not the standard form")
        << QStringList { href(numberedLink(24)) } << QStringList { href(numberedLink(24)) };
    QTest::newRow("empty fields keep their places")
        << QStringList { href(StandardLink(QStringLiteral("a.pdf"), QString(), QString())) }
        << QStringList { href(StandardLink(QStringLiteral("a.pdf"), QString(), QString())),
               href(StandardLink(QStringLiteral("neu.pdf"), QString(), QString())) };
    QTest::newRow("block without links") << QStringList { QStringLiteral("NA=x") }
                                         << QStringList { QStringLiteral("NA=x") };
}

void HREFBlockProcessorsTest::duplicationCopiesFirstStandardLink()
{
    QFETCH(QStringList, properties);
    QFETCH(QStringList, expected);
    DuplicateHREFBlockProcessor duplicate;
    duplicate.newLinkTarget = QStringLiteral("neu.pdf");
    QCOMPARE(run(duplicate, block(properties)), block(expected));
}

void HREFBlockProcessorsTest::pathMappingRewritesWholePathsIgnoringCase_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");

    const QString a = StandardLink(QStringLiteral("C:\\A1\\PDF\\P1.PDF"));
    QTest::newRow("matched ignoring case, written in lower case")
        << href(a) << href(StandardLink(QStringLiteral("c:\\b1\\pdf\\p1.pdf")));
    QTest::newRow("forward slashes are another path") << href(StandardLink(QStringLiteral("C:/A1/PDF/P1.PDF")))
                                                      << href(StandardLink(QStringLiteral("C:/A1/PDF/P1.PDF")));
    QTest::newRow("path without entry keeps its case") << href(StandardLink(QStringLiteral("C:\\Andere\\Datei.PDF")))
                                                       << href(StandardLink(QStringLiteral("C:\\Andere\\Datei.PDF")));
    QTest::newRow("entry that maps a path to itself keeps its case")
        << href(StandardLink(QStringLiteral("X:\\Gleich.pdf"))) << href(StandardLink(QStringLiteral("X:\\Gleich.pdf")));
    QTest::newRow("blank around the path is part of it") << href(StandardLink(QStringLiteral(" C:\\A1\\PDF\\P1.PDF")))
                                                         << href(StandardLink(QStringLiteral(" C:\\A1\\PDF\\P1.PDF")));
    QTest::newRow("every zone of every target")
        << href(S + QStringLiteral("0") + F + QStringLiteral("C:\\A1\\PDF\\P1.PDF") + Z + QStringLiteral("y.pdf") + F
               + QStringLiteral("3") + Z + QStringLiteral("4") + T + QStringLiteral("0") + F
               + QStringLiteral("c:\\a1\\pdf\\p2.pdf"))
        << href(S + QStringLiteral("0") + F + QStringLiteral("c:\\b1\\pdf\\p1.pdf") + Z + QStringLiteral("y.pdf") + F
               + QStringLiteral("3") + Z + QStringLiteral("4") + T + QStringLiteral("0") + F
               + QStringLiteral("c:\\b1\\pdf\\p2.pdf"));
    QTest::newRow("link without targets becomes an empty line") << href(StandardLink(QString())) << QString();
    QTest::newRow("other lines are copied")
        << QStringLiteral("TX=C:\\A1\\PDF\\P1.PDF") << QStringLiteral("TX=C:\\A1\\PDF\\P1.PDF");
}

void HREFBlockProcessorsTest::pathMappingRewritesWholePathsIgnoringCase()
{
    QFETCH(QString, line);
    QFETCH(QString, expected);
    ChangeHREFPathBlockProcessor map;
    map.pathMap = { { QStringLiteral("c:\\a1\\pdf\\p1.pdf"), QStringLiteral("c:\\b1\\pdf\\p1.pdf") },
        { QStringLiteral("c:\\a1\\pdf\\p2.pdf"), QStringLiteral("c:\\b1\\pdf\\p2.pdf") },
        { QStringLiteral("x:\\gleich.pdf"), QStringLiteral("x:\\gleich.pdf") } };
    QCOMPARE(run(map, block({ line })), block({ expected }));
}

void HREFBlockProcessorsTest::pathMapFileIsReadAsWritten_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected"); // alternating old, new

    QTest::newRow("header line is an ordinary entry")
        << QByteArray("Dateipfad Alt,Dateipfad Neu\r\nC:\\A1\\PDF\\P1.PDF,C:\\B1\\PDF\\P1.PDF\r\n")
        << QStringList { QStringLiteral("c:\\a1\\pdf\\p1.pdf"), QStringLiteral("c:\\b1\\pdf\\p1.pdf"),
               QStringLiteral("dateipfad alt"), QStringLiteral("dateipfad neu") };
    QTest::newRow("third field ignored, line without comma skipped")
        << QByteArray("a,b,c\nnur ein Feld\n\n") << QStringList { QStringLiteral("a"), QStringLiteral("b") };
    QTest::newRow("first line for a path wins, whatever its case") << QByteArray(
        "X.PDF,erst.pdf\nx.pdf,zweit.pdf\n") << QStringList { QStringLiteral("x.pdf"), QStringLiteral("erst.pdf") };
    QTest::newRow("blanks are kept") << QByteArray(" a , b\n")
                                     << QStringList { QStringLiteral(" a "), QStringLiteral(" b") };
    QTest::newRow("empty fields") << QByteArray(
        ",leer\nalt,\n") << QStringList { QString(), QStringLiteral("leer"), QStringLiteral("alt"), QString() };
    QTest::newRow("umlauts in UTF-8") << QByteArray("C:\\\xC3\x9C"
                                                    "bersicht.pdf,D:\\Neu.pdf\n")
                                      << QStringList { QStringLiteral("c:\\übersicht.pdf"),
                                             QStringLiteral("d:\\neu.pdf") };
}

void HREFBlockProcessorsTest::pathMapFileIsReadAsWritten()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);
    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("map.csv"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    const QMap<QString, QString> map = LoadHREFPathMap(fileName);
    QStringList flat;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        flat << it.key() << it.value();
    QCOMPARE(flat, expected);
}

void HREFBlockProcessorsTest::missingPathMapFileGivesEmptyMap()
{
    QTemporaryDir dir;
    QVERIFY(LoadHREFPathMap(dir.filePath(QStringLiteral("fehlt.csv"))).isEmpty());
    QVERIFY(LoadHREFPathMap(dir.path()).isEmpty()); // a folder is no map file
}

QTEST_GUILESS_MAIN(HREFBlockProcessorsTest)
#include "HREFBlockProcessorsTest.moc"
