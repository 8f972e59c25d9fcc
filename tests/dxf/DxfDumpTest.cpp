#include <dxf/DxfDump.h>

#include <QProcess>
#include <QtTest>

#include <locale>

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
    void textByVersionAndCodepage_data();
    void textByVersionAndCodepage();
    void malformedFileFails_data();
    void malformedFileFails();
    void checkBoundaries_data();
    void checkBoundaries();
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

// How the header's $ACADVER and $DWGCODEPAGE decide the decoding, on a TEXT
// of raw bytes. The drawings in umlauts-*.dxf cover ANSI_1252 and UTF-8.
void DxfDumpTest::textByVersionAndCodepage_data()
{
    QTest::addColumn<QByteArray>("version");  // empty: not in the header
    QTest::addColumn<QByteArray>("codepage"); // empty: not in the header
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("no header: ANSI_1252") << QByteArray() << QByteArray()
                                          << QByteArray("Stra\xdf"
                                                        "e \x80")
                                          << "Straße €";
    QTest::newRow("ANSI_1251") << QByteArray("AC1015") << QByteArray("ANSI_1251") << QByteArray("\xcf\xf0\xe8")
                               << "При";
    QTest::newRow("codepage in lower case")
        << QByteArray("AC1009") << QByteArray("ansi_1250") << QByteArray("\xb9") << "ą";
    QTest::newRow("unknown codepage: ANSI_1252")
        << QByteArray("AC1015") << QByteArray("DOS850") << QByteArray("\xfc") << "ü";
    QTest::newRow("ANSI_932, 0x5C inside a character")
        << QByteArray("AC1015") << QByteArray("ANSI_932") << QByteArray("\x93\xfa\x95\x5cU+00FC") << "日表U+00FC";
    QTest::newRow("R2007: UTF-8") << QByteArray("AC1021") << QByteArray("ANSI_1252")
                                  << QByteArray("Stra\xc3\x9f"
                                                "e")
                                  << "Straße";
    QTest::newRow("R2010 text still in ANSI_1252") << QByteArray("AC1024") << QByteArray("ANSI_1252")
                                                   << QByteArray("Stra\xdf"
                                                                 "e")
                                                   << "Straße";
    QTest::newRow("escapes") << QByteArray("AC1015") << QByteArray("ANSI_1252")
                             << QByteArray("\\U+03A9\\U+03a9 \\U+12 \\P \\U+005CU+00FC") << "ΩΩ \\U+12 \\P \\U+00FC";
}

void DxfDumpTest::textByVersionAndCodepage()
{
    QFETCH(QByteArray, version);
    QFETCH(QByteArray, codepage);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);

    QByteArray header;
    if (!version.isEmpty())
        header += "  9\n$ACADVER\n  1\n" + version + "\n";
    if (!codepage.isEmpty())
        header += "  9\n$DWGCODEPAGE\n  3\n" + codepage + "\n";
    if (!header.isEmpty())
        header = "  0\nSECTION\n  2\nHEADER\n" + header + "  0\nENDSEC\n";
    QTemporaryDir dir;
    QFile file(dir.filePath("text.dxf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(header + "  0\nSECTION\n  2\nENTITIES\n  0\nTEXT\n  1\n" + bytes + "\n  0\nENDSEC\n  0\nEOF\n");
    file.close();
    QString dump;
    QString error;
    QVERIFY2(DxfDump::DumpFileToText(file.fileName(), dump, &error), qPrintable(error));
    QCOMPARE(dump, "Text: " + text);
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
    // dxflib throws on it, past the check.
    QTest::newRow("comment naming dxflib") << fixture("dxflib-comment.dxf") << "reading failed";
}

void DxfDumpTest::malformedFileFails()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    const auto openFiles = [] { return QDir("/proc/self/fd").count(); };
    const uint filesBefore = openFiles();
    const std::string localeBefore = std::locale().name();
    QString text;
    QString error;
    QVERIFY(!DxfDump::DumpFileToText(file, text, &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY(!DxfDump::DumpFile(
        file, [](const QString&) {}, nullptr));
    // A host reads many drawings in one session: a failed read must not
    // keep the file open or leave the process in another locale.
    QCOMPARE(openFiles(), filesBefore);
    QCOMPARE(std::locale().name(), localeBefore);
}

// The check walks the file's bytes itself; these are the places where such a
// walk slips: the last line, line ends, number syntax and the limits.
void DxfDumpTest::checkBoundaries_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason"); // empty: safe to read

    const QByteArray polyline = "  0\nLWPOLYLINE\n 90\n";
    QTest::newRow("empty file") << QByteArray() << "ends without an EOF";
    QTest::newRow("no line end after EOF") << QByteArray("  0\nEOF") << "";
    QTest::newRow("CRLF") << QByteArray("  0\r\nSECTION\r\n  0\r\nEOF\r\n") << "";
    QTest::newRow("odd line at the end") << QByteArray("  0\nSECTION\n  0") << "ends without an EOF";
    QTest::newRow("text after EOF") << QByteArray("  0\nEOF\nnot a code\n") << "";
    // dxflib reads on past the marker: a count there overflowed its buffer.
    QTest::newRow("count after EOF") << QByteArray("0\nEOF\n0\nLWPOLYLINE\n90\n1073741825\n")
                                     << "line 6: LWPOLYLINE announces 1073741825 items";
    QTest::newRow("padding after EOF") << QByteArray("  0\nEOF\n\x1a\n\0\0\0\n") << "";
    QTest::newRow("signed code") << QByteArray("+0\nEOF\n") << "";
    QTest::newRow("hexadecimal code") << QByteArray("0x0\nEOF\n") << "line 1 is not a group code: '0x0'";
    QTest::newRow("code beyond int") << QByteArray("  0\nSECTION\n99999999999\nX\n  0\nEOF\n")
                                     << "line 3 is not a group code";
    // Nine characters that are no digits once overflowed the code parser.
    QTest::newRow("nine letters as code")
        << QByteArray("  0\nSECTION\nzzzzzzzzz\nX\n  0\nEOF\n") << "line 3 is not a group code";
    QTest::newRow("space inside code") << QByteArray("  0\nSECTION\n1 0\nX\n  0\nEOF\n")
                                       << "line 3 is not a group code";
    // 9 lines (the last one empty) hold at most 4 items.
    QTest::newRow("count the file can hold") << polyline + "4\n  0\nEOF\n  0\nEOF\n"
                                             << "";
    QTest::newRow("count beyond the file") << polyline + "5\n  0\nEOF\n  0\nEOF\n"
                                           << "line 4: LWPOLYLINE announces 5 items";
    QTest::newRow("count beyond long long") << polyline + "99999999999999999999\n  0\nEOF\n"
                                            << "announces 99999999999999999999";
    QTest::newRow("count at the end without EOF") << polyline + "1"
                                                  << "ends without an EOF";
    QTest::newRow("count code of another entity") << QByteArray("  0\nLINE\n 90\n999\n  0\nEOF\n") << "";
    QTest::newRow("longest line") << "  0\n" + QByteArray(1022, 'A') + "\n  0\nEOF\n"
                                  << "";
    QTest::newRow("line too long") << "  0\n" + QByteArray(1023, 'A') + "\n  0\nEOF\n"
                                   << "line 2 is longer than 1022";
    QTest::newRow("long last line without line end") << "  0\nEOF\n" + QByteArray(1100, 'A') << "line 3 is longer";
    QTest::newRow("long line before a bad code") << "x\n" + QByteArray(1023, 'A') + "\n  0\nEOF\n"
                                                 << "line 2 is longer";
}

void DxfDumpTest::checkBoundaries()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QTemporaryDir dir;
    QFile file(dir.filePath("check.dxf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();

    const QString problem = DxfDump::CheckFile(file.fileName());
    if (reason.isEmpty())
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    else
        QVERIFY2(problem.contains(reason), qPrintable(problem));
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

QTEST_GUILESS_MAIN(DxfDumpTest)
#include "DxfDumpTest.moc"
