// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/CorrectionEllipse.h"

#include "import/ilmenau/CorrectionExport.h"
#include "import/ilmenau/CorrectionIni.h"
#include "import/ImportFiles.h"

#include <QElapsedTimer>
#include <QTest>

#include <cmath>
#include <numbers>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// Places on an ellipse with half axes a and b, the first at an angle.
std::vector<QPointF> stroke(double a, double b, double degrees, int places)
{
    std::vector<QPointF> all;
    const double turn = degrees * std::numbers::pi / 180;
    for (int i = 0; i < places; ++i) {
        const double t = 2 * std::numbers::pi * i / places;
        const double u = a * std::cos(t);
        const double v = b * std::sin(t);
        all.emplace_back(500 + u * std::cos(turn) - v * std::sin(turn), 400 + u * std::sin(turn) + v * std::cos(turn));
    }
    return all;
}

EllipsePair pairAt(double x, double y, double width, double height, double rotation)
{
    return newPair({x, y, width, height, rotation});
}

Examination recording(const QString &name, const QList<GazePoint> &left, const QList<GazePoint> &right = {})
{
    Examination examination;
    examination.baseName = name;
    examination.leftEye.gazePoints = left;
    examination.rightEye.gazePoints = right;
    examination.imageWidthPx = 1000;
    examination.imageHeightPx = 800;
    examination.imageWidthMm = 500;
    examination.imageHeightMm = 200;
    return examination;
}

/// All pairs, as the definition has it.
CorrectionQuality plainQuality(const QList<GazePoint> &first, const QList<GazePoint> &second)
{
    CorrectionQuality quality;
    for (const GazePoint &a : first) {
        for (const GazePoint &b : second) {
            if (a.time != b.time)
                continue;
            quality.meanDistancePx += std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y));
            ++quality.equalTimes;
        }
    }
    if (quality.equalTimes > 1)
        quality.meanDistancePx /= double(quality.equalTimes);
    return quality;
}

} // namespace

class TestCorrectionEllipse : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void strokes_data();
    void strokes();
    void whatIsNoEllipse();
    void theCorrectedOneLiesBelow();
    void pointsInside_data();
    void pointsInside();
    void aFittedStrokeHoldsItsInside();
    void assignedPoints();
    void eyes_data();
    void eyes();
    void movingTakesThePointsAlong();
    void rowTexts();
    void linesOfAnIni();
    void linesThatAreNone_data();
    void linesThatAreNone();
    void quality();
    void qualityOfLongRecordingsIsQuick();
    void tableInMillimetres();
    void sourcesAndTheirLines();
    void calibration();
};

void TestCorrectionEllipse::strokes_data()
{
    QTest::addColumn<int>("places");
    QTest::addColumn<bool>("fits");
    QTest::newRow("none") << 0 << false;
    QTest::newRow("ten") << 10 << false;
    QTest::newRow("eleven") << 11 << true;
    QTest::newRow("many") << 300 << true;
}

void TestCorrectionEllipse::strokes()
{
    QFETCH(int, places);
    QFETCH(bool, fits);
    const auto fit = fitStroke(stroke(200, 100, 30, places));
    QCOMPARE(fit.has_value(), fits);
    if (!fits)
        return;
    QVERIFY(std::abs(fit->centerX - 500) < 0.1 && std::abs(fit->centerY - 400) < 0.1);
    // the shorter axis is the width, and it lies across the longer one
    QVERIFY(std::abs(fit->width - 200) < 0.5 && std::abs(fit->height - 400) < 0.5);
    QVERIFY(std::abs(fit->rotation - 120) < 0.5);
}

void TestCorrectionEllipse::whatIsNoEllipse()
{
    QVERIFY(RotatedEllipse().isEmpty());
    const std::vector<QPointF> oneDot(50, QPointF(10, 10));
    if (const auto fit = fitStroke(oneDot))
        QVERIFY(!fit->isEmpty());
    std::vector<QPointF> line;
    for (int i = 0; i < 50; ++i)
        line.emplace_back(i, i);
    if (const auto fit = fitStroke(line))
        QVERIFY(std::isfinite(fit->width) && std::isfinite(fit->height));
}

void TestCorrectionEllipse::theCorrectedOneLiesBelow()
{
    const EllipsePair pair = pairAt(10, 20, 30, 40, 50);
    QCOMPARE(pair.corrected.centerX, 110.0);
    QCOMPARE(pair.corrected.centerY, 120.0);
    QCOMPARE(pair.corrected.width, 30.0);
    QCOMPARE(pair.corrected.height, 40.0);
    QCOMPARE(pair.corrected.rotation, 50.0);
    QVERIFY(!pair.original.active && !pair.corrected.active);
}

void TestCorrectionEllipse::pointsInside_data()
{
    QTest::addColumn<double>("rotation");
    QTest::addColumn<QPointF>("place"); // from the centre; width 40, height 100
    QTest::addColumn<bool>("inside");
    QTest::newRow("centre") << 0.0 << QPointF(0, 0) << true;
    QTest::newRow("the end of the height") << 0.0 << QPointF(0, 50) << true;
    QTest::newRow("beyond the height") << 0.0 << QPointF(0, 50.01) << false;
    QTest::newRow("the end of the width") << 0.0 << QPointF(20, 0) << true;
    QTest::newRow("beyond the width") << 0.0 << QPointF(20.01, 0) << false;
    QTest::newRow("turned, along the height") << 90.0 << QPointF(-49.9, 0) << true;
    QTest::newRow("turned, beyond the width") << 90.0 << QPointF(0, 20.1) << false;
    QTest::newRow("an eighth, along the height") << 45.0 << QPointF(-35, 35) << true;
    QTest::newRow("an eighth, across") << 45.0 << QPointF(35, 35) << false;
}

void TestCorrectionEllipse::pointsInside()
{
    QFETCH(double, rotation);
    QFETCH(QPointF, place);
    QFETCH(bool, inside);
    QCOMPARE(contains({300, 200, 40, 100, rotation}, 300 + place.x(), 200 + place.y()), inside);
}

void TestCorrectionEllipse::aFittedStrokeHoldsItsInside()
{
    const auto fit = fitStroke(stroke(200, 60, 25, 60));
    QVERIFY(fit);
    for (const QPointF &place : stroke(195, 55, 25, 40))
        QVERIFY(contains(*fit, place.x(), place.y()));
    for (const QPointF &place : stroke(205, 65, 25, 40))
        QVERIFY(!contains(*fit, place.x(), place.y()));
}

void TestCorrectionEllipse::assignedPoints()
{
    DataModel model;
    model.examinations() << recording(u"/a.txt"_s, {GazePoint(9, 100, 100, 1, 1, 1),   // before the frame
                                                    GazePoint(10, 101, 100, 1, 1, 1),  // at its begin
                                                    GazePoint(15, 102, 100, 1, 1, 0),  // invalid
                                                    GazePoint(16, 400, 100, 1, 1, 1),  // outside
                                                    GazePoint(20, 103, 100, 1, 1, 1),  // at its end
                                                    GazePoint(21, 104, 100, 1, 1, 1)}) // after it
                         << recording(u"/b.txt"_s, {GazePoint(12, 105, 100, 1, 1, 1)})
                         << recording(u"/c.txt"_s, {GazePoint(12, 106, 100, 1, 1, 1)});
    model.examinations()[2].checked = false;
    EllipsePair pair = pairAt(100, 100, 50, 50, 0);
    pair.original.points << GazePoint(1, 1, 1, 1, 1, 1); // of before
    pair.corrected.centerX = 110.5;
    pair.corrected.centerY = 70;
    assignPoints(pair, model, EyeMode::showLeft, {10, 20});
    QCOMPARE(pair.original.points.size(), 3);
    QCOMPARE(pair.original.points[0].x, 101.0);
    QCOMPARE(pair.original.points[1].x, 103.0);
    QCOMPARE(pair.corrected.points[0], GazePoint(10, 111.5, 70, 1, 1, 1));
    QCOMPARE(pair.corrected.points[2], GazePoint(12, 115.5, 70, 1, 1, 1));
    QCOMPARE(pair.original.sources[1], (PointSource{u"/a.txt"_s, 1000, 800, 500, 200}));
    QCOMPARE(pair.original.sources[2].recording, u"/b.txt"_s);
    QCOMPARE(pair.corrected.sources, pair.original.sources);
}

void TestCorrectionEllipse::eyes_data()
{
    QTest::addColumn<EyeMode>("mode");
    QTest::addColumn<QList<double>>("taken");
    QTest::newRow("all") << EyeMode::showAll << QList<double>{1, 2};
    QTest::newRow("dominant, which is the right one") << EyeMode::showDominant << QList<double>{2};
    QTest::newRow("left") << EyeMode::showLeft << QList<double>{1};
    QTest::newRow("right") << EyeMode::showRight << QList<double>{2};
    QTest::newRow("mean") << EyeMode::showMean << QList<double>{3};
}

void TestCorrectionEllipse::eyes()
{
    QFETCH(EyeMode, mode);
    QFETCH(QList<double>, taken);
    DataModel model;
    model.examinations() << recording(u"/a.txt"_s, {GazePoint(0, 1, 0, 1, 1, 1)}, {GazePoint(0, 2, 0, 1, 1, 1)});
    model.examinations()[0].meanEye.gazePoints = {GazePoint(0, 3, 0, 1, 1, 1)};
    EllipsePair pair = pairAt(0, 0, 50, 50, 0);
    assignPoints(pair, model, mode, {0, 10});
    QList<double> found;
    for (const GazePoint &point : std::as_const(pair).original.points)
        found << point.x;
    QCOMPARE(found, taken);
}

void TestCorrectionEllipse::movingTakesThePointsAlong()
{
    DataModel model;
    model.examinations() << recording(u"/a.txt"_s, {GazePoint(0, 3, 4, 1, 1, 1)});
    EllipsePair pair = pairAt(0, 0, 50, 50, 0);
    assignPoints(pair, model, EyeMode::showLeft, {0, 10});
    moveCorrected(pair, {-10, 20});
    QCOMPARE(pair.corrected.centerX, -10.0);
    QCOMPARE(pair.corrected.points, QList<GazePoint>{GazePoint(0, -7, 24, 1, 1, 1)});
    QCOMPARE(pair.original.points, QList<GazePoint>{GazePoint(0, 3, 4, 1, 1, 1)});
}

void TestCorrectionEllipse::rowTexts()
{
    QCOMPARE(ellipseText(3, {0, 1500}), u"Ellipse 3:time(ms):0-1500"_s);
    QCOMPARE(withFrame(u"Ellipse 3:time(ms):0-1500"_s, {7, 8}), u"Ellipse 3:time(ms):7-8"_s);
    QCOMPARE(withFrame(u"mine"_s, {7, 8}), u"mine:time(ms):7-8"_s);
}

void TestCorrectionEllipse::linesOfAnIni()
{
    const EllipsePair pair = pairAt(1.5, 2, 1234567.8, 4, 0.125);
    const QString line = ellipseLine(u"Ellipse 1:time(ms):0-9"_s, pair);
    QCOMPARE(line, u"Ellipse 1:time(ms):0-9;1.5;101.5;2;102;1.23457e+06;1.23457e+06;4;4;0.125;0.125"_s);
    const auto read = readEllipseLine(line);
    QVERIFY(read);
    QCOMPARE(read->text, u"Ellipse 1:time(ms):0-9"_s);
    QCOMPARE(read->pair.original.centerX, 1.5);
    QCOMPARE(read->pair.corrected.centerX, 101.5);
    QCOMPARE(read->pair.original.centerY, 2.0);
    QCOMPARE(read->pair.corrected.centerY, 102.0);
    QCOMPARE(read->pair.original.height, 4.0);
    QCOMPARE(read->pair.corrected.rotation, 0.125);
}

void TestCorrectionEllipse::linesThatAreNone_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing") << QString();
    QTest::newRow("ten fields") << u"a;1;2;3;4;5;6;7;8;9"_s;
    QTest::newRow("twelve fields") << u"a;1;2;3;4;5;6;7;8;9;10;"_s;
    QTest::newRow("the names") << ellipseHeader();
}

void TestCorrectionEllipse::linesThatAreNone()
{
    QFETCH(QString, line);
    QVERIFY(!readEllipseLine(line));
    QVERIFY(readEllipseLine(u"a;x;;3;4;5;6;7;8;9;10"_s)); // fields that are no numbers count as 0
    QCOMPARE(readEllipseLine(u"a;x;;3;4;5;6;7;8;9;10"_s)->pair.original.centerX, 0.0);
}

void TestCorrectionEllipse::quality()
{
    const auto at = [](qint64 time, double x, double y) { return GazePoint(time, x, y, 1, 1, 0); };
    QCOMPARE(correctionQuality({}, {}).equalTimes, 0);
    QCOMPARE(correctionQuality({at(1, 0, 0)}, {at(2, 3, 4)}).meanDistancePx, 0.0);
    QCOMPARE(correctionQuality({at(1, 0, 0)}, {at(1, 3, 4)}).meanDistancePx, 5.0); // one pair, valid or not
    const CorrectionQuality two = correctionQuality({at(1, 0, 0), at(2, 0, 0)}, {at(2, 0, 1), at(1, 3, 4)});
    QCOMPARE(two.meanDistancePx, 3.0);
    QCOMPARE(two.equalTimes, 2);
    for (unsigned seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        QList<GazePoint> lists[2];
        for (QList<GazePoint> &list : lists) {
            for (unsigned i = 0; i < 200; ++i)
                list << at(qint64(random() % 150), double(random() % 1000) / 7, double(random() % 1000) / 7);
        }
        const CorrectionQuality ours = correctionQuality(lists[0], lists[1]);
        const CorrectionQuality plain = plainQuality(lists[0], lists[1]);
        QVERIFY2(ours.meanDistancePx == plain.meanDistancePx && ours.equalTimes == plain.equalTimes,
                 qPrintable(u"seed %1"_s.arg(seed)));
    }
}

void TestCorrectionEllipse::qualityOfLongRecordingsIsQuick()
{
    QList<GazePoint> first;
    QList<GazePoint> second;
    for (int i = 0; i < 60'000; ++i) {
        first << GazePoint(2 * i, i % 1000, 0, 1, 1, 1);
        second << GazePoint(2 * i, i % 1000, 3, 1, 1, 1);
    }
    QElapsedTimer timer;
    timer.start();
    const CorrectionQuality found = correctionQuality(first, second);
    qInfo("60,000 samples: %lld ms", timer.elapsed());
    QCOMPARE(found.equalTimes, 60'000);
    QCOMPARE(found.meanDistancePx, 3.0);
    QVERIFY(timer.elapsed() < 2000); // a quadratic search takes several seconds
}

void TestCorrectionEllipse::tableInMillimetres()
{
    DataModel model;
    model.examinations() << recording(u"/a.txt"_s, {GazePoint(0, 501, 801, 1, 1, 1), GazePoint(1, 503, 798.5, 1, 1, 1)})
                         << recording(u"/b.txt"_s, {GazePoint(0, 500, 800, 1, 1, 1)});
    EllipsePair pair = pairAt(500, 800, 50, 50, 0);
    assignPoints(pair, model, EyeMode::showLeft, {0, 10});
    const QList<NamedPair> ellipses{{u"Ellipse 1"_s, pair}};
    // 0.5 mm a px across, from 500 px; 0.25 mm a px down, upwards from 800 px; corrected: 100 px to the right and below
    QCOMPARE(correctionTable(ellipses, u"/a.txt"_s), u"line;gp_original_x;gp_original_y;gp_corrected_x;gp_corrected_y\n"
                                                     "1;0,5;-0,25;50,5;-25,25\n"
                                                     "2;1,5;0,375;51,5;-24,625\n"_s);
    QCOMPARE(correctionTable(ellipses, u"/b.txt"_s).count(u'\n'), 2);
    QCOMPARE(sourcesOf(ellipses), (QStringList{u"/a.txt"_s, u"/b.txt"_s}));
}

void TestCorrectionEllipse::sourcesAndTheirLines()
{
    DataModel model;
    model.examinations() << recording(u"C:\\study\\a.txt"_s, {GazePoint(0, 0, 0, 1, 1, 1)});
    EllipsePair with = pairAt(0, 0, 50, 50, 0);
    assignPoints(with, model, EyeMode::showLeft, {0, 10});
    const QList<NamedPair> ellipses{{u"Ellipse 1"_s, pairAt(900, 900, 5, 5, 0)}, {u"Ellipse 2"_s, with}};
    QCOMPARE(sourcesOf(ellipses), QStringList{u"C:\\study\\a.txt"_s});
    QCOMPARE(ellipseLines(ellipses, u"C:\\study\\a.txt"_s),
             (QStringList{ellipseHeader(), u"Ellipse 2;0;100;0;100;50;50;50;50;0;0"_s}));
}

void TestCorrectionEllipse::calibration()
{
    const ImportFiles files;
    const QString path = files.write(u"c.ini"_s, "LEye_correction_phi=1\r\nother=2\nm_right_theta = 3\nm_left_phi\n");
    QCOMPARE(calibrationLines(path), u"LEye_correction_phi=1\nm_right_theta = 3\nm_left_phi\n"_s);
    QCOMPARE(calibrationLines(u"/no/such.ini"_s), QString());
}

QTEST_GUILESS_MAIN(TestCorrectionEllipse)
#include "TestCorrectionEllipse.moc"
