#include "../../dialogs/ModalDriver.h"
#include "../SampleProject.h"

#include <Kamo_view/ProjectDescription.h>
#include <Kamo_view/TreeWidget.h>
#include <dialogs/DialogNodeTools.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

using Adjust = std::function<void(QWidget*)>;

} // namespace

Q_DECLARE_METATYPE(Adjust)

namespace {

// Every file of the data folder but the backups, by its path there.
QMap<QString, QByteArray> dataFiles(const QString& root)
{
    QMap<QString, QByteArray> files;
    const QString data = root + "/Daten/";
    QDirIterator it(data, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.fileName().contains("/ann_sic/") && file.open(QIODevice::ReadOnly))
            files.insert(file.fileName().mid(data.size()), file.readAll());
    }
    return files;
}

template <typename T> T* in(QWidget* dialog, const char* name)
{
    return child<T>(dialog, name);
}

void filter(QWidget* dialog, const char* group, const char* field, const QString& text)
{
    in<QGroupBox>(dialog, group)->setChecked(true);
    in<QLineEdit>(dialog, field)->setText(text);
}

} // namespace

// The command line and the dialog build their tools from one catalogue; the
// same choices must give the same bytes.
class CliDialogParityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameChoicesGiveTheSameFiles_data();
    void sameChoicesGiveTheSameFiles();
};

void CliDialogParityTest::sameChoicesGiveTheSameFiles_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QStringList>("arguments"); // '@' stands for the project root
    QTest::addColumn<Adjust>("adjust");
    const auto row = [](const char* name, int operation, const QStringList& arguments, Adjust adjust) {
        QTest::newRow(name) << operation << arguments << adjust;
    };
    row("match-names", 0, { "match-names", "--ignore-path" },
        [](QWidget* d) { in<QCheckBox>(d, "chkbReplaceDescIgnorePathOnCompare")->setChecked(true); });
    row("remove-href", 1, { "remove-href", "--category", "Schacht" },
        [](QWidget* d) { filter(d, "gbxFilterByAnnotationCategory", "edtCategoryFilter", "Schacht"); });
    row("duplicate-href", 2, { "duplicate-href", "--new-target", "D:\\Neu\\Plan.pdf" },
        [](QWidget* d) { in<QLineEdit>(d, "edtDuplicateHREFNewLinkTarget")->setText("D:\\Neu\\Plan.pdf"); });
    row("href-to-split", 3, { "href-to-split", "--category", "Haltung" },
        [](QWidget* d) { filter(d, "gbxFilterByAnnotationCategory", "edtCategoryFilter", "Haltung"); });
    row("convert-pins", 4, { "convert-pins" }, {});
    row("map-href-paths", 5, { "map-href-paths", "--map", "@/Pfadumsetzung.csv" }, {});
    row("set-properties", 6, { "set-properties", "--set-text", "geprüft", "--name-filter", "^Schacht" },
        [](QWidget* d) {
            filter(d, "gbxSAPText", "edtSAPText", "geprüft");
            filter(d, "gbxFilterByAnnotationName", "edtNameFilterExpression", "^Schacht");
        });
    row("analyze", 7, { "analyze" }, {});
    row("href-to-standard", 8, { "href-to-standard", "--zone", "2" },
        [](QWidget* d) { in<QComboBox>(d, "cbxChangeHREFTypeTargetZone")->setCurrentIndex(2); });
    row("modify-targets", 9, { "modify-targets", "--env-factor", "2.5", "--target-index", "0" }, [](QWidget* d) {
        filter(d, "gbxModifyTargetTargetFilter", "edtlAnnModifyTargetFilterTargetIndex", "0");
        in<QCheckBox>(d, "chkAnnModifyTargetEnvFactor")->setChecked(true);
        in<QLineEdit>(d, "edtAnnModifyTargetsEnvFactor")->setText("2.5");
    });
    row("change-pages", 10, { "change-pages", "--page-delta", "2" },
        [](QWidget* d) { in<QSpinBox>(d, "sbxPageCount")->setValue(2); });
}

void CliDialogParityTest::sameChoicesGiveTheSameFiles()
{
    QFETCH(int, operation);
    QFETCH(QStringList, arguments);
    QFETCH(Adjust, adjust);
    QTemporaryDir cliDir;
    QTemporaryDir dialogDir;
    const QString cliRoot = copySample(cliDir);
    const QString dialogRoot = copySample(dialogDir);
    const QMap<QString, QByteArray> before = dataFiles(cliRoot);

    ProjectDescription project;
    QVERIFY2(project.Load(dialogRoot), qPrintable(project.ErrorString()));
    QStringList nodeNames;
    for (const int id : project.NodeOrder())
        nodeNames.append(project.Nodes().value(id)->Name());

    // The command line on every node, as the dialog with all nodes checked.
    arguments.replaceInStrings("@", cliRoot);
    arguments = QStringList { "node" } + arguments + QStringList { "--project", cliRoot };
    if (operation != 0 && operation != 7) // these two take every file
        arguments += QStringList { "--nodes", nodeNames.join(',') };
    QProcess cli;
    cli.start(KAMO_TOOLS_EXECUTABLE, arguments);
    QVERIFY(cli.waitForFinished(60000));
    QVERIFY2(cli.exitCode() == 0, cli.readAllStandardError().constData());

    TreeWidget tree;
    tree.ShowProject(project.Nodes(), project.NodeOrder());
    QSettings settings(dialogDir.filePath("host.ini"), QSettings::IniFormat);
    DialogNodeTools tools(nullptr);
    tools.SetProjectId(project.Id());
    tools.SetProjectRootDir(dialogRoot);
    tools.SetSettings(&settings);
    tools.SetSourceTreeWidget(&tree);
    tools.SetNodesMap(&project.Nodes());
    tools.SetFilesMap(&project.Files());
    tools.SetFilesPinMap(&project.Pins());
    ModalDriver driver;
    driver.Expect("DlgNodeTools", [&](QWidget* dialog) {
        in<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(operation);
        in<QAbstractButton>(dialog, "btnCheckAllNodes")->click();
        in<QCheckBox>(dialog, "chkbDoBackup")->setChecked(false);
        if (operation == 5)
            in<QLineEdit>(dialog, "edtHREFReplacePathMapFile")->setText(dialogRoot + "/Pfadumsetzung.csv");
        if (adjust)
            adjust(dialog);
        in<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
    });
    // The result box, and a box of warnings where there are any; the
    // analysis shows its own window.
    const auto close = [](QWidget* window) { static_cast<QDialog*>(window)->accept(); };
    if (operation == 7)
        driver.Expect("DlgAnalyzeProject", close);
    for (int box = 0; box < 2; ++box)
        driver.Expect("QMessageBox", close);
    tools.ShowModal();

    const QMap<QString, QByteArray> byCli = dataFiles(cliRoot);
    QCOMPARE(dataFiles(dialogRoot), byCli);
    QCOMPARE(byCli != before, operation != 7);
}

QTEST_MAIN(CliDialogParityTest)
#include "CliDialogParityTest.moc"
