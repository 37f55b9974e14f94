// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/modes/Picture.h"
#include "visualization/shapes/SaccadeShapes.h"

#include <QTest>

class TestSaccadeShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void arrows();
    void bluntAndThick();
    void walk_data();
    void walk();
    void frameDecidesAtWhatIsSteppedOn();
    void sameMeanGivesAnArrowWithoutLength();
    void nothingToLink();
    void opaqueColorsOfEyes_data();
    void opaqueColorsOfEyes();
    void colorsOfTheGroup();
    void recordingsAreNotLinked();
    void modesWithoutShapes_data();
    void modesWithoutShapes();
};

namespace {

constexpr TimeFrame wholeDay{0, 86400000};

/// Fixations at these means, each 80 ms long, the first one from 100 ms and each 100 ms after the one before.
EyeData eyeAt(const QList<QPoint> &means)
{
    EyeData eye;
    qint64 start = 0;
    for (const QPoint mean : means) {
        start += 100;
        eye.scanpath << toy::fixation(mean, {1, 0}, {0, 1}, {toy::sample(start, 0, 0), toy::sample(start + 80, 0, 0)});
    }
    return eye;
}

/// Ends of the arrows as "x of the tail>x of the head", from left to right.
QString linksOf(const Drawing &drawing)
{
    QStringList links;
    for (const Shape &shape : drawing) {
        const auto &arrow = std::get<ArrowShape>(shape);
        links << QString::number(arrow.from.x()) + u'>' + QString::number(arrow.to.x());
    }
    return links.join(u' ');
}

QString colorsOf(const Drawing &drawing)
{
    QStringList names;
    for (const Shape &shape : drawing)
        names << std::get<ArrowShape>(shape).brush.color().name(QColor::HexArgb);
    return names.join(u' ');
}

/// Arrows from x = 1 to 2 for the left, 3 to 4 for the right and 5 to 6 for the mean of both eyes.
Examination threeEyes(const QString &dominantEye = QStringLiteral("right"))
{
    Examination examination;
    examination.dominantEye = dominantEye;
    examination.leftEye = eyeAt({{1, 10}, {2, 10}});
    examination.rightEye = eyeAt({{3, 10}, {4, 10}});
    examination.meanEye = eyeAt({{5, 10}, {6, 10}});
    return examination;
}

toy::Scenery sceneryOf(const QList<Examination> &examinations)
{
    toy::Scenery scenery;
    scenery.model.examinations() = examinations;
    scenery.saccades.visualizationMode = 1;
    return scenery;
}

} // namespace

void TestSaccadeShapes::arrows()
{
    EyeData eye = eyeAt({{640, 400}, {100, 50}, {7, 0}});
    eye.scanpath[2].samples = {toy::sample(3661100, 0, 0), toy::sample(3663250, 0, 0)}; // an hour, a minute, a second
    QCOMPARE(toText(saccadeArrows(eye, wholeDay, QColor(255, 0, 0, 127), toy::parameters())),
             QStringLiteral("arrow 640 400 to 100 50 pointed pen #ff0000 5 brush #ffff0000 "
                            "tip Saccade ID: 1 | Start: 00:00:00.200 | End: 00:00:00.280 | Duration: 00.080 | "
                            "Mean: (100,50)\n"
                            "arrow 100 50 to 7 0 pointed pen #ff0000 5 brush #ffff0000 "
                            "tip Saccade ID: 2 | Start: 01:01:01.100 | End: 01:01:03.250 | Duration: 02.150 | "
                            "Mean: (7,0)\n"));
}

void TestSaccadeShapes::bluntAndThick()
{
    VisualizationParameters parameters = toy::parameters();
    parameters.showArrowTip = false;
    parameters.size = 12;
    parameters.borderWidth = 3; // of other shapes
    const QString text = toText(saccadeArrows(eyeAt({{1, 1}, {2, 2}}), wholeDay, Qt::blue, parameters));
    QVERIFY2(text.startsWith(QStringLiteral("arrow 1 1 to 2 2 blunt pen #0000ff 12 brush #ff0000ff tip ")),
             qPrintable(text));
    parameters.size = -1;
    QCOMPARE(
        std::get<ArrowShape>(saccadeArrows(eyeAt({{1, 1}, {2, 2}}), wholeDay, Qt::blue, parameters)[0]).pen.width(), 0);
}

void TestSaccadeShapes::walk_data()
{
    QTest::addColumn<int>("stepSize");
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<QString>("links");
    const auto row = [](const char *name, int stepSize, qint64 start, qint64 end, const char *links) {
        QTest::newRow(name) << stepSize << start << end << QString::fromLatin1(links);
    };
    // Means at x = 1 to 7, from 100 to 180, 200 to 280, ... and 700 to 780 ms.
    row("each", 1, 0, 1000, "1>2 2>3 3>4 4>5 5>6 6>7");
    row("a step of 0 is one of 1", 0, 0, 1000, "1>2 2>3 3>4 4>5 5>6 6>7");
    row("so is one of 100", 100, 0, 1000, "1>2 2>3 3>4 4>5 5>6 6>7");
    row("and one below 0", -3, 0, 1000, "1>2 2>3 3>4 4>5 5>6 6>7");
    row("every second", 2, 0, 1000, "1>3 3>5 5>7");
    row("every fourth", 4, 0, 1000, "1>5");
    row("99 is the largest step: nothing that far", 99, 0, 1000, "");
    row("from the first one that ends in the frame", 2, 180, 1000, "1>3 3>5 5>7");
    row("not from one that ends before it", 2, 181, 1000, "2>4 4>6");
    row("up to one that begins at its end", 1, 500, 700, "5>6 6>7");
    row("not to one that begins after it", 1, 500, 699, "5>6");
    row("after all", 1, 2000, 3000, "");
}

void TestSaccadeShapes::walk()
{
    QFETCH(int, stepSize);
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    VisualizationParameters parameters = toy::parameters();
    parameters.stepSize = stepSize;
    const EyeData eye = eyeAt({{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 1}, {7, 1}});
    QTEST(linksOf(saccadeArrows(eye, {start, end}, Qt::red, parameters)), "links");
}

void TestSaccadeShapes::frameDecidesAtWhatIsSteppedOn()
{
    // Out of order: the second one begins after the frame. A step of 2 never comes to it.
    EyeData eye = eyeAt({{1, 1}, {2, 1}, {3, 1}});
    eye.scanpath[1].samples = {toy::sample(5000, 0, 0)};
    VisualizationParameters parameters = toy::parameters();
    QCOMPARE(linksOf(saccadeArrows(eye, {0, 1000}, Qt::red, parameters)), QString());
    parameters.stepSize = 2;
    QCOMPARE(linksOf(saccadeArrows(eye, {0, 1000}, Qt::red, parameters)), QStringLiteral("1>3"));
}

void TestSaccadeShapes::sameMeanGivesAnArrowWithoutLength()
{
    const Drawing drawing = saccadeArrows(eyeAt({{5, 6}, {5, 6}}), wholeDay, Qt::red, toy::parameters());
    QCOMPARE(linksOf(drawing), QStringLiteral("5>5"));
}

void TestSaccadeShapes::nothingToLink()
{
    const auto links = [](const QList<QPoint> &means) {
        return linksOf(saccadeArrows(eyeAt(means), wholeDay, Qt::red, toy::parameters()));
    };
    QCOMPARE(links({}), QString());
    QCOMPARE(links({{5, 6}}), QString());
    // Passed over, so that its neighbours are linked.
    QCOMPARE(links({{5, 6}, {-1, 6}, {7, -1}, {8, 6}}), QStringLiteral("5>8"));
    // (0,0) ends an arrow and begins none; (0,3) does.
    QCOMPARE(links({{5, 6}, {0, 0}, {8, 6}, {9, 6}}), QStringLiteral("5>0 8>9"));
    QCOMPARE(links({{0, 0}, {8, 6}}), QString());
    QCOMPARE(links({{0, 3}, {8, 6}}), QStringLiteral("0>8"));
}

void TestSaccadeShapes::opaqueColorsOfEyes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("links");
    QTest::addColumn<QString>("colors");
    const auto row = [](const char *name, EyeMode mode, const char *links, const char *colors) {
        QTest::newRow(name) << static_cast<int>(mode) << QString::fromLatin1(links) << QString::fromLatin1(colors);
    };
    row("left eyes of all, then right ones", EyeMode::showAll, "1>2 1>2 3>4 3>4",
        "#ff00ff00 #ff00ff00 #ff0000ff #ff0000ff");
    row("left", EyeMode::showLeft, "1>2 1>2", "#ff00ff00 #ff00ff00");
    row("right", EyeMode::showRight, "3>4 3>4", "#ff0000ff #ff0000ff");
    row("dominant, right in one and left in the other", EyeMode::showDominant, "3>4 1>2", "#ffff0000 #ffff0000");
    row("mean", EyeMode::showMean, "5>6 5>6", "#ffff0000 #ffff0000");
}

void TestSaccadeShapes::opaqueColorsOfEyes()
{
    QFETCH(int, mode);
    toy::Scenery scenery = sceneryOf({threeEyes(), threeEyes(QStringLiteral("left"))});
    scenery.eyeMode = static_cast<EyeMode>(mode);
    scenery.saccades.fillOpacity = 20;
    const Drawing drawing = pictureOf(scenery.context()).drawing;
    QTEST(linksOf(drawing), "links");
    QTEST(colorsOf(drawing), "colors");
}

void TestSaccadeShapes::colorsOfTheGroup()
{
    Examination grouped = threeEyes();
    grouped.groupName = QStringLiteral("Readers");
    toy::Scenery scenery = sceneryOf({grouped, threeEyes()});
    Group group;
    group.name = QStringLiteral("Readers");
    group.colorsLeft[QStringLiteral("SaccadeVisualization")] = QColor(1, 2, 3);
    scenery.model.setGroups({group});
    scenery.eyeMode = EyeMode::showLeft;
    QCOMPARE(colorsOf(pictureOf(scenery.context()).drawing), QStringLiteral("#ff010203 #ff00ff00"));
    scenery.eyeMode = EyeMode::showRight; // a colour that the group lacks is black
    QCOMPARE(colorsOf(pictureOf(scenery.context()).drawing), QStringLiteral("#ff000000 #ff0000ff"));
}

void TestSaccadeShapes::recordingsAreNotLinked()
{
    Examination single;
    single.leftEye = eyeAt({{1, 10}});
    single.rightEye = eyeAt({{2, 10}});
    toy::Scenery scenery = sceneryOf({single, single});
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
    scenery.model.examinations()[0].checked = false;
    scenery.model.examinations()[1] = threeEyes();
    QCOMPARE(linksOf(pictureOf(scenery.context()).drawing), QStringLiteral("1>2 3>4"));
    scenery.model.examinations()[1].checked = false;
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
}

void TestSaccadeShapes::modesWithoutShapes_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("below the modes") << -1;
    QTest::newRow("beyond the modes") << 99;
}

void TestSaccadeShapes::modesWithoutShapes()
{
    QFETCH(int, mode);
    toy::Scenery scenery = sceneryOf({threeEyes()});
    scenery.saccades.visualizationMode = mode;
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
}

QTEST_GUILESS_MAIN(TestSaccadeShapes)
#include "TestSaccadeShapes.moc"
