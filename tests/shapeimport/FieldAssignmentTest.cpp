#include <shapeimport/FieldAssignmentFile.h>

#include <QTemporaryDir>
#include <QTest>

using Assignments = QMap<QString, int>;

class FieldAssignmentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void writtenFileReadsBack();
};

void FieldAssignmentTest::parse_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("status");
    QTest::addColumn<Assignments>("assignments"); // what a map holding {"old": 1} holds afterwards
    // The later entry for a column wins.
    const QByteArray three = R"("FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
        {"FieldName": "MASSSTAB", "TargetFieldId": 20}, {"FieldName": "BLATTNR", "TargetFieldId": 11}]})";
    const Assignments read { { "BLATTNR", 11 }, { "MASSSTAB", 20 } }, kept { { "old", 1 } };
    QTest::newRow("version 1") << "{\"Version\": 1, " + three << int(FieldAssignmentFile::Ok) << read;
    QTest::newRow("no version") << "{" + three << int(FieldAssignmentFile::Ok) << read;
    QTest::newRow("version 2") << "{\"Version\": 2, " + three << int(FieldAssignmentFile::TooNew) << kept;
    QTest::newRow("empty list") << QByteArray(R"({"Version": 1, "FieldAssignments": []})")
                                << int(FieldAssignmentFile::NoAssignments) << kept;
    QTest::newRow("not JSON") << QByteArray("Version=1") << int(FieldAssignmentFile::NotJson) << kept;
    QTest::newRow("empty file") << QByteArray() << int(FieldAssignmentFile::Empty) << kept;
}

void FieldAssignmentTest::parse()
{
    QFETCH(QByteArray, json);
    QFETCH(int, status);
    QFETCH(Assignments, assignments);
    Assignments read { { "old", 1 } };
    QCOMPARE(int(FieldAssignmentFile::Parse(json, read)), status);
    QCOMPARE(read, assignments);
}

void FieldAssignmentTest::writtenFileReadsBack()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("zuordnung.json");
    Assignments read;
    QCOMPARE(FieldAssignmentFile::Read(path, read), FieldAssignmentFile::CannotOpen);
    QVERIFY(FieldAssignmentFile::Write(path, { { "NAME", 20 }, { "ID", 10 } }));
    QCOMPARE(FieldAssignmentFile::Read(path, read), FieldAssignmentFile::Ok);
    QCOMPARE(read, (Assignments { { "ID", 10 }, { "NAME", 20 } }));

    QString error;
    QVERIFY(!FieldAssignmentFile::Write(dir.filePath("missing/a.json"), { { "A", 1 } }, &error) && !error.isEmpty());
}

QTEST_GUILESS_MAIN(FieldAssignmentTest)
#include "FieldAssignmentTest.moc"
