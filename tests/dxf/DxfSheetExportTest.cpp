#include <dxf/DxfDrawing.h>
#include <dxf/DxfDump.h>
#include <dxf/DxfSheetExport.h>

#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

#include <charconv>
#include <clocale>
#include <cmath>

#include <pwd.h>
#include <unistd.h>

namespace {

QString fixture(const char* name)
{
    return QStringLiteral(KAMO_DXF_DATA "/") + QLatin1String(name);
}

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

using Attributes = QList<QPair<QString, QString>>;

// One insert of sheet number 7 whose block holds one polyline; vertex i
// gets labels[i].
DxfDrawing oneSheet(const QVector<QPointF>& vertices, const QList<int>& labels)
{
    DxfDrawing drawing;
    DxfPolyline polyline;
    polyline.vertices = vertices;
    for (int i = 0; i < labels.size(); ++i)
        polyline.labels.insert(i, static_cast<GK::VtxPosition>(labels.at(i)));
    drawing.blocks.append(DxfBlock { "B", { polyline } });
    DxfInsert insert;
    insert.blockName = "B";
    insert.attributes = { { "Bl_Nr", "7" } };
    drawing.inserts.append(insert);
    return drawing;
}

} // namespace

class DxfSheetExportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void capturedInserts_data();
    void capturedInserts();
    void capturedBlocks();
    void textInTheDrawingsEncoding_data();
    void textInTheDrawingsEncoding();
    void correctionLog();
    void exportMatchesHandCheckedFile();
    void singleRecord_data();
    void singleRecord();
    void numbersRoundedLikePrintf_data();
    void numbersRoundedLikePrintf();
    void unwritableTargetKeepsNothing();
    void writableFileInAReadOnlyFolderIsRewritten();
    void correctingACopyKeepsTheOriginal();
    void firstBlockOfANameCounts();
    void kiteFrameStopsTheLabellingWithAReason();
};

void DxfSheetExportTest::capturedInserts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("block");
    QTest::addColumn<Attributes>("attributes");
    QTest::addColumn<QString>("sheetNumber");

    QTest::newRow("small sheet") << 0 << "BLATT_40" << Attributes { { "BL_NR", "40" } } << "40";
    QTest::newRow("two attributes") << 1 << "BLATT_41" << Attributes { { "BL_NR", "41" }, { "MASSSTAB", "1:500" } }
                                    << "41";
    QTest::newRow("other spelling only") << 2 << "BLATT_42" << Attributes { { "Bl_Nr", "42" } } << "42";
    QTest::newRow("upper case wins though later")
        << 3 << "BLATT_43" << Attributes { { "Bl_Nr", "x43" }, { "BL_NR", "43" } } << "43";
    QTest::newRow("no attributes after attributed insert") << 6 << "LEGENDE" << Attributes() << "";
    QTest::newRow("missing block") << 7 << "FEHLT" << Attributes { { "BL_NR", "99" } } << "99";
}

void DxfSheetExportTest::capturedInserts()
{
    QFETCH(int, index);
    QFETCH(QString, block);
    QFETCH(Attributes, attributes);
    QFETCH(QString, sheetNumber);

    DxfDrawing drawing;
    QString error;
    QVERIFY2(DxfDrawing::Read(fixture("sheets.dxf"), drawing, &error), qPrintable(error));
    QCOMPARE(drawing.inserts.size(), 8);
    const DxfInsert& insert = drawing.inserts.at(index);
    QCOMPARE(insert.blockName, block);
    QCOMPARE(insert.attributes, attributes);
    QCOMPARE(insert.SheetNumber(), sheetNumber);
    QCOMPARE(insert.HasSheetNumber(), !sheetNumber.isEmpty());
    QVERIFY(insert.use);
}

void DxfSheetExportTest::capturedBlocks()
{
    DxfDrawing drawing;
    QVERIFY(DxfDrawing::Read(fixture("sheets.dxf"), drawing, nullptr));
    QVERIFY(drawing.layers.contains("BLATTSCHNITT"));
    QCOMPARE(drawing.inserts.at(1).layer, QString("BLATTSCHNITT"));
    QCOMPARE(drawing.inserts.at(6).x, 100.5);
    QCOMPARE(drawing.inserts.at(6).y, 200.25);
    QVERIFY(!drawing.Block("FEHLT"));
    QVERIFY(drawing.Block("LEGENDE")->polylines.isEmpty());
    QCOMPARE(drawing.Block("BLATT_45")->polylines.size(), 2);
    QCOMPARE(drawing.Block("BLATT_44")->polylines.first().vertices.size(), 5);
    const DxfPolyline& small = drawing.Block("BLATT_40")->polylines.first();
    QCOMPARE(small.vertices, (QVector<QPointF> { { 5.5, 3.75 }, { -4.5, 3.75 }, { -4.5, -2.25 }, { 5.5, -2.25 } }));
    QVERIFY(small.labels.isEmpty());
}

// Before R2007 a drawing's text is in its codepage, not UTF-8: read as UTF-8,
// every umlaut became U+FFFD, which also made the two block names one.
void DxfSheetExportTest::textInTheDrawingsEncoding_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("mtext"); // R12 has none

    QTest::newRow("R12 in ANSI_1252") << "umlauts-r12.dxf"
                                      << "";
    QTest::newRow("R2000 in ANSI_1252") << "umlauts-r2000.dxf"
                                        << "\nMText: Brücke Ω";
    QTest::newRow("R2010 in UTF-8") << "umlauts-r2010.dxf"
                                    << "\nMText: Brücke Ω";
}

void DxfSheetExportTest::textInTheDrawingsEncoding()
{
    QFETCH(QString, file);
    QFETCH(QString, mtext);

    DxfDrawing drawing;
    QString error;
    QVERIFY2(DxfDrawing::Read(fixture(qPrintable(file)), drawing, &error), qPrintable(error));
    QVERIFY(drawing.layers.contains("STRAßE"));
    QCOMPARE(drawing.inserts.size(), 2);
    QCOMPARE(drawing.inserts.at(0).blockName, QString("BLATT_SÜD"));
    QCOMPARE(drawing.inserts.at(1).blockName, QString("BLATT_SÖD"));
    QCOMPARE(drawing.inserts.at(1).layer, QString("STRAßE"));
    QCOMPARE(drawing.inserts.at(1).attributes,
        (Attributes { { "BL_NR", "Söd-2" }, { "MAßSTAB", "1:500" }, { "BEMERKUNG", "Ω-Prüfung 5 €" } }));
    QVERIFY(drawing.Block("BLATT_SÜD") && drawing.Block("BLATT_SÖD"));
    QVERIFY(drawing.Block("BLATT_SÜD") != drawing.Block("BLATT_SÖD"));

    // The host reads the file in the locale's encoding, here ANSI_1252.
    QTextCodec* const localeCodec = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("windows-1252"));
    const auto restore = qScopeGuard([localeCodec] { QTextCodec::setCodecForLocale(localeCodec); });
    QVERIFY(DxfSheetExport::CorrectVertexPositions(drawing).isEmpty());
    QTemporaryDir dir;
    QVERIFY2(DxfSheetExport::ExportGK2(drawing, dir.filePath("x.gk2"), nullptr, &error), qPrintable(error));
    QCOMPARE(readAll(dir.filePath("x.gk2")), readAll(fixture("umlauts.gk2")));

    QString text;
    QVERIFY2(DxfDump::DumpFileToText(fixture(qPrintable(file)), text, &error), qPrintable(error));
    for (const char* expected : { "\nLAYER: STRAßE flags: 0\n", "\nBLOCK: BLATT_SÖD flags: 0\n", " Type: STRICH_Ü\n",
             "\nAttribute: Ω-Prüfung 5 €\n", "\nText: Straße Ω" })
        QVERIFY2(text.contains(expected), qPrintable(expected));
    QVERIFY(text.contains(mtext));
}

void DxfSheetExportTest::correctionLog()
{
    DxfDrawing drawing;
    QVERIFY(DxfDrawing::Read(fixture("sheets.dxf"), drawing, nullptr));
    DxfCorrectionResult result;
    result.route = { 99 }; // a result of an earlier run must not leak into this one
    QCOMPARE(DxfSheetExport::CorrectVertexPositions(drawing, result),
        QStringList { "Rectangle detector detected less or more than one rectangle (Block:4" });
    // Two polylines (5), no polyline (6) and a missing block (7) are left out
    // silently, as before.
    QCOMPARE(result.notOneRectangle, QList<int> { 4 });
    QCOMPARE(result.Reported(), QList<int> { 4 });
    QCOMPARE(result.route, (QList<int> { 0, 1, 2, 3 }));
    // The notch vertices stay unlabelled.
    QCOMPARE(drawing.Block("BLATT_42")->polylines.first().labels.keys(), (QList<int> { 0, 4, 5, 6 }));
    QVERIFY(drawing.Block("BLATT_44")->polylines.first().labels.isEmpty());
}

void DxfSheetExportTest::exportMatchesHandCheckedFile()
{
    DxfDrawing drawing;
    QVERIFY(DxfDrawing::Read(fixture("sheets.dxf"), drawing, nullptr));
    DxfSheetExport::CorrectVertexPositions(drawing);
    QTemporaryDir dir;
    const QString out = dir.filePath("sheets.gk2");
    int written = -1;
    QString error;
    QVERIFY2(DxfSheetExport::ExportGK2(drawing, out, &written, &error), qPrintable(error));
    QCOMPARE(written, 6);
    QCOMPARE(readAll(out), readAll(fixture("sheets.gk2")));
}

void DxfSheetExportTest::singleRecord_data()
{
    QTest::addColumn<QVector<QPointF>>("vertices");
    QTest::addColumn<QList<int>>("labels");
    QTest::addColumn<bool>("use");
    QTest::addColumn<QByteArray>("expected");

    const QVector<QPointF> small { { 5.5, -0.004 }, { -12.346, 1234567.891 } };
    QTest::newRow("no labels") << small << QList<int>() << true << QByteArray("GK2\r\n\r\n7\r\n");
    QTest::newRow("padding, rounding, decimal commas")
        << small << QList<int> { GK::vpBottomLeft, GK::vpTopLeft } << true
        << QByteArray("GK2\r\n\r\n7\r\n -12,35     1234567,89    \r\n   5,50       -0,00    \r\n");
    QTest::newRow("unknown label and later duplicate")
        << QVector<QPointF> { { 1, 2 }, { 3, 4 }, { 5, 6 } }
        << QList<int> { GK::vpTopRight, GK::vpUnknown, GK::vpTopRight } << true
        << QByteArray("GK2\r\n\r\n7\r\n   5,00        6,00    \r\n");
    QTest::newRow("unused") << small << QList<int> { GK::vpTopLeft } << false << QByteArray("GK2\r\n");
}

void DxfSheetExportTest::singleRecord()
{
    QFETCH(QVector<QPointF>, vertices);
    QFETCH(QList<int>, labels);
    QFETCH(bool, use);
    QFETCH(QByteArray, expected);

    DxfDrawing drawing = oneSheet(vertices, labels);
    drawing.inserts.first().use = use;

    QTemporaryDir dir;
    const QString out = dir.filePath("x.gk2");
    QVERIFY(DxfSheetExport::ExportGK2(drawing, out, nullptr, nullptr));
    QCOMPARE(readAll(out), expected);
}

// Both number formats, the GK2 file's "%7.2lf" and the dump's "%6.3f", as
// printf writes them in the C locale: QString::asprintf rounds exact ties
// away from zero and drops the sign of -0.0, and a printf under a locale
// with decimal commas would write those.
void DxfSheetExportTest::numbersRoundedLikePrintf_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("gk2");
    QTest::addColumn<QString>("dump");      // empty: a DXF file cannot hold the value
    QTest::addColumn<QByteArray>("locale"); // empty: the test's own

    QTest::newRow("tie .125 to even, down") << 3512000.125 << QByteArray("3512000,12") << "3512000.125" << QByteArray();
    QTest::newRow("tie .375 to even, up") << 0.375 << QByteArray("   0,38") << " 0.375" << QByteArray();
    QTest::newRow("tie .625 to even, down") << 5812000.625 << QByteArray("5812000,62") << "5812000.625" << QByteArray();
    QTest::newRow("tie .0625 to even, down") << -1.0625 << QByteArray("  -1,06") << "-1.062" << QByteArray();
    QTest::newRow("tie .1875 to even, up") << 0.1875 << QByteArray("   0,19") << " 0.188" << QByteArray();
    QTest::newRow("negative zero") << -0.0 << QByteArray("  -0,00") << "-0.000" << QByteArray();
    QTest::newRow("large") << 1e22 << QByteArray("10000000000000000000000,00") << "10000000000000000000000.000"
                           << QByteArray();
    QTest::newRow("small negative") << -1e-300 << QByteArray("  -0,00") << "-0.000" << QByteArray();
    QTest::newRow("nan") << qQNaN() << QByteArray("    nan") << "" << QByteArray();
    QTest::newRow("infinity") << -qInf() << QByteArray("   -inf") << "" << QByteArray();
    QTest::newRow("German locale") << 3512000.625 << QByteArray("3512000,62") << "3512000.625"
                                   << QByteArray("de_DE.UTF-8");
}

void DxfSheetExportTest::numbersRoundedLikePrintf()
{
    QFETCH(double, value);
    QFETCH(QByteArray, gk2);
    QFETCH(QString, dump);
    QFETCH(QByteArray, locale);

    const QByteArray previous = setlocale(LC_ALL, nullptr);
    const auto restore = qScopeGuard([&previous] { setlocale(LC_ALL, previous.constData()); });
    if (!locale.isEmpty() && !setlocale(LC_ALL, locale.constData()))
        QSKIP("the locale is not installed here (localedef -i de_DE -f UTF-8 de_DE.UTF-8 makes it)");

    QTemporaryDir dir;
    const QString out = dir.filePath("x.gk2");
    QVERIFY(DxfSheetExport::ExportGK2(oneSheet({ { value, value } }, { GK::vpTopLeft }), out, nullptr, nullptr));
    QCOMPARE(readAll(out), "GK2\r\n\r\n7\r\n" + gk2 + "     " + gk2 + "    \r\n");

    if (dump.isEmpty())
        return;
    QFile dxf(dir.filePath("point.dxf"));
    // QByteArray::number drops the sign of -0.0.
    char digits[32];
    const QByteArray number(digits, int(std::to_chars(digits, digits + sizeof digits, value).ptr - digits));
    QVERIFY(dxf.open(QIODevice::WriteOnly));
    dxf.write("  0\nSECTION\n  2\nENTITIES\n  0\nPOINT\n 10\n" + number + "\n 20\n" + number + "\n 30\n" + number
        + "\n  0\nENDSEC\n  0\nEOF\n");
    dxf.close();
    QString text;
    QString error;
    QVERIFY2(DxfDump::DumpFileToText(dxf.fileName(), text, &error), qPrintable(error));
    QCOMPARE(text.section('\n', 0, 0), "POINT    (" + dump + ", " + dump + ", " + dump + ")");
}

void DxfSheetExportTest::unwritableTargetKeepsNothing()
{
    QTemporaryDir dir;
    const QString out = dir.filePath("missing-folder/x.gk2");
    int written = -1;
    QString error;
    QVERIFY(!DxfSheetExport::ExportGK2(DxfDrawing(), out, &written, &error));
    QCOMPARE(written, 0);
    QVERIFY(error.contains("x.gk2"));
    QVERIFY(!QFile::exists(out));
}

// Writing through a temporary file beside the target failed the whole export
// where the folder is read-only but the file is not.
void DxfSheetExportTest::writableFileInAReadOnlyFolderIsRewritten()
{
    QTemporaryDir dir;
    const QString folder = dir.filePath("read-only");
    const QString out = folder + "/x.gk2";
    QVERIFY(QDir().mkdir(folder));
    QFile old(out);
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write(QByteArray(200, 'x')) == 200);
    old.close();
    const QFileDevice::Permissions everyone = QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther
        | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;
    QVERIFY(QFile::setPermissions(dir.path(), everyone | QFileDevice::WriteOwner));
    QVERIFY(QFile::setPermissions(
        out, everyone | QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther));
    QVERIFY(QFile::setPermissions(folder, everyone));
    const auto cleanUp = qScopeGuard([&] { QFile::setPermissions(folder, everyone | QFileDevice::WriteOwner); });

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

    QString error;
    QVERIFY2(
        DxfSheetExport::ExportGK2(oneSheet({ { 1, 2 } }, { GK::vpTopLeft }), out, nullptr, &error), qPrintable(error));
    QCOMPARE(readAll(out), QByteArray("GK2\r\n\r\n7\r\n   1,00        2,00    \r\n"));
}

void DxfSheetExportTest::correctingACopyKeepsTheOriginal()
{
    DxfDrawing original;
    QVERIFY(DxfDrawing::Read(fixture("sheets.dxf"), original, nullptr));
    DxfDrawing copy = original;
    DxfSheetExport::CorrectVertexPositions(copy);
    copy.Block("BLATT_40")->name = "RENAMED";
    QVERIFY(!copy.Block("BLATT_42")->polylines.first().labels.isEmpty());
    QVERIFY(original.Block("BLATT_42")->polylines.first().labels.isEmpty());
    QVERIFY(original.Block("BLATT_40"));
}

void DxfSheetExportTest::firstBlockOfANameCounts()
{
    const QVector<QPointF> frame { { 0, 0 }, { 40, 0 }, { 40, 28 }, { 0, 28 } };
    DxfDrawing drawing;
    drawing.blocks.append(DxfBlock { "B", { DxfPolyline { frame, {} } } });
    drawing.blocks.append(DxfBlock { "B", { DxfPolyline { { { 100, 100 } }, { { 0, GK::vpTopLeft } } } } });
    DxfInsert insert;
    insert.blockName = "B";
    insert.attributes = { { "BL_NR", "1" } };
    drawing.inserts.append(insert);

    QVERIFY(DxfSheetExport::CorrectVertexPositions(drawing).isEmpty());
    QCOMPARE(drawing.blocks.at(0).polylines.first().labels.size(), 4);
    QCOMPARE(drawing.blocks.at(1).polylines.first().labels.size(), 1);

    QTemporaryDir dir;
    const QString out = dir.filePath("x.gk2");
    QVERIFY(DxfSheetExport::ExportGK2(drawing, out, nullptr, nullptr));
    QVERIFY(!readAll(out).contains("100,00"));
    QCOMPARE(readAll(out).count("\r\n"), 7);
}

// The rectangle detector takes a kite for a rectangle when its fourth corner
// lies at the diagonal's distance; the revision then stops there. It used to
// do so silently, leaving label-0 entries that counted as labelled.
void DxfSheetExportTest::kiteFrameStopsTheLabellingWithAReason()
{
    const double x0 = 3512000.0;
    const double y0 = 5812000.0;
    const double reach = std::hypot(400.0, 280.0) / std::sqrt(2.0);
    const QVector<QPointF> frames[] = {
        { { x0, y0 }, { x0 + 400, y0 }, { x0 + 400, y0 + 280 }, { x0, y0 + 280 } },
        { { x0 + 380, y0 }, { x0 + 780, y0 }, { x0 + 380 + reach, y0 + reach }, { x0 + 380, y0 + 280 } },
        { { x0 + 760, y0 }, { x0 + 1160, y0 }, { x0 + 1160, y0 + 280 }, { x0 + 760, y0 + 280 } },
    };
    DxfDrawing drawing;
    for (int i = 0; i < 3; ++i) {
        const QString name = QString::number(i);
        drawing.blocks.append(DxfBlock { name, { DxfPolyline { frames[i], {} } } });
        DxfInsert insert;
        insert.blockName = name;
        drawing.inserts.append(insert);
    }

    DxfCorrectionResult result;
    QCOMPARE(DxfSheetExport::CorrectVertexPositions(drawing, result),
        QStringList { "Vertex revision stopped with geSidesMissing at insert 1: its frame has no parallel sides; "
                      "inserts left without corner labels: 1, 2" });
    QCOMPARE(result.unlabelled, (QList<int> { 1, 2 }));
    QCOMPARE(result.Reported(), (QList<int> { 1, 2 }));
    QCOMPARE(result.route, (QList<int> { 0, 1, 2 }));
    QCOMPARE(drawing.blocks.at(0).polylines.first().labels.size(), 4);
    QVERIFY(drawing.blocks.at(1).polylines.first().labels.isEmpty());
    QVERIFY(drawing.blocks.at(2).polylines.first().labels.isEmpty());
}

QTEST_GUILESS_MAIN(DxfSheetExportTest)
#include "DxfSheetExportTest.moc"
