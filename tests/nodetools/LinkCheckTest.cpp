#include "TestProject.h"

#include <nodetools/ChangeHREFPathNT.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/LinkCheck.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

namespace {

// Documents on a file server, in a folder whose path is all lower case:
// operation 5 writes the paths it redirects in lower case, which on a file
// system that tells cases apart only a lower-case tree survives.
class DocumentTree
{
public:
    DocumentTree()
        : root(QDir::tempPath() + "/kamo-linkcheck-" + QString::number(QCoreApplication::applicationPid()) + '-'
            + QString::number(++count))
    {
        QDir(root).removeRecursively();
    }
    ~DocumentTree() { QDir(root).removeRecursively(); }

    QString Path(const QString& relative) const { return root + '/' + relative; }
    void Create(const QStringList& relatives) const
    {
        for (const QString& relative : relatives) {
            QDir().mkpath(QFileInfo(Path(relative)).path());
            QFile file(Path(relative));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
    }

private:
    static int count;
    QString root;
};

int DocumentTree::count = 0;

QString splitLink(const QStringList& zonePaths)
{
    return "HREF=" + S + StandardLink(zonePaths.join(Z), "1" + Z + "2");
}

QString stateName(const LinkTarget& target)
{
    switch (target.GetState()) {
    case LinkTarget::State::Exists:
        return "exists";
    case LinkTarget::State::Missing:
        return "missing";
    case LinkTarget::State::FolderMissing:
        return "folder missing";
    case LinkTarget::State::Foreign:
        return "foreign";
    case LinkTarget::State::Relative:
        return "relative";
    }
    return QString();
}

QString proposalName(const LinkTarget& target)
{
    switch (target.GetProposal()) {
    case LinkTarget::Proposal::None:
        return "";
    case LinkTarget::Proposal::Proposed:
        return "proposed";
    case LinkTarget::Proposal::Ambiguous:
        return "ambiguous";
    case LinkTarget::Proposal::Unresolved:
        return "unresolved";
    case LinkTarget::Proposal::Unwritable:
        return "unwritable";
    }
    return QString();
}

} // namespace

class LinkCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkFindsWhatIsGoneAndWhereItWent_data();
    void checkFindsWhatIsGoneAndWhereItWent();
    void proposalAppliedByOperation5LeavesNothingMissing();
    void fileThatIsNotUtf8IsWarnedAboutAndNotRead();
};

// Each row: the files on disk (under "old" the documents' first home, under
// "new" where they went), the link of one annotation file ("@" for the
// tree's folder), and for each target found: state and proposal.
void LinkCheckTest::checkFindsWhatIsGoneAndWhereItWent_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("links");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("a target that exists is never proposed, though its name is under the search folder too")
        << QStringList { "old/plan.pdf", "new/plan.pdf" } << QStringList { "@/old/plan.pdf" }
        << QStringList { "@/old/plan.pdf x1 exists " };
    QTest::newRow("moved file: one candidate")
        << QStringList { "old/keep.pdf", "new/sub/plan.pdf" } << QStringList { "@/old/plan.pdf" }
        << QStringList { "@/old/plan.pdf x1 missing proposed @/new/sub/plan.pdf" };
    QTest::newRow("renamed folder: every file of it proposed")
        << QStringList { "new/a.pdf", "new/b.pdf" } << QStringList { "@/old/a.pdf", "@/old/b.pdf" }
        << QStringList { "@/old/a.pdf x1 folder missing proposed @/new/a.pdf",
               "@/old/b.pdf x1 folder missing proposed @/new/b.pdf" };
    QTest::newRow("two files of the name: ambiguous, both listed")
        << QStringList { "new/1/plan.pdf", "new/2/plan.pdf" } << QStringList { "@/old/plan.pdf" }
        << QStringList { "@/old/plan.pdf x1 folder missing ambiguous @/new/1/plan.pdf @/new/2/plan.pdf" };
    QTest::newRow("no file of the name: unresolved")
        << QStringList { "new/other.pdf" } << QStringList { "@/old/plan.pdf" }
        << QStringList { "@/old/plan.pdf x1 folder missing unresolved" };
    QTest::newRow("the name found in another case")
        << QStringList { "new/Plan.PDF" } << QStringList { "@/old/plan.pdf" }
        << QStringList { "@/old/plan.pdf x1 folder missing proposed @/new/Plan.PDF" };
    QTest::newRow("the same target twice counts once, with both links")
        << QStringList {} << QStringList { "@/old/plan.pdf", "@/old/plan.pdf" }
        << QStringList { "@/old/plan.pdf x2 folder missing unresolved" };
    QTest::newRow("a split link: each zone's target on its own")
        << QStringList { "old/a.pdf", "new/b.pdf" } << QStringList { "split:@/old/a.pdf|@/old/b.pdf" }
        << QStringList { "@/old/a.pdf x1 exists ", "@/old/b.pdf x1 missing proposed @/new/b.pdf" };
    QTest::newRow("a comma cannot be written into a path map")
        << QStringList { "new/a,b.pdf" } << QStringList { "@/old/a,b.pdf" }
        << QStringList { "@/old/a,b.pdf x1 folder missing unwritable @/new/a,b.pdf" };
#ifndef Q_OS_WIN
    QTest::newRow("Windows paths cannot exist here")
        << QStringList { "new/plan.pdf" } << QStringList { "C:\\Projekte\\plan.pdf", "\\\\server\\share\\plan.pdf" }
        << QStringList { "C:\\Projekte\\plan.pdf x1 foreign proposed @/new/plan.pdf",
               "\\\\server\\share\\plan.pdf x1 foreign proposed @/new/plan.pdf" };
#endif
    QTest::newRow("a relative path cannot be checked")
        << QStringList {} << QStringList { "PDF/plan.pdf" } << QStringList { "PDF/plan.pdf x1 relative unresolved" };
    QTest::newRow("web links are no files")
        << QStringList {} << QStringList { "web:https://example.org/plan.pdf" } << QStringList {};
}

void LinkCheckTest::checkFindsWhatIsGoneAndWhereItWent()
{
    QFETCH(QStringList, files);
    QFETCH(QStringList, links);
    QFETCH(QStringList, expected);

    DocumentTree tree;
    tree.Create(files);
    TestProject project;
    QStringList lines { "BO", "ID=1" };
    for (QString link : links) {
        link.replace('@', tree.Path(QString()).chopped(1));
        if (link.startsWith("split:"))
            lines << splitLink(link.mid(6).split('|'));
        else if (link.startsWith("web:"))
            lines << "HREF=1" + StandardLink(link.mid(4)).mid(1);
        else
            lines << "HREF=" + StandardLink(link);
    }
    lines << "EO";
    project.Write("plan.ann", HostText(lines));

    LinkCheck check;
    check.SetProjectRootDir(project.Root());
    check.SetAllAnnotationFiles(true);
    check.SetSearchDirs({ tree.Path("new") });
    check.Execute();

    QStringList found;
    for (const LinkTarget& target : check.Targets()) {
        QString line = QStringList { target.Path(), 'x' + QString::number(target.Links()), stateName(target),
            proposalName(target) }
                           .join(' ');
        for (const QString& candidate : target.Candidates())
            line += ' ' + candidate;
        found << line.replace(tree.Path(QString()).chopped(1), "@");
        QCOMPARE(target.AnnotationFiles(), QStringList { project.DataPath("plan.ann") });
    }
    QCOMPARE(found, expected);
}

void LinkCheckTest::proposalAppliedByOperation5LeavesNothingMissing()
{
    DocumentTree tree;
    tree.Create({ "new/sub/plan.pdf", "new/detail.pdf" });
    TestProject project;
    const QString old = tree.Path("old/");
    project.Write("a.ann", HostText({ "BO", "HREF=" + StandardLink(old + "plan.pdf"), "EO" }));
    project.Write("b.ann", HostText({ "BO", "HREF=" + StandardLink(old + "detail.pdf"), "EO" }));

    LinkCheck check;
    check.SetProjectRootDir(project.Root());
    check.SetAllAnnotationFiles(true);
    check.SetSearchDirs({ tree.Path("new") });
    check.Execute();
    QCOMPARE(check.MissingCount(), 2);
    const QString mapFile = project.Root() + "/vorschlag.csv";
    QVERIFY(check.WriteMapFile(mapFile));
    QFile written(mapFile);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(),
        (old + "detail.pdf," + tree.Path("new/detail.pdf") + "\r\n" + old + "plan.pdf," + tree.Path("new/sub/plan.pdf")
            + "\r\n")
            .toUtf8());

    ChangeHREFPathNT operation5;
    operation5.SetProjectRootDir(project.Root());
    operation5.SetAllAnnotationFiles(true);
    operation5.SetPathMap(LoadHREFPathMap(mapFile));
    operation5.Execute();
    QCOMPARE(operation5.GetFilesChanged(), 2);

    check.Execute();
    QCOMPARE(check.Targets().size(), 2);
    QCOMPARE(check.MissingCount(), 0);
    QCOMPARE(check.MapFileText(), QString());
}

void LinkCheckTest::fileThatIsNotUtf8IsWarnedAboutAndNotRead()
{
    TestProject project;
    const QByteArray latin1 = "BO\r\nHREF=0\x11/nirgends/\xe4.pdf\r\nEO";
    project.Write("plan.ann", latin1);
    LinkCheck check;
    check.SetProjectRootDir(project.Root());
    check.SetAllAnnotationFiles(true);
    check.Execute();
    QCOMPARE(check.Warnings().size(), 1);
    QVERIFY2(check.Warnings().first().contains("UTF-8"), qPrintable(check.Warnings().first()));
    QVERIFY(check.Targets().isEmpty());
    QCOMPARE(project.Read("plan.ann"), latin1);
}

QTEST_GUILESS_MAIN(LinkCheckTest)
#include "LinkCheckTest.moc"
