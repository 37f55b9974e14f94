// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Truncation.h"
#include "model/ScanpathSection.h"
#include "model/SymmetricMatrix.h"

#include <QTest>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace {

using Random = std::mt19937_64;

/// Loop after loop over the samples, one for each number; shares the eigenvectors and the cut to whole numbers only.
struct PlainFixation {
    PlainFixation(const QList<GazePoint> &samples, QPoint centroid)
        : mean(centroid.isNull() ? QPoint(shareOf(samples, &GazePoint::x), shareOf(samples, &GazePoint::y)) : centroid)
        , variance(spreadOf(samples, &GazePoint::x, centroid.x()), spreadOf(samples, &GazePoint::y, centroid.y()))
    {
        if (samples.size() >= 4)
            setAxes(samples);
    }

    QPoint mean;
    QPoint variance;
    QVector2D major{1, 0};
    QVector2D minor{0, 0};

private:
    using Coordinate = double GazePoint::*;

    static double sumOf(const QList<GazePoint> &samples, Coordinate coordinate)
    {
        double sum = 0;
        for (const GazePoint &sample : samples)
            sum += sample.*coordinate;
        return sum;
    }

    static int shareOf(const QList<GazePoint> &samples, Coordinate coordinate)
    {
        return truncated(sumOf(samples, coordinate) / static_cast<double>(samples.size()));
    }

    static int spreadOf(const QList<GazePoint> &samples, Coordinate coordinate, int center)
    {
        double sum = 0;
        for (const GazePoint &sample : samples)
            sum += (sample.*coordinate - center) * (sample.*coordinate - center);
        return truncated(sum / static_cast<double>(samples.size()));
    }

    static double productOf(const QList<GazePoint> &samples, Coordinate first, Coordinate second)
    {
        const double share = 1 / static_cast<double>(samples.size());
        const double firstMean = sumOf(samples, first) * share;
        const double secondMean = sumOf(samples, second) * share;
        double sum = 0;
        for (const GazePoint &sample : samples)
            sum += (sample.*first - firstMean) * (sample.*second - secondMean);
        return sum * share;
    }

    void setAxes(const QList<GazePoint> &samples)
    {
        major = minor = {};
        const bool areUsable = std::all_of(samples.cbegin(), samples.cend(), [](const GazePoint &sample) {
            return std::abs(sample.x) < 1e140 && std::abs(sample.y) < 1e140; // false for what is not a number
        });
        if (!areUsable)
            return;
        const auto x = &GazePoint::x;
        const auto y = &GazePoint::y;
        const auto pairs = eigenPairs({productOf(samples, x, x), productOf(samples, x, y), productOf(samples, y, y)});
        const auto scaled = [](double part, double value) {
            return static_cast<float>(part * std::sqrt(std::max(0.0, value)));
        };
        const QVector2D longer(scaled(pairs[0].x, pairs[0].value), scaled(pairs[0].y, pairs[0].value));
        const QVector2D shorter(scaled(pairs[1].x, pairs[1].value), scaled(pairs[1].y, pairs[1].value));
        if (!std::isfinite(longer.x() + longer.y() + shorter.x() + shorter.y()))
            return;
        major = longer;
        minor = shorter;
    }
};

bool haveSameBits(QVector2D a, QVector2D b)
{
    const auto bits = [](float value) { return std::bit_cast<quint32>(value); };
    return bits(a.x()) == bits(b.x()) && bits(a.y()) == bits(b.y());
}

/// Where samples may stand.
struct Place {
    const char *name;
    void (*move)(GazePoint &sample, Random &random);
};

double uniform(Random &random, double from, double to)
{
    return std::uniform_real_distribution<double>(from, to)(random);
}

void moveAnywhere(GazePoint &sample, Random &random, std::initializer_list<double> coordinates)
{
    sample.x = coordinates.begin()[random() % coordinates.size()];
    sample.y = coordinates.begin()[random() % coordinates.size()];
}

constexpr double infinitelyFar = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double farthest = std::numeric_limits<double>::max();
constexpr double nearest = std::numeric_limits<double>::denorm_min();

constexpr Place places[] = {
    {"on the canvas",
     [](GazePoint &s, Random &random) {
         s.x = 700 + uniform(random, -20, 20);
         s.y = 500 + uniform(random, -9, 9);
     }},
    {"whole pixels",
     [](GazePoint &s, Random &random) {
         s.x = static_cast<double>(random() % 40);
         s.y = static_cast<double>(random() % 3);
     }},
    {"one place", [](GazePoint &s, Random &) { s.x = s.y = 400.1; }},
    {"on a line",
     [](GazePoint &s, Random &random) {
         s.x = uniform(random, -1, 1);
         s.y = 3 * s.x;
     }},
    {"zeros of both signs",
     [](GazePoint &s, Random &random) {
         moveAnywhere(s, random, {0.0, -0.0});
     }},
    {"tiny",
     [](GazePoint &s, Random &random) {
         moveAnywhere(s, random, {nearest, -nearest, 1e-200, -1e-160, 0});
     }},
    {"far from the origin", [](GazePoint &s, Random &random) { s.x = s.y = 1e15 + uniform(random, -9, 9); }},
    {"around the largest usable coordinate",
     [](GazePoint &s, Random &random) {
         moveAnywhere(s, random, {std::nextafter(1e140, 0), -std::nextafter(1e140, 0), 3, 5e139, -7e139});
         if (random() % 200 == 0)
             s.y = random() % 2 == 0 ? 1e140 : -1e140;
     }},
    {"now and then not a number",
     [](GazePoint &s, Random &random) {
         moveAnywhere(s, random, {1, 2.5, 900});
         if (random() % 60 == 0)
             s.x = noNumber;
         if (random() % 60 == 0)
             s.y = random() % 2 == 0 ? infinitelyFar : -infinitelyFar;
     }},
    {"never usable",
     [](GazePoint &s, Random &random) {
         moveAnywhere(s, random, {noNumber, -noNumber, infinitelyFar, -infinitelyFar, farthest, -farthest});
     }},
    {"any bits",
     [](GazePoint &s, Random &random) {
         s.x = std::bit_cast<double>(quint64(random()));
         s.y = std::bit_cast<double>(quint64(random()));
     }},
};

QList<GazePoint> samplesIn(const Place &place, Random &random)
{
    const int longest = random() % 8 == 0 ? 300 : 12;
    const int count = 1 + static_cast<int>(random() % static_cast<unsigned>(longest));
    QList<GazePoint> samples;
    for (int i = 0; i < count; ++i) {
        GazePoint sample(static_cast<qint64>(random() % 1000), 0, 0, 3, 3, random() % 5 != 0 ? 1 : 0);
        place.move(sample, random);
        samples << sample;
    }
    return samples;
}

QPoint centroidFor(const QList<GazePoint> &samples, Random &random)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const QPoint centroids[] = {
        {}, {0, 5}, {truncated(samples.first().x), truncated(samples.first().y)}, {least, most}, {700, 500}};
    return centroids[random() % std::size(centroids)];
}

} // namespace

class TestFixationAgainstPlain : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameBits_data();
    void sameBits();
};

void TestFixationAgainstPlain::sameBits_data()
{
    QTest::addColumn<int>("place");
    for (int place = 0; place < static_cast<int>(std::size(places)); ++place)
        QTest::newRow(places[place].name) << place;
}

void TestFixationAgainstPlain::sameBits()
{
    QFETCH(int, place);
    for (unsigned seed = 0; seed < 4000; ++seed) {
        Random random(seed);
        const QList<GazePoint> samples = samplesIn(places[place], random);
        const QPoint centroid = centroidFor(samples, random);
        const Fixation fixation(samples, QStringLiteral("fixation"), centroid, 1);
        const PlainFixation plain(samples, centroid);
        const QByteArray where = "seed " + QByteArray::number(seed);
        QVERIFY2(fixation.mean == plain.mean, where);
        QVERIFY2(fixation.variance == plain.variance, where);
        QVERIFY2(haveSameBits(fixation.majorAxis, plain.major), where);
        QVERIFY2(haveSameBits(fixation.minorAxis, plain.minor), where);
        // Asked for one by one, they are the same.
        const PrincipalAxes axes = principalAxes(samples);
        QVERIFY2(haveSameBits(axes.major, plain.major) && haveSameBits(axes.minor, plain.minor), where);
        QVERIFY2(varianceAbout(centroid, samples) == plain.variance, where);
        QVERIFY2(!centroid.isNull() || meanOf(samples) == plain.mean, where);
    }
}

QTEST_GUILESS_MAIN(TestFixationAgainstPlain)
#include "TestFixationAgainstPlain.moc"
