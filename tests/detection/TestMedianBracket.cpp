// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/Median.h"
#include "detection/MedianBracket.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <random>

namespace {

/// A window of samples with the places that the bracket is told.
class Window {
public:
    void append(double x, double y)
    {
        m_owned.push_back(std::make_unique<WorkSample>(WorkSample{nullptr, x, y, false, true}));
        m_samples.push_back(m_owned.back().get());
    }
    void takeBack(MedianBracket &bracket)
    {
        const WorkSample &taken = *m_samples.back();
        m_samples.pop_back();
        bracket.removeBack(taken, m_samples.size());
    }
    void clear(MedianBracket &bracket)
    {
        m_samples.clear();
        bracket.clear();
    }

    std::optional<Bounds> bounds(MedianBracket &bracket, std::size_t first = 0) const
    {
        return bracket.bounds(m_samples, first);
    }
    /// The median point by sorting both axes.
    QPointF median(std::size_t first = 0) const
    {
        const auto along = [&](double WorkSample::*axis) {
            std::vector<double> values;
            for (std::size_t i = first; i < m_samples.size(); ++i)
                values.push_back(m_samples[i]->*axis);
            std::sort(values.begin(), values.end(), sortsBefore);
            return medianOfSorted(values, values.size());
        };
        return {along(&WorkSample::x), along(&WorkSample::y)};
    }
    bool isBracketed(MedianBracket &bracket, std::size_t first = 0) const
    {
        const std::optional<Bounds> found = bounds(bracket, first);
        const QPointF center = median(first);
        return found && found->contains(center.x(), center.y());
    }

private:
    std::vector<std::unique_ptr<WorkSample>> m_owned;
    std::vector<const WorkSample *> m_samples;
};

} // namespace

class TestMedianBracket : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fewSamplesHaveNone();
    void holdsTheMedianOfARow();
    void followsWhatIsTakenAtBothEnds();
    void forgetsWhenCleared();
    void whatIsNoNumberLiesAbove();
    void hugePlacesHaveNone();
    void neverLeavesTheMedianOut();
};

void TestMedianBracket::fewSamplesHaveNone()
{
    Window window;
    MedianBracket bracket;
    for (int i = 0; i < 8; ++i)
        window.append(i, i);
    QVERIFY(!window.bounds(bracket));
    window.append(8, 8);
    QVERIFY(window.isBracketed(bracket));
}

void TestMedianBracket::holdsTheMedianOfARow()
{
    Window window;
    MedianBracket bracket;
    for (int i = 0; i < 100; ++i)
        window.append(i, 1000 - i);
    // Of the nine probes 0, 12, 24, ... 99 the third and the seventh are 24 and 74.
    const std::optional<Bounds> found = window.bounds(bracket);
    QVERIFY(found);
    QCOMPARE(found->minX, 24.0);
    QCOMPARE(found->maxX, 74.0);
    QCOMPARE(found->minY, 926.0);
    QCOMPARE(found->maxY, 976.0);
}

void TestMedianBracket::followsWhatIsTakenAtBothEnds()
{
    Window window;
    MedianBracket bracket;
    for (int i = 0; i < 40; ++i)
        window.append(i, i);
    QVERIFY(window.isBracketed(bracket));
    for (int i = 0; i < 5; ++i)
        window.takeBack(bracket);
    QVERIFY(window.isBracketed(bracket));
    QVERIFY(window.isBracketed(bracket, 5));
    window.append(20, 20);
    QVERIFY(window.isBracketed(bracket, 5));
}

/// The counts of a former window must not prove anything about the next one, which begins at the same place.
void TestMedianBracket::forgetsWhenCleared()
{
    Window window;
    MedianBracket bracket;
    for (int i = 0; i < 20; ++i)
        window.append(i, i);
    QVERIFY(window.isBracketed(bracket));
    window.clear(bracket);
    for (int i = 0; i < 20; ++i)
        window.append(1000 + i, -i);
    QVERIFY(window.isBracketed(bracket));
}

void TestMedianBracket::whatIsNoNumberLiesAbove()
{
    Window window;
    MedianBracket bracket;
    for (int i = 0; i < 20; ++i)
        window.append(i % 4 == 0 ? std::numeric_limits<double>::quiet_NaN() : i, i);
    if (window.bounds(bracket))
        QVERIFY(window.isBracketed(bracket));
    for (int i = 0; i < 30; ++i)
        window.append(std::numeric_limits<double>::quiet_NaN(), i);
    QVERIFY(!window.bounds(bracket)); // the median itself is none
}

void TestMedianBracket::hugePlacesHaveNone()
{
    Window window;
    MedianBracket bracket;
    for (int i = 0; i < 20; ++i)
        window.append(1e200 * (i % 3), i);
    QVERIFY(!window.bounds(bracket));
}

void TestMedianBracket::neverLeavesTheMedianOut()
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        Window window;
        MedianBracket bracket;
        std::size_t first = 0;
        std::size_t count = 0;
        int proved = 0;
        for (int step = 0; step < 300; ++step) {
            const double drift = step / 60 * 40.0;
            window.append(drift + static_cast<int>(random() % 20), drift - static_cast<int>(random() % 20));
            ++count;
            if (random() % 4 == 0 && count - first > 12)
                ++first;
            if (random() % 9 == 0 && count - first > 12) {
                window.takeBack(bracket);
                --count;
            }
            if (const std::optional<Bounds> found = window.bounds(bracket, first)) {
                const QPointF center = window.median(first);
                QVERIFY2(found->contains(center.x(), center.y()), qPrintable(QStringLiteral("seed %1").arg(seed)));
                ++proved;
            }
        }
        QVERIFY2(proved > 100, qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(proved)));
    }
}

QTEST_GUILESS_MAIN(TestMedianBracket)
#include "TestMedianBracket.moc"
