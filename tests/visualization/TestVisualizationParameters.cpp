// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSettings.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QPalette>
#include <QSet>
#include <QTest>

class TestVisualizationParameters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_settings = std::make_unique<TemporarySettings>(); }
    void cleanup() { m_settings.reset(); }
    void valuesAtConstruction_data();
    void valuesAtConstruction();
    void everyKeyOnce();
    void anEmptyStoreReadsAsNothing();
    void whatOneWritesTheNextReads();
    void pathsAndNames();
    void borderColor_data();
    void borderColor();
    void aFillColorTakesItsOwnBorderAlong();
    void theBorderTypeTakesAllBordersAlong();
    void otherKeysLeaveTheBorders();

private:
    std::unique_ptr<TemporarySettings> m_settings;
};

namespace {

using V = VisualizationParameters;

template <class Visit>
void forEachRow(Visit visit)
{
    std::apply([&](const auto &...row) { (visit(row), ...); }, rows::visualization);
}

template <class T>
T valueOtherThan(const T &value, int number)
{
    if constexpr (std::is_same_v<T, QColor>)
        return QColor(number, 0, 255 - number);
    else if constexpr (std::is_same_v<T, bool>)
        return !value;
    else
        return static_cast<T>(number) + value + 1;
}

} // namespace

void TestVisualizationParameters::valuesAtConstruction_data()
{
    QTest::addColumn<QVariant>("expected");
    const std::pair<const char *, QVariant> nonZero[] = {
        {"/FillColor", QStringLiteral("#ff0000")},
        {"/FillColorLeft", QStringLiteral("#00ff00")},
        {"/FillColorRight", QStringLiteral("#0000ff")},
        {"/FillColorName", QStringLiteral("#000000")},
        {"/BorderColor", QStringLiteral("#ff0000")},
        {"/BorderColorLeft", QStringLiteral("#00ff00")},
        {"/BorderColorRight", QStringLiteral("#0000ff")},
        {"/Size", 5},
        {"/ShowArrowTip", true},
        {"/FillOpacity", 50},
        {"/BorderWidth", 1},
        {"/NormalDistributionWidth", 100},
        {"/NormalDistributionSigma", 50},
        {"/BorderType", 1},
        {"/Power", 1.0},
        {"/ShadowTransparency", 10},
        {"/StepSize", 1},
        {"/NumberOfHistogramBins", 25},
        {"/ShowDurationArcs", true},
    };
    for (const auto &[key, value] : nonZero)
        QTest::newRow(key) << value;
    for (const char *key : {"/VisualizationMode", "/HeatmapThreashold", "/HeatmapColormap", "/AngleOffset",
                            "/ACM_trans1", "/ACM_trans2", "/ACM_trans3", "/ACM_trans4"})
        QTest::newRow(key) << QVariant(0);
    for (const char *key : {"/ACM_start_p1", "/ACM_start_p2", "/ACM_start_p3", "/ACM_start_p4"})
        QTest::newRow(key) << QVariant(0.0);
    for (const char *key : {"/DurationDependent", "/ShowGazePoints", "/ShowOriginalSize", "/transonly", "/linesizeabs",
                            "/ShowQuantityArcs", "/QuantityArcsHighlight", "/DurationArcsHighlight", "/ShowLenghtArcs",
                            "/LenghtArcsHighlight", "/ACM_use", "/ACM_acti1", "/ACM_acti2", "/ACM_acti3", "/ACM_acti4"})
        QTest::newRow(key) << QVariant(false);
    for (const char *key : {"/ACM_start_c1", "/ACM_start_c2", "/ACM_start_c3", "/ACM_start_c4"})
        QTest::newRow(key) << QVariant(QStringLiteral("#000000")); // the name of an invalid colour
}

void TestVisualizationParameters::valuesAtConstruction()
{
    V parameters;
    setInitialValues(parameters, rows::visualization);
    const QString key = QString::fromLatin1(QTest::currentDataTag());
    QVariant found;
    forEachRow([&](const auto &row) {
        if (key == row.key)
            found = toStored(valueIn(parameters, row));
    });
    QTEST(found, "expected");
}

void TestVisualizationParameters::everyKeyOnce()
{
    QSet<QString> keys;
    int count = 0;
    forEachRow([&](const auto &row) {
        QVERIFY(row.key.startsWith(u'/'));
        QCOMPARE(row.text.isEmpty(), row.command.isEmpty());
        keys << row.key;
        ++count;
    });
    QCOMPARE(keys.size(), count);
    QCOMPARE(count, 50); // 34 single parameters and 4 of each of the 4 entries of the colour map
}

void TestVisualizationParameters::anEmptyStoreReadsAsNothing()
{
    const V parameters = gazePointParameters();
    QCOMPARE(parameters.size, 0);
    QCOMPARE(parameters.power, 0.0);
    QVERIFY(!parameters.showArrowTip);
    QVERIFY(!parameters.fillColor.isValid());
    QCOMPARE(parameters.clusterPercentage, 90.0); // not stored
}

void TestVisualizationParameters::whatOneWritesTheNextReads()
{
    V written = fixationParameters();
    int number = 0;
    // Border colours are written last, since the fill colours before them change them.
    for (const bool borders : {false, true}) {
        forEachRow([&](const auto &row) {
            if (borders == row.key.startsWith(QLatin1StringView("/BorderColor")))
                setParameter(written, row, valueOtherThan(row.initial, ++number));
        });
    }
    QCOMPARE(SettingsStore().value(QStringLiteral("Visualization/Fixation/Size")).toInt(), written.size);
    QVERIFY(fixationParameters() == written);
    QVERIFY(gazePointParameters().size != written.size);
}

void TestVisualizationParameters::pathsAndNames()
{
    const auto joined = [](const V &parameters) { return parameters.settingsPath + u' ' + parameters.settingsName; };
    QCOMPARE(joined(gazePointParameters()), QStringLiteral("Visualization/Gazepoint GazepointVisualization"));
    QCOMPARE(joined(fixationParameters()), QStringLiteral("Visualization/Fixation FixationVisualization"));
    QCOMPARE(joined(clusterParameters()), QStringLiteral("Visualization/Fixationcluster FixationclusterVisualization"));
    QCOMPARE(joined(saccadeParameters()), QStringLiteral("Visualization/Saccade SaccadeVisualization"));
}

void TestVisualizationParameters::borderColor_data()
{
    QTest::addColumn<int>("borderType");
    QTest::addColumn<QColor>("expected");
    const QPalette palette(QColor(200, 100, 50));
    QTest::newRow("brighter") << 0 << palette.light().color();
    QTest::newRow("same") << 1 << palette.midlight().color();
    QTest::newRow("darker") << 2 << palette.dark().color();
    QTest::newRow("below the types") << -1 << palette.light().color();
    QTest::newRow("beyond the types") << 7 << palette.dark().color();
}

void TestVisualizationParameters::borderColor()
{
    QFETCH(int, borderType);
    QTEST(borderColorFor(QColor(200, 100, 50), borderType), "expected");
    QVERIFY(!borderColorFor({}, borderType).isValid());
}

void TestVisualizationParameters::aFillColorTakesItsOwnBorderAlong()
{
    V parameters = saccadeParameters();
    parameters.borderType = 2;
    parameters.borderColor = Qt::yellow;
    parameters.borderColorRight = Qt::cyan;
    setParameter(parameters, rows::fillColorLeft, QColor(200, 100, 50));
    const QColor dark = QPalette(QColor(200, 100, 50)).dark().color();
    QCOMPARE(parameters.borderColorLeft, dark);
    QCOMPARE(SettingsStore().value(QStringLiteral("Visualization/Saccade/BorderColorLeft")).toString(), dark.name());
    QCOMPARE(parameters.borderColor, QColor(Qt::yellow));
    QCOMPARE(parameters.borderColorRight, QColor(Qt::cyan));
}

void TestVisualizationParameters::theBorderTypeTakesAllBordersAlong()
{
    V parameters = saccadeParameters();
    parameters.fillColor = QColor(200, 0, 0);
    parameters.fillColorLeft = QColor(0, 200, 0);
    parameters.fillColorRight = QColor(0, 0, 200);
    setParameter(parameters, rows::borderType, 0);
    QCOMPARE(parameters.borderColor, QPalette(QColor(200, 0, 0)).light().color());
    QCOMPARE(parameters.borderColorLeft, QPalette(QColor(0, 200, 0)).light().color());
    QCOMPARE(parameters.borderColorRight, QPalette(QColor(0, 0, 200)).light().color());
}

void TestVisualizationParameters::otherKeysLeaveTheBorders()
{
    V parameters = saccadeParameters();
    parameters.borderColor = Qt::yellow;
    setParameter(parameters, rows::borderWidth, 3);
    setParameter(parameters, rows::fillColorName, QColor(Qt::red));
    QCOMPARE(parameters.borderColor, QColor(Qt::yellow));
    QVERIFY(!SettingsStore().contains(QStringLiteral("Visualization/Saccade/BorderColor")));
}

QTEST_GUILESS_MAIN(TestVisualizationParameters)
#include "TestVisualizationParameters.moc"
