#include <dxf/DxfDrawing.h>
#include <dxf/DxfDump.h>
#include <dxf/DxfSheetExport.h>

#include <QProcess>
#include <QScopeGuard>
#include <QTextCodec>
#include <QtTest>

#include <charconv>
#include <clocale>
#include <locale>

#include <pwd.h>
#include <unistd.h>

Q_DECLARE_METATYPE(DxfDrawing)

class DxfTest : public QObject
{
    Q_OBJECT

    static QString fixture(const QString& name) { return QStringLiteral(KAMO_DXF_DATA "/") + name; }
    static QByteArray readAll(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }
    // A file of `content` in `dir`, for the readers that take nothing else.
    static QString written(const QTemporaryDir& dir, const QByteArray& content)
    {
        QFile file(dir.filePath("test.dxf"));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
    }
    // One insert of sheet number 7 whose block holds one polyline; vertex i
    // gets labels[i].
    static DxfDrawing oneSheet(const QVector<QPointF>& vertices, const QList<int>& labels, bool use = true)
    {
        DxfDrawing drawing;
        DxfPolyline polyline { vertices, {} };
        for (int i = 0; i < labels.size(); ++i)
            polyline.labels.insert(i, static_cast<GK::VtxPosition>(labels.at(i)));
        drawing.blocks.append(DxfBlock { "B", { polyline } });
        drawing.inserts.append(DxfInsert { "B", {}, 0, 0, { { "Bl_Nr", "7" } }, use });
        return drawing;
    }

private Q_SLOTS:
    // A drawing of `content` or a broken fixture: read, with the first line of
    // its dump, or refused before dxflib sees it, with the reason.
    void readOrRefused_data()
    {
        QTest::addColumn<QString>("file"); // empty: one of `content`
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("reads");
        QTest::addColumn<QString>("outcome");

        const auto refused = [](const char* name, const QString& file, const QString& reason) {
            QTest::newRow(name) << file << QByteArray() << false << reason;
        };
        const auto bytes = [](const char* name, const QByteArray& content, bool reads, const QString& outcome) {
            QTest::newRow(name) << QString() << content << reads << outcome;
        };
        refused("missing", "no-such.dxf", "no such file");
        refused("folder", ".", "no such file");
        refused("truncated", "truncated.dxf", "EOF");
        refused("bad group code", "bad-group-code.dxf", "line 1945 is not a group code");
        refused("huge vertex count", "huge-count.dxf", "line 2248: LWPOLYLINE announces 2000000000");
        refused("long line", "long-line.dxf", "line 2014 is longer");
        // dxflib throws on it, past the check.
        refused("comment naming dxflib", "dxflib-comment.dxf", "reading failed");

        // The check walks the file's bytes itself; these are the places where
        // such a walk slips: the last line, line ends, number syntax, limits.
        const QByteArray polyline = "  0\nLWPOLYLINE\n 90\n";
        bytes("empty file", "", false, "ends without an EOF");
        bytes("no line end after EOF", "  0\nEOF", true, "");
        bytes("CRLF", "  0\r\nSECTION\r\n  0\r\nEOF\r\n", true, "");
        bytes("odd line at the end", "  0\nSECTION\n  0", false, "ends without an EOF");
        bytes("text after EOF", "  0\nEOF\nnot a code\n", true, "");
        // dxflib reads on past the marker: a count there overflowed its buffer.
        bytes("count after EOF", "0\nEOF\n0\nLWPOLYLINE\n90\n1073741825\n", false,
            "line 6: LWPOLYLINE announces 1073741825 items");
        bytes("padding after EOF", QByteArray("  0\nEOF\n\x1a\n\0\0\0\n", 14), true, "");
        bytes("signed code", "+0\nEOF\n", true, "");
        bytes("hexadecimal code", "0x0\nEOF\n", false, "line 1 is not a group code: '0x0'");
        bytes("code beyond int", "  0\nSECTION\n99999999999\nX\n  0\nEOF\n", false, "line 3 is not a group code");
        // Nine characters that are no digits once overflowed the code parser.
        bytes("nine letters as code", "  0\nSECTION\nzzzzzzzzz\nX\n  0\nEOF\n", false, "line 3 is not a group code");
        bytes("space inside code", "  0\nSECTION\n1 0\nX\n  0\nEOF\n", false, "line 3 is not a group code");
        // 9 lines (the last one empty) hold at most 4 items.
        bytes("count the file can hold", polyline + "4\n  0\nEOF\n  0\nEOF\n", true, "POLYLINE ");
        bytes("count beyond the file", polyline + "5\n  0\nEOF\n  0\nEOF\n", false,
            "line 4: LWPOLYLINE announces 5 items");
        bytes("count beyond long long", polyline + "99999999999999999999\n  0\nEOF\n", false,
            "announces 99999999999999999999");
        bytes("count at the end without EOF", polyline + "1", false, "ends without an EOF");
        bytes("count code of another entity", "  0\nLINE\n 90\n999\n  0\nEOF\n", true,
            "LINE     ( 0.000,  0.000,  0.000) ( 0.000,  0.000,  0.000)");
        bytes("longest line", "  0\n" + QByteArray(1022, 'A') + "\n  0\nEOF\n", true, "");
        bytes("line too long", "  0\n" + QByteArray(1023, 'A') + "\n  0\nEOF\n", false, "line 2 is longer than 1022");
        bytes("long last line without line end", "  0\nEOF\n" + QByteArray(1100, 'A'), false, "line 3 is longer");
        bytes("long line before a bad code", "x\n" + QByteArray(1023, 'A') + "\n  0\nEOF\n", false, "line 2 is longer");

        // How the header's $ACADVER and $DWGCODEPAGE decide the decoding of a
        // TEXT of raw bytes.
        const auto text = [&bytes](const char* name, const QByteArray& version, const QByteArray& codepage,
                              const QByteArray& raw, const QString& shown) {
            const QByteArray header = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\n" + version
                + "\n  9\n$DWGCODEPAGE\n  3\n" + codepage + "\n  0\nENDSEC\n";
            bytes(name,
                (version.isEmpty() ? QByteArray() : header) + "  0\nSECTION\n  2\nENTITIES\n  0\nTEXT\n  1\n" + raw
                    + "\n  0\nENDSEC\n  0\nEOF\n",
                true, "Text: " + shown);
        };
        text("no header: ANSI_1252", "", "", "Stra\337e \200", "Straße €");
        text("ANSI_1251", "AC1015", "ANSI_1251", "\317\360\350", "При");
        text("codepage in lower case", "AC1009", "ansi_1250", "\271", "ą");
        text("unknown codepage: ANSI_1252", "AC1015", "DOS850", "\374", "ü");
        text("ANSI_932, 0x5C inside a character", "AC1015", "ANSI_932", "\223\372\225\134U+00FC", "日表U+00FC");
        text("R2007: UTF-8", "AC1021", "ANSI_1252", "Stra\303\237e", "Straße");
        text("R2010 text still in ANSI_1252", "AC1024", "ANSI_1252", "Stra\337e", "Straße");
        text("escapes", "AC1015", "ANSI_1252", "\\U+03A9\\U+03a9 \\U+12 \\P \\U+005CU+00FC", "ΩΩ \\U+12 \\P \\U+00FC");
    }

    void readOrRefused()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        QFETCH(bool, reads);
        QFETCH(QString, outcome);
        QTemporaryDir dir;
        const QString path = file.isEmpty() ? written(dir, content) : fixture(file);
        const auto openFiles = [] { return QDir("/proc/self/fd").count(); };
        const uint filesBefore = openFiles();
        const std::string localeBefore = std::locale().name();
        QString text, error;
        QCOMPARE(DxfDump::DumpFileToText(path, text, &error), reads);
        if (reads) {
            QCOMPARE(text.section('\n', 0, 0), outcome);
        } else {
            QVERIFY2(error.contains(outcome), qPrintable(error));
            QCOMPARE(DxfDump::CheckFile(path), outcome == "reading failed" ? QString() : error);
            QVERIFY(!DxfDump::DumpFile(
                path, [](const QString&) {}, nullptr));
        }
        // A host reads many drawings in one session: a failed read must not
        // keep the file open or leave the process in another locale.
        QCOMPARE(openFiles(), filesBefore);
        QCOMPARE(std::locale().name(), localeBefore);
    }

    void everyPartsLibraryFileReads()
    {
        QProcess dpkg;
        dpkg.start("dpkg", { "-L", "librecad-data" });
        dpkg.waitForFinished();
        int read = 0;
        for (const QString& file : QString::fromLocal8Bit(dpkg.readAllStandardOutput()).split('\n')) {
            QString text, error;
            if (!file.endsWith(".dxf", Qt::CaseInsensitive) || !QFileInfo(file).isFile())
                continue;
            QVERIFY2(DxfDump::DumpFileToText(file, text, &error), qPrintable(error));
            QVERIFY2(!text.isEmpty(), qPrintable(file));
            ++read;
        }
        if (read == 0)
            QSKIP("the librecad-data parts library is not installed");
    }

    // What a drawing holds as the dump and the capture see it; the capture
    // as its layer table, then each insert's block, layer and insertion point
    // where they differ from "0" and the origin, and its attributes.
    void readsInsertsAndBlocks_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("captured");
        QTest::addColumn<QStringList>("dumped"); // pieces of the dump
        // Every appended piece ending in a line break shows as a blank line in
        // the widget; the "\n" before each piece anchors it to a paragraph start.
        const QString byLayer = "  Attributes: Layer: 0,  Color: BYLAYER Width: BYLAYER Type: BYLAYER\n";
        QTest::newRow("one entity of each kind")
            << "drawing.dxf" << QStringList { "0 Defpoints WALLS", "PLATE at 20 20: BL_NR=0042" }
            << QStringList { "\nPOINT    ( 1.000,  2.000,  3.000)\n\n" + byLayer + "\n",
                   // a line on a layer with a colour
                   "\nLINE     ( 0.000,  0.000,  0.000) (10.500, -2.250,  0.000)\n\n"
                   "  Attributes: Layer: WALLS,  Color: 1 Width: BYLAYER Type: BYLAYER\n\n",
                   // a circle with a line weight
                   "\nCIRCLE   ( 5.000,  5.000,  0.000)  2.500\n\n"
                   "  Attributes: Layer: 0,  Color: BYLAYER Width: 35 Type: BYLAYER\n\n",
                   // an arc with a line type
                   "\nARC      ( 1.000,  1.000,  0.000)  3.000,  0.000, 90.000\n\n"
                   "  Attributes: Layer: 0,  Color: BYLAYER Width: BYLAYER Type: CONTINUOUS\n\n",
                   "\nLAYER: WALLS flags: 0\n\n"
                   "  Attributes: Layer: 0,  Color: 3 Width: DEFAULT Type: Continuous\n\nBLOCK:",
                   // texts without an attribute line
                   "\nText: Schacht 7\nMText: Haltung A-B\nPOLYLINE \n\nflags: 8\n\n",
                   "\nVERTEX   ( 1.000,  1.000,  2.000)  0.000\n\n" + byLayer,
                   "\n3DFACE\n\n   corner 0:  0.000  0.000  0.000\n\n   corner 1:  1.000  0.000  0.000\n\n"
                   "   corner 2:  1.000  1.000  1.000\n\n   corner 3:  0.000  1.000  1.000\n\n"
                       + byLayer + "\nAttribute: 0042\n",
                   "\nBLOCK: PLATE flags: 2\n\nLINE     ( 0.000,  0.000,  0.000) ( 1.000,  0.000,  0.000)\n\n" + byLayer
                       + "\nEND-BLOCK\nPOINT" };
        // An insert without attributes has none of the one before.
        QTest::newRow("sheets") << "sheets.dxf"
                                << QStringList { "0 Defpoints BLATTSCHNITT", "BLATT_40 on BLATTSCHNITT: BL_NR=40",
                                       "BLATT_41 on BLATTSCHNITT: BL_NR=41 MASSSTAB=1:500",
                                       "BLATT_42 on BLATTSCHNITT: Bl_Nr=42",
                                       "BLATT_43 on BLATTSCHNITT: Bl_Nr=x43 BL_NR=43",
                                       "BLATT_44 on BLATTSCHNITT: BL_NR=44", "BLATT_45 on BLATTSCHNITT: BL_NR=45",
                                       "LEGENDE at 100.5 200.25:", "FEHLT: BL_NR=99" }
                                << QStringList();
        // Before R2007 a drawing's text is in its codepage, not UTF-8: read as
        // UTF-8, every umlaut became U+FFFD.
        QStringList dumped { "\nLAYER: STRAßE flags: 0\n", "\nBLOCK: BLATT_SÖD flags: 0\n", " Type: STRICH_Ü\n",
            "\nAttribute: Ω-Prüfung 5 €\n", "\nText: Straße Ω" };
        for (const char* file : { "umlauts-r12.dxf", "umlauts-r2000.dxf", "umlauts-r2010.dxf" }) {
            QTest::newRow(file) << file
                                << QStringList { "0 Defpoints STRAßE", "BLATT_SÜD on STRAßE: BL_NR=Süd-1 MAßSTAB=1:500",
                                       "BLATT_SÖD on STRAßE: BL_NR=Söd-2 MAßSTAB=1:500 BEMERKUNG=Ω-Prüfung 5 €" }
                                << dumped;
            dumped << "\nMText: Brücke Ω"; // R12 has none
        }
    }

    void readsInsertsAndBlocks()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, captured);
        QFETCH(QStringList, dumped);
        DxfDrawing drawing;
        QString error;
        QVERIFY2(DxfDrawing::Read(fixture(file), drawing, &error), qPrintable(error));
        QStringList shown { drawing.layers.join(' ') };
        for (const DxfInsert& insert : drawing.inserts) {
            shown << insert.blockName + (insert.layer == "0" ? "" : " on " + insert.layer)
                    + (insert.x || insert.y ? QString(" at %1 %2").arg(insert.x).arg(insert.y) : "") + ":";
            for (const auto& attribute : insert.attributes)
                shown.last() += " " + attribute.first + "=" + attribute.second;
        }
        QCOMPARE(shown, captured);
        QString text;
        QVERIFY2(DxfDump::DumpFileToText(fixture(file), text, &error), qPrintable(error));
        for (const QString& expected : dumped)
            QVERIFY2(text.contains(expected), qPrintable(expected));
    }

    // The GK2 file's "%7.2lf" and the dump's "%6.3f" as printf writes them in
    // the C locale: QString::asprintf rounds exact ties away from zero and
    // drops the sign of -0.0, and a printf under a locale with decimal commas
    // would write those.
    void exportedAsGK2_data()
    {
        QTest::addColumn<DxfDrawing>("drawing");
        QTest::addColumn<QStringList>("log");
        // Of the correction: not one rectangle, unlabelled, one pair, reported, route; empty: not corrected.
        QTest::addColumn<QList<QList<int>>>("results");
        QTest::addColumn<QString>("inserts");   // block, sheet number, labelled vertices of its frame ("-": no frame)
        QTest::addColumn<QByteArray>("gk2");    // empty: not compared
        QTest::addColumn<QString>("dump");      // of a point at the first vertex; empty: none
        QTest::addColumn<QByteArray>("locale"); // empty: the test's own
        const auto corrected = [](const char* name, const DxfDrawing& drawing, const QStringList& log,
                                   const QList<QList<int>>& results, const QString& inserts, const QByteArray& gk2) {
            QTest::newRow(name) << drawing << log << results << inserts << gk2 << QString() << QByteArray();
        };
        const auto read = [](const char* file) {
            DxfDrawing drawing;
            DxfDrawing::Read(fixture(file), drawing, nullptr);
            return drawing;
        };
        // BL_NR wins over Bl_Nr though later; two polylines (5), no polyline
        // (6) and a missing block (7) are left out silently, as before; the
        // notch vertices stay unlabelled.
        corrected("awkward frames", read("sheets.dxf"),
            { "Rectangle detector detected less or more than one rectangle (Block:4" },
            { { 4 }, {}, {}, { 4 }, { 0, 1, 2, 3 } },
            "BLATT_40 40: 0123, BLATT_41 41: 0123, BLATT_42 42: 0456, BLATT_43 43: 0123, BLATT_44 44: , BLATT_45 45: , "
            "LEGENDE: -, FEHLT 99: -",
            readAll(fixture("sheets.gk2")));
        // The rectangle detector takes a kite for a rectangle when its fourth
        // corner lies at the diagonal's distance; the revision then stops
        // there. It used to do so silently, leaving label-0 entries that
        // counted as labelled.
        corrected("kite", read("kite.dxf"),
            { "Vertex revision stopped with geSidesMissing at insert 1: its frame has no parallel sides; inserts left "
              "without corner labels: 1, 2" },
            { {}, { 1, 2 }, {}, { 1, 2 }, { 0, 1, 2 } },
            "BLATT_201 201: 0123, BLATT_202 202: , BLATT_203 203: ", QByteArray());
        // Two block names that differ only in an umlaut stay two.
        for (const char* file : { "umlauts-r12.dxf", "umlauts-r2000.dxf", "umlauts-r2010.dxf" })
            corrected(file, read(file), {}, { {}, {}, {}, {}, { 0, 1 } },
                "BLATT_SÜD Süd-1: 0123, BLATT_SÖD Söd-2: 0123", readAll(fixture("umlauts.gk2")));
        DxfDrawing twoBlocks = oneSheet({ { 0, 0 }, { 40, 0 }, { 40, 28 }, { 0, 28 } }, {});
        twoBlocks.blocks.append(DxfBlock { "B", { DxfPolyline { { { 100, 100 } }, {} } } });
        corrected("first block of a name counts", twoBlocks, {}, { {}, {}, {}, {}, { 0 } }, "B 7: 0123",
            "GK2\r\n\r\n7\r\n   0,00       28,00    \r\n  40,00       28,00    \r\n"
            "  40,00        0,00    \r\n   0,00        0,00    \r\n");

        const auto record = [](const char* name, const DxfDrawing& drawing, const QByteArray& gk2,
                                const QString& dump = QString(), const QByteArray& locale = QByteArray()) {
            QTest::newRow(name) << drawing << QStringList() << QList<QList<int>>() << QString() << gk2 << dump
                                << locale;
        };
        const QVector<QPointF> small { { 5.5, -0.004 }, { -12.346, 1234567.891 } };
        record("no labels", oneSheet(small, {}), "GK2\r\n\r\n7\r\n");
        record("padding, rounding, decimal commas", oneSheet(small, { GK::vpBottomLeft, GK::vpTopLeft }),
            "GK2\r\n\r\n7\r\n -12,35     1234567,89    \r\n   5,50       -0,00    \r\n");
        record("unknown label and later duplicate",
            oneSheet({ { 1, 2 }, { 3, 4 }, { 5, 6 } }, { GK::vpTopRight, GK::vpUnknown, GK::vpTopRight }),
            "GK2\r\n\r\n7\r\n   5,00        6,00    \r\n");
        record("unused", oneSheet(small, { GK::vpTopLeft }, false), "GK2\r\n");
        const auto tie = [&record](const char* name, double value, const QByteArray& gk2, const QString& dump,
                             const QByteArray& locale = QByteArray()) {
            record(name, oneSheet({ { value, value } }, { GK::vpTopLeft }),
                "GK2\r\n\r\n7\r\n" + gk2 + "     " + gk2 + "    \r\n", dump, locale);
        };
        tie("tie .125 to even, down", 3512000.125, "3512000,12", "3512000.125");
        tie("tie .375 to even, up", 0.375, "   0,38", " 0.375");
        tie("tie .625 to even, down", 5812000.625, "5812000,62", "5812000.625");
        tie("tie .0625 to even, down", -1.0625, "  -1,06", "-1.062");
        tie("tie .1875 to even, up", 0.1875, "   0,19", " 0.188");
        tie("negative zero", -0.0, "  -0,00", "-0.000");
        tie("large", 1e22, "10000000000000000000000,00", "10000000000000000000000.000");
        tie("small negative", -1e-300, "  -0,00", "-0.000");
        // A DXF file cannot hold these.
        tie("nan", qQNaN(), "    nan", QString());
        tie("infinity", -qInf(), "   -inf", QString());
        tie("German locale", 3512000.625, "3512000,62", "3512000.625", "de_DE.UTF-8");
    }

    void exportedAsGK2()
    {
        QFETCH(DxfDrawing, drawing);
        QFETCH(QStringList, log);
        QFETCH(QList<QList<int>>, results);
        QFETCH(QString, inserts);
        QFETCH(QByteArray, gk2);
        QFETCH(QString, dump);
        QFETCH(QByteArray, locale);
        const QByteArray previous = setlocale(LC_ALL, nullptr);
        const auto restoreLocale = qScopeGuard([&previous] { setlocale(LC_ALL, previous.constData()); });
        if (!locale.isEmpty() && !setlocale(LC_ALL, locale.constData()))
            QSKIP("the locale is not installed here (localedef -i de_DE -f UTF-8 de_DE.UTF-8 makes it)");
        // The host reads the file in the locale's encoding, here ANSI_1252.
        QTextCodec* const localeCodec = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("windows-1252"));
        const auto restoreCodec = qScopeGuard([localeCodec] { QTextCodec::setCodecForLocale(localeCodec); });

        const DxfDrawing original = drawing;
        if (!results.isEmpty()) {
            DxfCorrectionResult result;
            result.route = { 99 }; // a result of an earlier run must not leak into this one
            QCOMPARE(DxfSheetExport::CorrectVertexPositions(drawing, result), log);
            QCOMPARE((QList<QList<int>> { result.notOneRectangle, result.unlabelled, result.oneParallelPair,
                         result.Reported(), result.route }),
                results);
            QStringList shown;
            for (const DxfInsert& insert : drawing.inserts) {
                const DxfBlock* block = drawing.Block(insert.blockName);
                const bool frame = block && !block->polylines.isEmpty();
                shown << insert.blockName + (insert.HasSheetNumber() ? " " + insert.SheetNumber() : "")
                        + (frame ? ": " : ": -");
                for (int vertex : frame ? block->polylines[0].labels.keys() : QList<int>())
                    shown.last() += QString::number(vertex);
            }
            QCOMPARE(shown.join(", "), inserts);
            // Correcting a copy, or renaming a block through one, leaves the
            // original alone.
            DxfDrawing renamed = original;
            const QString name = original.blocks.first().name;
            renamed.Block(name)->name = "RENAMED";
            QVERIFY(original.Block(name));
            for (const DxfBlock& block : original.blocks)
                for (const DxfPolyline& polyline : block.polylines)
                    QVERIFY(polyline.labels.isEmpty());
        }
        QTemporaryDir dir;
        int sheets = -1;
        QString error;
        QVERIFY2(DxfSheetExport::ExportGK2(drawing, dir.filePath("x.gk2"), &sheets, &error), qPrintable(error));
        if (!gk2.isEmpty()) {
            QCOMPARE(readAll(dir.filePath("x.gk2")), gk2);
            QCOMPARE(sheets, gk2.count("\r\n\r\n")); // a blank line before each sheet
        }
        if (dump.isEmpty())
            return;
        // QByteArray::number drops the sign of -0.0.
        char digits[32];
        const double value = drawing.blocks.first().polylines.first().vertices.first().x();
        const QByteArray number(digits, int(std::to_chars(digits, digits + sizeof digits, value).ptr - digits));
        QString text;
        QVERIFY(DxfDump::DumpFileToText(written(dir,
                                            "  0\nSECTION\n  2\nENTITIES\n  0\nPOINT\n 10\n" + number + "\n 20\n"
                                                + number + "\n 30\n" + number + "\n  0\nENDSEC\n  0\nEOF\n"),
            text, nullptr));
        QCOMPARE(text.section('\n', 0, 0), "POINT    (" + dump + ", " + dump + ", " + dump + ")");
    }

    // Writing through a temporary file beside the target failed the whole
    // export where the folder is read-only but the file is not.
    void writableFileInAReadOnlyFolderIsRewritten()
    {
        QTemporaryDir dir;
        const QString folder = dir.filePath("read-only");
        const QString out = folder + "/x.gk2";
        const DxfDrawing sheet = oneSheet({ { 1, 2 } }, { GK::vpTopLeft });
        // Nothing is written where the target cannot be, and the error
        // names it.
        int sheets = -1;
        QString error;
        QVERIFY(!DxfSheetExport::ExportGK2(sheet, out, &sheets, &error));
        QVERIFY(sheets == 0 && error.contains("x.gk2") && !QFile::exists(out));
        QFile old(out);
        QVERIFY(QDir().mkdir(folder) && old.open(QIODevice::WriteOnly) && old.write(QByteArray(200, 'x')) == 200);
        old.close();
        using P = QFileDevice;
        const P::Permissions everyone
            = P::ReadOwner | P::ReadGroup | P::ReadOther | P::ExeOwner | P::ExeGroup | P::ExeOther;
        QVERIFY(QFile::setPermissions(dir.path(), everyone | P::WriteOwner)
            && QFile::setPermissions(out, everyone | P::WriteOwner | P::WriteGroup | P::WriteOther)
            && QFile::setPermissions(folder, everyone));
        const auto cleanUp = qScopeGuard([&] { QFile::setPermissions(folder, everyone | P::WriteOwner); });

        // Permissions do not bind root: the export runs as "nobody" then.
        const uid_t user = geteuid();
        if (user == 0) {
            const passwd* nobody = getpwnam("nobody");
            if (!nobody)
                QSKIP("running as root, and without a user 'nobody' to whom the folder's permissions apply");
            QVERIFY(seteuid(nobody->pw_uid) == 0);
        }
        const auto restore = qScopeGuard([user] { QVERIFY(seteuid(user) == 0); });
        QVERIFY2(!QFile(folder + "/probe").open(QIODevice::WriteOnly), "the folder is writable after all");
        // A root folder that only root may enter (a bare chroot made with
        // mktemp -d) keeps "nobody" from the file itself.
        if (!QFile(out).open(QIODevice::ReadWrite))
            QSKIP("the file is out of reach of the user the test runs as");

        QVERIFY2(DxfSheetExport::ExportGK2(sheet, out, nullptr, &error), qPrintable(error));
        QCOMPARE(readAll(out), QByteArray("GK2\r\n\r\n7\r\n   1,00        2,00    \r\n"));
    }
};

QTEST_GUILESS_MAIN(DxfTest)
#include "DxfTest.moc"
