// Times ChangeGeoSystemEx from Gauss-Krueger zone 3 to UTM zone 32, point by
// point and for a whole vector, next to cs2cs converting the same points in
// the same run, and checks a sample of our results against cs2cs's. The
// figures depend on the machine; only the ratios mean something. cs2cs reads
// and writes text, so its time includes parsing and formatting, which is
// part of what a caller of it pays.

#include <Kamo_view/GeoSystemSettings.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace {

// Scattered over zone 3 inside Germany, where the BETA2007 grid applies, and
// rounded to millimetres so that cs2cs reads exactly the points we convert.
QVector<PointF> randomPoints(int n)
{
    QRandomGenerator random(4711);
    QVector<PointF> points;
    points.reserve(n);
    for (int i = 0; i < n; ++i) {
        const double x = 3420000.0 + std::round(random.generateDouble() * 160000000.0) / 1000.0;
        const double y = 5350000.0 + std::round(random.generateDouble() * 600000000.0) / 1000.0;
        points.append(PointF(x, y));
    }
    return points;
}

QString rate(int points, double ms)
{
    return QString::number(points / (ms / 1000.0), 'f', 0);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Geo conversion: ChangeGeoSystemEx against cs2cs"));
    parser.addHelpOption();
    QCommandLineOption pointsOption(
        QStringLiteral("points"), QStringLiteral("Points to convert."), QStringLiteral("n"), QStringLiteral("1000000"));
    QCommandLineOption sampleOption(QStringLiteral("sample"), QStringLiteral("Points compared with cs2cs."),
        QStringLiteral("n"), QStringLiteral("10000"));
    parser.addOptions({ pointsOption, sampleOption });
    parser.process(app);
    const int n = std::max(1, parser.value(pointsOption).toInt());
    const int sample = std::max(1, std::min(n, parser.value(sampleOption).toInt()));

    const GeoSystemSettings from = GeoSystemSettings::FromEpsg(31467);
    const GeoSystemSettings to = GeoSystemSettings::FromEpsg(25832);
    QTextStream out(stdout);
    const QVector<PointF> points = randomPoints(n);

    // The first conversion of a pair chooses and builds the operation.
    QElapsedTimer timer;
    timer.start();
    double x = points.first().X(), y = points.first().Y();
    if (!ChangeGeoSystemEx(x, y, from, to, true))
        return 1;
    out << "operation: " << GeoSystemOperationName(from, to) << '\n';
    out << "set-up of the pair: " << QString::number(timer.nsecsElapsed() / 1e6, 'f', 1) << " ms\n";
    out << "points: " << n << '\n';

    QVector<PointF> single = points;
    timer.start();
    for (PointF& point : single) {
        double px = point.X(), py = point.Y();
        if (!ChangeGeoSystemEx(px, py, from, to, true))
            return 1;
        point = PointF(px, py);
    }
    const double singleMs = timer.nsecsElapsed() / 1e6;
    out << "per point: " << QString::number(singleMs, 'f', 1) << " ms, " << rate(n, singleMs) << " points/s\n";

    QVector<PointF> whole = points;
    timer.start();
    if (!ChangeGeoSystemEx(whole, from, to, true))
        return 1;
    const double wholeMs = timer.nsecsElapsed() / 1e6;
    out << "vector: " << QString::number(wholeMs, 'f', 1) << " ms, " << rate(n, wholeMs) << " points/s\n";
    const bool same = single == whole;
    out << "per point = vector: " << (same ? "yes" : "NO") << '\n';
    out.flush();

    const QString cs2cs = QStandardPaths::findExecutable(QStringLiteral("cs2cs"));
    if (cs2cs.isEmpty()) {
        out << "cs2cs: not installed\n";
        return same ? 0 : 1;
    }
    QTemporaryDir dir;
    QFile input(dir.filePath(QStringLiteral("points.txt")));
    if (!dir.isValid() || !input.open(QIODevice::WriteOnly))
        return 1;
    {
        // EPSG:31467 is northing first.
        QTextStream stream(&input);
        stream.setRealNumberNotation(QTextStream::FixedNotation);
        stream.setRealNumberPrecision(3);
        for (const PointF& point : points)
            stream << point.Y() << ' ' << point.X() << '\n';
    }
    input.close();

    QProcess process;
    process.setStandardInputFile(input.fileName());
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    timer.start();
    process.start(cs2cs,
        { QStringLiteral("-f"), QStringLiteral("%.3f"), QStringLiteral("EPSG:31467"), QStringLiteral("EPSG:25832") });
    QByteArray output;
    // Reading while it runs keeps the pipe from filling up.
    while (process.state() != QProcess::NotRunning) {
        process.waitForReadyRead(-1);
        output += process.readAllStandardOutput();
    }
    output += process.readAllStandardOutput();
    const double cs2csMs = timer.nsecsElapsed() / 1e6;
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        out << "cs2cs: failed\n";
        return 1;
    }
    out << "cs2cs: " << QString::number(cs2csMs, 'f', 1) << " ms, " << rate(n, cs2csMs) << " points/s\n";
    out << "speed-up over cs2cs, per point: " << QString::number(cs2csMs / singleMs, 'f', 1) << "x\n";
    out << "speed-up over cs2cs, vector: " << QString::number(cs2csMs / wholeMs, 'f', 1) << "x\n";

    const QList<QByteArray> lines = output.split('\n');
    const int step = std::max(1, n / sample);
    double maxDifference = 0.0;
    int compared = 0;
    for (int i = 0; i < n; i += step) {
        // "easting<TAB>northing height"
        const QList<QByteArray> fields = i < lines.size() ? lines[i].simplified().split(' ') : QList<QByteArray>();
        bool okX = false, okY = false;
        const double cx = fields.value(0).toDouble(&okX);
        const double cy = fields.value(1).toDouble(&okY);
        if (!okX || !okY) {
            maxDifference = HUGE_VAL;
            break;
        }
        maxDifference = std::max({ maxDifference, std::abs(cx - whole[i].X()), std::abs(cy - whole[i].Y()) });
        ++compared;
    }
    // cs2cs writes millimetres, so half of one is its rounding alone.
    const bool agree = maxDifference <= 0.001;
    out << "compared with cs2cs: " << compared << " points, max difference "
        << QString::number(maxDifference * 1000.0, 'f', 2) << " mm\n";
    out << "agree: " << (agree ? "yes" : "NO") << '\n';
    return same && agree ? 0 : 1;
}
