#include "TestProject.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>
#include <nodetools/AnalyzeProjectNT.h>

#include <QDir>
#include <QTest>

class AnalyzeProjectNTTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sortsAnnotationFilesIntoUsedAndUnused();
    void moveKeepsWhatItCannotPlace();
};

// Documents of two nodes and the files map, against a data folder with a
// fallback name, a subfolder and the tools' own folders.
void AnalyzeProjectNTTest::sortsAnnotationFilesIntoUsedAndUnused()
{
    TestProject project;
    QDir data(project.DataDir());
    for (const char* folder : { "alt", "ann_sic/01.02.2024 10.00.00", "ann_obsolet" })
        QVERIFY(data.mkpath(folder));
    for (const char* name : { "Lageplan.ann", "Schnitt.A-Apdf.ann", "Verwaist.ann", "alt/Lageplan.ann",
             "ann_sic/01.02.2024 10.00.00/Lageplan.ann", "ann_obsolet/Weg.ann", "Notiz.txt" })
        project.Write(name, "BO\r\nEO");

    NodeInfo top(1, "Projekt");
    top.SetDocuments(1, { "C:\\PDF\\Lageplan.pdf", "C:\\PDF\\Fehlt.pdf" });
    top.SetDocuments(2, { "C:\\PDF\\Schnitt.A-A.pdf" });
    NodeInfo child(2, "Haltung", 1);
    child.SetDocuments(1, { "C:\\PDF\\Lageplan.pdf" });
    QMap<int, NodeInfo*> nodes { { 1, &top }, { 2, &child } };
    QMap<QString, NodeFileInfo> files { { "Nur/im/Dateiverzeichnis.pdf", NodeFileInfo() } };

    AnalyzeProjectNT analysis;
    analysis.SetProjectRootDir(project.Root());
    analysis.SetNodesMap(&nodes);
    analysis.SetFilesMap(&files);
    analysis.Execute();

    QVERIFY(analysis.HasOwnResultView());
    QCOMPARE(analysis.GetFilesExamined(), 4);
    QCOMPARE(analysis.GetFilesChanged(), 0);
    QCOMPARE(analysis.GetUsedAnnotationFiles(), (QStringList { "Lageplan.ann", "Schnitt.A-Apdf.ann" }));
    QCOMPARE(analysis.GetUnusedAnnotationFiles(), (QStringList { "Verwaist.ann", "alt/Lageplan.ann" }));
    QCOMPARE(analysis.GetDocumentsWithoutAnnotations(),
        (QStringList { "C:\\PDF\\Fehlt.pdf", "Nur/im/Dateiverzeichnis.pdf" }));
    QCOMPARE(analysis.GetReferencedFiles().value("C:\\PDF\\Schnitt.A-A.pdf"), "Schnitt.A-Apdf.ann");
    QCOMPARE(analysis.GetReferencedFiles().size(), 2);
}

void AnalyzeProjectNTTest::moveKeepsWhatItCannotPlace()
{
    TestProject project;
    QDir data(project.DataDir());
    QVERIFY(data.mkpath("alt") && data.mkpath("ann_obsolet"));
    project.Write("a.ann", "neu");
    project.Write("b.ann", "b");
    project.Write("alt/c.ann", "c");
    project.Write("ann_obsolet/a.ann", "schon da");
    const QStringList unused { "a.ann", "b.ann", "alt/c.ann", "weg.ann" };

    QCOMPARE(AnalyzeProjectNT::MoveAnnotationFiles(project.DataDir(), unused, project.DataDir() + "/"), QStringList());
    QCOMPARE(AnalyzeProjectNT::MoveAnnotationFiles(project.DataDir(), unused, project.DataPath("ann_obsolet")),
        QStringList { "b.ann" });
    QCOMPARE(project.Read("ann_obsolet/a.ann"), "schon da"); // never replaced
    QCOMPARE(project.Read("a.ann"), "neu");
    QCOMPARE(project.Read("alt/c.ann"), "c"); // no "alt" below the target
    QCOMPARE(project.Read("ann_obsolet/b.ann"), "b");
}

QTEST_GUILESS_MAIN(AnalyzeProjectNTTest)
#include "AnalyzeProjectNTTest.moc"
