// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FixationCalculation.h"
#include "gaze-simulator/RecordingWriter.h"
#include "import/DataImporter.h"
#include "model/DataModel.h"
#include "statistics/AoiVisits.h"

#include <QTest>

namespace {

constexpr QSize screen(1280, 1024);
constexpr qint64 samplingMs = 4; ///< at the simulator's 250 Hz

/// A person whose gaze rests in a fixation and a tracker without noise, so that what happened can be read off.
SimulationParameters person(int seed)
{
    SimulationParameters parameters;
    parameters.seed = static_cast<quint64>(seed);
    parameters.durationS = 20;
    parameters.fixationSpread = 0.1; // none near the least duration of the detector
    parameters.microsaccadesPerS = parameters.driftDegPerS = parameters.tremorDeg = 0;
    parameters.blinksPerMin = parameters.lossesPerMin = 0;
    parameters.noiseDeg = parameters.eyeOffsetDeg = 0;
    return parameters;
}

/// Edges of nine areas; the outer ones reach beyond the screen, to where some targets lie.
constexpr int columnEdges[] = {-500, 427, 854, 1780};
constexpr int rowEdges[] = {-500, 342, 684, 1524};

QList<AreaOfInterest> tiles()
{
    QList<AreaOfInterest> areas;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QRect tile(QPoint(columnEdges[column], rowEdges[row]),
                             QPoint(columnEdges[column + 1] - 1, rowEdges[row + 1] - 1));
            areas << AreaOfInterest(QString::number(3 * row + column), QPolygon(tile, true));
        }
    }
    return areas;
}

/// The left and upper edge belong to a tile.
int tileAt(QPointF place)
{
    const auto countBelow = [](double position, const int(&edges)[4]) {
        return (position >= edges[1]) + (position >= edges[2]);
    };
    return 3 * countBelow(place.y(), rowEdges) + countBelow(place.x(), columnEdges);
}

struct Stay {
    qsizetype first; ///< of the samples
    qsizetype last;
    qint64 startMs;
    qint64 endMs;
};

/// The fixations as the simulator labels them; those that end before the detector's least duration are none.
QList<Stay> fixationsIn(const QList<SimulatedSample> &samples, qint64 leastMs)
{
    QList<Stay> stays;
    for (qsizetype i = 0; i < samples.size(); ++i) {
        const SimulatedSample &sample = samples[i];
        if (sample.label != EventLabel::Fixation)
            continue;
        const qint64 time = sample.timeMs - samples[0].timeMs;
        if (i > 0 && samples[i - 1].label == EventLabel::Fixation)
            stays.last() = {stays.constLast().first, i, stays.constLast().startMs, time};
        else
            stays << Stay{i, i, time, time};
    }
    stays.removeIf([leastMs](const Stay &stay) { return stay.endMs - stay.startMs < leastMs; });
    return stays;
}

struct Truth {
    int visits = 0;
    int fixations = 0;
    qint64 dwellMs = 0;
};

/// The gaze rests but for the first and last samples of a stay.
QPointF placeOf(const Stay &stay, const QList<SimulatedSample> &samples)
{
    return samples[(stay.first + stay.last) / 2].left.position;
}

/// Whether the ends of a saccade, which shift the mean a little, cannot move the stay to another tile.
bool isClear(QPointF place)
{
    const auto isFar = [](double position, const int(&edges)[4]) {
        return std::abs(position - edges[1]) > 1 && std::abs(position - edges[2]) > 1;
    };
    return isFar(place.x(), columnEdges) && isFar(place.y(), rowEdges);
}

QList<Truth> truthOf(const QList<Stay> &stays, const QList<SimulatedSample> &samples)
{
    QList<Truth> truth(9);
    int before = -1;
    for (const Stay &stay : stays) {
        const int tile = tileAt(placeOf(stay, samples));
        Truth &each = truth[tile];
        each.visits += tile != before;
        ++each.fixations;
        each.dwellMs += stay.endMs - stay.startMs;
        before = tile;
    }
    return truth;
}

} // namespace

/// Visits and dwell time of simulated people, of whom it is known where they looked and for how long.
class TestSimulatedTruth : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void visitsAndDwellTime_data();
    void visitsAndDwellTime();
};

void TestSimulatedTruth::visitsAndDwellTime_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1, rows = 0; rows < 4; ++seed) {
        const QList<SimulatedSample> samples = simulate(person(seed), plainSaliency(screen));
        const QList<Stay> stays = fixationsIn(samples, 0);
        if (std::any_of(stays.begin(), stays.end(), [&](const Stay &stay) { return !isClear(placeOf(stay, samples)); }))
            continue;
        QTest::addRow("seed %d", seed) << seed;
        ++rows;
    }
}

void TestSimulatedTruth::visitsAndDwellTime()
{
    QFETCH(int, seed);
    const QList<SimulatedSample> samples = simulate(person(seed), plainSaliency(screen));
    QByteArray text = recording::header();
    for (const SimulatedSample &sample : samples)
        recording::appendLine(text, sample);
    DataModel model;
    model.examinations() << Examination();
    QVERIFY(DataImporter({}, &model.examinations()[0], nullptr).readBytes(text));
    const StandardParameters detector{.minimumDurationMs = 60, .maximumRadiusPx = 5, .allowedOutliers = 0};
    calculateFixations(model, detector, nullptr, 1);

    QList<Stay> stays = fixationsIn(samples, detector.minimumDurationMs);
    const TimeFrame frame{0, stays.takeLast().startMs - 1}; // the end of the recording cuts the last one
    const QList<AoiVisits> found = aoiVisits(model.examinations()[0].leftEye, AoiIndex(tiles()), frame);
    const QList<Truth> truth = truthOf(stays, samples);
    QVERIFY(stays.size() > 50);
    for (qsizetype tile = 0; tile < truth.size(); ++tile) {
        QCOMPARE(found[tile].fixations, truth[tile].fixations);
        QCOMPARE(found[tile].visits, truth[tile].visits);
        // The slow ends of a saccade lie within the radius: two samples at either end of a fixation.
        const qint64 most = truth[tile].dwellMs + 4 * samplingMs * truth[tile].fixations;
        QVERIFY2(
            found[tile].dwellMs >= truth[tile].dwellMs && found[tile].dwellMs <= most,
            qPrintable(
                QStringLiteral("%1 ms, not %2 to %3 ms").arg(found[tile].dwellMs).arg(truth[tile].dwellMs).arg(most)));
    }
}

QTEST_GUILESS_MAIN(TestSimulatedTruth)
#include "TestSimulatedTruth.moc"
