#include "ModalDriver.h"

#include <Kamo_view/ProjectDescription.h>
#include <nodetools/AnalyzeProjectNT.h>

namespace {

// Everything below `dir`: "folder/" and "file=content", sorted.
QStringList contents(const QString& dir)
{
    QStringList result;
    QDirIterator it(dir, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        result.append(QDir(dir).relativeFilePath(path)
            + (it.fileInfo().isDir() ? QString("/") : '=' + QString::fromUtf8(fileBytes(path))));
    }
    result.sort();
    return result;
}

// The project at `root`, analysed, and its result shown under `parent`;
// `look` sees the result, closed after it.
void showAnalysis(const QString& root, QWidget* parent, const ModalDriver::Handler& look)
{
    ProjectDescription description;
    QVERIFY2(description.Load(root), qPrintable(description.ErrorString()));
    AnalyzeProjectNT analysis;
    analysis.SetProjectRootDir(root);
    analysis.SetNodesMap(&description.Nodes());
    analysis.SetFilesMap(&description.Files());
    analysis.Execute();
    ModalDriver driver;
    driver.Expect("DlgAnalyzeProject", [&look](QWidget* result) {
        look(result);
        pressBox(result, QDialogButtonBox::Close);
    });
    analysis.ShowResult(parent);
    QCOMPARE(driver.Seen(), QStringList { "DlgAnalyzeProject" });
}

// A project whose one node files `documents`, with the "folder/" and
// "file=content" entries of contents() in its data folder.
struct Project {
    Project(const QStringList& documents, const QStringList& entries)
    {
        for (const QString& entry : entries) {
            const QString path = Data() + '/' + entry.section('=', 0, 0);
            QVERIFY(entry.endsWith('/') ? QDir().mkpath(path) : writeFile(path, entry.section('=', 1).toUtf8()));
        }
        QDir().mkpath(Data());
        // Quoted with ' here, which JSON does not know.
        const QString json = "{'Version': 1, 'Id': 'P', 'Name': 'P', 'Nodes': [{'Id': 1, 'Name': 'N', 'Documents': "
                             "{'1': ['%1']}}]}";
        writeFile(root.filePath("Projekt.json"), json.arg(documents.join("', '")).replace('\'', '"').toUtf8());
    }
    QString Data() const { return root.path() + "/Daten"; }
    QTemporaryDir root;
};

// `before` and `after` below "Daten", where b.ann is used; `vanishing` is
// unused, but gone before the move; no `target` cancels. Pressed twice: the
// second time finds nothing left to move.
void moveUnused(const QStringList& before, const QString& vanishing, const QString& target, const QStringList& after)
{
    Project project({ "b.pdf" }, before);
    const QString data = project.Data();
    showAnalysis(project.root.path(), nullptr, [&](QWidget* result) {
        QVERIFY(vanishing.isEmpty() || QFile::remove(data + '/' + vanishing));
        auto* unused = child<QTreeWidget>(result, "treeUnusedAnnotationFiles");
        const QStringList listed = treeTexts(unused, { 0 });
        ModalDriver driver;
        for (int i = 0; i < 2; ++i) {
            driver.Expect("QFileDialog", [&](QWidget* chooser) {
                QCOMPARE(static_cast<QFileDialog*>(chooser)->directory().absolutePath(), data + "/ann_obsolet");
                answerFileDialog(chooser, target.isEmpty() ? target : QDir::cleanPath(data + '/' + target));
            });
            child<QPushButton>(result, "btnMoveUnusedAnnotationFiles")->click();
        }
        QCOMPARE(driver.Seen().size(), 2);
        // The list is not refreshed after a move.
        QCOMPARE(treeTexts(unused, { 0 }), listed);
    });
    QCOMPARE(contents(data), after);
}

} // namespace

class DlgAnalyzeProjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // With KAMO_SCREENSHOT_DIR set, the dialog the sample's analysis opens is
    // saved there as a picture.
    void showResultListsTheAnalysisSorted()
    {
        Project project({ "b.pdf", "a.b.pdf", "fehlt.pdf" }, { "b.ann=", "a.bpdf.ann=", "z.ann=", "alt/c.ann=" });
        QWidget parent;
        QStringList shown;
        showAnalysis(project.root.path(), &parent, [&](QWidget* result) {
            QCOMPARE(result->parentWidget(), &parent);
            shown = treeTexts(child<QTreeWidget>(result, "treeUsedFiles"), { 0, 1 })
                + treeTexts(child<QTreeWidget>(result, "treeUnusedAnnotationFiles"), { 0 });
        });
        QCOMPARE(shown, (QStringList { "a.b.pdf | a.bpdf.ann", "b.pdf | b.ann", "alt/c.ann", "z.ann" }));
        const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
        if (!screenshots.isEmpty()) {
            showAnalysis(KAMO_SAMPLE_DIR, &parent,
                [&screenshots](QWidget* result) { result->grab().save(screenshots + "/dlg-analyze-project.png"); });
        }
    }

    void moveUnusedFiles_data()
    {
        const auto row = rowsFor(moveUnused);
        // A file is never replaced, and a subfolder missing in the target keeps
        // its files where they are.
        row("moved unless vanished, already in target or subfolder missing",
            { "a.ann=neu", "ann_obsolet/a.ann=alt", "alt/c.ann=c", "b.ann=b", "d.ann=d", "weg.ann=w" }, "weg.ann",
            "ann_obsolet",
            { "a.ann=neu", "alt/", "alt/c.ann=c", "ann_obsolet/", "ann_obsolet/a.ann=alt", "ann_obsolet/d.ann=d",
                "b.ann=b" });
        row("subfolder present in target", { "alt/c.ann=c", "ann_obsolet/alt/" }, "", "ann_obsolet",
            { "alt/", "ann_obsolet/", "ann_obsolet/alt/", "ann_obsolet/alt/c.ann=c" });
        row("cancelled", { "a.ann=a" }, "", "", { "a.ann=a", "ann_obsolet/" });
        row("data folder chosen", { "a.ann=a", "alt/c.ann=c" }, "", ".",
            { "a.ann=a", "alt/", "alt/c.ann=c", "ann_obsolet/" });
        row("nothing unused", {}, "", "ann_obsolet", { "ann_obsolet/" });
    }
    void moveUnusedFiles() { runRow(); }
};

QTEST_MAIN(DlgAnalyzeProjectTest)
#include "DlgAnalyzeProjectTest.moc"
