#include <Kamo_view/ProjectDescription.h>

#include <QTemporaryDir>
#include <QTest>

class ProjectDescriptionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sampleProjectLoads();
    void malformedFilesAreRejected_data();
    void malformedFilesAreRejected();
};

void ProjectDescriptionTest::sampleProjectLoads()
{
    ProjectDescription description;
    QVERIFY2(description.Load(KAMO_SAMPLE_PROJECT), qPrintable(description.ErrorString()));
    QCOMPARE(description.Id(), "MS-KS-2024");
    QCOMPARE(description.Nodes().size(), 8);
    QCOMPARE(description.NodeOrder().constFirst(), 1);

    // Filed under node 6 and again under its child 7: the lower id keeps it.
    const NodeFileInfo file
        = description.Files().value("C:\\Projekte\\Musterstadt\\PDF\\Hausanschlussplan_Lindenweg.pdf");
    QCOMPARE(file.NodeId(), 6);
    QCOMPARE(file.Index(), 1);

    const QList<NodeInfo*> haltung = description.FindNodes("Haltung H0815");
    QCOMPARE(haltung.size(), 1);
    QStringList documents;
    haltung.first()->GetFilesForZone(haltung.first()->Zone(), documents);
    QCOMPARE(documents.size(), 3);
    QStringList zone2;
    haltung.first()->GetFilesForZone(2, zone2);
    QCOMPARE(zone2, QStringList { "C:\\Projekte\\Musterstadt\\PDF\\Zonen\\BA1_H0815.pdf" });

    const auto pins = description.Pins().value("C:\\Projekte\\Musterstadt\\PDF\\Hausanschlussplan_Lindenweg.pdf");
    QCOMPARE(pins.keys(), (QList<int> { 1, 2 }));
    QCOMPARE(pins.value(1).at(1).Note(), "Keller unter Straßenniveau");
    QCOMPARE(pins.value(2).at(0).X(), 120.25);

    QCOMPARE(description.Participants().value(12)->Name(), "Eigentümer Lindenweg 7");
    QCOMPARE(description.Tables().value(2)->Columns().size(), 3);
    QCOMPARE(description.Galleries().value(1)->Folder(), "Fotos/BA2");
    QCOMPARE(description.GeoSystem(), "EPSG:25832");
    QVERIFY(description.Areas().value("Baufeld West").contains(QPointF(500000, 5398300)));
}

void ProjectDescriptionTest::malformedFilesAreRejected_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& json, const QString& message) {
        QTest::newRow(name) << json << message;
    };
    const QByteArray head = R"({"Version": 1, "Nodes": [)";
    const QByteArray noNodes = R"({"Version": 1, "Nodes": [], )";
    row("not JSON", "{\"Version\": 1,", "not valid JSON at offset");
    row("a list at the top", "[]", "top level must be an object");
    row("other version", R"({"Version": 2, "Nodes": []})", "\"Version\" must be 1");
    row("nodes not a list", R"({"Version": 1, "Nodes": {}})", "\"Nodes\" must be a list");
    row("fractional id", head + R"({"Id": 1.5}]})", "node 1: \"Id\" must be a positive whole number");
    row("id twice", head + R"({"Id": 4}, {"Id": 4}]})", "node 2: id 4 is used twice");
    row("child before parent", head + R"({"Id": 2, "Parent": 1}, {"Id": 1}]})",
        "parent 1 must be listed before its children");
    row("zone 5", head + R"({"Id": 1, "Zone": 5}]})", "\"Zone\" must be 1 to 4");
    row("document zone 0", head + R"({"Id": 1, "Documents": {"0": ["a.pdf"]}}]})",
        "document zone \"0\" must be 1 to 4");
    row("document not text", head + R"({"Id": 1, "Documents": {"1": [7]}}]})", "documents must be file names");
    row("pin without position", noNodes + R"("Pins": {"a.pdf": {"1": [{"Id": 3, "X": 1}]}}})",
        "pin 3 needs numbers \"X\" and \"Y\"");
    row("participant id twice", noNodes + R"("Participants": [{"Id": 3}, {"Id": 3}]})",
        "Participants 2: id 3 is used twice");
    row("table without id", noNodes + R"("Tables": [{"Name": "T"}]})",
        "Tables 1: \"Id\" must be a positive whole number");
    row("area of two points", noNodes + R"("Areas": {"A": [[0, 0], [1, 1]]}})",
        "area \"A\" needs at least three points");
    row("area point not a pair", noNodes + R"("Areas": {"A": [[0, 0], [1], [2, 2]]}})",
        "area \"A\": points are [x, y] pairs");
    row("page 01", noNodes + R"("Pins": {"a.pdf": {"01": []}}})", "page \"01\" must be a number from 1");
}

void ProjectDescriptionTest::malformedFilesAreRejected()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, message);
    QTemporaryDir root;
    QFile file(root.filePath("Projekt.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(json);
    file.close();

    ProjectDescription description;
    QVERIFY(!description.Load(root.path()));
    QVERIFY2(description.ErrorString().startsWith(file.fileName()), qPrintable(description.ErrorString()));
    QVERIFY2(description.ErrorString().contains(message), qPrintable(description.ErrorString()));
    QVERIFY(description.Nodes().isEmpty());
    QVERIFY(description.Files().isEmpty());
}

QTEST_GUILESS_MAIN(ProjectDescriptionTest)
#include "ProjectDescriptionTest.moc"
