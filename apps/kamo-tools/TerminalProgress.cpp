#include "TerminalProgress.h"

#include <QFileInfo>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

int terminalWidth(int fd)
{
    winsize size {};
    if (ioctl(fd, TIOCGWINSZ, &size) == 0 && size.ws_col > 20)
        return size.ws_col;
    return 80;
}

} // namespace

TerminalProgress::TerminalProgress(FILE* stream)
    : stream(stream)
    , active(isatty(fileno(stream)) == 1)
{ }

void TerminalProgress::Progress(const QString& text, int value, int maximum)
{
    if (!active || maximum <= 0)
        return;
    // Redrawing thousands of times a second would cost more than the work.
    const int percent = int(qint64(value) * 100 / maximum);
    if (drawn && percent == lastPercent && sinceDraw.elapsed() < 100 && value != maximum)
        return;
    lastPercent = percent;
    sinceDraw.start();

    const int width = terminalWidth(fileno(stream));
    const int barWidth = 30;
    const int filled = int(qint64(value) * barWidth / maximum);
    QString line = QStringLiteral("[%1%2] %3% %4/%5 ")
                       .arg(QString(filled, QLatin1Char('#')), QString(barWidth - filled, QLatin1Char(' ')))
                       .arg(percent, 3)
                       .arg(value)
                       .arg(maximum);
    const QString name = QFileInfo(text).fileName();
    const int room = width - 1 - line.size();
    if (room > 3)
        line += name.size() <= room ? name : name.left(room - 3) + QStringLiteral("...");
    std::fprintf(stream, "\r\033[K%s", line.toLocal8Bit().constData());
    std::fflush(stream);
    drawn = true;
}

void TerminalProgress::Finish()
{
    if (active && drawn) {
        std::fputs("\r\033[K", stream);
        std::fflush(stream);
        drawn = false;
    }
}
