// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "ToyData.h"
#include "visualization/shapes/GazePointRaster.h"

#include <QTest>

#include <limits>
#include <random>

class TestGazePointRaster : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whereASampleIsDrawn_data();
    void whereASampleIsDrawn();
    void whichSamplesAreDrawn();
    void everyStepSizeth_data();
    void everyStepSizeth();
    void colorsOfTheEyes_data();
    void colorsOfTheEyes();
    void squareByHand();
    void aSquareAtTheRightEdgeGoesOnInTheNextRow();
    void aSquareBeyondTheUpperEdgeVanishes();
    void aLaterPointCoversAnEarlierOne();
    void sameAsThePlainForm_data();
    void sameAsThePlainForm();
    void sizeBelowOneIsTen_data();
    void sizeBelowOneIsTen();
    void nothingToDraw_data();
    void nothingToDraw();
};

namespace {

constexpr QRgb transparentWhite = 0x00ffffff;

/// The text form of the outline: every step by itself, every pixel tested.
QImage plainImage(const std::vector<GazePointRecord> &records, qint64 n)
{
    QImage image(canvas::width, canvas::height, QImage::Format_ARGB32);
    image.fill(transparentWhite);
    auto *pixels = reinterpret_cast<QRgb *>(image.bits());
    for (const GazePointRecord &record : records) {
        const auto index = [&](qint64 dx, qint64 dy) { return (record.y + dy) * canvas::width + record.x + dx; };
        for (qint64 j = -n; j < n; ++j) {
            const qint64 step[] = {index(n, j), index(-n, j), index(n - 1, j), index(-n + 1, j),
                                   index(j, n), index(j, -n), index(j, n - 1), index(j, -n + 1)};
            const bool inside =
                std::all_of(std::begin(step), std::end(step), [](qint64 i) { return i > 0 && i < canvas::pixels; });
            if (inside) {
                for (const qint64 i : step)
                    pixels[i] = record.color;
            }
        }
    }
    return image;
}

std::vector<GazePointRecord> randomRecords(int count, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<GazePointRecord> records;
    for (int i = 0; i < count; ++i) {
        const bool atEdge = i % 3 == 0; // edges are where the rules are
        const int x =
            atEdge ? (i % 2 == 0 ? 1 + below(30) : canvas::width - 1 - below(30)) : 1 + below(canvas::width - 1);
        const int y =
            i % 5 == 0 ? (i % 2 == 0 ? 1 + below(30) : canvas::height - 1 - below(30)) : 1 + below(canvas::height - 1);
        records.push_back({x, y, 0xff000000 | static_cast<QRgb>(random())});
    }
    return records;
}

std::vector<GazePointRecord> recordsOf(const QList<GazePoint> &samples, TimeFrame frame = {0, 1000}, int stepSize = 1)
{
    toy::Scenery scenery;
    Examination examination;
    examination.leftEye.gazePoints = samples;
    scenery.model.examinations() = {examination};
    scenery.frame = frame;
    scenery.gazePoints.stepSize = stepSize;
    return gazePointRecords(scenery.context());
}

int paintedPixels(const QImage &image)
{
    const auto *pixels = reinterpret_cast<const QRgb *>(image.constBits());
    return static_cast<int>(canvas::pixels - std::count(pixels, pixels + canvas::pixels, transparentWhite));
}

} // namespace

void TestGazePointRaster::whereASampleIsDrawn_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("drawn");
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("the first column is not") << 0.999 << 500.0 << false;
    QTest::newRow("the second is") << 1.0 << 500.0 << true;
    QTest::newRow("the last column") << 2559.999 << 500.0 << true;
    QTest::newRow("beyond the last column") << 2560.0 << 500.0 << false;
    QTest::newRow("the first row is not") << 500.0 << 0.999 << false;
    QTest::newRow("the second row is") << 500.0 << 1.0 << true;
    QTest::newRow("the last row") << 500.0 << 1599.999 << true;
    QTest::newRow("beyond the last row") << 500.0 << 1600.0 << false;
    QTest::newRow("negative") << -3.0 << 500.0 << false;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 500.0 << false;
    QTest::newRow("not a number in y") << 500.0 << std::numeric_limits<double>::quiet_NaN() << false;
    QTest::newRow("infinite") << infinity << -infinity << false;
    QTest::newRow("huge") << 1e300 << 500.0 << false;
}

void TestGazePointRaster::whereASampleIsDrawn()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(bool, drawn);
    const auto records = recordsOf({toy::sample(0, x, y)});
    QCOMPARE(records.size(), drawn ? size_t(1) : size_t(0));
    if (drawn)
        QCOMPARE(QPoint(records[0].x, records[0].y), QPoint(int(std::floor(x)), int(std::floor(y))));
}

void TestGazePointRaster::whichSamplesAreDrawn()
{
    toy::Scenery scenery;
    Examination checked;
    checked.leftEye.gazePoints = {toy::sample(99, 10, 10), toy::sample(100, 11, 10), toy::sample(150, 12, 10, 0),
                                  toy::sample(200, 13, 10), toy::sample(201, 14, 10)};
    checked.rightEye.gazePoints = {toy::sample(150, 20, 10)};
    Examination unchecked = checked;
    unchecked.checked = false;
    scenery.model.examinations() = {unchecked, checked};
    scenery.frame = {100, 200};
    const std::vector<GazePointRecord> expected{{11, 10, 0xff00ff00}, {13, 10, 0xff00ff00}, {20, 10, 0xff0000ff}};
    QVERIFY(gazePointRecords(scenery.context()) == expected);
}

void TestGazePointRaster::everyStepSizeth_data()
{
    QTest::addColumn<int>("stepSize");
    QTest::addColumn<QList<int>>("columns");
    QTest::newRow("every one") << 1 << QList<int>{1, 2, 3, 4, 5};
    QTest::newRow("every second") << 2 << QList<int>{1, 3, 5};
    QTest::newRow("the first alone") << 5 << QList<int>{1};
    QTest::newRow("a step beyond all lists") << std::numeric_limits<int>::max() << QList<int>{1};
    QTest::newRow("zero counts as one") << 0 << QList<int>{1, 2, 3, 4, 5};
    QTest::newRow("negative counts as one") << -7 << QList<int>{1, 2, 3, 4, 5};
}

void TestGazePointRaster::everyStepSizeth()
{
    QFETCH(int, stepSize);
    QList<GazePoint> samples;
    for (int i = 1; i <= 5; ++i)
        samples << toy::sample(i, i, 100);
    QList<int> columns;
    for (const GazePointRecord &record : recordsOf(samples, {0, 1000}, stepSize))
        columns << record.x;
    QTEST(columns, "columns");
}

void TestGazePointRaster::colorsOfTheEyes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("expected"); // x and colour
    const auto row = [](const char *name, EyeMode mode, const QStringList &expected) {
        QTest::newRow(name) << static_cast<int>(mode) << expected;
    };
    row("all", EyeMode::showAll, {QStringLiteral("1 ff00ff00"), QStringLiteral("2 ff0000ff")});
    row("dominant", EyeMode::showDominant, {QStringLiteral("1 ffff0000")});
    row("left", EyeMode::showLeft, {QStringLiteral("1 ff00ff00")});
    row("right", EyeMode::showRight, {QStringLiteral("2 ff0000ff")});
    row("mean", EyeMode::showMean, {QStringLiteral("3 ffff0000")});
}

void TestGazePointRaster::colorsOfTheEyes()
{
    QFETCH(int, mode);
    toy::Scenery scenery;
    scenery.eyeMode = static_cast<EyeMode>(mode);
    Examination examination;
    examination.dominantEye = QStringLiteral("left");
    examination.groupName = QStringLiteral("experts");
    examination.leftEye.gazePoints = {toy::sample(0, 1, 1)};
    examination.rightEye.gazePoints = {toy::sample(0, 2, 1)};
    examination.meanEye.gazePoints = {toy::sample(0, 3, 1)};
    scenery.model.examinations() = {examination};
    Group group; // the points of all examinations are one picture: groups do not show
    group.name = QStringLiteral("experts");
    group.colorsLeft[QStringLiteral("GazepointVisualization")] = Qt::yellow;
    scenery.model.setGroups({group});
    QStringList found;
    for (const GazePointRecord &record : gazePointRecords(scenery.context()))
        found << QStringLiteral("%1 %2").arg(record.x).arg(record.color, 8, 16, QChar(u'0'));
    QTEST(found, "expected");
}

void TestGazePointRaster::squareByHand()
{
    // Half size 2 around (100, 100): columns 98, 99, 101, 102 and rows 98, 99, 101, 102, each from offset -2 to 1.
    const QImage image = gazePointImage({{100, 100, 0xffff0000}}, 2);
    const char *expected[] = {
        "#####", // the row reaches x 101, the columns take x 102 along
        "#####", "##.##", "#####",
        "####.", // the columns ended above
    };
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 5; ++x) {
            const bool painted = image.pixel(98 + x, 98 + y) == 0xffff0000;
            QVERIFY2(painted == (expected[y][x] == '#'), qPrintable(QStringLiteral("column %1, row %2").arg(x).arg(y)));
        }
    }
    QCOMPARE(paintedPixels(image), 23);
    QCOMPARE(image.pixel(0, 0), transparentWhite);
}

void TestGazePointRaster::aSquareAtTheRightEdgeGoesOnInTheNextRow()
{
    const QImage image = gazePointImage({{2558, 800, 0xffff0000}}, 5);
    // x + 5 is column 2563, which is column 3 of the next row; j from -5 to 4 gives rows 796 to 805 there.
    QCOMPARE(image.pixel(3, 795), transparentWhite);
    QCOMPARE(image.pixel(3, 796), 0xffff0000);
    QCOMPARE(image.pixel(3, 805), 0xffff0000);
    QCOMPARE(image.pixel(2553, 795), 0xffff0000);
}

void TestGazePointRaster::aSquareBeyondTheUpperEdgeVanishes()
{
    // y - 5 is -1: the index of (x + j, y - 5) is negative in every step.
    QCOMPARE(paintedPixels(gazePointImage({{100, 4, 0xffff0000}}, 5)), 0);
    // One row lower it is x + j, at least 95: all steps are written.
    QVERIFY(paintedPixels(gazePointImage({{100, 5, 0xffff0000}}, 5)) > 0);
    // At (3, 5) the steps -5 to -3 would touch index 0 or less: column -2 of row j, and row 0 at x + j.
    const QImage corner = gazePointImage({{3, 5, 0xffff0000}}, 5);
    QCOMPARE(corner.pixel(0, 0), transparentWhite);
    QCOMPARE(corner.pixel(1, 0), 0xffff0000);
}

void TestGazePointRaster::aLaterPointCoversAnEarlierOne()
{
    const QImage image = gazePointImage({{100, 100, 0xffff0000}, {101, 100, 0xff00ff00}}, 5);
    QCOMPARE(image.pixel(95, 100), 0xffff0000);
    QCOMPARE(image.pixel(96, 100), 0xff00ff00);
    QCOMPARE(image.pixel(106, 100), 0xff00ff00);
}

void TestGazePointRaster::sameAsThePlainForm_data()
{
    QTest::addColumn<int>("halfSize");
    QTest::addColumn<int>("count");
    for (const int halfSize : {1, 2, 3, 5, 10, 31})
        QTest::addRow("half size %d", halfSize) << halfSize << 1000;
    QTest::newRow("a third of the canvas") << 260 << 60;
    QTest::newRow("the largest that fits between the upper and the lower edge") << 799 << 60;
    QTest::newRow("one that never fits") << 800 << 60;
    QTest::newRow("far beyond the canvas") << 100000 << 3;
}

void TestGazePointRaster::sameAsThePlainForm()
{
    QFETCH(int, halfSize);
    QFETCH(int, count);
    constexpr unsigned seed = 20140;
    std::vector<GazePointRecord> records = randomRecords(count, seed);
    for (const int y : {798, 799, 800, 801}) // the rows in which a half size of 799 can be drawn
        records.push_back({1280, y, 0xff123456});
    const QImage expected = plainImage(records, halfSize);
    for (int workers = 1; workers <= 5; ++workers) {
        const QImage image = gazePointImage(records, halfSize, workers);
        QVERIFY2(image == expected, qPrintable(QStringLiteral("%1 workers, seed %2").arg(workers).arg(seed)));
    }
}

void TestGazePointRaster::sizeBelowOneIsTen_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("halfSize");
    QTest::newRow("zero") << 0 << 10;
    QTest::newRow("negative") << -4 << 10;
    QTest::newRow("one") << 1 << 1;
}

void TestGazePointRaster::sizeBelowOneIsTen()
{
    QFETCH(int, size);
    QFETCH(int, halfSize);
    toy::Scenery scenery;
    Examination examination;
    examination.rightEye.gazePoints = {toy::sample(0, 300.7, 200.2)};
    scenery.model.examinations() = {examination};
    scenery.gazePoints.size = size;
    const Drawing drawing = gazePointSquares(scenery.context());
    QCOMPARE(drawing.size(), qsizetype(1));
    QVERIFY(std::get<RasterShape>(drawing[0]).image == plainImage({{300, 200, 0xff0000ff}}, halfSize));
}

void TestGazePointRaster::nothingToDraw_data()
{
    QTest::addColumn<QList<qint64>>("times");
    QTest::addColumn<int>("validity");
    QTest::newRow("no samples") << QList<qint64>{} << 1;
    QTest::newRow("no sample in the frame") << QList<qint64>{0, 5, 3000} << 1;
    QTest::newRow("no valid sample") << QList<qint64>{1000, 1005} << 0;
}

void TestGazePointRaster::nothingToDraw()
{
    QFETCH(QList<qint64>, times);
    QFETCH(int, validity);
    toy::Scenery scenery;
    Examination examination;
    for (const qint64 time : times)
        examination.leftEye.gazePoints << toy::sample(time, 100, 100, validity);
    scenery.model.examinations() = {examination};
    scenery.frame = {1000, 2000};
    QVERIFY(gazePointSquares(scenery.context()).isEmpty());
}

QTEST_GUILESS_MAIN(TestGazePointRaster)
#include "TestGazePointRaster.moc"
