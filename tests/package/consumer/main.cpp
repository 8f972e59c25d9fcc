// A minimal host: runs a node tool over a scratch project through the
// installed package and checks the result.
#include <Kamo_base/Vex.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

int checkHostInterface();

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

    const int interfaceSymbols = checkHostInterface();
    const bool ok = tool.GetFilesChanged() == 1 && !Vex::GetCurrentUserName().isNull() && interfaceSymbols > 0;
    std::printf("consumer: %s (%d symbols of the host interface)\n", ok ? "ok" : "FAILED", interfaceSymbols);
    return ok ? 0 : 1;
}
