#include "TestProject.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

TestProject::TestProject(const QString& parent)
    : dir(parent.isEmpty() ? QDir::tempPath() + "/kamo-test-XXXXXX" : parent + "/project-XXXXXX")
{
    QDir(dir.path()).mkdir("Daten");
}

void TestProject::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(DataPath(name));
    QDir().mkpath(QFileInfo(file).path());
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray TestProject::Read(const QString& name) const
{
    QFile file(DataPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

QStringList TestProject::DataEntries() const
{
    return QDir(DataDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

QString StandardLink(const QString& path, const QString& page, const QString& description)
{
    // Not F: links are made while the test's statics are set up, and F may not be yet.
    const QChar f(0x11);
    return QString("0") + f + path + f + page + f + description + f + "1.0" + QString(13, f) + "2024-03-07T14:05:09"
        + QString(5, f);
}

int InChild(const std::function<int()>& body, int killAfterMs)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(body());
    if (child > 0 && killAfterMs >= 0) {
        usleep(useconds_t(killAfterMs) * 1000);
        kill(child, SIGKILL);
    }
    int status = 0;
    const bool ended = child > 0 && waitpid(child, &status, 0) == child;
    return !ended ? -1000 : WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}
