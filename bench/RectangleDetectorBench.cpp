// Times RectangleDetector::Analyze next to the exhaustive search over every
// 4-combination, on point lists of the kinds sheet polylines come in, and
// checks that both return the same combinations. The exhaustive search is
// only run up to --reference-limit points: at 1,000 it would test 41 billion
// combinations. Beyond that its time is estimated (marked "~") from the
// time per combination of the largest run of the same kind.

#include "ReferenceRectangleDetector.h"

#include <gk/RectangleDetector.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace {

const double east = 3512000.0;
const double north = 5798000.0;

// Scattered points over a square kilometre.
QList<YPoint> randomPoints(int n)
{
    QRandomGenerator random(4711);
    QList<YPoint> points;
    for (int i = 0; i < n; ++i)
        points.append({ east + random.generateDouble() * 1000, north + random.generateDouble() * 1000 });
    return points;
}

// Row after row of a square lattice with 25 m spacing, turned by 20 degrees:
// the worst case, with a right angle between very many pairs.
QList<YPoint> gridPoints(int n)
{
    const int side = static_cast<int>(std::ceil(std::sqrt(double(n))));
    const double c = std::cos(0.35), s = std::sin(0.35);
    QList<YPoint> points;
    for (int i = 0; points.size() < n; ++i) {
        const double u = (i % side) * 25.0, v = (i / side) * 25.0;
        points.append({ east + u * c - v * s, north + u * s + v * c });
    }
    return points;
}

// A sheet frame drawn with many vertices along its four sides, closed by
// repeating the first one, as some drawings store them.
QList<YPoint> framePoints(int n)
{
    const YPoint corners[4]
        = { { east, north }, { east + 400, north }, { east + 400, north + 280 }, { east, north + 280 } };
    const int perSide = std::max(1, (n - 1) / 4);
    QList<YPoint> points;
    for (int side = 0; side < 4; ++side) {
        const YPoint a = corners[side], b = corners[(side + 1) % 4];
        for (int k = 0; k < perSide; ++k) {
            const double t = double(k) / perSide;
            points.append({ a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t });
        }
    }
    while (points.size() < n)
        points.append(points.first());
    return points;
}

double millisecondsOf(const std::function<void()>& run, int rounds)
{
    std::vector<double> times;
    for (int r = 0; r < rounds; ++r) {
        QElapsedTimer timer;
        timer.start();
        run();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double combinations(double n)
{
    return n * (n - 1) * (n - 2) * (n - 3) / 24;
}

QString figure(double ms)
{
    return QString::number(ms, 'f', ms < 10 ? 2 : 0);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Rectangle detection: filtered search against exhaustive search"));
    parser.addHelpOption();
    QCommandLineOption sizesOption(QStringLiteral("sizes"), QStringLiteral("Point counts, comma-separated."),
        QStringLiteral("list"), QStringLiteral("40,200,1000"));
    QCommandLineOption roundsOption(QStringLiteral("rounds"), QStringLiteral("Timed runs of the fast search (median)."),
        QStringLiteral("n"), QStringLiteral("3"));
    QCommandLineOption limitOption(QStringLiteral("reference-limit"),
        QStringLiteral("Largest point count the exhaustive search runs on."), QStringLiteral("n"),
        QStringLiteral("200"));
    parser.addOptions({ sizesOption, roundsOption, limitOption });
    parser.process(app);

    const int rounds = std::max(1, parser.value(roundsOption).toInt());
    const int limit = parser.value(limitOption).toInt();
    QList<int> sizes;
    for (const QString& size : parser.value(sizesOption).split(QLatin1Char(',')))
        sizes.append(size.toInt());

    const std::pair<const char*, QList<YPoint> (*)(int)> families[]
        = { { "random", randomPoints }, { "grid", gridPoints }, { "frame", framePoints } };

    QTextStream out(stdout);
    out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7\n")
               .arg(QStringLiteral("points"), 6)
               .arg(QStringLiteral("kind"), -7)
               .arg(QStringLiteral("rectangles"), 10)
               .arg(QStringLiteral("fast ms"), 9)
               .arg(QStringLiteral("exhaustive ms"), 13)
               .arg(QStringLiteral("speed-up"), 9)
               .arg(QStringLiteral("same"), 5);
    bool allIdentical = true;
    double msPerCombination[3] = { 0, 0, 0 };
    for (int n : sizes) {
        for (int f = 0; f < 3; ++f) {
            const auto& family = families[f];
            const QList<YPoint> points = family.second(n);
            QList<QList<unsigned>> fast;
            const double fastMs = millisecondsOf([&] { RectangleDetector(points).Analyze(fast); }, rounds);

            QString referenceText = QStringLiteral("-");
            QString speedUp = QStringLiteral("-");
            QString same = QStringLiteral("-");
            if (n <= limit) {
                QList<QList<unsigned>> reference;
                const double referenceMs = millisecondsOf([&] { reference = referenceRectangles(points); }, 1);
                referenceText = figure(referenceMs);
                speedUp = QString::number(referenceMs / fastMs, 'f', 0) + QLatin1Char('x');
                if (n >= 4)
                    msPerCombination[f] = referenceMs / combinations(n);
                same = reference == fast ? QStringLiteral("yes") : QStringLiteral("NO");
                allIdentical = allIdentical && reference == fast;
            } else if (msPerCombination[f] > 0) {
                const double estimate = msPerCombination[f] * combinations(n);
                referenceText = QLatin1Char('~') + QString::number(estimate, 'g', 2);
                speedUp = QLatin1Char('~') + QString::number(estimate / fastMs, 'g', 2) + QLatin1Char('x');
            }
            out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7\n")
                       .arg(n, 6)
                       .arg(QLatin1String(family.first), -7)
                       .arg(fast.size(), 10)
                       .arg(figure(fastMs), 9)
                       .arg(referenceText, 13)
                       .arg(speedUp, 9)
                       .arg(same, 5);
            out.flush();
        }
    }
    out << "identical: " << (allIdentical ? "yes" : "no") << '\n';
    return allIdentical ? 0 : 1;
}
