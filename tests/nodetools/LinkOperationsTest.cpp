#include "TestProject.h"

#include <nodetools/ChangeHREFTypeBlockProcessor.h>
#include <nodetools/ChangeHREFTypeNT.h>
#include <nodetools/ChangeHREFTypeToStandardBlockProcessor.h>
#include <nodetools/ChangeHREFTypeToStandardNT.h>
#include <nodetools/ChangePageNumberBlockProcessor.h>
#include <nodetools/ChangePageNumberNT.h>
#include <nodetools/ModifyAnnotationTargetsBlockProcessor.h>
#include <nodetools/ModifyAnnotationTargetsNT.h>

#include <QTest>

#include <memory>

namespace {

// A link record (standard, or one record of a split link) of the given type.
QString record(const QStringList& paths, const QStringList& pages, const QString& type = "0")
{
    return type + StandardLink(paths.join(Z), pages.join(Z)).mid(1);
}

QString href(const QString& path, const QString& page = "1")
{
    return "HREF=" + StandardLink(path, page);
}

QString split(const QStringList& records)
{
    return "HREF=" + S + records.join(T);
}

// Node 7 lists its documents per zone; zone 3 is empty. Node 99 does not exist.
struct Project {
    Project()
        : node(7)
    {
        node.SetZone(2);
        node.SetDocuments(1, { "A1.pdf", "B1.pdf" });
        node.SetDocuments(2, { "A2.pdf", "B2.pdf" });
        node.SetDocuments(4, { "A4.pdf" });
        nodes.insert(7, &node);
        const QList<NodeFileInfo> documents { { "A1.pdf", 7, 1, 0 }, { "B1.pdf", 7, 1, 1 }, { "A2.pdf", 7, 2, 0 },
            { "B2.pdf", 7, 2, 1 }, { "A4.pdf", 7, 4, 0 }, { "Lose.pdf", 99, 1, 0 }, { "Plan.v2.pdf", 7, 2, 2 } };
        for (const NodeFileInfo& document : documents)
            files.insert(document.FileName(), document);
    }
    NodeInfo node;
    QMap<int, NodeInfo*> nodes;
    QMap<QString, NodeFileInfo> files;
};

std::unique_ptr<BlockNodeTool> makeTool(const QString& operation, int option, Project& project)
{
    if (operation == "split") {
        auto tool = std::make_unique<ChangeHREFTypeNT>();
        tool->SetCategoryFilter("Kanal");
        tool->SetNodesMap(&project.nodes);
        tool->SetFilesMap(&project.files);
        return tool;
    }
    if (operation == "standard") {
        auto tool = std::make_unique<ChangeHREFTypeToStandardNT>();
        tool->SetTargetZone(option);
        tool->SetNodesMap(&project.nodes);
        tool->SetFilesMap(&project.files);
        return tool;
    }
    if (operation == "factor") {
        auto tool = std::make_unique<ModifyAnnotationTargetsNT>();
        tool->SetCategoryFilter("Kanal");
        tool->SetNameFilter("^S");
        tool->SetUseEnvFactor(true);
        tool->SetEnvFactor(option / 10.0f);
        return tool;
    }
    auto tool = std::make_unique<ChangePageNumberNT>();
    tool->SetNameFilter("^S");
    tool->SetPageDelta(option);
    return tool;
}

} // namespace

class LinkOperationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filtersSelectBlocks_data();
    void filtersSelectBlocks();
    void standardToSplitUsesCounterparts_data();
    void standardToSplitUsesCounterparts();
    void changedFilesMapIsNoticed();
    void splitToStandardKeepsTargetsOfOneZone_data();
    void splitToStandardKeepsTargetsOfOneZone();
    void envFactorIsSetOnChosenTargets_data();
    void envFactorIsSetOnChosenTargets();
    void pagesAreShiftedNotBelowOne_data();
    void pagesAreShiftedNotBelowOne();
    void toolsRewriteOnlyChangedFiles_data();
    void toolsRewriteOnlyChangedFiles();
};

void LinkOperationsTest::filtersSelectBlocks_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<bool>("byCategory"); // the two type changes have no name filter
    QTest::addColumn<bool>("byBoth");
    const auto row = [](const char* rowName, const QString& category, const QString& name, const QStringList& lines,
                         bool byCategory,
                         bool byBoth) { QTest::newRow(rowName) << category << name << lines << byCategory << byBoth; };
    row("no filters", "", "", {}, true, true);
    row("both match", "Kanal", "^S\\d", { "NA=S12", "KA=Kanal" }, true, true);
    row("other category", "Kanal", "", { "NA=S12", "KA=Baum" }, false, false);
    row("other name", "Kanal", "^S\\d", { "NA=Sx", "KA=Kanal" }, true, false);
    row("no name line", "", ".", { "KA=Kanal" }, true, false);
    row("first name line counts", "", "^S", { "NA=T", "NA=S" }, true, false);
    row("invalid expression", "", "(", { "NA=(" }, true, false);
}

void LinkOperationsTest::filtersSelectBlocks()
{
    QFETCH(QString, category);
    QFETCH(QString, name);
    QFETCH(QStringList, lines);
    QFETCH(bool, byCategory);
    QFETCH(bool, byBoth);
    const QStringList standard = lines + QStringList { href("x.pdf", "2") };
    const QStringList splitLink = lines + QStringList { split({ record({ "x.pdf" }, { "2" }) }) };

    ChangeHREFTypeBlockProcessor toSplit;
    toSplit.categoryFilter = category;
    QCOMPARE(run(toSplit, standard) != block(standard), byCategory);
    ChangeHREFTypeToStandardBlockProcessor toStandard;
    toStandard.categoryFilter = category;
    QCOMPARE(run(toStandard, splitLink) != block(splitLink), byCategory);

    ModifyAnnotationTargetsBlockProcessor factor;
    factor.categoryFilter = category;
    factor.nameFilter = name;
    factor.useEnvFactor = true;
    factor.envFactor = 2.0f;
    QCOMPARE(run(factor, standard) != block(standard), byBoth);
    ChangePageNumberBlockProcessor pages;
    pages.categoryFilter = category;
    pages.nameFilter = name;
    pages.pageDelta = 1;
    QCOMPARE(run(pages, standard) != block(standard), byBoth);
}

void LinkOperationsTest::standardToSplitUsesCounterparts_data()
{
    QTest::addColumn<bool>("withMaps");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("counterparts up to the last zone, name ignoring case")
        << true << href("C:\\P\\a1.PDF", "3")
        << split({ record({ "C:\\P\\a1.PDF", "C:\\P\\A2.pdf", "", "C:\\P\\A4.pdf" }, { "3", "", "", "" }) });
    QTest::newRow("own zone last") << true << href("/srv/p/A4.pdf", "")
                                   << split({ record({ "/srv/p/A1.pdf", "/srv/p/A2.pdf", "", "/srv/p/A4.pdf" },
                                          { "", "", "", "" }) });
    QTest::newRow("no counterpart after the own zone")
        << true << href("x/b2.pdf", "5") << split({ record({ "x/B1.pdf", "x/b2.pdf" }, { "", "5" }) });
    QTest::newRow("no folder") << true << href("A2.pdf", "2")
                               << split({ record({ "A1.pdf", "A2.pdf", "", "A4.pdf" }, { "", "2", "", "" }) });
    QTest::newRow("unknown node") << true << href("C:\\Lose.pdf") << "HREF=" + S + StandardLink("C:\\Lose.pdf");
    QTest::newRow("not a project document")
        << true << href("C:\\A1.pdf.bak") << "HREF=" + S + StandardLink("C:\\A1.pdf.bak");
    QTest::newRow("web link") << true << "HREF=" + record({ "http://h/A1.pdf" }, { "" }, "1")
                              << "HREF=" + S + record({ "http://h/A1.pdf" }, { "" }, "1");
    QTest::newRow("maps not set") << false << href("C:\\P\\A1.pdf") << "HREF=" + S + StandardLink("C:\\P\\A1.pdf");
    QTest::newRow("already split") << true << split({ record({ "A1.pdf" }, { "1" }) })
                                   << split({ record({ "A1.pdf" }, { "1" }) });
    QTest::newRow("no target") << true << href("") << href("");
}

void LinkOperationsTest::standardToSplitUsesCounterparts()
{
    QFETCH(bool, withMaps);
    QFETCH(QString, line);
    QFETCH(QString, expected);
    Project project;
    ChangeHREFTypeBlockProcessor processor;
    if (withMaps) {
        processor.nodes = &project.nodes;
        processor.files = &project.files;
    }
    QCOMPARE(run(processor, { "NA=S", line }), block({ "NA=S", expected }));
}

// The processor indexes the host's map; a change between runs must not be
// answered from the old index.
void LinkOperationsTest::changedFilesMapIsNoticed()
{
    Project project;
    ChangeHREFTypeBlockProcessor processor;
    processor.nodes = &project.nodes;
    processor.files = &project.files;
    run(processor, { href("A1.pdf") });
    project.files.remove("A1.pdf");
    QCOMPARE(run(processor, { href("A1.pdf") }), block({ "HREF=" + S + StandardLink("A1.pdf") }));
    project.files.insert("a1.pdf", { "a1.pdf", 7, 1, 1 });
    QCOMPARE(run(processor, { href("A1.pdf") }), block({ split({ record({ "A1.pdf", "B2.pdf" }, { "1", "" }) }) }));
}

void LinkOperationsTest::splitToStandardKeepsTargetsOfOneZone_data()
{
    QTest::addColumn<int>("zone");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("expected");
    const QString twoTargets
        = split({ record({ "a1.pdf", "a2.pdf" }, { "3", "4" }), record({ "b1.pdf", "", "b3.pdf" }, { "5", "", "" }) });
    QTest::newRow("both targets, in order")
        << 1 << twoTargets << QStringList { href("a1.pdf", "3"), href("b1.pdf", "5") };
    QTest::newRow("target without the zone dropped") << 2 << twoTargets << QStringList { href("a2.pdf", "4") };
    QTest::newRow("zone beyond the shorter record") << 3 << twoTargets << QStringList { href("b3.pdf", "") };
    QTest::newRow("no target in the zone: stays split") << 4 << twoTargets << QStringList { twoTargets };
    QTest::newRow("zone out of range") << 5 << twoTargets << QStringList { twoTargets };
    QTest::newRow("automatic without a file: zone 1")
        << 0 << twoTargets << QStringList { href("a1.pdf", "3"), href("b1.pdf", "5") };
    QTest::newRow("other fields kept") << 2 << split({ record({ "", "w" }, { "", "" }, "1") })
                                       << QStringList { "HREF=" + record({ "w" }, { "" }, "1") };
    QTest::newRow("standard link left") << 1 << href("a.pdf") << QStringList { href("a.pdf") };
}

void LinkOperationsTest::splitToStandardKeepsTargetsOfOneZone()
{
    QFETCH(int, zone);
    QFETCH(QString, line);
    QFETCH(QStringList, expected);
    ChangeHREFTypeToStandardBlockProcessor processor;
    processor.targetZone = zone;
    QCOMPARE(
        run(processor, { "NA=S", line, "TX=t" }), block(QStringList { "NA=S" } + expected + QStringList { "TX=t" }));
}

void LinkOperationsTest::envFactorIsSetOnChosenTargets_data()
{
    QTest::addColumn<bool>("use");
    QTest::addColumn<int>("index"); // -1: every target
    QTest::addColumn<float>("factor");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    const auto withFactor = [](QString value, const QString& factor) {
        QStringList fields = value.split(F);
        fields[4] = factor;
        return fields.join(F);
    };
    const QString a = record({ "a.pdf" }, { "1" });
    const QString b = record({ "b.pdf", "c.pdf" }, { "1", "2" });
    QTest::newRow("standard, one decimal") << true << -1 << 1.27f << href("a.pdf") << "HREF=" + withFactor(a, "1.3");
    QTest::newRow("every target") << true << -1 << 0.0f << split({ a, b })
                                  << split({ withFactor(a, "0.0"), withFactor(b, "0.0") });
    QTest::newRow("second target only") << true << 1 << 3.0f << split({ a, b }) << split({ a, withFactor(b, "3.0") });
    QTest::newRow("standard link is index 0") << true << 0 << 2.0f << href("a.pdf") << "HREF=" + withFactor(a, "2.0");
    QTest::newRow("index beyond the link") << true << 2 << 3.0f << split({ a, b }) << split({ a, b });
    QTest::newRow("already that text") << true << -1 << 1.0f << href("a.pdf") << href("a.pdf");
    QTest::newRow("switched off") << false << -1 << 2.0f << href("a.pdf") << href("a.pdf");
    QTest::newRow("not finite") << true << -1 << float(qInf()) << href("a.pdf") << href("a.pdf");
}

void LinkOperationsTest::envFactorIsSetOnChosenTargets()
{
    QFETCH(bool, use);
    QFETCH(int, index);
    QFETCH(float, factor);
    QFETCH(QString, line);
    QFETCH(QString, expected);
    ModifyAnnotationTargetsBlockProcessor processor;
    processor.useEnvFactor = use;
    processor.useTargetIndexFilter = index >= 0;
    processor.targetIndex = unsigned(index);
    processor.envFactor = factor;
    QCOMPARE(run(processor, { line }), block({ expected }));
}

void LinkOperationsTest::pagesAreShiftedNotBelowOne_data()
{
    QTest::addColumn<int>("delta");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("forward") << 2 << href("a.pdf", "3") << href("a.pdf", "5");
    QTest::newRow("clamped at 1") << -5 << href("a.pdf", "3") << href("a.pdf", "1");
    QTest::newRow("empty page counts as 1") << 2 << href("a.pdf", "") << href("a.pdf", "3");
    QTest::newRow("empty page stays at 1") << -1 << href("a.pdf", "") << href("a.pdf", "");
    QTest::newRow("delta 0 keeps leading zero") << 0 << href("a.pdf", "03") << href("a.pdf", "03");
    QTest::newRow("not a page number") << 4 << href("a.pdf", "iv") << href("a.pdf", "iv");
    QTest::newRow("zero, sign and blank left") << 4 << split({ record({ "a", "b", "c" }, { "0", "+2", " 2" }) })
                                               << split({ record({ "a", "b", "c" }, { "0", "+2", " 2" }) });
    QTest::newRow("linked zones only") << 1 << split({ record({ "a", "", "c" }, { "2", "2", "" }) })
                                       << split({ record({ "a", "", "c" }, { "3", "2", "2" }) });
    QTest::newRow("empty type is a document")
        << 1 << split({ record({ "a" }, { "2" }, "") }) << split({ record({ "a" }, { "3" }, "") });
    QTest::newRow("web, node and mail left") << 1
                                             << split({ record({ "u" }, { "2" }, "1"), record({ "7" }, { "2" }, "2"),
                                                    record({ "m" }, { "2" }, "3"), record({ "d" }, { "2" }) })
                                             << split({ record({ "u" }, { "2" }, "1"), record({ "7" }, { "2" }, "2"),
                                                    record({ "m" }, { "2" }, "3"), record({ "d" }, { "3" }) });
}

void LinkOperationsTest::pagesAreShiftedNotBelowOne()
{
    QFETCH(int, delta);
    QFETCH(QString, line);
    QFETCH(QString, expected);
    ChangePageNumberBlockProcessor processor;
    processor.pageDelta = delta;
    QCOMPARE(run(processor, { line }), block({ expected }));
}

void LinkOperationsTest::toolsRewriteOnlyChangedFiles_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after"); // empty: unchanged

    const QStringList header { "ANN=2", "DOC=A1.pdf" };
    const QStringList noLinks { "BO", "ID=1", "NA=S1", "KA=Kanal", "EO" };
    const QString twoZones = split({ record({ "p1.pdf", "p2.pdf" }, { "1", "2" }), record({ "q1.pdf" }, { "" }) });

    QTest::newRow("to split: category, side by side") << "split" << 0 << "A1.ann"
                                                      << header + noLinks
            + QStringList { "BO", "KA=Kanal", href("D:\\A2.pdf", "4"), twoZones, "EO", "BO", "KA=Baum",
                  href("D:\\A2.pdf", "4"), "EO" }
                                                      << header + noLinks
            + QStringList { "BO", "KA=Kanal",
                  split({ record({ "D:\\A1.pdf", "D:\\A2.pdf", "", "D:\\A4.pdf" }, { "", "4", "", "" }) }), twoZones,
                  "EO", "BO", "KA=Baum", href("D:\\A2.pdf", "4"), "EO" };
    QTest::newRow("to split: nothing to change")
        << "split" << 0 << "A1.ann" << header + noLinks + QStringList { "BO", "KA=Kanal", twoZones, "EO" }
        << QStringList {};
    QTest::newRow("to standard: zone of the document's node")
        << "standard" << 0 << "A1.ann" << header + QStringList { "BO", twoZones, href("s.pdf"), "EO" }
        << header + QStringList { "BO", href("p2.pdf", "2"), href("s.pdf"), "EO" };
    QTest::newRow("to standard: document's second file name")
        << "standard" << 0 << "Plan.v2pdf.ann" << QStringList { "BO", twoZones, "EO" }
        << QStringList { "BO", href("p2.pdf", "2"), "EO" };
    QTest::newRow("to standard: unknown node, zone 1")
        << "standard" << 0 << "Lose.ann" << QStringList { "BO", twoZones, "EO" }
        << QStringList { "BO", href("p1.pdf", "1"), href("q1.pdf", ""), "EO" };
    QTest::newRow("to standard: unknown document, zone 1")
        << "standard" << 0 << "Fremd.ann" << QStringList { "BO", twoZones, "EO" }
        << QStringList { "BO", href("p1.pdf", "1"), href("q1.pdf", ""), "EO" };
    QTest::newRow("to standard: no target in the zone")
        << "standard" << 3 << "A1.ann" << header + QStringList { "BO", twoZones, "EO" } << QStringList {};
    QTest::newRow("factor: category and name")
        << "factor" << 15 << "A1.ann"
        << QStringList { "BO", "NA=S1", "KA=Kanal", href("a.pdf"), "EO", "BO", "NA=T1", "KA=Kanal", href("a.pdf"),
               "EO" }
        << QStringList { "BO", "NA=S1", "KA=Kanal", "HREF=" + StandardLink("a.pdf").replace("1.0", "1.5"), "EO", "BO",
               "NA=T1", "KA=Kanal", href("a.pdf"), "EO" };
    QTest::newRow("factor: already set") << "factor" << 10 << "A1.ann"
                                         << QStringList { "BO", "NA=S1", "KA=Kanal", href("a.pdf"), "EO" }
                                         << QStringList {};
    QTest::newRow("pages: clamped, name filter")
        << "page" << -3 << "A1.ann"
        << QStringList { "BO", "NA=S1", twoZones, "EO", "BO", "NA=T", href("a.pdf", "9"), "EO" }
        << QStringList { "BO", "NA=S1",
               split({ record({ "p1.pdf", "p2.pdf" }, { "1", "1" }), record({ "q1.pdf" }, { "" }) }), "EO", "BO",
               "NA=T", href("a.pdf", "9"), "EO" };
    QTest::newRow("pages: web links only")
        << "page" << 5 << "A1.ann" << QStringList { "BO", "NA=S1", "HREF=" + record({ "u" }, { "2" }, "1"), "EO" }
        << QStringList {};
}

void LinkOperationsTest::toolsRewriteOnlyChangedFiles()
{
    QFETCH(QString, operation);
    QFETCH(int, option);
    QFETCH(QString, file);
    QFETCH(QStringList, before);
    QFETCH(QStringList, after);
    TestProject disk;
    disk.Write(file, HostText(before));
    disk.Write("Other.ann", HostText({ "DOC=Other.pdf" }));
    Project project;
    const std::unique_ptr<BlockNodeTool> tool = makeTool(operation, option, project);
    tool->SetProjectRootDir(disk.Root());
    tool->SetAllAnnotationFiles(true);
    tool->Execute();

    QCOMPARE(disk.Read(file), HostText(after.isEmpty() ? before : after));
    QCOMPARE(disk.Read("Other.ann"), HostText({ "DOC=Other.pdf" }));
    QCOMPARE(tool->GetFilesExamined(), 2);
    QCOMPARE(tool->GetFilesChanged(), after.isEmpty() ? 0 : 1);
}

QTEST_GUILESS_MAIN(LinkOperationsTest)
#include "LinkOperationsTest.moc"
