#include "detection/GeneratedGaze.h"
#include "detection/PlainStandardScanpathBuilder.h"
#include "TestMessages.h"

#include <QLoggingCategory>
#include <QTest>

#include <limits>

namespace {

/// Damages that recordings come with, applied to generated gaze.
struct Damage {
    const char *name;
    void (*apply)(QList<GazePoint> &samples, std::mt19937 &random);
};

void forSome(QList<GazePoint> &samples, std::mt19937 &random, unsigned oneIn, auto change)
{
    for (GazePoint &sample : samples) {
        if (random() % oneIn == 0)
            change(sample);
    }
}

constexpr Damage damages[] = {
    {"as recorded", [](QList<GazePoint> &, std::mt19937 &) {}},
    {"whole pixels",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) {
             s.x = std::round(s.x);
             s.y = std::round(s.y);
         });
     }},
    {"one position", [](QList<GazePoint> &samples,
                        std::mt19937 &random) { forSome(samples, random, 1, [](GazePoint &s) { s.x = s.y = 400; }); }},
    {"two positions in turn",
     [](QList<GazePoint> &samples, std::mt19937 &) {
         for (qsizetype i = 0; i < samples.size(); ++i)
             samples[i].x = i % 2 == 0 ? 100 : 140;
     }},
    {"equal times",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.time = s.time / 40 * 40; });
     }},
    {"one time", [](QList<GazePoint> &samples,
                    std::mt19937 &random) { forSome(samples, random, 1, [](GazePoint &s) { s.time = 7; }); }},
    {"times backwards",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.time = -s.time; });
     }},
    {"times shuffled",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 5, [&random](GazePoint &s) { s.time += static_cast<qint64>(random() % 200) - 100; });
     }},
    {"days between samples",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         qint64 offset = 0;
         forSome(samples, random, 1, [&](GazePoint &s) {
             offset += random() % 300 == 0 ? 1500000000 : 0;
             s.time += offset;
         });
     }},
    {"many short losses",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 6, [](GazePoint &s) { s.validFlag = false; });
     }},
    {"hardly a valid sample",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [&random](GazePoint &s) { s.validFlag = random() % 40 == 0; });
     }},
    {"spikes", [](QList<GazePoint> &samples,
                  std::mt19937 &random) { forSome(samples, random, 9, [](GazePoint &s) { s.x += 300; }); }},
    {"not numbers",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 30, [](GazePoint &s) { s.x = std::numeric_limits<double>::quiet_NaN(); });
         forSome(samples, random, 30, [](GazePoint &s) { s.y = std::numeric_limits<double>::infinity(); });
     }},
    {"only not numbers",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.x = std::numeric_limits<double>::quiet_NaN(); });
     }},
    {"huge coordinates",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 20, [](GazePoint &s) { s.x *= 1e300; });
         forSome(samples, random, 20, [](GazePoint &s) { s.y = -1e308; });
     }},
    {"far from the origin",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.x += 1e15; });
     }},
};

StandardParameters randomParameters(std::mt19937 &random)
{
    constexpr int durations[] = {0, 30, 100, 200, 1000, -5};
    constexpr int radii[] = {0, 1, 5, 10, 50, 300};
    constexpr int outliers[] = {0, 1, 4, 20, 1000, -1};
    return {durations[random() % 6], radii[random() % 6], outliers[random() % 6]};
}

QString differenceOf(const ScanpathSection &a, const ScanpathSection &b)
{
    const auto sameSample = [](const GazePoint &p, const GazePoint &q) {
        const auto same = [](double v, double w) { return v == w || (std::isnan(v) && std::isnan(w)); };
        return p.time == q.time && same(p.x, q.x) && same(p.y, q.y) && p.validFlag == q.validFlag;
    };
    if (!std::equal(a.samples.cbegin(), a.samples.cend(), b.samples.cbegin(), b.samples.cend(), sameSample))
        return QStringLiteral("samples");
    if (a.mean != b.mean)
        return QStringLiteral("mean");
    if (a.number != b.number || a.type != b.type || a.timeSorted != b.timeSorted)
        return QStringLiteral("number or type");
    return a.median == b.median && a.variance == b.variance ? QString() : QStringLiteral("median or variance");
}

template <class Section>
QString differenceOf(const QList<Section> &a, const QList<Section> &b)
{
    if (a.size() != b.size())
        return QStringLiteral("%1 sections, %2 in the plain form").arg(a.size()).arg(b.size());
    for (qsizetype i = 0; i < a.size(); ++i) {
        const QString difference = differenceOf(a[i], b[i]);
        if (!difference.isEmpty())
            return QStringLiteral("section %1: %2").arg(i).arg(difference);
    }
    return {};
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
