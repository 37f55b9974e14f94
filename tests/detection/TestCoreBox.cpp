// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/CoreBox.h"
#include "detection/Median.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <random>

namespace {

constexpr int radiusPx = 10;

/// Samples that outlive the box, and the list that it is given.
class Samples {
public:
    std::size_t append(double x, double y = 0)
    {
        m_owned.push_back(std::make_unique<WorkSample>(WorkSample{nullptr, x, y, false, true}));
        all.push_back(m_owned.back().get());
        return all.size() - 1;
    }
    const WorkSample &back() const { return *all.back(); }

    /// How many from a place on are farther than the radius from their median point.
    std::size_t outliers(std::size_t first) const
    {
        const auto along = [&](double WorkSample::*axis) {
            std::vector<double> values;
            for (std::size_t i = first; i < all.size(); ++i)
                values.push_back(all[i]->*axis);
            std::sort(values.begin(), values.end(), sortsBefore);
            return medianOfSorted(values, values.size());
        };
        const double x = along(&WorkSample::x);
        const double y = along(&WorkSample::y);
        return static_cast<std::size_t>(
            std::count_if(all.begin() + static_cast<std::ptrdiff_t>(first), all.end(), [&](const WorkSample *sample) {
                return !(std::hypot(sample->x - x, sample->y - y) <= radiusPx);
            }));
    }

    std::vector<const WorkSample *> all;

private:
    std::vector<std::unique_ptr<WorkSample>> m_owned;
};

CoreBox boxOf(const Samples &samples, std::size_t first = 0)
{
    CoreBox box{RadiusLimit(radiusPx)};
    box.build(samples.all, first);
    return box;
}

} // namespace

class TestCoreBox : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void newestSamplesAreGatheredFirst();
    void theMiddleIsTheSecondTry();
    void strayIsWhatMakesItTooLarge();
    void takenSamplesAreForgotten();
    void whatIsNoNumberIsAStray();
    void clearedItHoldsNothing();
    void answersAreThoseOfMeasuring();
};

void TestCoreBox::newestSamplesAreGatheredFirst()
{
    Samples samples;
    for (const double x : {0.0, 1.0, 100.0, 101.0, 102.0})
        samples.append(x);
    const CoreBox box = boxOf(samples);
    QVERIFY(box.isBuilt());
    QCOMPARE(box.strayCount(), 2U);
    QCOMPARE(box.bounds().minX, 100.0);
    QCOMPARE(box.bounds().maxX, 102.0);
    QVERIFY(box.holdsMedian(5));
    QVERIFY(!box.holdsMedian(4)); // two strays of four are half
    QCOMPARE(boxOf(samples, 2).strayCount(), 0U);
}

void TestCoreBox::theMiddleIsTheSecondTry()
{
    Samples samples;
    for (const double x : {0.0, 1.0, 2.0, 3.0, 900.0})
        samples.append(x);
    const CoreBox box = boxOf(samples);
    QCOMPARE(box.strayCount(), 1U);
    QCOMPARE(box.bounds().maxX, 3.0);
}

/// The corners of the box may be the radius apart, and no more.
void TestCoreBox::strayIsWhatMakesItTooLarge()
{
    Samples samples;
    samples.append(0, 0);
    CoreBox box = boxOf(samples);
    samples.append(6, 8);
    box.append(samples.back(), 1);
    QCOMPARE(box.bounds().maxX, 6.0);
    QCOMPARE(box.strayCount(), 0U);
    samples.append(6.001, 8);
    box.append(samples.back(), 2);
    QCOMPARE(box.strayCount(), 1U);
    QCOMPARE(box.bounds().maxX, 6.0);
    QCOMPARE(box.changes(), 2U);
}

void TestCoreBox::takenSamplesAreForgotten()
{
    Samples samples;
    for (const double x : {500.0, 0.0, 1.0, 2.0, 600.0, 3.0})
        samples.append(x);
    CoreBox box = boxOf(samples);
    QCOMPARE(box.strayCount(), 2U);
    box.removeFront(0);
    QCOMPARE(box.strayCount(), 1U);
    box.removeBack(5);
    QCOMPARE(box.strayCount(), 1U); // that one lay in the box
    box.removeBack(4);
    QCOMPARE(box.strayCount(), 0U);
    QCOMPARE(box.changes(), 3U);
}

void TestCoreBox::whatIsNoNumberIsAStray()
{
    Samples samples;
    for (const double x : {1.0, std::numeric_limits<double>::quiet_NaN(), 2.0, 1e200, 3.0})
        samples.append(x);
    const CoreBox box = boxOf(samples);
    QCOMPARE(box.strayCount(), 2U);
    QCOMPARE(box.bounds().minX, 1.0);
    QCOMPARE(box.bounds().maxX, 3.0);
}

void TestCoreBox::clearedItHoldsNothing()
{
    Samples samples;
    samples.append(1);
    CoreBox box = boxOf(samples);
    box.clear();
    QVERIFY(!box.isBuilt());
    QCOMPARE(box.strayCount(), 0U);
    QCOMPARE(box.changes(), 0U);
    samples.append(500);
    box.build(samples.all, 1);
    QCOMPARE(box.bounds().minX, 500.0); // not from 1 on
}

void TestCoreBox::answersAreThoseOfMeasuring()
{
    int answered = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        std::mt19937 random(seed);
        Samples samples;
        const int count = 5 + static_cast<int>(random() % 80);
        for (int i = 0; i < count; ++i) {
            const bool isFar = random() % 8 == 0;
            samples.append((isFar ? 30 : 0) + static_cast<int>(random() % 9), static_cast<int>(random() % 9));
        }
        const CoreBox box = boxOf(samples);
        if (!box.holdsMedian(samples.all.size()))
            continue;
        for (std::size_t allowed = 0; allowed < 6; ++allowed) {
            const std::optional<bool> fits = box.hasAtMost(allowed, box.bounds(), samples.all);
            if (!fits)
                continue;
            ++answered;
            QVERIFY2(*fits == (samples.outliers(0) <= allowed), qPrintable(QStringLiteral("seed %1").arg(seed)));
        }
    }
    QVERIFY(answered > 1000);
}

QTEST_GUILESS_MAIN(TestCoreBox)
#include "TestCoreBox.moc"
