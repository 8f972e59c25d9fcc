#include <Kamo_view/ProjectDescription.h>
#include <nodetools/AnalyzeProjectNT.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <functional>

namespace {

enum Choice { DefaultTarget, DataFolder, Cancel };

// While it lives, hands every modal widget that opens to `answer`, once. A
// widget still open after its answer is closed and named in Ignored(), so
// that a test fails instead of waiting forever.
class ModalAnswerer
{
public:
    explicit ModalAnswerer(const std::function<void(QWidget*)>& answer)
    {
        QObject::connect(&timer, &QTimer::timeout, [this, answer] {
            QWidget* modal = QApplication::activeModalWidget();
            // A widget whose answer opens another is not stuck meanwhile.
            if (!modal || busy.contains(modal))
                return;
            if (answered.contains(modal)) {
                ignored.append(modal->metaObject()->className());
                modal->close();
                return;
            }
            answered.append(modal);
            // Answered from a timer of its own: this one does not fire again
            // while its handler runs, and the answer may open a message.
            QTimer::singleShot(0, modal, [this, modal, answer] {
                busy.insert(modal);
                answer(modal);
                busy.remove(modal);
            });
        });
        timer.start(10);
    }

    const QStringList& Ignored() const { return ignored; }

private:
    QTimer timer;
    QList<QPointer<QWidget>> answered;
    QSet<QWidget*> busy;
    QStringList ignored;
};

// The rows of `tree`, columns joined with " | ".
QStringList rows(const QTreeWidget* tree)
{
    QStringList result;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QStringList columns;
        for (int c = 0; c < tree->columnCount(); ++c)
            columns.append(tree->topLevelItem(i)->text(c));
        result.append(columns.join(" | "));
    }
    return result;
}

// Everything below `dir`: "folder/" and "file=content", sorted.
QStringList contents(const QString& dir)
{
    QStringList result;
    QDirIterator it(dir, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString relative = QDir(dir).relativeFilePath(path);
        if (it.fileInfo().isDir()) {
            result.append(relative + '/');
        } else {
            QFile file(path);
            file.open(QIODevice::ReadOnly);
            result.append(relative + '=' + QString::fromUtf8(file.readAll()));
        }
    }
    result.sort();
    return result;
}

// A project whose one node files `documents`, with the "folder/" and
// "file=content" entries of contents() in its data folder, analysed.
struct AnalysedProject {
    AnalysedProject(const QStringList& documents, const QStringList& entries)
    {
        for (const QString& entry : entries) {
            const QString path = Data() + '/' + entry.section('=', 0, 0);
            QDir().mkpath(entry.endsWith('/') ? path : QFileInfo(path).path());
            QFile file(path);
            if (!entry.endsWith('/') && file.open(QIODevice::WriteOnly))
                file.write(entry.section('=', 1).toUtf8());
        }
        QDir().mkpath(Data());
        QFile json(root.filePath("Projekt.json"));
        json.open(QIODevice::WriteOnly);
        // moc reads this file too, and not raw string literals.
        json.write("{\"Version\": 1, \"Id\": \"P\", \"Name\": \"P\", \"Nodes\": [{\"Id\": 1, \"Name\": \"N\", "
                   "\"Documents\": {\"1\": [\""
            + documents.join("\", \"").toUtf8() + "\"]}}]}");
        json.close();
        QVERIFY2(description.Load(root.path()), qPrintable(description.ErrorString()));
        analysis.SetProjectRootDir(root.path());
        analysis.SetNodesMap(&description.Nodes());
        analysis.SetFilesMap(&description.Files());
        analysis.Execute();
    }
    QString Data() const { return root.path() + "/Daten"; }

    QTemporaryDir root;
    ProjectDescription description;
    AnalyzeProjectNT analysis;
};

} // namespace

class DlgAnalyzeProjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showResultListsTheAnalysisSorted();
    void moveUnusedFiles_data();
    void moveUnusedFiles();
};

// With KAMO_SCREENSHOT_DIR set, the dialog the sample's analysis opens is
// saved there as a picture.
void DlgAnalyzeProjectTest::showResultListsTheAnalysisSorted()
{
    AnalysedProject project({ "b.pdf", "a.b.pdf", "fehlt.pdf" }, { "b.ann=", "a.bpdf.ann=", "z.ann=", "alt/c.ann=" });
    QWidget parent;
    QWidget* shownParent = nullptr;
    QStringList used;
    QStringList unused;
    ModalAnswerer answerer([&](QWidget* modal) {
        shownParent = modal->parentWidget();
        used = rows(modal->findChild<QTreeWidget*>("treeUsedFiles"));
        unused = rows(modal->findChild<QTreeWidget*>("treeUnusedAnnotationFiles"));
        modal->findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Close)->click();
    });
    project.analysis.ShowResult(&parent);
    QCOMPARE(shownParent, &parent);
    QCOMPARE(used, (QStringList { "a.b.pdf | a.bpdf.ann", "b.pdf | b.ann" }));
    QCOMPARE(unused, (QStringList { "alt/c.ann", "z.ann" }));

    const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
    if (screenshots.isEmpty())
        return;
    ProjectDescription sample;
    QVERIFY(sample.Load(KAMO_SAMPLE_DIR));
    AnalyzeProjectNT analysis;
    analysis.SetProjectRootDir(KAMO_SAMPLE_DIR);
    analysis.SetNodesMap(&sample.Nodes());
    analysis.SetFilesMap(&sample.Files());
    analysis.Execute();
    ModalAnswerer shooter([&](QWidget* modal) {
        modal->grab().save(screenshots + "/dlg-analyze-project.png");
        modal->findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Close)->click();
    });
    analysis.ShowResult(&parent);
}

void DlgAnalyzeProjectTest::moveUnusedFiles_data()
{
    QTest::addColumn<QStringList>("before"); // below "Daten"; b.ann is used
    QTest::addColumn<QString>("vanishing");  // unused, but gone before the move
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("clicks");
    QTest::addColumn<QStringList>("after");

    QTest::newRow("moved, vanished source skipped")
        << QStringList { "a.ann=a", "b.ann=b", "weg.ann=w" } << "weg.ann" << int(DefaultTarget) << 1
        << QStringList { "ann_obsolet/", "ann_obsolet/a.ann=a", "b.ann=b" };
    QTest::newRow("second click finds nothing") << QStringList { "a.ann=a" } << QString() << int(DefaultTarget) << 2
                                                << QStringList { "ann_obsolet/", "ann_obsolet/a.ann=a" };
    QTest::newRow("subfolder missing in target") << QStringList { "alt/c.ann=c" } << QString() << int(DefaultTarget)
                                                 << 1 << QStringList { "alt/", "alt/c.ann=c", "ann_obsolet/" };
    QTest::newRow("subfolder present in target")
        << QStringList { "alt/c.ann=c", "ann_obsolet/alt/" } << QString() << int(DefaultTarget) << 1
        << QStringList { "alt/", "ann_obsolet/", "ann_obsolet/alt/", "ann_obsolet/alt/c.ann=c" };
    QTest::newRow("already in target") << QStringList { "a.ann=neu", "ann_obsolet/a.ann=alt" } << QString()
                                       << int(DefaultTarget) << 1
                                       << QStringList { "a.ann=neu", "ann_obsolet/", "ann_obsolet/a.ann=alt" };
    QTest::newRow("cancelled") << QStringList { "a.ann=a" } << QString() << int(Cancel) << 1
                               << QStringList { "a.ann=a", "ann_obsolet/" };
    QTest::newRow("data folder chosen") << QStringList { "a.ann=a", "alt/c.ann=c" } << QString() << int(DataFolder) << 1
                                        << QStringList { "a.ann=a", "alt/", "alt/c.ann=c", "ann_obsolet/" };
    QTest::newRow("nothing unused") << QStringList() << QString() << int(DefaultTarget) << 1
                                    << QStringList { "ann_obsolet/" };
}

void DlgAnalyzeProjectTest::moveUnusedFiles()
{
    QFETCH(QStringList, before);
    QFETCH(QString, vanishing);
    QFETCH(int, choice);
    QFETCH(int, clicks);
    QFETCH(QStringList, after);
    AnalysedProject project({ "b.pdf" }, before);
    const QString data = project.Data();
    if (!vanishing.isEmpty())
        QVERIFY(QFile::remove(data + '/' + vanishing));

    int listed = -1;
    ModalAnswerer answerer([&](QWidget* modal) {
        if (auto* chooser = qobject_cast<QFileDialog*>(modal)) {
            QCOMPARE(chooser->directory().absolutePath(), data + "/ann_obsolet");
            if (choice == Cancel) {
                chooser->reject();
                return;
            }
            if (choice == DataFolder)
                chooser->setDirectory(data);
            // QFileDialog hides the accept it overrides.
            static_cast<QDialog*>(chooser)->accept();
            return;
        }
        for (int i = 0; i < clicks; ++i)
            modal->findChild<QPushButton*>("btnMoveUnusedAnnotationFiles")->click();
        // The list is not refreshed after a move.
        listed = modal->findChild<QTreeWidget*>("treeUnusedAnnotationFiles")->topLevelItemCount();
        modal->close();
    });
    project.analysis.ShowResult(nullptr);

    QCOMPARE(answerer.Ignored(), QStringList()); // no message, no stuck chooser
    QCOMPARE(contents(data), after);
    QCOMPARE(listed, project.analysis.GetUnusedAnnotationFiles().size());
}

QTEST_MAIN(DlgAnalyzeProjectTest)
#include "DlgAnalyzeProjectTest.moc"
