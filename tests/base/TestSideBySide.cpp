// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SideBySide.h"

#include "base/Progress.h"

#include <QStringList>
#include <QTest>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

class TestSideBySide : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void allPiecesAreTakenInOrder_data();
    void allPiecesAreTakenInOrder();
    void oneThreadIsTheCallersOwn();
    void severalThreadsWorkAtATime();
    void progressOfThePiecesIsHidden();
    void errorsComeInTheirPlace();
};

void TestSideBySide::allPiecesAreTakenInOrder_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("threads");
    QTest::newRow("nothing to do") << 0 << 4;
    QTest::newRow("one piece") << 1 << 4;
    QTest::newRow("one thread") << 5 << 1;
    QTest::newRow("more threads than pieces") << 3 << 8;
    QTest::newRow("many pieces") << 1000 << 4;
}

void TestSideBySide::allPiecesAreTakenInOrder()
{
    QFETCH(int, count);
    QFETCH(int, threads);
    std::vector<qsizetype> squares(static_cast<std::size_t>(count));
    QList<qsizetype> taken;
    sideBySide(
        count, threads, [&](qsizetype i) { squares[static_cast<std::size_t>(i)] = i * i; },
        [&](qsizetype i) { taken << squares[static_cast<std::size_t>(i)]; });
    QCOMPARE(taken.size(), count);
    for (qsizetype i = 0; i < count; ++i)
        QCOMPARE(taken[i], i * i);
}

void TestSideBySide::oneThreadIsTheCallersOwn()
{
    const auto caller = std::this_thread::get_id();
    QStringList order;
    sideBySide(
        2, 1,
        [&](qsizetype i) {
            QVERIFY(std::this_thread::get_id() == caller);
            order << QStringLiteral("work %1").arg(i);
        },
        [&](qsizetype i) { order << QStringLiteral("taken %1").arg(i); });
    QCOMPARE(order, QStringLiteral("work 0,taken 0,work 1,taken 1").split(u','));
}

/// Each piece waits for the other: with one thread this would not end.
void TestSideBySide::severalThreadsWorkAtATime()
{
    std::atomic<int> begun = 0;
    int taken = 0;
    sideBySide(
        2, 2,
        [&](qsizetype) {
            ++begun;
            while (begun < 2)
                std::this_thread::yield();
        },
        [&](qsizetype) { ++taken; });
    QCOMPARE(taken, 2);
}

void TestSideBySide::progressOfThePiecesIsHidden()
{
    class Notes : public Progress::IDisplay {
    public:
        explicit Notes(QStringList &notes) : m_notes(notes) {}
        void open(const QString &label, int) override { m_notes << label; }
        void show(int stepsDone) override { m_notes << QString::number(stepsDone); }
        void close() override { m_notes << QStringLiteral("closed"); }

    private:
        QStringList &m_notes;
    };
    QStringList notes;
    auto before = Progress::install(std::make_unique<Notes>(notes));
    {
        Progress whole(QStringLiteral("whole"), 2);
        sideBySide(
            2, 2,
            [](qsizetype) {
                Progress piece(QStringLiteral("piece"), 1);
                piece.advance();
                Progress::refresh();
            },
            [&](qsizetype) { whole.advance(); });
    }
    Progress::install(std::move(before));
    QCOMPARE(notes, QStringLiteral("whole,1,2,closed").split(u','));
}

void TestSideBySide::errorsComeInTheirPlace()
{
    QList<qsizetype> taken;
    const auto failing = [](qsizetype i) {
        if (i == 2)
            throw std::runtime_error("third");
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, sideBySide(1000, 4, failing, [&](qsizetype i) { taken << i; }));
    QCOMPARE(taken, (QList<qsizetype>{0, 1}));
}

QTEST_GUILESS_MAIN(TestSideBySide)
#include "TestSideBySide.moc"
