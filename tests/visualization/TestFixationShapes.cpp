// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/modes/Picture.h"
#include "visualization/shapes/FixationShapes.h"

#include <QTest>

#include <cmath>

class TestFixationShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ellipses();
    void circles();
    void originalSize();
    void axisRatio_data();
    void axisRatio();
    void diameter_data();
    void diameter();
    void samplesOnTheFrameDoNotCountForCircles();
    void axesInTheFrame_data();
    void axesInTheFrame();
    void aFixationWithoutSamplesInTheFrameHasNoAxes();
    void outOfPictureIsSkipped();
    void dots_data();
    void dots();
    void dotsFollowTheirFixation();
    void bothEyesInTheirColors();
    void modesWithoutShapes_data();
    void modesWithoutShapes();
};

namespace {

const ShapeStyle redStyle{QPen(Qt::red, 1), QColor(255, 0, 0, 127)};

/// Two fixations; the second one from 01:01:01.100 to 01:01:03.150.
EyeData twoFixations()
{
    constexpr qint64 later = 3600000 + 60000 + 1000;
    EyeData eye;
    eye.scanpath << toy::fixation({640, 400}, {30, 10}, {-2, 6}, {toy::sample(100, 0, 0), toy::sample(350, 0, 0)})
                 << toy::fixation({7, 0}, {0, 5}, {4, 0},
                                  {toy::sample(later + 100, 0, 0), toy::sample(later + 2150, 0, 0)});
    return eye;
}

constexpr TimeFrame wholeDay{0, 86400000};

QVector2D sizes(const Shape &shape)
{
    const auto &ellipse = std::get<EllipseShape>(shape);
    return {ellipse.major.length(), ellipse.minor.length()};
}

} // namespace

void TestFixationShapes::ellipses()
{
    // The frame lies after all first samples and before all last ones: nothing is fitted, the axes are doubled.
    EyeData eye = twoFixations();
    for (Fixation &fixation : eye.scanpath)
        fixation.samples = {toy::sample(100, 0, 0), toy::sample(350, 0, 0)};
    // sqrt(30^2 + 10^2) / sqrt(2^2 + 6^2) = 31.6228 / 6.32456 = 5
    QCOMPARE(toText(fixationEllipses(eye, {99, 349}, redStyle, toy::parameters())),
             QStringLiteral("ellipse 640 400 major 60 20 minor -4 12 pen #ff0000 1 brush #7fff0000 "
                            "tip Fixation ID: 0 | Start: 00:00:00.100 | End: 00:00:00.350 | Duration: 00.250 | "
                            "Axis ratio: 5 | Mean: (640,400)\n"
                            "ellipse 7 0 major 0 10 minor 8 0 pen #ff0000 1 brush #7fff0000 "
                            "tip Fixation ID: 1 | Start: 00:00:00.100 | End: 00:00:00.350 | Duration: 00.250 | "
                            "Axis ratio: 1.25 | Mean: (7,0)\n"));
}

void TestFixationShapes::circles()
{
    // Diameter (5 * 5 + 5) * 4 = 120, so the corner lies 60 to the left of and above the mean.
    QCOMPARE(toText(fixationCircles(twoFixations(), wholeDay, redStyle, toy::parameters())),
             QStringLiteral("oval 580 340 120 120 pen #ff0000 1 brush #7fff0000 "
                            "tip Fixation ID: 0 | Start: 00:00:00.100 | End: 00:00:00.350 | Duration: 00.250 | "
                            "Mean: (640,400)\n"
                            "oval -53 -60 120 120 pen #ff0000 1 brush #7fff0000 "
                            "tip Fixation ID: 1 | Start: 01:01:01.100 | End: 01:01:03.150 | Duration: 02.050 | "
                            "Mean: (7,0)\n"));
}

void TestFixationShapes::originalSize()
{
    VisualizationParameters parameters = toy::parameters();
    parameters.showOriginalSize = true;
    EyeData eye = twoFixations();
    eye.scanpath.removeLast();
    const Drawing drawing = fixationEllipses(eye, {50, 340}, redStyle, parameters);
    QCOMPARE(std::get<EllipseShape>(drawing[0]).major, QVector2D(30, 10));
    // trunc(2 * 31.62) = 63 and 63 / 2 = 31 in whole pixels.
    const Drawing circle = fixationCircles(eye, {50, 340}, redStyle, parameters);
    QCOMPARE(std::get<OvalShape>(circle[0]).rect, QRectF(640 - 31, 400 - 31, 63, 63));
}

void TestFixationShapes::axisRatio_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    QTest::addColumn<QString>("ratio");
    QTest::newRow("six digits") << QVector2D(10, 0) << QVector2D(0, 3) << QStringLiteral("3.33333");
    QTest::newRow("on a line") << QVector2D(10, 0) << QVector2D(0, 0) << QStringLiteral("inf");
    QTest::newRow("at a point") << QVector2D(0, 0) << QVector2D(0, 0) << QStringLiteral("nan");
}

void TestFixationShapes::axisRatio()
{
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    QFETCH(QString, ratio);
    EyeData eye;
    eye.scanpath << toy::fixation({1, 2}, major, minor, {toy::sample(10, 1, 2)});
    const Drawing drawing = fixationEllipses(eye, {0, 100}, redStyle, toy::parameters());
    const QStringList lines = std::get<EllipseShape>(drawing[0]).toolTip.split(QStringLiteral("\r\n"));
    QCOMPARE(lines.value(4), QStringLiteral("Axis ratio: ") + ratio);
    QCOMPARE(lines.size(), qsizetype(6));
}

void TestFixationShapes::diameter_data()
{
    QTest::addColumn<bool>("durationDependent");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("expected");
    QTest::newRow("(5 * 5 + 5) * 4") << false << 5 << 100 << 120;
    QTest::newRow("(1 * 5 + 5) * 4") << false << 1 << 100 << 40;
    QTest::newRow("the size acts twice: trunc(100 + 15 + 5) * 5") << true << 5 << 100 << 600;
    QTest::newRow("trunc(33 + 15 + 0.99) * 3") << true << 3 << 33 << 144;
    QTest::newRow("no samples: 15 * 7") << true << 7 << 0 << 105;
    QTest::newRow("nothing overflows") << false << std::numeric_limits<int>::max() << 1
                                       << std::numeric_limits<int>::max();
}

void TestFixationShapes::diameter()
{
    QFETCH(bool, durationDependent);
    QFETCH(int, size);
    QFETCH(int, samples);
    VisualizationParameters parameters = toy::parameters();
    parameters.durationDependent = durationDependent;
    parameters.size = size;
    Fixation fixation;
    for (int i = 1; i <= samples; ++i)
        fixation.samples << toy::sample(i, 0, 0);
    QTEST(circleDiameter(fixation, {0, 1000}, parameters), "expected");
}

void TestFixationShapes::samplesOnTheFrameDoNotCountForCircles()
{
    VisualizationParameters parameters = toy::parameters();
    parameters.durationDependent = true;
    parameters.size = 1;
    Fixation fixation;
    for (int i = 10; i <= 20; ++i)
        fixation.samples << toy::sample(i, 0, 0);
    // Of 10 to 20 the frame 10 to 20 leaves 11 to 19: trunc(9 + 15 + 0.09) * 1.
    QCOMPARE(circleDiameter(fixation, {10, 20}, parameters), 24);
    QCOMPARE(circleDiameter(fixation, {9, 21}, parameters), 26);
}

void TestFixationShapes::axesInTheFrame_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<QVector2D>("lengths");
    // Stored axes are 100 and 50, so that a fit shows. The samples from 20 to 23 ms stand at (+-10, 0) and (0, +-5)
    // around their centre: variances 200 / 4 and 50 / 4. Ellipses are drawn at twice the standard deviation.
    const QVector2D stored(200, 100);
    const auto fitted = QVector2D(float(std::sqrt(50.0)), float(std::sqrt(12.5))) * 2;
    QTest::newRow("cut by the start: fitted to what is inside") << qint64(20) << qint64(1000) << fitted;
    QTest::newRow("cut on both sides: fitted") << qint64(20) << qint64(23) << fitted;
    QTest::newRow("cut by the end only: as stored") << qint64(5) << qint64(22) << stored;
    QTest::newRow("fewer than four samples have no axes but (1,0) and (0,0)")
        << qint64(21) << qint64(1000) << QVector2D(2, 0);
}

void TestFixationShapes::axesInTheFrame()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QFETCH(QVector2D, lengths);
    EyeData eye;
    eye.scanpath << toy::fixation({500, 300}, {100, 0}, {0, 50},
                                  {toy::sample(10, 900, 900), toy::sample(20, 210, 200), toy::sample(21, 190, 200),
                                   toy::sample(22, 200, 205), toy::sample(23, 200, 195)});
    const Drawing drawing = fixationEllipses(eye, {start, end}, redStyle, toy::parameters());
    QCOMPARE(drawing.size(), qsizetype(1));
    QCOMPARE(std::get<EllipseShape>(drawing[0]).center, QPoint(500, 300)); // of the whole fixation
    QVERIFY((sizes(drawing[0]) - lengths).length() < 1e-4F);
}

void TestFixationShapes::aFixationWithoutSamplesInTheFrameHasNoAxes()
{
    EyeData eye;
    eye.scanpath << toy::fixation({500, 300}, {100, 0}, {0, 50}, {toy::sample(10, 1, 1), toy::sample(50, 1, 1)});
    QTest::ignoreMessage(QtWarningMsg, "WARNING: Fixation of size zero constructed!");
    const Drawing drawing = fixationEllipses(eye, {20, 30}, redStyle, toy::parameters());
    QCOMPARE(drawing.size(), qsizetype(1));
    QCOMPARE(std::get<EllipseShape>(drawing[0]).center, QPoint(500, 300));
    QCOMPARE(sizes(drawing[0]), QVector2D(0, 0));
}

void TestFixationShapes::outOfPictureIsSkipped()
{
    EyeData eye;
    for (const QPoint mean : {QPoint(-1, 5), QPoint(5, -1), QPoint(0, 0)})
        eye.scanpath << toy::fixation(mean, {1, 0}, {0, 1}, {toy::sample(10, 1, 1)});
    const Drawing drawing = fixationCircles(eye, {0, 100}, redStyle, toy::parameters());
    QCOMPARE(drawing.size(), qsizetype(1));
    QVERIFY(std::get<OvalShape>(drawing[0]).toolTip.startsWith(QStringLiteral("Fixation ID: 2\r\n")));
}

void TestFixationShapes::dots_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<GazePoint>("sample");
    QTest::addColumn<bool>("drawn");
    // Around (100, 100) with axes of length 10 and 5: the reach is 20 along x and 10 along y, whatever their direction.
    const QVector2D alongY(0, 10);
    QTest::newRow("at the mean") << alongY << toy::sample(10, 100, 100) << true;
    QTest::newRow("on the edge along x") << alongY << toy::sample(10, 120, 100) << true;
    QTest::newRow("beyond it") << alongY << toy::sample(10, 120.01, 100) << false;
    QTest::newRow("on the edge along y") << alongY << toy::sample(10, 100, 90) << true;
    QTest::newRow("beyond that") << alongY << toy::sample(10, 100, 89.99) << false;
    QTest::newRow("invalid") << alongY << toy::sample(10, 100, 100, 0) << false;
    QTest::newRow("outside the frame") << alongY << toy::sample(500, 100, 100) << false;
    QTest::newRow("an axis without length takes in nothing") << QVector2D() << toy::sample(10, 100, 101) << false;
    QTest::newRow("not even the mean") << QVector2D() << toy::sample(10, 100, 100) << false;
}

void TestFixationShapes::dots()
{
    QFETCH(QVector2D, major);
    QFETCH(GazePoint, sample);
    QFETCH(bool, drawn);
    VisualizationParameters parameters = toy::parameters();
    parameters.showGazePoints = true;
    EyeData eye;
    eye.gazePoints << sample;
    eye.scanpath << toy::fixation({100, 100}, major, {5, 0}, {toy::sample(0, 1, 1), toy::sample(400, 1, 1)});
    for (const auto build : {fixationEllipses, fixationCircles}) {
        const Drawing drawing = build(eye, {-1, 399}, redStyle, parameters);
        QCOMPARE(drawing.size(), drawn ? qsizetype(2) : qsizetype(1));
        if (drawn) {
            QCOMPARE(toText({drawing[1]}),
                     QStringLiteral("oval %1 %2 5 5 pen #000000 1 brush none\n").arg(sample.x).arg(sample.y));
        }
    }
}

void TestFixationShapes::dotsFollowTheirFixation()
{
    VisualizationParameters parameters = toy::parameters();
    EyeData eye;
    eye.gazePoints << toy::sample(1, 10, 10) << toy::sample(2, 11, 10) << toy::sample(3, 50, 50);
    eye.scanpath << toy::fixation({10, 10}, {5, 0}, {0, 5}, {toy::sample(1, 0, 0), toy::sample(9, 0, 0)})
                 << toy::fixation({50, 50}, {5, 0}, {0, 5}, {toy::sample(1, 0, 0), toy::sample(9, 0, 0)});
    QCOMPARE(fixationCircles(eye, {0, 8}, redStyle, parameters).size(), qsizetype(2));
    parameters.showGazePoints = true;
    const Drawing drawing = fixationCircles(eye, {0, 8}, redStyle, parameters);
    QList<double> widths;
    for (const Shape &shape : drawing)
        widths << std::get<OvalShape>(shape).rect.width();
    QCOMPARE(widths, (QList<double>{120, 5, 5, 120, 5}));
}

void TestFixationShapes::bothEyesInTheirColors()
{
    toy::Scenery scenery;
    Examination examination;
    examination.leftEye.scanpath << toy::fixation({10, 10}, {5, 0}, {0, 5}, {toy::sample(1, 0, 0)});
    examination.rightEye.scanpath << toy::fixation({20, 10}, {5, 0}, {0, 5}, {toy::sample(1, 0, 0)});
    examination.meanEye.scanpath << toy::fixation({30, 10}, {5, 0}, {0, 5}, {toy::sample(1, 0, 0)});
    scenery.model.examinations() = {examination};
    scenery.fixations.visualizationMode = 2;
    const auto colors = [&](EyeMode mode) {
        scenery.eyeMode = mode;
        QStringList names;
        const Drawing drawing = pictureOf(scenery.context()).drawing;
        for (const Shape &shape : drawing)
            names << std::get<OvalShape>(shape).brush.color().name();
        return names.join(u' ');
    };
    QCOMPARE(colors(EyeMode::showAll), QStringLiteral("#00ff00 #0000ff"));
    QCOMPARE(colors(EyeMode::showMean), QStringLiteral("#ff0000"));
}

void TestFixationShapes::modesWithoutShapes_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("below the modes") << -1;
    QTest::newRow("beyond the modes") << 99;
}

void TestFixationShapes::modesWithoutShapes()
{
    QFETCH(int, mode);
    toy::Scenery scenery;
    scenery.fixations.visualizationMode = mode;
    Examination examination;
    examination.leftEye = twoFixations();
    scenery.model.examinations() = {examination};
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
}

QTEST_GUILESS_MAIN(TestFixationShapes)
#include "TestFixationShapes.moc"
