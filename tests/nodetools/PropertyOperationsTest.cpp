#include "TestProject.h"

#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ConvertFreeHandPinsNT.h>
#include <nodetools/ReplaceNameBlockProcessor.h>
#include <nodetools/ReplaceNameInAnnotationsNT.h>
#include <nodetools/SetAnnotationPropertiesNT.h>
#include <nodetools/SetPropertiesBlockProcessor.h>

#include <Kamo_view/NodeInfo.h>

#include <QTest>

namespace {

// A standard link record of the given type.
QString link(const QString& type, const QString& path, const QString& description)
{
    const QString value = StandardLink(path, "1", description);
    return type + value.mid(value.indexOf(F));
}

// Target (KA=Ziel) first, the template after it; a polygon and a later
// rectangle of the same name must not serve as template.
QStringList templateFile(const QString& type, const QString& geometry)
{
    return { "ANN=2", "BO", "ID=1", "TY=" + type, "NA=Ziel", "KA=Ziel", "GEO=" + geometry, "EO", "BO", "ID=2",
        "TY=POLY", "NA=Vorlage", "KA=Alt", "GEO=1;1;1;1", "EO", "BO", "ID=3", "TY=RECT", "NA=Vorlage", "KA=Ziel",
        "GEO=10;20;30;40", "EO", "BO", "ID=4", "TY=RECT", "NA=Vorlage", "KA=Alt", "GEO=99;99;99;99", "EO" };
}

QMap<int, NodeInfo*> nodeFixture(QList<NodeInfo*>& owned)
{
    auto* schacht = new NodeInfo(3, "Schacht 3");
    schacht->SetDocuments(1, { "C:\\Projekt\\PDF\\Plan.pdf" });
    auto* haus = new NodeInfo(7, "Haus 7");
    haus->SetDocuments(2, { "D:/Archiv/plan.PDF", "Foto.jpg" });
    auto* unnamed = new NodeInfo(9, "");
    unnamed->SetDocuments(1, { "Leer.pdf" });
    owned = { schacht, haus, unnamed };
    return { { 7, haus }, { 3, schacht }, { 9, unnamed }, { 11, nullptr } };
}

} // namespace

class PropertyOperationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameAndTextOfSelectedObjects_data();
    void nameAndTextOfSelectedObjects();
    void measuresFromTemplateRectangle_data();
    void measuresFromTemplateRectangle();
    void setPropertiesWritesOnlyChangedFiles();
    void captionsFollowNodeNames_data();
    void captionsFollowNodeNames();
    void captionsInEveryAnnotationFile();
    void pinsAppendedOnce_data();
    void pinsAppendedOnce();
};

void PropertyOperationsTest::nameAndTextOfSelectedObjects_data()
{
    // A null name or text means the option is off.
    QTest::addColumn<QString>("nameFilter");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("properties");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* rowName, const QString& filter, const QString& name, const QString& text,
                         const QStringList& properties, const QStringList& expected) {
        QTest::newRow(rowName) << filter << name << text << properties << expected;
    };
    const QString off;
    row("first name line replaced", "", "Neu", off, { "KA=Kanal", "NA=Alt", "NA=Zwei" },
        { "KA=Kanal", "NA=Neu", "NA=Zwei" });
    row("both added before EO", "", "Neu", "Text", { "KA=Kanal" }, { "KA=Kanal", "NA=Neu", "TX=Text" });
    row("only the text", "", off, "Text", { "KA=Kanal", "NA=Alt", "TX=alt", "TX=zwei" },
        { "KA=Kanal", "NA=Alt", "TX=Text", "TX=zwei" });
    row("other category", "", "Neu", "Text", { "KA=Baum", "NA=Alt" }, { "KA=Baum", "NA=Alt" });
    row("filter sees the old name", "^Alt$", "Neu", off, { "KA=Kanal", "NA=Alt" }, { "KA=Kanal", "NA=Neu" });
    row("filter does not match", "^Alt$", "Neu", off, { "KA=Kanal", "NA=Alter" }, { "KA=Kanal", "NA=Alter" });
    row("filter, no name line", "A", "Neu", off, { "KA=Kanal" }, { "KA=Kanal" });
    row("invalid filter", "(", "Neu", off, { "KA=Kanal", "NA=Alt" }, { "KA=Kanal", "NA=Alt" });
    row("line breaks cannot close the object", "", off, "a\r\nEO\nb", { "KA=Kanal" }, { "KA=Kanal", "TX=a  EO b" });
}

void PropertyOperationsTest::nameAndTextOfSelectedObjects()
{
    QFETCH(QString, nameFilter);
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QStringList, properties);
    QFETCH(QStringList, expected);
    SetPropertiesBlockProcessor processor;
    processor.categoryFilter = "Kanal";
    processor.nameFilter = nameFilter;
    processor.setName = !name.isNull();
    processor.name = name;
    processor.setText = !text.isNull();
    processor.text = text;
    QCOMPARE(run(processor, properties), block(expected));
}

void PropertyOperationsTest::measuresFromTemplateRectangle_data()
{
    // Switches: F from the template, L left, W width, H height, T topwards.
    QTest::addColumn<QString>("switches");
    QTest::addColumn<QString>("templateName");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("geometry");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QString& switches, const QString& geometry, const QString& expected,
                         const QString& templateName = "Vorlage", const QString& type = "RECT") {
        QTest::newRow(name) << switches << templateName << type << geometry << expected;
    };
    row("left", "FL", "1;2;3;4", "10;2;3;4");
    row("width", "FW", "1;2;3;4", "1;2;30;4");
    row("height downwards", "FH", "1;2;3;4", "1;2;3;40");
    row("height topwards keeps the bottom", "FHT", "1;50;3;4", "1;14;3;40");
    row("topwards in exact decimals", "FHT", "1;50.1;3;4.2", "1;14.3;3;40");
    row("same height as other text", "FHT", "1;2.50;3;40.0", "1;2.50;3;40");
    row("all", "FLWHT", "0.5;100;3;4", "10;64;30;40");
    row("no source", "LWHT", "1;2;3;4", "1;2;3;4");
    row("no template", "FLWHT", "1;2;3;4", "1;2;3;4", "Fehlt");
    row("name matched exactly", "FLWHT", "1;2;3;4", "1;2;3;4", "vorlage");
    row("not a rectangle", "FLWHT", "1;2;3;4", "1;2;3;4", "Vorlage", "POLY");
    row("three numbers", "FLWHT", "1;2;3", "1;2;3");
    row("exponent", "FLWHT", "1e1;2;3;4", "1e1;2;3;4");
    row("decimal comma", "FLWHT", "1,5;2;3;4", "1,5;2;3;4");
}

// The whole file goes through, so the template block (selected too) is
// checked to stay as it was.
void PropertyOperationsTest::measuresFromTemplateRectangle()
{
    QFETCH(QString, switches);
    QFETCH(QString, templateName);
    QFETCH(QString, type);
    QFETCH(QString, geometry);
    QFETCH(QString, expected);
    TestProject project;
    project.Write("a.ann", HostText(templateFile(type, geometry)));

    SetPropertiesBlockProcessor processor;
    processor.categoryFilter = "Ziel";
    processor.setDimensions = true;
    processor.dimensions.fromOtherAnnotation = switches.contains('F');
    processor.dimensions.templateName = templateName;
    processor.dimensions.setLeftOffset = switches.contains('L');
    processor.dimensions.setWidth = switches.contains('W');
    processor.dimensions.setHeight = switches.contains('H');
    processor.dimensions.heightTopwards = switches.contains('T');
    processor.BeginFile(project.DataPath("a.ann"));
    QString text = QString::fromUtf8(project.Read("a.ann"));
    AnnotationFileProcessor::ProcessText(text, processor);
    QCOMPARE(text, QString::fromUtf8(HostText(templateFile(type, expected))));
}

void PropertyOperationsTest::setPropertiesWritesOnlyChangedFiles()
{
    TestProject project;
    const QByteArray untouched = HostText({ "BO", "TY=RECT", "NA=Schild", "GEO=1;2;3;4", "EO" });
    project.Write("a.ann",
        HostText({ "ANN=2", "BO", "TY=RECT", "NA=Schacht 1", "GEO=5;100;6;8", "EO", "BO", "TY=RECT", "NA=Muster",
            "GEO=0;0;12.5;20", "EO" }));
    project.Write("b.ann", untouched);

    SetAnnotationPropertiesNT tool;
    tool.SetProjectRootDir(project.Root());
    tool.SetFileNames({ "a.pdf", "b.pdf", "c.pdf" });
    tool.SetNameFilter("^Schacht");
    tool.SetTextOption(true, "geprüft");
    AnnotationDimensionOptions options;
    options.templateName = "Muster";
    options.setLeftOffset = false;
    tool.SetDimensionOption(true, options);
    tool.Execute();

    QCOMPARE(project.Read("a.ann"),
        HostText({ "ANN=2", "BO", "TY=RECT", "NA=Schacht 1", "GEO=5;88;12.5;20", "TX=geprüft", "EO", "BO", "TY=RECT",
            "NA=Muster", "GEO=0;0;12.5;20", "EO" }));
    QCOMPARE(project.Read("b.ann"), untouched);
    QCOMPARE(tool.GetFilesExamined(), 2);
    QCOMPARE(tool.FileProcessor().GetChangedFiles(), QStringList { project.DataPath("a.ann") });
}

void PropertyOperationsTest::captionsFollowNodeNames_data()
{
    QTest::addColumn<bool>("ignorePath");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    // A link of `type` to `path` captioned "alt" that should read `caption`.
    const auto row
        = [](const char* name, bool ignorePath, const QString& type, const QString& path, const QString& caption) {
              QTest::newRow(name) << ignorePath << link(type, path, "alt") << link(type, path, caption);
          };
    row("node link", false, "2", "7", "Haus 7");
    row("node link, unknown id", false, "2", "12", "alt");
    row("node link, not decimal", false, "2", "+7", "alt");
    row("node link, null node", false, "2", "11", "alt");
    row("unnamed node keeps the caption", false, "2", "9", "alt");
    row("whole path, case and slashes ignored", false, "0", "c:/projekt/pdf/PLAN.PDF", "Schacht 3");
    row("whole path, other folder", false, "0", "E:\\Plan.pdf", "alt");
    row("file name only, lowest id wins", true, "0", "E:\\Plan.pdf", "Schacht 3");
    row("file name only, another zone's list", true, "", "foto.JPG", "Haus 7");
    row("web link", true, "1", "Foto.jpg", "alt");
    const auto twoTargets = [](const QString& caption) {
        return S + "0" + F + "x.pdf" + F + "1" + F + "a" + T + "0" + F + "y.pdf" + Z + "Foto.jpg" + F + "1" + Z + "2"
            + F + caption;
    };
    QTest::newRow("split link, second zone, second target") << false << twoTargets("b") << twoTargets("Haus 7");
    // Written back, the short page list would grow by one entry.
    const QString shortPages = S + "2" + F + "7" + Z + "3" + F + F + "Haus 7";
    QTest::newRow("caption already right: kept as read") << false << shortPages << shortPages;
}

void PropertyOperationsTest::captionsFollowNodeNames()
{
    QFETCH(bool, ignorePath);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QList<NodeInfo*> owned;
    QMap<int, NodeInfo*> nodes = nodeFixture(owned);
    ReplaceNameBlockProcessor processor;
    processor.nodes = &nodes;
    processor.ignorePathOnCompare = ignorePath;
    QCOMPARE(run(processor, { "NA=x", "HREF=" + value, "TX=" + value }),
        block({ "NA=x", "HREF=" + expected, "TX=" + value }));
    processor.nodes = nullptr;
    QCOMPARE(run(processor, { "HREF=" + value }), block({ "HREF=" + value }));
    qDeleteAll(owned);
}

void PropertyOperationsTest::captionsInEveryAnnotationFile()
{
    TestProject project;
    const QByteArray current = HostText({ "BO", "HREF=" + link("2", "3", "Schacht 3"), "EO" });
    project.Write("a.ann", HostText({ "ANN=2", "BO", "HREF=" + link("0", "D:\\Archiv\\Plan.pdf", "alt"), "EO" }));
    project.Write("b.ann", current);
    QList<NodeInfo*> owned;
    QMap<int, NodeInfo*> nodes = nodeFixture(owned);

    ReplaceNameInAnnotationsNT tool;
    tool.SetProjectRootDir(project.Root());
    tool.SetNodesMap(&nodes);
    tool.SetIgnorePathOnCompare(true);
    tool.Execute();

    QCOMPARE(project.Read("a.ann"),
        HostText({ "ANN=2", "BO", "HREF=" + link("0", "D:\\Archiv\\Plan.pdf", "Schacht 3"), "EO" }));
    QCOMPARE(project.Read("b.ann"), current);
    QCOMPARE(tool.GetFilesExamined(), 2);
    QCOMPARE(tool.GetFilesChanged(), 1);
    qDeleteAll(owned);
}

void PropertyOperationsTest::pinsAppendedOnce_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("appended");
    const QStringList pin500 { "TY=PIN", "PG=1", "GEO=0.1;297.25", "NA=Stadtwerke", "KA=Betroffenheit", "PIN=500",
        "EO" };
    const QStringList pin501 { "TY=PIN", "PG=2", "GEO=12;30.5", "NA=Müller", "KA=Betroffenheit", "TX=Flur 3", "PIN=501",
        "BT=7", "EO" };
    const QStringList numbered { "ANN=2", "BO", "ID=3", "EO", "BO", "ID=12", "EO", "BO", "ID=x", "EO" };
    QTest::newRow("after the highest numeric id")
        << "Plan.pdf" << numbered << QStringList { "BO", "ID=13" } + pin500 + QStringList { "BO", "ID=14" } + pin501;
    QTest::newRow("same file name, any case and folder")
        << "C:\\Archiv\\PLAN.PDF" << numbered
        << QStringList { "BO", "ID=13" } + pin500 + QStringList { "BO", "ID=14" } + pin501;
    QTest::newRow("pin already there") << "Plan.pdf" << QStringList { "BO", "ID=4", "PIN=500", "EO" }
                                       << QStringList { "BO", "ID=5" } + pin501;
    QTest::newRow("no ids yet") << "Plan.pdf" << QStringList { "ANN=2" }
                                << QStringList { "BO", "ID=1" } + pin500 + QStringList { "BO", "ID=2" } + pin501;
    QTest::newRow("another document's pins") << "Plan2.pdf" << numbered << QStringList {};
}

// Each row runs twice: the second run must find nothing to do.
void PropertyOperationsTest::pinsAppendedOnce()
{
    QFETCH(QString, key);
    QFETCH(QStringList, before);
    QFETCH(QStringList, appended);
    TestProject project;
    project.Write("Plan.ann", HostText(before));
    const QByteArray other = HostText({ "BO", "ID=1", "EO" });
    project.Write("Andere.ann", other);
    QMap<QString, QMap<int, QList<PinObject>>> pins;
    pins[key][2] = { PinObject(501, 12.0, 30.5, "Müller", 7, "Flur 3") };
    pins[key][1] = { PinObject(500, 0.1, 297.25, "Stadtwerke") };
    pins["Andere.pdf"] = {};

    for (int round = 0; round < 2; ++round) {
        ConvertFreeHandPinsNT tool;
        tool.SetProjectRootDir(project.Root());
        tool.SetFileNames({ "Ohne.pdf", "Plan.pdf", "Andere.pdf" });
        tool.SetFilesPinMap(&pins);
        tool.Execute();
        QCOMPARE(project.Read("Plan.ann"), HostText(before + appended));
        QCOMPARE(project.Read("Andere.ann"), other);
        QCOMPARE(tool.GetFilesExamined(), 2);
        QCOMPARE(tool.GetFilesChanged(), round == 0 && !appended.isEmpty() ? 1 : 0);
    }
}

QTEST_GUILESS_MAIN(PropertyOperationsTest)
#include "PropertyOperationsTest.moc"
