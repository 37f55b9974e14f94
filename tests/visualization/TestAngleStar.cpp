// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FirstStart.h"
#include "TestSettings.h"
#include "ToyData.h"
#include "visualization/modes/Picture.h"
#include "visualization/shapes/AngleStar.h"

#include <QTest>

#include <cmath>

class TestAngleStar : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void durations();
    void barsStandSideBySide();
    void firstShownMeasureDrawsTheFrame();
    void nothingShown();
    void labels_data();
    void labels();
    void oneBin();
    void shiftsAreCutToWholeDegrees_data();
    void shiftsAreCutToWholeDegrees();
    void zerosGiveBarsWithoutLength();
    void solidBarsLookTheSame();
    void colors_data();
    void colors();
    void opacityIsTakenAsItIs_data();
    void opacityIsTakenAsItIs();
    void barsStandOutWithFactoryValues();
    void recordingsArePooledButNotLinked();
    void eyesHaveTheirBarsOnOneFrame();
    void nothingWithoutSaccades();
};

namespace {

/// Two saccades of 100 and 300 px within 40 and 20 ms among the first quarter of directions, one of 50 px within 60 ms
/// among the third.
const AngleStarBins quarters{{2, 0, 1, 0}, {200, 0, 50, 0}, {30, 0, 60, 0}};

VisualizationParameters parametersShowing(bool quantity, bool duration, bool length)
{
    VisualizationParameters parameters = toy::parameters(QStringLiteral("SaccadeVisualization"));
    parameters.showQuantityArcs = quantity;
    parameters.showDurationArcs = duration;
    parameters.showLenghtArcs = length;
    return parameters;
}

const QString discsText = QStringLiteral("oval 780 300 1000 1000 pen #c8c8c8 1 brush #ffc8c8c8\n"
                                         "oval 830 350 900 900 pen #646464 1 brush #ff646464\n"
                                         "oval 880 400 800 800 pen #c8c8c8 1 brush #ffc8c8c8\n"
                                         "oval 930 450 700 700 pen #646464 1 brush #ff646464\n"
                                         "oval 980 500 600 600 pen #c8c8c8 1 brush #ffc8c8c8\n"
                                         "oval 1030 550 500 500 pen #646464 1 brush #ff646464\n"
                                         "oval 1080 600 400 400 pen #c8c8c8 1 brush #ffc8c8c8\n"
                                         "oval 1130 650 300 300 pen #646464 1 brush #ff646464\n"
                                         "oval 1180 700 200 200 pen #c8c8c8 1 brush #ffc8c8c8\n"
                                         "oval 1230 750 100 100 pen #646464 1 brush #ff646464\n");

// 600 and 675 px from the centre to the right, upwards, to the left, downwards.
const QString spokesText = QStringLiteral("line 1280 800 to 1880 800 pen #ff000000 1 solid\n"
                                          "text 1955 800 #000000 font font: Arial 30 reads 0°\n"
                                          "line 1280 800 to 1280 200 pen #ff000000 1 solid\n"
                                          "text 1280 125 #000000 font font: Arial 30 reads 90°\n"
                                          "line 1280 800 to 680 800 pen #ff000000 1 solid\n"
                                          "text 605 800 #000000 font font: Arial 30 reads 180°\n"
                                          "line 1280 800 to 1280 1400 pen #ff000000 1 solid\n"
                                          "text 1280 1475 #000000 font font: Arial 30 reads 270°\n");

QStringList linesOf(const Drawing &drawing)
{
    return toText(drawing).split(u'\n', Qt::SkipEmptyParts);
}

/// Direction of the bars of the measures shown, in degrees counter-clockwise from the right, rounded.
QList<int> barDegrees(const Drawing &drawing, qsizetype bins)
{
    constexpr qsizetype discs = 10;
    QList<int> degrees;
    for (const Shape &shape : drawing.mid(discs + 2 * bins)) {
        const QLineF line = std::get<LineShape>(shape).line;
        degrees << qRound(std::atan2(line.y1() - line.y2(), line.x2() - line.x1()) * 180 / 3.14159265358979);
    }
    return degrees;
}

Examination examinationWith(QPoint first, QPoint second)
{
    Examination examination;
    examination.leftEye.scanpath = {toy::fixation(first, {}, {}, {toy::sample(100, 0, 0), toy::sample(180, 0, 0)}),
                                    toy::fixation(second, {}, {}, {toy::sample(220, 0, 0), toy::sample(280, 0, 0)})};
    return examination;
}

toy::Scenery sceneryOf(const QList<Examination> &examinations)
{
    toy::Scenery scenery;
    scenery.model.examinations() = examinations;
    scenery.saccades = parametersShowing(true, false, false);
    scenery.saccades.visualizationMode = 2;
    scenery.saccades.numberOfHistogramBins = 4;
    return scenery;
}

} // namespace

void TestAngleStar::durations()
{
    // 45 degrees and 30 / 60 * 500 px: 250 * 0.707107 = 176.777; 225 degrees and 500 px: 353.553.
    QCOMPARE(toText(angleStarChart(quarters, Qt::red, parametersShowing(false, true, false))),
             discsText + spokesText +
                 QStringLiteral("line 1280 800 to 1456.78 623.223 pen #32ff0000 1 dotted\n"
                                "line 1280 800 to 1280 800 pen #32ff0000 1 dotted\n"
                                "line 1280 800 to 926.447 1153.55 pen #32ff0000 1 dotted\n"
                                "line 1280 800 to 1280 800 pen #32ff0000 1 dotted\n"));
}

void TestAngleStar::barsStandSideBySide()
{
    VisualizationParameters parameters = parametersShowing(true, true, true);
    parameters.borderWidth = 3;
    // A third of a quarter turn is cut to 29 degrees, so that quantities stand at 45 - 29 = 16 degrees and half a turn
    // on, lengths at 45 + 29 = 74 degrees. cos 16 = sin 74 = 0.961262, sin 16 = cos 74 = 0.275637.
    // Quantities 2 and 1: 500 and 250 px. Lengths 200 and 50: 500 and 125 px.
    const QStringList lines = linesOf(angleStarChart(quarters, Qt::red, parameters));
    QCOMPARE(lines.mid(18).join(u'\n'), QStringLiteral("line 1280 800 to 1760.63 662.181 pen #32ff0000 3 solid\n"
                                                       "line 1280 800 to 1280 800 pen #32ff0000 3 solid\n"
                                                       "line 1280 800 to 1039.68 868.909 pen #32ff0000 3 solid\n"
                                                       "line 1280 800 to 1280 800 pen #32ff0000 3 solid\n"
                                                       "line 1280 800 to 1456.78 623.223 pen #32ff0000 3 dotted\n"
                                                       "line 1280 800 to 1280 800 pen #32ff0000 3 dotted\n"
                                                       "line 1280 800 to 926.447 1153.55 pen #32ff0000 3 dotted\n"
                                                       "line 1280 800 to 1280 800 pen #32ff0000 3 dotted\n"
                                                       "line 1280 800 to 1417.82 319.369 pen #32ff0000 3 dashed\n"
                                                       "line 1280 800 to 1280 800 pen #32ff0000 3 dashed\n"
                                                       "line 1280 800 to 1245.55 920.158 pen #32ff0000 3 dashed\n"
                                                       "line 1280 800 to 1280 800 pen #32ff0000 3 dashed"));
}

void TestAngleStar::firstShownMeasureDrawsTheFrame()
{
    for (const VisualizationParameters &parameters :
         {parametersShowing(true, false, true), parametersShowing(false, true, false),
          parametersShowing(false, false, true)})
    {
        const QString text = toText(angleStarChart(quarters, Qt::red, parameters));
        QVERIFY(text.startsWith(discsText + spokesText));
        QCOMPARE(text.count(QStringLiteral("oval")), qsizetype(10));
        QCOMPARE(text.count(QStringLiteral("text")), qsizetype(4));
    }
}

void TestAngleStar::nothingShown()
{
    QVERIFY(angleStarChart(quarters, Qt::red, parametersShowing(false, false, false)).isEmpty());
}

void TestAngleStar::labels_data()
{
    QTest::addColumn<int>("bins");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("expected"); // of the first three spokes and the last one
    QTest::newRow("fractions") << 25 << 0 << QStringLiteral("0° 14.4° 28.8° 345.6°");
    QTest::newRow("six digits") << 7 << 0 << QStringLiteral("0° 51.4286° 102.857° 308.571°");
    QTest::newRow("the first one stays 0") << 4 << 30 << QStringLiteral("0° 120° 210° 300°");
    QTest::newRow("beyond a full turn") << 4 << 360 << QStringLiteral("0° 450° 540° 630°");
    QTest::newRow("below 0") << 4 << -100 << QStringLiteral("0° -10° 80° 170°");
}

void TestAngleStar::labels()
{
    QFETCH(int, bins);
    QFETCH(int, offset);
    VisualizationParameters parameters = parametersShowing(true, false, false);
    parameters.angleOffset = offset;
    QStringList labels;
    for (const Shape &shape : angleStarChart(angleStarBins({1, 2, 3}, bins), Qt::red, parameters)) {
        if (const auto *text = std::get_if<TextShape>(&shape))
            labels << text->text;
    }
    QCOMPARE(labels.size(), qsizetype(bins));
    QTEST((labels.mid(0, 3) << labels.last()).join(u' '), "expected");
}

void TestAngleStar::oneBin()
{
    // The spoke at 30 degrees: 600 * (0.866025, 0.5); the label at 675. The bar half a turn further: 500 * the same.
    VisualizationParameters parameters = parametersShowing(false, true, false);
    parameters.angleOffset = 30;
    const QStringList lines = linesOf(angleStarChart(angleStarBins({1, 2, 3}, 1), Qt::red, parameters));
    QCOMPARE(lines.size(), qsizetype(13));
    QCOMPARE(lines[10], QStringLiteral("line 1280 800 to 1799.62 500 pen #ff000000 1 solid"));
    QCOMPARE(lines[11], QStringLiteral("text 1864.57 462.5 #000000 font font: Arial 30 reads 0°"));
    QCOMPARE(lines[12], QStringLiteral("line 1280 800 to 846.987 1050 pen #32ff0000 1 dotted"));
}

void TestAngleStar::shiftsAreCutToWholeDegrees_data()
{
    QTest::addColumn<int>("bins");
    QTest::addColumn<QList<int>>("degrees"); // of quantity, duration and length in the last bin
    QTest::newRow("40 degrees: 13 to each side of 340") << 9 << QList<int>{-33, -20, -7};
    QTest::newRow("9 degrees: a little less than 3") << 40 << QList<int>{-7, -5, -3};
    QTest::newRow("3 degrees: a little less than 1") << 120 << QList<int>{-2, -2, -2};
}

void TestAngleStar::shiftsAreCutToWholeDegrees()
{
    QFETCH(int, bins);
    QFETCH(QList<int>, degrees);
    const Drawing drawing =
        angleStarChart(angleStarBins({6.2831, 2, 3}, bins), Qt::red, parametersShowing(true, true, true));
    const QList<int> found = barDegrees(drawing, bins);
    QCOMPARE(found.size(), qsizetype(3 * bins));
    for (int measure = 0; measure < 3; ++measure) {
        // Middles of bins lie between whole degrees; a degree up or down is rounding.
        const int bar = found[(measure + 1) * bins - 1];
        QVERIFY2(std::abs(bar - degrees[measure]) <= (bins == 9 ? 0 : 1), qPrintable(QString::number(bar)));
    }
    QCOMPARE(found[2 * bins - 1] - found[bins - 1], degrees[1] - degrees[0]);
    QCOMPARE(found[3 * bins - 1] - found[2 * bins - 1], degrees[2] - degrees[1]);
}

void TestAngleStar::zerosGiveBarsWithoutLength()
{
    // One saccade without duration: the last sample of one fixation has the time of the first one of the next.
    const Drawing drawing =
        angleStarChart(angleStarBins({1, 20, 0}, 3), Qt::red, parametersShowing(false, true, false));
    QCOMPARE(drawing.size(), qsizetype(10 + 6 + 3));
    for (const Shape &shape : drawing.mid(16))
        QCOMPARE(toText({shape}), QStringLiteral("line 1280 800 to 1280 800 pen #32ff0000 1 dotted\n"));
}

void TestAngleStar::solidBarsLookTheSame()
{
    VisualizationParameters parameters = parametersShowing(true, true, true);
    const QString plain = toText(angleStarChart(quarters, Qt::red, parameters));
    parameters.quantityArcsHighlight = true;
    parameters.durationArcsHighlight = true;
    parameters.lenghtArcsHighlight = true;
    QCOMPARE(toText(angleStarChart(quarters, Qt::red, parameters)), plain);
}

void TestAngleStar::colors_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("color"); // with 50 of 255
    QTest::addColumn<bool>("valid");
    const auto row = [](const char *name, EyeMode mode, const char *color, bool valid) {
        QTest::newRow(name) << static_cast<int>(mode) << QString::fromLatin1(color) << valid;
    };
    row("all", EyeMode::showAll, "#32ff0000", true);
    row("dominant", EyeMode::showDominant, "#32ff0000", true);
    row("left", EyeMode::showLeft, "#3200ff00", true);
    row("right", EyeMode::showRight, "#320000ff", true);
    row("the mean is black", EyeMode::showMean, "#32000000", false);
}

void TestAngleStar::colors()
{
    QFETCH(int, mode);
    Examination examination = examinationWith({10, 10}, {20, 15});
    examination.rightEye = examination.leftEye;
    examination.meanEye = examination.leftEye;
    examination.groupName = QStringLiteral("Readers"); // its colours do not show
    toy::Scenery scenery = sceneryOf({examination});
    Group group;
    group.name = examination.groupName;
    group.colorsDominant[QStringLiteral("SaccadeVisualization")] = Qt::yellow;
    group.colorsLeft = group.colorsDominant;
    group.colorsRight = group.colorsDominant;
    scenery.model.setGroups({group});
    scenery.eyeMode = static_cast<EyeMode>(mode);
    const Drawing drawing = pictureOf(scenery.context()).drawing;
    QVERIFY(!drawing.isEmpty());
    const QColor color = std::get<LineShape>(drawing.last()).pen.color();
    QTEST(color.name(QColor::HexArgb), "color");
    QTEST(color.isValid(), "valid");
}

void TestAngleStar::opacityIsTakenAsItIs_data()
{
    QTest::addColumn<int>("opacity");
    QTest::addColumn<int>("alpha");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("100 is far from opaque") << 100 << 100;
    QTest::newRow("no less than nothing") << -5 << 0;
    QTest::newRow("no more than opaque") << 1000 << 255;
}

void TestAngleStar::opacityIsTakenAsItIs()
{
    QFETCH(int, opacity);
    VisualizationParameters parameters = parametersShowing(true, false, false);
    parameters.fillOpacity = opacity;
    const Drawing drawing = angleStarChart(quarters, Qt::red, parameters);
    QTEST(std::get<LineShape>(drawing.last()).pen.color().alpha(), "alpha");
}

void TestAngleStar::barsStandOutWithFactoryValues()
{
    const TemporarySettings settings;
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
    const VisualizationParameters parameters = saccadeParameters();
    for (const QColor &color : {parameters.fillColor, parameters.fillColorLeft, parameters.fillColorRight}) {
        const Drawing drawing = angleStarChart(quarters, color, parameters);
        const QPen pen = std::get<LineShape>(drawing.last()).pen;
        QVERIFY(pen.widthF() >= 10); // the canvas is shown at a third of its size
        for (const int disc : {200, 100}) {
            const auto seen = [&](int channel) { return (channel - disc) * static_cast<double>(pen.color().alphaF()); };
            const double difference =
                std::hypot(seen(color.red()), seen(color.green()), seen(color.blue())); // from the disc below
            QVERIFY2(difference > 40, qPrintable(color.name()));
        }
    }
}

void TestAngleStar::recordingsArePooledButNotLinked()
{
    // Up to the right and down to the left, a saccade each. A link from the one to the other would lead down to the
    // right: the fourth bar.
    toy::Scenery scenery = sceneryOf({examinationWith({10, 50}, {20, 40}), examinationWith({30, 90}, {20, 100})});
    scenery.eyeMode = EyeMode::showLeft;
    const Drawing drawing = pictureOf(scenery.context()).drawing;
    QList<bool> hasLength;
    for (const Shape &shape : drawing.mid(18))
        hasLength << (std::get<LineShape>(shape).line.length() > 499.9);
    QCOMPARE(hasLength, (QList<bool>{true, false, true, false}));
    QCOMPARE(std::get<LineShape>(drawing.last()).line.length(), 0.0);
}

/// On the discs of the first of them, which would be covered by others.
void TestAngleStar::eyesHaveTheirBarsOnOneFrame()
{
    Examination examination = examinationWith({10, 50}, {20, 40});
    toy::Scenery scenery = sceneryOf({examination});
    QCOMPARE(pictureOf(scenery.context()).drawing.size(), qsizetype(10 + 8 + 4)); // the right eye has no saccades
    examination.rightEye.scanpath = examinationWith({30, 90}, {20, 100}).leftEye.scanpath;
    scenery.model.examinations() = {examination};
    const Drawing both = pictureOf(scenery.context()).drawing;
    QCOMPARE(both.size(), qsizetype(10 + 8 + 4 + 4));
    scenery.eyeMode = EyeMode::showLeft;
    scenery.saccades.fillColorLeft = scenery.saccades.fillColor;
    QCOMPARE(toText(both.mid(0, 22)), toText(pictureOf(scenery.context()).drawing));
    scenery.eyeMode = EyeMode::showRight;
    scenery.saccades.fillColorRight = scenery.saccades.fillColor;
    const Drawing right = pictureOf(scenery.context()).drawing;
    QCOMPARE(toText(both.mid(22)), toText(right.mid(18))); // on top
    examination.leftEye.scanpath.clear();
    scenery.model.examinations() = {examination};
    scenery.eyeMode = EyeMode::showAll;
    QCOMPARE(toText(pictureOf(scenery.context()).drawing), toText(right)); // with the frame, since there is none below
}

void TestAngleStar::nothingWithoutSaccades()
{
    toy::Scenery scenery = sceneryOf({});
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
    scenery = sceneryOf({examinationWith({10, 10}, {10, 10})}); // no direction
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
    scenery = sceneryOf({examinationWith({10, 10}, {20, 10})});
    QVERIFY(!pictureOf(scenery.context()).drawing.isEmpty());
    scenery.frame = {101, 1000};
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
}

QTEST_GUILESS_MAIN(TestAngleStar)
#include "TestAngleStar.moc"
