// A minimal host: runs a node tool over a scratch project through the
// installed package and checks the result.
#include <Vex.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

int main()
{
    QTemporaryDir root;
    QDir(root.path()).mkdir(QStringLiteral("Daten"));
    QFile file(root.path() + QStringLiteral("/Daten/plan.ann"));
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write("BO\r\nKA=Kanal\r\nHREF=0\x11"
               "a.pdf\r\nEO");
    file.close();

    RemoveHREFInAnnotationNT tool;
    tool.SetProjectRootDir(root.path());
    tool.SetFileNames({ QStringLiteral("plan.pdf") });
    tool.SetCategoryFilter(QStringLiteral("Kanal"));
    tool.Execute();

    const bool ok = tool.GetFilesChanged() == 1 && !Vex::GetCurrentUserName().isNull();
    std::printf("consumer: %s\n", ok ? "ok" : "FAILED");
    return ok ? 0 : 1;
}
