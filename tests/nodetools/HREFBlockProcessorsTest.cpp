#include "TestProject.h"

#include <nodetools/ChangeHREFPathBlockProcessor.h>
#include <nodetools/DuplicateHREFBlockProcessor.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/RemoveHREFBlockProcessor.h>

#include <QTemporaryDir>
#include <QTest>

namespace {

// A standard value with numbered fields, to see which one moved.
QString numberedLink(int fields, const QString& target = "f1")
{
    QStringList values;
    for (int i = 0; i < fields; ++i)
        values.append(i == 1 ? target : QString("f%1").arg(i));
    return values.join(F);
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
};

void HREFBlockProcessorsTest::categoryFilterSelectsBlocks_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("categoryLines");
    QTest::addColumn<bool>("selected");
    QTest::newRow("empty filter, no category") << "" << QStringList {} << true;
    QTest::newRow("exact") << "Baum" << QStringList { "KA=Baum" } << true;
    QTest::newRow("case differs") << "Baum" << QStringList { "KA=baum" } << false;
    QTest::newRow("trailing blank") << "Baum" << QStringList { "KA=Baum " } << false;
    QTest::newRow("no category line") << "Baum" << QStringList { "KAT=Baum" } << false;
    QTest::newRow("empty category line skipped") << "Baum" << QStringList { "KA=", "KA=Baum" } << true;
    QTest::newRow("only the first counts") << "Baum" << QStringList { "KA=Kanal", "KA=Baum" } << false;
}

// Both processors share the category test.
void HREFBlockProcessorsTest::categoryFilterSelectsBlocks()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, categoryLines);
    QFETCH(bool, selected);
    const QStringList properties = categoryLines + QStringList { "HREF=" + StandardLink("a.pdf") };

    RemoveHREFBlockProcessor remove;
    remove.categoryFilter = filter;
    QCOMPARE(run(remove, properties) == block(categoryLines), selected);

    DuplicateHREFBlockProcessor duplicate;
    duplicate.categoryFilter = filter;
    duplicate.newLinkTarget = "neu.pdf";
    QCOMPARE(run(duplicate, properties).size() == properties.size() + 3, selected);
}

void HREFBlockProcessorsTest::removalDeletesOnlyHrefLines()
{
    RemoveHREFBlockProcessor remove;
    QCOMPARE(run(remove, { "NA=S", "HREF=a", "HREFX=b", "HREF=" + S + "0" + F + "c", "TX=HREF=d", "HREF=" }),
        block({ "NA=S", "HREFX=b", "TX=HREF=d" }));
}

void HREFBlockProcessorsTest::duplicationCopiesFirstStandardLink_data()
{
    QTest::addColumn<QStringList>("properties");
    QTest::addColumn<QStringList>("expected");
    const QString first = "HREF=" + numberedLink(23);
    const QString copy = "HREF=" + numberedLink(23, "neu.pdf");
    const QString second = "HREF=" + StandardLink("zweites.pdf");
    QTest::newRow("right after the first standard link")
        << QStringList { "NA=x", first, second, "TX=t" } << QStringList { "NA=x", first, copy, second, "TX=t" };
    QTest::newRow("split link skipped") << QStringList { "HREF=" + S + numberedLink(23), first }
                                        << QStringList { "HREF=" + S + numberedLink(23), first, copy };
    QTest::newRow("22 fields") << QStringList { "HREF=" + numberedLink(22) }
                               << QStringList { "HREF=" + numberedLink(22) };
    QTest::newRow("24 fields") << QStringList { "HREF=" + numberedLink(24) }
                               << QStringList { "HREF=" + numberedLink(24) };
    QTest::newRow("empty fields keep their places")
        << QStringList { "HREF=" + StandardLink("a.pdf", "", "") }
        << QStringList { "HREF=" + StandardLink("a.pdf", "", ""), "HREF=" + StandardLink("neu.pdf", "", "") };
}

void HREFBlockProcessorsTest::duplicationCopiesFirstStandardLink()
{
    QFETCH(QStringList, properties);
    QFETCH(QStringList, expected);
    DuplicateHREFBlockProcessor duplicate;
    duplicate.newLinkTarget = "neu.pdf";
    QCOMPARE(run(duplicate, properties), block(expected));
}

void HREFBlockProcessorsTest::pathMappingRewritesWholePathsIgnoringCase_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    const auto link = [](const QString& path) { return "HREF=" + StandardLink(path); };
    QTest::newRow("ignoring case, written lower case") << link("C:\\A1\\PDF\\P1.PDF") << link("c:\\b1\\pdf\\p1.pdf");
    QTest::newRow("forward slashes are another path") << link("C:/A1/PDF/P1.PDF") << link("C:/A1/PDF/P1.PDF");
    QTest::newRow("blank belongs to the path") << link(" C:\\A1\\PDF\\P1.PDF") << link(" C:\\A1\\PDF\\P1.PDF");
    QTest::newRow("no entry keeps the case") << link("C:\\Andere.PDF") << link("C:\\Andere.PDF");
    QTest::newRow("entry to itself keeps the case") << link("X:\\Gleich.pdf") << link("X:\\Gleich.pdf");
    QTest::newRow("every zone of every target") << "HREF=" + S + "0" + F + "C:\\A1\\PDF\\P1.PDF" + Z + "y.pdf" + F + "3"
            + Z + "4" + T + "0" + F + "c:\\a1\\pdf\\p2.pdf"
                                                << "HREF=" + S + "0" + F + "c:\\b1\\pdf\\p1.pdf" + Z + "y.pdf" + F + "3"
            + Z + "4" + T + "0" + F + "c:\\b1\\pdf\\p2.pdf";
    QTest::newRow("no targets: empty line") << link("") << "";
    QTest::newRow("other keys untouched") << "TX=C:\\A1\\PDF\\P1.PDF"
                                          << "TX=C:\\A1\\PDF\\P1.PDF";
}

void HREFBlockProcessorsTest::pathMappingRewritesWholePathsIgnoringCase()
{
    QFETCH(QString, line);
    QFETCH(QString, expected);
    ChangeHREFPathBlockProcessor map;
    map.pathMap = { { "c:\\a1\\pdf\\p1.pdf", "c:\\b1\\pdf\\p1.pdf" }, { "c:\\a1\\pdf\\p2.pdf", "c:\\b1\\pdf\\p2.pdf" },
        { "x:\\gleich.pdf", "x:\\gleich.pdf" } };
    QCOMPARE(run(map, { line }), block({ expected }));
}

void HREFBlockProcessorsTest::pathMapFileIsReadAsWritten_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected"); // old, new, old, new...
    QTest::newRow("header line is an entry")
        << QByteArray("Dateipfad Alt,Dateipfad Neu\r\nC:\\A1\\P1.PDF,C:\\B1\\P1.PDF\r\n")
        << QStringList { "c:\\a1\\p1.pdf", "c:\\b1\\p1.pdf", "dateipfad alt", "dateipfad neu" };
    QTest::newRow("third field ignored, no comma skipped")
        << QByteArray("a,b,c\nein Feld\n\n") << QStringList { "a", "b" };
    QTest::newRow("first line for a path wins")
        << QByteArray("X.PDF,erst\nx.pdf,zweit\n") << QStringList { "x.pdf", "erst" };
    QTest::newRow("blanks and empty fields kept")
        << QByteArray(" a , b\n,leer\n") << QStringList { "", "leer", " a ", " b" };
    QTest::newRow("UTF-8") << QByteArray("\xC3\x9C"
                                         "bersicht.pdf,Neu.pdf\n")
                           << QStringList { "übersicht.pdf", "neu.pdf" };
    QTest::newRow("missing file") << QByteArray() << QStringList {};
}

void HREFBlockProcessorsTest::pathMapFileIsReadAsWritten()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);
    QTemporaryDir dir;
    QFile file(dir.filePath("map.csv"));
    if (!content.isEmpty())
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();

    QStringList flat;
    const QMap<QString, QString> map = LoadHREFPathMap(file.fileName());
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        flat << it.key() << it.value();
    QCOMPARE(flat, expected);
}

QTEST_GUILESS_MAIN(HREFBlockProcessorsTest)
#include "HREFBlockProcessorsTest.moc"
