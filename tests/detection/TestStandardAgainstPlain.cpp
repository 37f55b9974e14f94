// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DamagedGaze.h"
#include "detection/PlainStandardScanpathBuilder.h"
#include "detection/SectionDifference.h"
#include "TestMessages.h"

#include <QLoggingCategory>
#include <QTest>

namespace {

StandardParameters randomParameters(std::mt19937 &random)
{
    constexpr int durations[] = {0, 30, 100, 200, 1000, -5};
    constexpr int radii[] = {0, 1, 5, 10, 50, 300};
    constexpr int outliers[] = {0, 1, 4, 20, 1000, -1};
    return {durations[random() % 6], radii[random() % 6], outliers[random() % 6]};
}

} // namespace

class TestStandardAgainstPlain : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sameSections_data();
    void sameSections();
    void sameSectionsInOneLongFixation_data();
    void sameSectionsInOneLongFixation();

private:
    static void compare(const QList<GazePoint> &samples, const StandardParameters &parameters, const QString &where);
};

/// Saccades that last days are described sample by sample on the debug channel, by both forms.
void TestStandardAgainstPlain::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
}

void TestStandardAgainstPlain::compare(const QList<GazePoint> &samples, const StandardParameters &parameters,
                                       const QString &where)
{
    EyeData fast;
    fast.gazePoints = samples;
    EyeData plain = fast;
    const RecordedMessages fastMessages;
    const StandardScanpathBuilder builder(fast, parameters, nullptr);
    const RecordedMessages plainMessages;
    const PlainStandardScanpathBuilder plainBuilder(plain, parameters);
    const QString place = QStringLiteral("%1, duration %2, radius %3, outliers %4: ")
                              .arg(where)
                              .arg(parameters.minimumDurationMs)
                              .arg(parameters.maximumRadiusPx)
                              .arg(parameters.allowedOutliers);
    const auto verify = [&place](const QString &difference) {
        QVERIFY2(difference.isEmpty(), qPrintable(place + difference));
    };
    verify(differenceOf(fast.scanpath, plain.scanpath));
    verify(differenceOf(fast.saccades, plain.saccades));
    verify(differenceOf(fast.invalids, plain.invalids));
    verify(fast.eventRows == plain.eventRows ? QString() : QStringLiteral("event rows"));
    verify(builder.report() == plainBuilder.report() ? QString() : builder.report() + plainBuilder.report());
    verify(fast.calculationInfo == plain.calculationInfo ? QString() : fast.calculationInfo);
    // Where messages differ, so does what the user sees of a broken clock.
    verify(fastMessages.texts() == plainMessages.texts() ? QString() : QStringLiteral("messages"));
}

void TestStandardAgainstPlain::sameSections_data()
{
    QTest::addColumn<int>("damage");
    for (int damage = 0; damage < static_cast<int>(std::size(damages)); ++damage)
        QTest::newRow(damages[damage].name) << damage;
}

void TestStandardAgainstPlain::sameSections()
{
    QFETCH(int, damage);
    for (unsigned seed = 0; seed < 12; ++seed) {
        std::mt19937 random(seed);
        constexpr double rates[] = {60, 250, 500, 1000};
        constexpr double noises[] = {0, 0.5, 3, 12};
        QList<GazePoint> samples = generatedGaze({.count = 500,
                                                  .rateHz = rates[random() % 4],
                                                  .noisePx = noises[random() % 4],
                                                  .lossShare = 0.005,
                                                  .spikeShare = 0.01,
                                                  .seed = seed});
        damages[damage].apply(samples, random);
        compare(samples, randomParameters(random), QStringLiteral("seed %1").arg(seed));
        if (QTest::currentTestFailed())
            return;
        compare(samples, {50, 30, 4}, QStringLiteral("seed %1").arg(seed));
        if (QTest::currentTestFailed())
            return;
    }
}

void TestStandardAgainstPlain::sameSectionsInOneLongFixation_data()
{
    QTest::addColumn<double>("noise");
    QTest::addColumn<double>("drift");
    QTest::newRow("calm") << 1.0 << 0.0;
    QTest::newRow("wide") << 10.0 << 0.0;
    QTest::newRow("so wide that it breaks now and then") << 14.0 << 0.0;
    QTest::newRow("drifting out") << 3.0 << 120.0;
}

void TestStandardAgainstPlain::sameSectionsInOneLongFixation()
{
    QFETCH(double, noise);
    QFETCH(double, drift);
    constexpr int count = 4000;
    std::mt19937 random(3);
    std::normal_distribution<double> normal;
    QList<GazePoint> samples;
    for (int i = 0; i < count; ++i) {
        const double spike = i % 900 == 100 ? 500 : 0;
        samples << GazePoint(i, 1000 + noise * normal(random) + drift * i / count + spike, 700 + noise * normal(random),
                             0, 0, 1);
    }
    compare(samples, {100, 50, 8}, QStringLiteral("long fixation"));
}

QTEST_GUILESS_MAIN(TestStandardAgainstPlain)
#include "TestStandardAgainstPlain.moc"
