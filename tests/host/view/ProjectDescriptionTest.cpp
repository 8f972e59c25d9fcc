#include <ProjectDescription.h>

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
    QCOMPARE(description.Nodes().size(), 7);
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
    const QByteArray head = R"({"Version": 1, "Nodes": [)";
    QTest::newRow("not JSON") << QByteArray("{\"Version\": 1,") << "not valid JSON at offset";
    QTest::newRow("a list at the top") << QByteArray("[]") << "top level must be an object";
    QTest::newRow("other version") << QByteArray(R"({"Version": 2, "Nodes": []})") << "\"Version\" must be 1";
    QTest::newRow("nodes not a list") << QByteArray(R"({"Version": 1, "Nodes": {}})") << "\"Nodes\" must be a list";
    QTest::newRow("fractional id") << head + R"({"Id": 1.5}]})"
                                   << "node 1: \"Id\" must be a positive whole number";
    QTest::newRow("id twice") << head + R"({"Id": 4}, {"Id": 4}]})"
                              << "node 2: id 4 is used twice";
    QTest::newRow("child before parent") << head + R"({"Id": 2, "Parent": 1}, {"Id": 1}]})"
                                         << "parent 1 must be listed before its children";
    QTest::newRow("zone 5") << head + R"({"Id": 1, "Zone": 5}]})"
                            << "\"Zone\" must be 1 to 4";
    QTest::newRow("document zone 0") << head + R"({"Id": 1, "Documents": {"0": ["a.pdf"]}}]})"
                                     << "document zone \"0\" must be 1 to 4";
    QTest::newRow("document not text") << head + R"({"Id": 1, "Documents": {"1": [7]}}]})"
                                       << "documents must be file names";
    QTest::newRow("pin without position")
        << QByteArray(R"({"Version": 1, "Nodes": [], "Pins": {"a.pdf": {"1": [{"Id": 3, "X": 1}]}}})")
        << "pin 3 needs numbers \"X\" and \"Y\"";
    QTest::newRow("participant id twice")
        << QByteArray(R"({"Version": 1, "Nodes": [], "Participants": [{"Id": 3}, {"Id": 3}]})")
        << "Participants 2: id 3 is used twice";
    QTest::newRow("table without id") << QByteArray(R"({"Version": 1, "Nodes": [], "Tables": [{"Name": "T"}]})")
                                      << "Tables 1: \"Id\" must be a positive whole number";
    QTest::newRow("area of two points") << QByteArray(
        R"({"Version": 1, "Nodes": [], "Areas": {"A": [[0, 0], [1, 1]]}})")
                                        << "area \"A\" needs at least three points";
    QTest::newRow("area point not a pair")
        << QByteArray(R"({"Version": 1, "Nodes": [], "Areas": {"A": [[0, 0], [1], [2, 2]]}})")
        << "area \"A\": points are [x, y] pairs";
    QTest::newRow("page 01") << QByteArray(R"({"Version": 1, "Nodes": [], "Pins": {"a.pdf": {"01": []}}})")
                             << "page \"01\" must be a number from 1";
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
