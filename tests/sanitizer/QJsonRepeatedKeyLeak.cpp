// Shows Qt's leak of a repeated JSON key's value without any code of ours
// (see lsan.supp): parses its argument a few times, then overwrites the
// stack so that no stale pointer hides the leak from LeakSanitizer. Not built
// by the project.
#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

__attribute__((noinline)) int parse(const char* text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray(text), &error);
    return document.object().size();
}

__attribute__((noinline)) void clobber()
{
    volatile char buffer[65536];
    std::memset(const_cast<char*>(buffer), 0, sizeof buffer);
}

int main(int, char** argv)
{
    int sum = 0;
    for (int i = 0; i < 10; ++i)
        sum += parse(argv[1]);
    clobber();
    return sum == 4242;
}
