// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Messages.h"

#include "TestMessages.h"

#include <QTest>

#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

QList<messages::Message> many(const QString &title, const QString &text, int count)
{
    return QList<messages::Message>(count, {messages::Severity::Warning, title, text});
}

} // namespace

class TestMessages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void detailsAreFurtherLines();
    void collectorKeepsWhatItsThreadSays();
    void innermostCollectorCounts();
    void otherThreadsAreNotCollected();
    void recordingHasOneMessageForEachCause();
    void equalMessagesOfRecordingsAreOne();
    void manyRecordingsAreCounted();
    void detailsOfRecordingsAreAllNamed();
    void severitiesStayApart();
    void ownMessagesKeepTheirPlace();
    void oneMessageIsToldAsItIs();
};

void TestMessages::detailsAreFurtherLines()
{
    const RecordedMessages shown;
    messages::show({messages::Severity::Warning, u"title"_s, u"text"_s, u"reason"_s});
    QCOMPARE(shown.texts(), QStringList{u"title|text\nreason"_s});
}

void TestMessages::collectorKeepsWhatItsThreadSays()
{
    const RecordedMessages shown;
    {
        messages::Collector collector;
        messages::critical(u"a"_s, u"b"_s);
        QCOMPARE(collector.take(), (QList<messages::Message>{{messages::Severity::Critical, u"a"_s, u"b"_s}}));
        QCOMPARE(collector.take(), QList<messages::Message>());
    }
    QCOMPARE(shown.texts(), QStringList());
    messages::warning(u"c"_s, u"d"_s);
    QCOMPARE(shown.texts(), QStringList{u"c|d"_s});
}

void TestMessages::innermostCollectorCounts()
{
    messages::Collector outer;
    {
        messages::Collector inner;
        messages::warning(u"a"_s, u"b"_s);
        QCOMPARE(inner.take().size(), 1);
    }
    messages::warning(u"c"_s, u"d"_s);
    QCOMPARE(outer.take().size(), 1);
}

void TestMessages::otherThreadsAreNotCollected()
{
    const RecordedMessages shown;
    messages::Collector collector;
    std::jthread([] { messages::warning(u"a"_s, u"b"_s); }).join();
    QCOMPARE(collector.take().size(), 0);
    QCOMPARE(shown.texts(), QStringList{u"a|b"_s});
}

void TestMessages::recordingHasOneMessageForEachCause()
{
    const RecordedMessages shown;
    {
        messages::Run run;
        run.addRecording(u"S01"_s, many(u"lost"_s, u"no sample"_s, 6000) + many(u"short"_s, u"by 1 ms"_s, 1) +
                                       many(u"short"_s, u"by 2 ms"_s, 1));
        QCOMPARE(shown.texts(), QStringList());
    }
    QCOMPARE(shown.texts(), (QStringList{u"lost|no sample\n6000 times in S01"_s, u"short|by 1 ms\n2 times in S01"_s}));
}

void TestMessages::equalMessagesOfRecordingsAreOne()
{
    const RecordedMessages shown;
    {
        messages::Run run;
        run.addRecording(u"S01"_s, many(u"lost"_s, u"no sample"_s, 2));
        run.addRecording(u"S02"_s, many(u"short"_s, u"by 1 ms"_s, 1));
        run.addRecording(u"S03"_s, many(u"lost"_s, u"no sample"_s, 3));
        run.addRecording(u"S04"_s, many(u"short"_s, u"by 2 ms"_s, 1)); // another text: another message
    }
    QCOMPARE(shown.texts(),
             (QStringList{u"lost|no sample\n5 times in S01, S03"_s, u"short|by 1 ms"_s, u"short|by 2 ms"_s}));
}

void TestMessages::manyRecordingsAreCounted()
{
    const RecordedMessages shown;
    {
        messages::Run run;
        for (int i = 1; i <= 12; ++i)
            run.addRecording(u"S%1"_s.arg(i), many(u"lost"_s, u"no sample"_s, 1));
    }
    QCOMPARE(shown.texts(),
             QStringList{u"lost|no sample\n12 times in S1, S2, S3, S4, S5, S6, S7, S8, S9, S10 and 2 more"_s});
}

void TestMessages::detailsOfRecordingsAreAllNamed()
{
    const RecordedMessages shown;
    {
        const messages::Run run;
        for (const QString &file : {u"p01.set"_s, u"p02.set"_s})
            messages::show({messages::Severity::Warning, u"set file"_s, u"No such file"_s, file});
    }
    QCOMPARE(shown.texts(), QStringList{u"set file|No such file\np01.set\np02.set"_s});
}

void TestMessages::severitiesStayApart()
{
    const RecordedMessages shown;
    {
        const messages::Run run;
        messages::warning(u"a"_s, u"b"_s);
        messages::critical(u"a"_s, u"b"_s);
    }
    QCOMPARE(shown.texts(), (QStringList{u"a|b"_s, u"a|b"_s}));
}

void TestMessages::ownMessagesKeepTheirPlace()
{
    const RecordedMessages shown;
    {
        messages::Run run;
        messages::warning(u"first"_s, QString());
        run.addRecording(QString(), many(u"second"_s, QString(), 1));
        messages::warning(u"third"_s, QString());
    }
    QCOMPARE(shown.texts(), (QStringList{u"first|"_s, u"second|"_s, u"third|"_s}));
}

void TestMessages::oneMessageIsToldAsItIs()
{
    const RecordedMessages shown;
    {
        messages::Run run;
        run.addRecording(QString(), many(u"a"_s, u"b"_s, 1));
    }
    QCOMPARE(shown.texts(), QStringList{u"a|b"_s});
}

QTEST_GUILESS_MAIN(TestMessages)
#include "TestMessages.moc"
