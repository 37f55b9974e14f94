// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DamagedGaze.h"
#include "detection/PlainVelocityScanpathBuilder.h"
#include "detection/SectionDifference.h"

#include <QTest>

namespace {

VelocityParameters randomParameters(std::mt19937 &random, VelocityUnit unit)
{
    constexpr int durations[] = {0, 1, 30, 100, 300, -5};
    constexpr double pixelThresholds[] = {0, 1.9, 2, 5, 20, -1};
    constexpr double degreeThresholds[] = {0, 5, 30, 100.5, 5000, -1};
    constexpr double percentThresholds[] = {0, 1, 50, 85.9, 100, 5000};
    constexpr double lengths[] = {0.4, 0.6, 0.01, 3, 0, -1};
    const auto &thresholds = unit == VelocityUnit::PixelPerMs   ? pixelThresholds
                             : unit == VelocityUnit::DegreePerS ? degreeThresholds
                                                                : percentThresholds;
    return {.minimumDurationMs = durations[random() % 6],
            .threshold = thresholds[random() % 6],
            .unit = unit,
            .screenDistanceM = lengths[random() % 6],
            .imageSizeM = lengths[random() % 6],
            .imageWidthPx = random() % 5 == 0 ? 0.0 : 1024.0};
}

} // namespace

class TestVelocityAgainstPlain : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameFixations_data();
    void sameFixations();
    void samePercentile();
};

void TestVelocityAgainstPlain::sameFixations_data()
{
    QTest::addColumn<int>("damage");
    QTest::addColumn<int>("unit");
    constexpr const char *units[] = {"pixels", "degrees", "percentile"};
    for (int damage = 0; damage < static_cast<int>(std::size(damages)); ++damage) {
        for (int unit = 0; unit < 3; ++unit)
            QTest::addRow("%s, %s", damages[damage].name, units[unit]) << damage << unit;
    }
}

void TestVelocityAgainstPlain::sameFixations()
{
    QFETCH(int, damage);
    QFETCH(int, unit);
    qsizetype compared = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        constexpr double rates[] = {60, 250, 500, 1250};
        constexpr double noises[] = {0, 0.5, 3, 12};
        QList<GazePoint> samples = generatedGaze({.count = static_cast<int>(random() % 3 == 0 ? random() % 120 : 600),
                                                  .rateHz = rates[random() % 4],
                                                  .noisePx = noises[random() % 4],
                                                  .lossShare = 0.01,
                                                  .seed = seed});
        damages[damage].apply(samples, random);
        const VelocityParameters parameters = randomParameters(random, VelocityUnit(unit));
        QList<Fixation> fast{Fixation({GazePoint()}, QString(), {1, 1}, 77)};
        QList<Fixation> plain = fast;
        const VelocityScanpathBuilder builder(samples, &fast, parameters);
        const PlainVelocityScanpathBuilder plainBuilder(samples, &plain, parameters);
        const QString difference = differenceOf(fast, plain);
        QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(difference)));
        compared += plain.size() - 1;
    }
    QVERIFY(damage > 0 || compared > 100); // some damages leave no fixation to be compared
}

void TestVelocityAgainstPlain::samePercentile()
{
    for (const Damage &damage : damages) {
        std::mt19937 random(3);
        QList<GazePoint> samples = generatedGaze({.count = 1700, .rateHz = 1250, .noisePx = 3});
        damage.apply(samples, random);
        for (int percent = -1; percent <= 101; ++percent) {
            const double fast = percentileSpeed(samples, percent);
            const double plain = PlainVelocityScanpathBuilder::thresholdOf(
                samples, {.threshold = static_cast<double>(percent), .unit = VelocityUnit::Percentile});
            QVERIFY2(fast == plain || (std::isnan(fast) && std::isnan(plain)), damage.name);
        }
    }
}

QTEST_GUILESS_MAIN(TestVelocityAgainstPlain)
#include "TestVelocityAgainstPlain.moc"
