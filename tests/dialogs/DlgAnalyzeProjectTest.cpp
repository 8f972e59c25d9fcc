#include <Kamo_view/ProjectDescription.h>
#include <dialogs/DlgAnalyzeProject.h>
#include <nodetools/AnalyzeProjectNT.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QPointer>
#include <QPushButton>
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
            if (!modal)
                return;
            if (answered.contains(modal)) {
                ignored.append(modal->metaObject()->className());
                modal->close();
                return;
            }
            answered.append(modal);
            // Answered from a timer of its own: this one does not fire again
            // while its handler runs, and the answer may open a message.
            QTimer::singleShot(0, modal, [modal, answer] { answer(modal); });
        });
        timer.start(10);
    }

    const QStringList& Ignored() const { return ignored; }

private:
    QTimer timer;
    QList<QPointer<QWidget>> answered;
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

// Creates the "folder/" and "file=content" entries of contents() below `dir`.
void create(const QString& dir, const QStringList& entries)
{
    for (const QString& entry : entries) {
        const QString path = dir + '/' + entry.section('=', 0, 0);
        QDir().mkpath(entry.endsWith('/') ? path : QFileInfo(path).path());
        QFile file(path);
        if (!entry.endsWith('/') && file.open(QIODevice::WriteOnly))
            file.write(entry.section('=', 1).toUtf8());
    }
}

} // namespace

class DlgAnalyzeProjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fillsSortedListsAndClearsThemOnRefill();
    void moveUnusedFiles_data();
    void moveUnusedFiles();
    void showResultOpensTheFilledDialog();
};

void DlgAnalyzeProjectTest::fillsSortedListsAndClearsThemOnRefill()
{
    DlgAnalyzeProject dialog;
    dialog.SetReferencedFiles({ { "C:\\PDF\\b.pdf", "b.ann" }, { "C:\\PDF\\a.b.pdf", "a.bpdf.ann" } });
    dialog.SetUnusedAnnotationFiles({ "b.ann", "alt/c.ann", "a.ann" });
    dialog.SetUsedAnnotationFiles({ "y.ann", "x.ann" });
    dialog.FillLists();

    const auto* usedFiles = dialog.findChild<QTreeWidget*>("treeUsedFiles");
    const auto* used = dialog.findChild<QTreeWidget*>("treeUsedAnnotationFiles");
    const auto* unused = dialog.findChild<QTreeWidget*>("treeUnusedAnnotationFiles");
    QCOMPARE(rows(usedFiles), (QStringList { "C:\\PDF\\a.b.pdf | a.bpdf.ann", "C:\\PDF\\b.pdf | b.ann" }));
    QCOMPARE(rows(used), (QStringList { "x.ann", "y.ann" }));
    QCOMPARE(rows(unused), (QStringList { "a.ann", "alt/c.ann", "b.ann" }));

    dialog.SetReferencedFiles({});
    dialog.SetUnusedAnnotationFiles({});
    dialog.SetUsedAnnotationFiles({});
    dialog.FillLists();
    QCOMPARE(usedFiles->topLevelItemCount() + used->topLevelItemCount() + unused->topLevelItemCount(), 0);
}

void DlgAnalyzeProjectTest::moveUnusedFiles_data()
{
    QTest::addColumn<QStringList>("before"); // below "Daten"
    QTest::addColumn<QStringList>("unused");
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("clicks");
    QTest::addColumn<QStringList>("after");

    const QStringList a { "a.ann" };
    QTest::newRow("moved, missing source skipped")
        << QStringList { "a.ann=a", "b.ann=b" } << QStringList { "weg.ann", "a.ann" } << int(DefaultTarget) << 1
        << QStringList { "ann_obsolet/", "ann_obsolet/a.ann=a", "b.ann=b" };
    QTest::newRow("second click finds nothing") << QStringList { "a.ann=a" } << a << int(DefaultTarget) << 2
                                                << QStringList { "ann_obsolet/", "ann_obsolet/a.ann=a" };
    QTest::newRow("subfolder missing in target")
        << QStringList { "alt/c.ann=c" } << QStringList { "alt/c.ann" } << int(DefaultTarget) << 1
        << QStringList { "alt/", "alt/c.ann=c", "ann_obsolet/" };
    QTest::newRow("subfolder present in target")
        << QStringList { "alt/c.ann=c", "ann_obsolet/alt/" } << QStringList { "alt/c.ann" } << int(DefaultTarget) << 1
        << QStringList { "alt/", "ann_obsolet/", "ann_obsolet/alt/", "ann_obsolet/alt/c.ann=c" };
    QTest::newRow("already in target") << QStringList { "a.ann=neu", "ann_obsolet/a.ann=alt" } << a
                                       << int(DefaultTarget) << 1
                                       << QStringList { "a.ann=neu", "ann_obsolet/", "ann_obsolet/a.ann=alt" };
    QTest::newRow("cancelled") << QStringList { "a.ann=a" } << a << int(Cancel) << 1
                               << QStringList { "a.ann=a", "ann_obsolet/" };
    QTest::newRow("data folder chosen") << QStringList { "a.ann=a", "alt/c.ann=c" }
                                        << QStringList { "a.ann", "alt/c.ann" } << int(DataFolder) << 1
                                        << QStringList { "a.ann=a", "alt/", "alt/c.ann=c", "ann_obsolet/" };
    QTest::newRow("nothing unused") << QStringList() << QStringList() << int(DefaultTarget) << 1
                                    << QStringList { "ann_obsolet/" };
}

void DlgAnalyzeProjectTest::moveUnusedFiles()
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, unused);
    QFETCH(int, choice);
    QFETCH(int, clicks);
    QFETCH(QStringList, after);

    QTemporaryDir root;
    const QString data = root.path() + "/Daten";
    QVERIFY(QDir().mkpath(data));
    create(data, before);

    DlgAnalyzeProject dialog;
    dialog.SetDataDirectory(root.path());
    dialog.SetUnusedAnnotationFiles(unused);
    dialog.FillLists();

    ModalAnswerer answerer([&](QWidget* modal) {
        auto* chooser = qobject_cast<QFileDialog*>(modal);
        QVERIFY(chooser);
        QCOMPARE(chooser->directory().absolutePath(), data + "/ann_obsolet");
        if (choice == Cancel) {
            chooser->reject();
            return;
        }
        if (choice == DataFolder)
            chooser->setDirectory(data);
        // QFileDialog hides the accept it overrides.
        static_cast<QDialog*>(chooser)->accept();
    });
    for (int i = 0; i < clicks; ++i)
        dialog.findChild<QPushButton*>("btnMoveUnusedAnnotationFiles")->click();

    QCOMPARE(answerer.Ignored(), QStringList()); // no message, no stuck chooser
    QCOMPARE(contents(data), after);
    // The list is not refreshed after a move.
    QCOMPARE(rows(dialog.findChild<QTreeWidget*>("treeUnusedAnnotationFiles")).size(), unused.size());
}

// Analyses the sample project and looks at the dialog the analysis opens.
// With KAMO_SCREENSHOT_DIR set, the dialog is saved there as a picture.
void DlgAnalyzeProjectTest::showResultOpensTheFilledDialog()
{
    ProjectDescription description;
    QVERIFY2(description.Load(KAMO_SAMPLE_DIR), qPrintable(description.ErrorString()));
    AnalyzeProjectNT analysis;
    analysis.SetProjectRootDir(KAMO_SAMPLE_DIR);
    analysis.SetNodesMap(&description.Nodes());
    analysis.SetFilesMap(&description.Files());
    analysis.Execute();
    QVERIFY(!analysis.GetUnusedAnnotationFiles().isEmpty());

    QWidget parent;
    QWidget* shownParent = nullptr;
    int usedFiles = -1;
    int unused = -1;
    ModalAnswerer answerer([&](QWidget* modal) {
        shownParent = modal->parentWidget();
        usedFiles = modal->findChild<QTreeWidget*>("treeUsedFiles")->topLevelItemCount();
        unused = modal->findChild<QTreeWidget*>("treeUnusedAnnotationFiles")->topLevelItemCount();
        const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
        if (!screenshots.isEmpty())
            modal->grab().save(screenshots + "/dlg-analyze-project.png");
        modal->findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Close)->click();
    });
    analysis.ShowResult(&parent);

    QCOMPARE(shownParent, &parent);
    QCOMPARE(usedFiles, analysis.GetReferencedFiles().size());
    QCOMPARE(unused, analysis.GetUnusedAnnotationFiles().size());
}

QTEST_MAIN(DlgAnalyzeProjectTest)
#include "DlgAnalyzeProjectTest.moc"
