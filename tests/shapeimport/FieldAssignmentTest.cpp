#include <shapeimport/FieldAssignmentFile.h>
#include <shapeimport/ImportFieldManager.h>

#include <QFile>
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
    void unwritablePathIsReported();
    void lowestIdOfAColumn();
};

void FieldAssignmentTest::parse_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("status");
    QTest::addColumn<Assignments>("assignments");
    const QByteArray two = R"("FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
                                                     {"FieldName": "MASSSTAB", "TargetFieldId": 20}])";
    QTest::newRow("version 1") << "{\"Version\": 1, " + two + "}" << int(FieldAssignmentFile::Ok)
                               << Assignments { { "BLATTNR", 10 }, { "MASSSTAB", 20 } };
    QTest::newRow("no version") << "{" + two + "}" << int(FieldAssignmentFile::Ok)
                                << Assignments { { "BLATTNR", 10 }, { "MASSSTAB", 20 } };
    QTest::newRow("version 2") << "{\"Version\": 2, " + two + "}" << int(FieldAssignmentFile::TooNew)
                               << Assignments { { "old", 1 } };
    QTest::newRow("later entry for a column wins")
        << QByteArray(R"({"FieldAssignments": [{"FieldName": "A", "TargetFieldId": 10},
                                               {"FieldName": "A", "TargetFieldId": 11}]})")
        << int(FieldAssignmentFile::Ok) << Assignments { { "A", 11 } };
    QTest::newRow("empty list") << QByteArray(R"({"Version": 1, "FieldAssignments": []})")
                                << int(FieldAssignmentFile::NoAssignments) << Assignments { { "old", 1 } };
    QTest::newRow("not JSON") << QByteArray("Version=1") << int(FieldAssignmentFile::NotJson)
                              << Assignments { { "old", 1 } };
    QTest::newRow("empty file") << QByteArray() << int(FieldAssignmentFile::Empty) << Assignments { { "old", 1 } };
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
    QVERIFY(FieldAssignmentFile::Write(path, { { "NAME", 20 }, { "ID", 10 } }));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
        QByteArray("{\n    \"FieldAssignments\": [\n        {\n            \"FieldName\": \"NAME\",\n"
                   "            \"TargetFieldId\": 20\n        },\n        {\n            \"FieldName\": \"ID\",\n"
                   "            \"TargetFieldId\": 10\n        }\n    ],\n    \"Version\": 1\n}\n"));
    Assignments read;
    QCOMPARE(FieldAssignmentFile::Read(path, read), FieldAssignmentFile::Ok);
    QCOMPARE(read, (Assignments { { "ID", 10 }, { "NAME", 20 } }));

    QVERIFY(FieldAssignmentFile::Write(path, {}));
    QCOMPARE(FieldAssignmentFile::Read(path, read), FieldAssignmentFile::NoAssignments);
}

void FieldAssignmentTest::unwritablePathIsReported()
{
    QTemporaryDir dir;
    QString error;
    QVERIFY(!FieldAssignmentFile::Write(dir.filePath("missing/a.json"), { { "A", 1 } }, &error));
    QVERIFY(!error.isEmpty());
}

void FieldAssignmentTest::lowestIdOfAColumn()
{
    ImportFieldManager fields;
    fields.SetAssignment(30, "NAME");
    fields.SetAssignment(20, "NAME");
    fields.SetAssignment(10, "name");
    QCOMPARE(fields.GetTargetIdOfColumn("NAME"), 20);
    QCOMPARE(fields.GetTargetIdOfColumn("ID"), -1);
    fields.ClearAssignments();
    QCOMPARE(fields.GetTargetIdOfColumn("NAME"), -1);
}

QTEST_GUILESS_MAIN(FieldAssignmentTest)
#include "FieldAssignmentTest.moc"
