// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSettings.h"
#include "visualization/heatmap/GradientImage.h"
#include "visualization/parameters/AdjustableColorMap.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QTest>

#include <limits>

namespace {

using Stop = AdjustableColorMap::Stop;

/// A map of these stops; the others are not active.
AdjustableColorMap mapOf(std::initializer_list<Stop> stops)
{
    AdjustableColorMap map;
    std::copy(stops.begin(), stops.end(), map.stops.begin());
    return map;
}

/// Four stops of which no two have a value in common.
AdjustableColorMap fullMap()
{
    return mapOf({{true, 0, 0.125, QColor(1, 2, 3)},
                  {false, 255, 0.25, QColor(4, 5, 6)},
                  {true, 17, 0.5, QColor(7, 8, 9)},
                  {true, 128, 1.0, QColor(250, 251, 252)}});
}

QImage preview(const AdjustableColorMap &map, QSize size)
{
    return gradientImage(gradientStops(map), size);
}

} // namespace

class TestAdjustableColorMap : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_settings = std::make_unique<TemporarySettings>(); }
    void cleanup() { m_settings.reset(); }
    void writesRecordAndStore_data();
    void writesRecordAndStore();
    void writesNothingElse();
    void onlyActiveStopsAreInTheGradient();
    void startsAreShares_data();
    void startsAreShares();
    void opacityIsTheAlpha_data();
    void opacityIsTheAlpha();
    void previewWithoutStopsIsEmpty();
    void previewOfNoSizeIsNull();
    void previewRunsFromLeftToRight();
    void previewEndsBeforeItsFirstAndBehindItsLastStop();
    void previewIsTransparentWhereTheMapIs();
    void theLaterOfTwoStopsInOnePlaceIsShown();

private:
    std::unique_ptr<TemporarySettings> m_settings;
};

void TestAdjustableColorMap::writesRecordAndStore_data()
{
    QTest::addColumn<QString>("value");
    const char *values[][2] = {
        {"ACM_acti1", "true"},       {"ACM_acti2", "false"},      {"ACM_acti3", "true"},
        {"ACM_acti4", "true"},       {"ACM_trans1", "0"},         {"ACM_trans2", "255"},
        {"ACM_trans3", "17"},        {"ACM_trans4", "128"},       {"ACM_start_p1", "0.125"},
        {"ACM_start_p2", "0.25"},    {"ACM_start_p3", "0.5"},     {"ACM_start_p4", "1"},
        {"ACM_start_c1", "#010203"}, {"ACM_start_c2", "#040506"}, {"ACM_start_c3", "#070809"},
        {"ACM_start_c4", "#fafbfc"},
    };
    for (const auto &[key, value] : values)
        QTest::newRow(key) << QString::fromLatin1(value);
}

void TestAdjustableColorMap::writesRecordAndStore()
{
    VisualizationParameters record = saccadeParameters();
    setAdjustableColorMap(record, fullMap());
    QVERIFY(record.colorMap == fullMap());
    QVERIFY(saccadeParameters().colorMap == fullMap()); // as another record reads it
    const QString key = QStringLiteral("Visualization/Saccade/") + QString::fromLatin1(QTest::currentDataTag());
    QTEST(SettingsStore().value(key).toString(), "value");
}

void TestAdjustableColorMap::writesNothingElse()
{
    VisualizationParameters record = fixationParameters();
    setAdjustableColorMap(record, fullMap());
    QCOMPARE(SettingsStore().allKeys().size(), 16);
    QVERIFY(record == fixationParameters());
    QVERIFY(!record.acmUse);
}

void TestAdjustableColorMap::onlyActiveStopsAreInTheGradient()
{
    QVERIFY(gradientStops({}).isEmpty());
    const QGradientStops stops = gradientStops(fullMap());
    QCOMPARE(stops.size(), 3);
    QCOMPARE(stops[0], QGradientStop(0.125, QColor(1, 2, 3, 0)));
    QCOMPARE(stops[1], QGradientStop(0.5, QColor(7, 8, 9, 17)));
    QCOMPARE(stops[2], QGradientStop(1.0, QColor(250, 251, 252, 128)));
}

void TestAdjustableColorMap::startsAreShares_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("expected");
    QTest::newRow("a share") << 0.3 << 0.3;
    QTest::newRow("nothing") << 0.0 << 0.0;
    QTest::newRow("all") << 1.0 << 1.0;
    QTest::newRow("below") << -0.01 << 0.0;
    QTest::newRow("above") << 1.01 << 1.0;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 0.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 1.0;
}

void TestAdjustableColorMap::startsAreShares()
{
    QFETCH(double, start);
    const QGradientStops stops = gradientStops(mapOf({{true, 255, start, Qt::red}}));
    QCOMPARE(stops.size(), 1);
    QTEST(stops[0].first, "expected");
}

void TestAdjustableColorMap::opacityIsTheAlpha_data()
{
    QTest::addColumn<int>("transparency");
    QTest::addColumn<int>("alpha");
    QTest::newRow("nothing to be seen") << 0 << 0;
    QTest::newRow("between") << 100 << 100;
    QTest::newRow("opaque") << 255 << 255;
    QTest::newRow("below") << -1 << 0;
    QTest::newRow("above") << 256 << 255;
}

void TestAdjustableColorMap::opacityIsTheAlpha()
{
    QFETCH(int, transparency);
    const QColor translucent(10, 20, 30, 99); // the alpha of the colour itself has no meaning here
    QTEST(gradientStops(mapOf({{true, transparency, 0, translucent}}))[0].second.alpha(), "alpha");
}

void TestAdjustableColorMap::previewWithoutStopsIsEmpty()
{
    const QImage image = preview({}, {20, 3});
    QCOMPARE(image.size(), QSize(20, 3));
    for (const int x : {0, 10, 19})
        QCOMPARE(image.pixel(x, 1), qRgba(255, 255, 255, 0));
}

void TestAdjustableColorMap::previewOfNoSizeIsNull()
{
    QVERIFY(preview(fullMap(), {}).isNull());
    QVERIFY(preview(fullMap(), {0, 20}).isNull());
    QVERIFY(preview(fullMap(), {20, 0}).isNull());
}

void TestAdjustableColorMap::previewRunsFromLeftToRight()
{
    const AdjustableColorMap map = mapOf({{true, 255, 0, Qt::black}, {true, 255, 1, Qt::white}});
    const QImage image = preview(map, {256, 4});
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    for (const int x : {0, 64, 128, 192, 255}) {
        const QColor color = image.pixelColor(x, 0);
        QVERIFY2(std::abs(color.red() - x) <= 1, qPrintable(color.name())); // of a ramp of 256 steps
        QCOMPARE(color.alpha(), 255);
        QCOMPARE(image.pixel(x, 3), image.pixel(x, 0));
    }
}

void TestAdjustableColorMap::previewEndsBeforeItsFirstAndBehindItsLastStop()
{
    const AdjustableColorMap map = mapOf({{true, 255, 0.25, Qt::red}, {true, 255, 0.75, Qt::blue}});
    const QImage image = preview(map, {100, 1});
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(image.pixelColor(20, 0), QColor(Qt::red));
    QCOMPARE(image.pixelColor(80, 0), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(99, 0), QColor(Qt::blue));
    const QColor middle = image.pixelColor(50, 0);
    QVERIFY2(middle.red() > 100 && middle.blue() > 100, qPrintable(middle.name()));
}

void TestAdjustableColorMap::previewIsTransparentWhereTheMapIs()
{
    const QImage image = preview(mapOf({{true, 0, 0, Qt::red}, {true, 255, 1, Qt::red}}), {256, 1});
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    QVERIFY(std::abs(image.pixelColor(128, 0).alpha() - 128) <= 1);
    QVERIFY(image.pixelColor(255, 0).alpha() >= 254);
}

void TestAdjustableColorMap::theLaterOfTwoStopsInOnePlaceIsShown()
{
    const AdjustableColorMap map = mapOf({{true, 255, 0.5, Qt::red}, {true, 255, 0.5, Qt::green}});
    QCOMPARE(preview(map, {10, 1}).pixelColor(5, 0), QColor(Qt::green));
}

QTEST_GUILESS_MAIN(TestAdjustableColorMap)
#include "TestAdjustableColorMap.moc"
