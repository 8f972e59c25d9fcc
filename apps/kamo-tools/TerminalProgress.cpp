#include "TerminalProgress.h"

#include <QFileInfo>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_WIN

HANDLE consoleOf(FILE* stream)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

// The bar redraws its line with "\r" and erases the rest with "\033[K",
// which a Windows console only understands once asked to.
bool isTerminal(FILE* stream)
{
    if (!_isatty(_fileno(stream)))
        return false;
    const HANDLE console = consoleOf(stream);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) && SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

int terminalWidth(FILE* stream)
{
    CONSOLE_SCREEN_BUFFER_INFO info {};
    if (GetConsoleScreenBufferInfo(consoleOf(stream), &info)) {
        const int width = info.srWindow.Right - info.srWindow.Left + 1;
        if (width > 20)
            return width;
    }
    return 80;
}

#else

bool isTerminal(FILE* stream)
{
    return isatty(fileno(stream)) == 1;
}

int terminalWidth(FILE* stream)
{
    winsize size {};
    if (ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 20)
        return size.ws_col;
    return 80;
}

#endif

} // namespace

TerminalProgress::TerminalProgress(FILE* stream)
    : stream(stream)
    , active(isTerminal(stream))
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

    const int width = terminalWidth(stream);
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
