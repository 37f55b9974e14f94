// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"

#include <QStringList>
#include <QTest>

namespace {

/// Writes down what a display is told.
class Notes : public Progress::IDisplay {
public:
    explicit Notes(QStringList &notes, std::chrono::milliseconds interval = {}) : m_notes(notes), m_interval(interval)
    {
    }
    void open(const QString &label, int steps) override { m_notes << QStringLiteral("%1 of %2").arg(label).arg(steps); }
    void show(int stepsDone) override { m_notes << QString::number(stepsDone); }
    void close() override { m_notes << QStringLiteral("closed"); }
    std::chrono::milliseconds interval() const override { return m_interval; }

private:
    QStringList &m_notes;
    std::chrono::milliseconds m_interval;
};

const QString outer = QStringLiteral("outer");
const QString inner = QStringLiteral("inner");

} // namespace

class TestProgress : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_before = Progress::install(std::make_unique<Notes>(m_notes)); }
    void cleanup()
    {
        Progress::install(std::move(m_before));
        m_notes.clear();
    }

    void everyStepIsShown();
    void innerTakesThePlaceOfTheOuter();
    void outerComesBackOnlyToShowSomething();
    void shortStepsAreNotAllShown();
    void shortWorkWithinAStepIsNotShown();
    void refreshShowsTheInnermostAsItStands();
    void withoutProgressThereIsNothingToRefresh();

private:
    QStringList m_notes;
    std::unique_ptr<Progress::IDisplay> m_before;
};

void TestProgress::everyStepIsShown()
{
    {
        Progress progress(outer, 2);
        progress.advance();
        progress.advance();
    }
    QCOMPARE(m_notes, QStringLiteral("outer of 2|1|2|closed").split(u'|'));
}

void TestProgress::innerTakesThePlaceOfTheOuter()
{
    {
        Progress first(outer, 3);
        first.advance();
        {
            Progress second(inner, 5);
            second.advance();
        }
        first.advance();
    }
    QCOMPARE(m_notes, QStringLiteral("outer of 3|1|closed|inner of 5|1|closed|outer of 3|2|closed").split(u'|'));
}

void TestProgress::outerComesBackOnlyToShowSomething()
{
    {
        const Progress first(outer, 3);
        const Progress second(inner, 5);
    }
    QCOMPARE(m_notes, QStringLiteral("outer of 3|closed|inner of 5|closed").split(u'|'));
}

void TestProgress::shortStepsAreNotAllShown()
{
    Progress::install(std::make_unique<Notes>(m_notes, Progress::oneMovement));
    constexpr int steps = 100000;
    {
        Progress progress(outer, steps);
        for (int i = 0; i < steps; ++i)
            progress.advance();
    }
    QVERIFY(m_notes.size() < steps / 10);
    QCOMPARE(m_notes.last(), QStringLiteral("closed"));
    QCOMPARE(m_notes[m_notes.size() - 2], QString::number(steps)); // all are counted
}

void TestProgress::shortWorkWithinAStepIsNotShown()
{
    constexpr std::chrono::hours never(1);
    Progress::install(std::make_unique<Notes>(m_notes, never));
    {
        Progress first(outer, 2);
        for (int i = 0; i < 2; ++i) {
            Progress second(inner, 1);
            second.advance();
            Progress::refresh();
            first.advance();
        }
    }
    QCOMPARE(m_notes, QStringLiteral("outer of 2|2|closed").split(u'|'));
}

void TestProgress::refreshShowsTheInnermostAsItStands()
{
    Progress first(outer, 3);
    first.advance();
    {
        Progress second(inner, 5);
        QTRY_VERIFY2(m_notes.endsWith(QStringLiteral("0")) || (Progress::refresh(), false), "never shown again");
    }
    QTRY_VERIFY2(m_notes.endsWith(QStringLiteral("1")) || (Progress::refresh(), false), "never shown again");
    QCOMPARE(m_notes, QStringLiteral("outer of 3|1|closed|inner of 5|0|closed|outer of 3|1").split(u'|'));
}

void TestProgress::withoutProgressThereIsNothingToRefresh()
{
    Progress::refresh();
    QCOMPARE(m_notes, QStringList());
}

QTEST_GUILESS_MAIN(TestProgress)
#include "TestProgress.moc"
