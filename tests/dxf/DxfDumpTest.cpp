#include <dxf/DxfDump.h>

#include <QPlainTextEdit>
#include <QProcess>
#include <QtTest>

namespace {

QString fixture(const char* name)
{
    return QStringLiteral(KAMO_DXF_DATA "/") + QLatin1String(name);
}

} // namespace

class DxfDumpTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entityText_data();
    void entityText();
    void widgetAndTextAgree();
    void nullWidgetPrintsNothing();
    void malformedFileFails_data();
    void malformedFileFails();
    void everyPartsLibraryFileReads();
};

void DxfDumpTest::entityText_data()
{
    QTest::addColumn<QString>("expected");

    // Every appended piece ending in a line break shows as a blank line in
    // the widget; the "\n" before each row anchors it to a paragraph start.
    const QString byLayer = "  Attributes: Layer: 0,  Color: BYLAYER Width: BYLAYER Type: BYLAYER\n";
    QTest::newRow("point") << "\nPOINT    ( 1.000,  2.000,  3.000)\n\n" + byLayer + "\n";
    QTest::newRow("line on a layer with a colour")
        << "\nLINE     ( 0.000,  0.000,  0.000) (10.500, -2.250,  0.000)\n\n"
           "  Attributes: Layer: WALLS,  Color: 1 Width: BYLAYER Type: BYLAYER\n\n";
    QTest::newRow("circle with a line weight") << "\nCIRCLE   ( 5.000,  5.000,  0.000)  2.500\n\n"
                                                  "  Attributes: Layer: 0,  Color: BYLAYER Width: 35 Type: BYLAYER\n\n";
    QTest::newRow("arc with a line type")
        << "\nARC      ( 1.000,  1.000,  0.000)  3.000,  0.000, 90.000\n\n"
           "  Attributes: Layer: 0,  Color: BYLAYER Width: BYLAYER Type: CONTINUOUS\n\n";
    QTest::newRow("layer") << "\nLAYER: WALLS flags: 0\n\n"
                              "  Attributes: Layer: 0,  Color: 3 Width: DEFAULT Type: Continuous\n\nBLOCK:";
    QTest::newRow("texts without attribute line") << "\nText: Schacht 7\nMText: Haltung A-B\nPOLYLINE \n\nflags: 8\n\n";
    QTest::newRow("vertex") << "\nVERTEX   ( 1.000,  1.000,  2.000)  0.000\n\n" + byLayer;
    QTest::newRow("3dface") << "\n3DFACE\n\n   corner 0:  0.000  0.000  0.000\n\n   corner 1:  1.000  0.000  0.000\n\n"
                               "   corner 2:  1.000  1.000  1.000\n\n   corner 3:  0.000  1.000  1.000\n\n"
            + byLayer + "\nAttribute: 0042\n";
    QTest::newRow("block")
        << "\nBLOCK: PLATE flags: 2\n\nLINE     ( 0.000,  0.000,  0.000) ( 1.000,  0.000,  0.000)\n\n" + byLayer
            + "\nEND-BLOCK\nPOINT";
}

void DxfDumpTest::entityText()
{
    QFETCH(QString, expected);
    QString text;
    QString error;
    QVERIFY2(DxfDump::DumpFileToText(fixture("drawing.dxf"), text, &error), qPrintable(error));
    QVERIFY2(text.contains(expected), qPrintable(text));
}

void DxfDumpTest::widgetAndTextAgree()
{
    QPlainTextEdit edit;
    QString error;
    QVERIFY2(DxfDump::DumpFile(fixture("drawing.dxf"), &edit, &error), qPrintable(error));
    QString text;
    QVERIFY(DxfDump::DumpFileToText(fixture("drawing.dxf"), text, &error));
    QVERIFY(text.startsWith("LAYER: 0 flags: 0\n"));
    QCOMPARE(edit.toPlainText(), text);
}

void DxfDumpTest::nullWidgetPrintsNothing()
{
    QString error;
    QVERIFY2(DxfDump::DumpFile(fixture("drawing.dxf"), nullptr, &error), qPrintable(error));
    QVERIFY(error.isEmpty());
}

void DxfDumpTest::malformedFileFails_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << fixture("no-such.dxf") << "no such file";
    QTest::newRow("truncated") << fixture("truncated.dxf") << "EOF";
    QTest::newRow("bad group code") << fixture("bad-group-code.dxf") << "line 1945 is not a group code";
    QTest::newRow("huge vertex count") << fixture("huge-count.dxf") << "line 2248: LWPOLYLINE announces 2000000000";
    QTest::newRow("long line") << fixture("long-line.dxf") << "line 2014 is longer";
    QTest::newRow("folder") << QStringLiteral(KAMO_DXF_DATA) << "no such file";
}

void DxfDumpTest::malformedFileFails()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    QString text;
    QString error;
    QVERIFY(!DxfDump::DumpFileToText(file, text, &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QPlainTextEdit edit;
    QVERIFY(!DxfDump::DumpFile(file, &edit, nullptr));
}

void DxfDumpTest::everyPartsLibraryFileReads()
{
    QProcess dpkg;
    dpkg.start("dpkg", { "-L", "librecad-data" });
    dpkg.waitForFinished();
    QStringList files;
    for (const QString& line : QString::fromLocal8Bit(dpkg.readAllStandardOutput()).split('\n')) {
        if (line.endsWith(".dxf", Qt::CaseInsensitive) && QFileInfo(line).isFile())
            files.append(line);
    }
    if (files.isEmpty())
        QSKIP("the librecad-data parts library is not installed");
    for (const QString& file : files) {
        QString text;
        QString error;
        QVERIFY2(DxfDump::DumpFileToText(file, text, &error), qPrintable(error));
        QVERIFY2(!text.isEmpty(), qPrintable(file));
    }
}

QTEST_MAIN(DxfDumpTest)
#include "DxfDumpTest.moc"
