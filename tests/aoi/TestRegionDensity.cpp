// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/DiscDensity.h"
#include "aoi/generation/RegionDensity.h"
#include "density/FixationDensity.h"
#include "model/DataModel.h"
#include "visualization/heatmap/SectionEvent.h"

#include <QTest>

#include <numbers>
#include <random>

class TestRegionDensity : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aDiscByHand();
    void columnAndRowZeroTakeNothing();
    void theSameWithAnyNumberOfWorkers();
    void discsAsThePlainForm_data();
    void discsAsThePlainForm();
    void gazeOfBothEyesInsideTheFrame();
    void sectionsBeginAndEndInsideTheFrame_data();
    void sectionsBeginAndEndInsideTheFrame();
    void whatIsUncheckedIsLeftOut();
    void nothingToTake_data();
    void nothingToTake();
    void onlyInvalidSamplesAreAnEmptyDensity();
    void scaleTextsTellEventsPerMinute();
    void saliencyIsThatOfThePicture_data();
    void saliencyIsThatOfThePicture();
    void aPictureAsLargeAsTheCanvasNeedsNoRemark();
};

namespace {

constexpr NormalDistribution kernel{.width = 50, .sigma = 20};

GazePoint sample(qint64 timeMs, double x, double y, int validity = 1)
{
    return {timeMs, x, y, 0, 0, validity};
}

Fixation fixation(qint64 startMs, qint64 endMs, QPoint mean)
{
    Fixation made;
    made.samples = {sample(startMs, mean.x(), mean.y()), sample(endMs, mean.x(), mean.y())};
    made.mean = mean;
    made.majorAxis = {9.2F, 0};
    made.minorAxis = {0, 4.9F};
    return made;
}

FixationCluster cluster(const Fixation &of)
{
    FixationCluster made;
    static_cast<ScanpathSection &>(made) = of;
    return made;
}

/// One examination of 60 s with a sample or a section in each eye, in a frame of 30 s.
void fill(DataModel &model)
{
    Examination examination;
    examination.leftEye.gazePoints = {sample(0, 500.9, 400.9), sample(30000, 600, 400), sample(30001, 700, 400),
                                      sample(60000, 800, 400)};
    examination.rightEye.gazePoints = {sample(100, 900, 400), sample(200, 1000, 400, 0)};
    examination.meanEye.gazePoints = {sample(100, 1100, 400)};
    examination.leftEye.scanpath = {fixation(0, 300, {500, 400}), fixation(29900, 30001, {700, 400})};
    examination.rightEye.scanpath = {fixation(29000, 30000, {900, 400})};
    examination.meanEye.scanpath = {fixation(100, 200, {1100, 400})};
    for (EyeData *stream : examination.streams()) {
        for (const Fixation &of : std::as_const(stream->scanpath))
            stream->fixationClusters << cluster(of);
    }
    for (const Eye eye : allEyes)
        model.pooled(eye).fixationClusters = examination.stream(eye).fixationClusters;
    model.examinations() << examination;
    model.setTimeFrame({0, 30000});
}

double plainWeight(int a, int b, int half, double sigma)
{
    const auto value = [sigma](int i, int j) {
        return std::exp(-(i * i + j * j) / (2 * sigma * sigma)) / (2 * std::numbers::pi * sigma * sigma);
    };
    return value(a, b) < value(-half, 1) ? 0 : value(a, b);
}

Grid<double> plainDensity(const std::vector<GazePointEvent> &events, const NormalDistribution &size)
{
    Grid<double> grid(canvas::width, canvas::height);
    const int half = size.width / 2;
    for (const GazePointEvent &event : events) {
        for (int a = -half; a <= half; ++a) {
            for (int b = -half; b <= half; ++b) {
                const double value = plainWeight(a, b, half, size.sigma);
                const qint64 x = qint64(event.x) + a;
                const qint64 y = qint64(event.y) + b;
                if (value > 0 && x > 0 && y >= 1 && x < canvas::width && y < canvas::height)
                    grid.at(int(x), int(y)) += value;
            }
        }
    }
    return grid;
}

std::vector<GazePointEvent> randomEvents(int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> x(-70, canvas::width + 70);
    std::uniform_int_distribution<int> y(-70, canvas::height + 70);
    std::normal_distribution<double> heap(0, 6);
    std::vector<GazePointEvent> events;
    for (int i = 0; i < count; ++i)
        events.push_back(i % 3 ? GazePointEvent{x(random), y(random)}
                               : GazePointEvent{700 + int(heap(random)), 400 + int(heap(random))});
    events.push_back({std::numeric_limits<int>::max(), 5});
    events.push_back({5, std::numeric_limits<int>::min()});
    return events;
}

} // namespace

void TestRegionDensity::aDiscByHand()
{
    const Density density = discDensity(std::vector<GazePointEvent>{{100, 200}, {100, 200}}, kernel, 1);
    const double center = 2 / (800 * std::numbers::pi); // two points; 2 pi 20^2
    QCOMPARE(density.at(100, 200), center);
    QCOMPARE(density.at(125, 200), center * std::exp(-625 / 800.0));
    QCOMPARE(density.at(75, 201), center * std::exp(-626 / 800.0)); // the cut: 25^2 + 1
    QCOMPARE(density.at(75, 202), 0.0);
    QCOMPARE(density.at(118, 218), 0.0); // 18^2 + 18^2 is more
    QCOMPARE(density.at(126, 200), 0.0);
    QCOMPARE(density.peak(), (DensityPeak{density.at(100, 200), 100, 200}));
}

void TestRegionDensity::columnAndRowZeroTakeNothing()
{
    const Density density = discDensity(std::vector<GazePointEvent>{{0, 0}}, kernel, 1);
    QCOMPARE(density.at(0, 5), 0.0);
    QCOMPARE(density.at(5, 0), 0.0);
    QVERIFY(density.at(1, 1) > 0);
    const Density outside = discDensity(std::vector<GazePointEvent>{{-10, 200}}, kernel, 1);
    QVERIFY(outside.at(1, 200) > 0); // the disc of a point beyond the edge reaches in
}

void TestRegionDensity::theSameWithAnyNumberOfWorkers()
{
    const std::vector<GazePointEvent> events = randomEvents(3000, 3);
    const Density one = discDensity(events, kernel, 1);
    for (const int workers : {2, 3, 4}) {
        const Density density = discDensity(events, kernel, workers);
        QVERIFY(std::equal(one.column(0), one.column(0) + canvas::pixels, density.column(0)));
        QCOMPARE(density.peak(), one.peak());
    }
}

void TestRegionDensity::discsAsThePlainForm_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {50, 51, 100})
        QTest::addRow("kernel of %d", width) << width;
}

void TestRegionDensity::discsAsThePlainForm()
{
    QFETCH(int, width);
    const NormalDistribution size{.width = width, .sigma = 15};
    const std::vector<GazePointEvent> events = randomEvents(600, unsigned(width));
    const Density density = discDensity(events, size, 4);
    const Grid<double> expected = plainDensity(events, size);
    for (int i = 0; i < canvas::pixels; ++i) {
        const double found = density.column(0)[i];
        if (std::abs(found - expected.data()[i]) > 1e-12 * expected.data()[i])
            QFAIL(qPrintable(QStringLiteral("cell %1 differs").arg(i)));
    }
}

void TestRegionDensity::gazeOfBothEyesInsideTheFrame()
{
    DataModel model;
    fill(model);
    const std::optional<RegionDensity> density = regionDensity(model, {}, {});
    QVERIFY(density->cells.at(500, 400) > 0); // truncated
    QVERIFY(density->cells.at(600, 400) > 0); // the end of the frame belongs to it
    QCOMPARE(density->cells.at(700, 400), 0.0);
    QVERIFY(density->cells.at(900, 400) > 0);
    QCOMPARE(density->cells.at(1000, 400), 0.0); // not valid
    QCOMPARE(density->cells.at(1100, 400), 0.0); // the mean eye
}

void TestRegionDensity::sectionsBeginAndEndInsideTheFrame_data()
{
    QTest::addColumn<RegionSource>("source");
    QTest::addColumn<QString>("unit");
    QTest::newRow("fixations") << RegionSource::Fixations << QStringLiteral(" fix/min");
    QTest::newRow("clusters") << RegionSource::Clusters << QStringLiteral(" clu/min");
    QTest::newRow("cumulative clusters") << RegionSource::CumulativeClusters << QStringLiteral(" cumclu/min");
}

void TestRegionDensity::sectionsBeginAndEndInsideTheFrame()
{
    QFETCH(RegionSource, source);
    QFETCH(QString, unit);
    DataModel model;
    fill(model);
    const RegionParameters parameters{.source = source, .sigma = 30, .size = 80};
    const std::optional<RegionDensity> density = regionDensity(model, {}, parameters);
    QCOMPARE(density->unit, unit);
    const std::vector<FixationEvent> events{{500, 400, 10, 0, 0, 5, 300}, {900, 400, 10, 0, 0, 5, 1000}};
    const Density expected = fixationDensity(events, {.width = 80, .sigma = 30}, FixationMass::One, 1);
    QVERIFY(std::equal(expected.column(0), expected.column(0) + canvas::pixels, density->cells.data()));
    QCOMPARE(density->highest, expected.peak().value);
}

void TestRegionDensity::whatIsUncheckedIsLeftOut()
{
    DataModel model;
    fill(model);
    fill(model);
    model.examinations()[1].checked = false;
    const double one = regionDensity(model, {}, {})->highest;
    model.examinations()[1].checked = true;
    QCOMPARE(regionDensity(model, {}, {})->highest, 2 * one);
}

void TestRegionDensity::nothingToTake_data()
{
    QTest::addColumn<RegionSource>("source");
    for (int source = 0; source <= int(RegionSource::SaliencyIntegratedFeatures); ++source)
        QTest::addRow("source %d", source) << RegionSource(source);
}

void TestRegionDensity::nothingToTake()
{
    QFETCH(RegionSource, source);
    DataModel model;
    model.examinations() << Examination();
    QVERIFY(!regionDensity(model, {}, {.source = source}));
}

void TestRegionDensity::onlyInvalidSamplesAreAnEmptyDensity()
{
    DataModel model;
    Examination examination;
    examination.leftEye.gazePoints = {sample(5, 100, 100, 0)};
    model.examinations() << examination;
    const std::optional<RegionDensity> density = regionDensity(model, {}, {});
    QCOMPARE(density->highest, 1.0);
    QCOMPARE(density->cells, Grid<double>(canvas::width, canvas::height));
}

void TestRegionDensity::scaleTextsTellEventsPerMinute()
{
    DataModel model;
    fill(model);
    const std::optional<RegionDensity> density = regionDensity(model, {}, {.sigma = 50, .size = 50});
    // The frame has one sample a place: the highest cell is one peak, and the recording lasts one minute.
    QCOMPARE(scaleTexts(*density),
             (QStringList{QStringLiteral("0 gp/min"), QStringLiteral("0.5 gp/min"), QStringLiteral("1 gp/min")}));
    QVERIFY(std::abs(preThresholdInUnit(*density, 10) - 0.1) < 1e-12);
    RegionDensity without = *density;
    without.atHighest = std::numeric_limits<double>::infinity();
    QCOMPARE(scaleTexts(without).last(), QStringLiteral("inf gp/min"));
}

void TestRegionDensity::saliencyIsThatOfThePicture_data()
{
    QTest::addColumn<RegionSource>("source");
    QTest::newRow("itti") << RegionSource::SaliencyItti;
    QTest::newRow("frequency-tuned") << RegionSource::SaliencyFrequencyTuned;
    QTest::newRow("integrated") << RegionSource::SaliencyIntegratedFeatures;
}

void TestRegionDensity::saliencyIsThatOfThePicture()
{
    QFETCH(RegionSource, source);
    QImage picture(320, 200, QImage::Format_RGB32);
    picture.fill(QColor(60, 60, 60));
    for (int x = 40; x < 80; ++x) {
        for (int y = 120; y < 160; ++y)
            picture.setPixelColor(x, y, (x / 8 + y / 8) % 2 ? QColor(250, 30, 30) : QColor(240, 240, 10));
    }
    const std::optional<RegionDensity> density = regionDensity({}, picture, {.source = source});
    QVERIFY(density);
    QCOMPARE(density->highest, 1.0);
    const double *begin = density->cells.data();
    const auto largest = std::max_element(begin, begin + density->cells.size()) - begin;
    QVERIFY(begin[largest] > 0.999 && begin[largest] < 1.001);
    // The picture is stretched by 8, to column x * 1600 + y.
    const QPoint place(int(largest / canvas::height), int(largest % canvas::height));
    QVERIFY2(QRect(250, 900, 460, 440).contains(place),
             qPrintable(QStringLiteral("%1,%2").arg(place.x()).arg(place.y())));
    QCOMPARE(scaleTexts(*density), (QStringList{QStringLiteral("0 "), QStringLiteral("0.5 "), QStringLiteral("1.0 ")}));
    QCOMPARE(preThresholdInUnit(*density, 25), 0.25);
    QVERIFY(density->remark.contains(QLatin1StringView("2560 x 1600 cells, the picture has 320 x 200 pixels")));
}

void TestRegionDensity::aPictureAsLargeAsTheCanvasNeedsNoRemark()
{
    QImage picture(canvas::width, canvas::height, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    picture.setPixelColor(9, 9, Qt::red);
    const auto density = regionDensity({}, picture, {.source = RegionSource::SaliencyFrequencyTuned});
    QVERIFY(density && density->remark.isEmpty());
}

QTEST_GUILESS_MAIN(TestRegionDensity)
#include "TestRegionDensity.moc"
