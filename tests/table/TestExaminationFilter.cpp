// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/ExaminationFilter.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Two samples, so many milliseconds apart.
Examination examination(const QHash<QString, QString> &properties, qint64 durationMs = 0)
{
    Examination examination;
    examination.properties.insert(properties);
    examination.leftEye.gazePoints = {GazePoint(0, 1, 1, 1, 1, 1), GazePoint(durationMs, 2, 2, 1, 1, 1)};
    return examination;
}

QList<bool> checks(const QList<Examination> &examinations)
{
    QList<bool> states;
    for (const Examination &examination : examinations)
        states << examination.checked;
    return states;
}

} // namespace

class TestExaminationFilter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void duration_data();
    void duration();
    void property_data();
    void property();
    void everyEntryCounts();
    void whatTheUserUncheckedStaysUnchecked();
    void aFilterNeverChecks();
    void noExaminations();
    void samplesStayShared();
    void anEmptyFilterLeavesTheListShared();
};

void TestExaminationFilter::duration_data()
{
    QTest::addColumn<QString>("limit");
    QTest::addColumn<qint64>("durationMs");
    QTest::addColumn<bool>("stays");
    QTest::newRow("longer than the lower limit") << u">1000"_s << qint64(1001) << true;
    QTest::newRow("equal to the lower limit") << u">1000"_s << qint64(1000) << false;
    QTest::newRow("shorter than the lower limit") << u">1000"_s << qint64(999) << false;
    QTest::newRow("shorter than the upper limit") << u"<1000"_s << qint64(999) << true;
    QTest::newRow("equal to the upper limit") << u"<1000"_s << qint64(1000) << false;
    QTest::newRow("longer than the upper limit") << u"<1000"_s << qint64(1001) << false;
    QTest::newRow("only '>'") << u">"_s << qint64(0) << true;
    QTest::newRow("only '<'") << u"<"_s << qint64(5) << true;
    QTest::newRow("empty") << QString() << qint64(5) << true;
    QTest::newRow("a number alone is ignored") << u"1000"_s << qint64(5) << true;
    QTest::newRow("'>' and no number keeps what lasts") << u">abc"_s << qint64(1) << true;
    QTest::newRow("'>' and no number drops what lasts 0") << u">abc"_s << qint64(0) << false;
    QTest::newRow("'<' and no number drops all") << u"<abc"_s << qint64(0) << false;
    QTest::newRow("'<' and infinity is no number") << u"<inf"_s << qint64(5) << false;
    QTest::newRow("'>' and nan is no number") << u">nan"_s << qint64(0) << false;
    QTest::newRow("blanks around the number") << u"> 1000 "_s << qint64(1001) << true;
    QTest::newRow("a fraction") << u">999.5"_s << qint64(1000) << true;
    QTest::newRow("a second sign makes no number") << u">>1000"_s << qint64(500) << true;
    QTest::newRow("a blank first is no sign") << u" >1000"_s << qint64(5) << true;
}

void TestExaminationFilter::duration()
{
    QFETCH(QString, limit);
    QFETCH(qint64, durationMs);
    QList<Examination> examinations{examination({}, durationMs)};
    applyFilter(examinations, {{u"duration_filter_flag"_s, limit}});
    QTEST(examinations.constFirst().checked, "stays");
}

void TestExaminationFilter::property_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("stays");
    QTest::newRow("the same value") << u"subjectID"_s << u"Ann"_s << true;
    QTest::newRow("another value") << u"subjectID"_s << u"Bob"_s << false;
    QTest::newRow("only in capitals the same") << u"subjectID"_s << u"ann"_s << false;
    QTest::newRow("a part of the value") << u"subjectID"_s << u"An"_s << false;
    QTest::newRow("a blank more") << u"subjectID"_s << u"Ann "_s << false;
    QTest::newRow("a property it does not have") << u"age"_s << u"34"_s << false;
    QTest::newRow("a property it does not have, empty") << u"age"_s << QString() << false;
    QTest::newRow("an empty value that is asked for") << u"sex"_s << QString() << true;
    QTest::newRow("group of the recording") << u"group"_s << u"None"_s << true;
}

void TestExaminationFilter::property()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QList<Examination> examinations{examination({{u"subjectID"_s, u"Ann"_s}, {u"sex"_s, QString()}})};
    applyFilter(examinations, {{key, value}});
    QTEST(examinations.constFirst().checked, "stays");
}

void TestExaminationFilter::everyEntryCounts()
{
    QList<Examination> examinations{examination({{u"a"_s, u"1"_s}, {u"b"_s, u"1"_s}}, 2000),
                                    examination({{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}}, 2000),
                                    examination({{u"a"_s, u"1"_s}, {u"b"_s, u"1"_s}}, 500),
                                    examination({{u"a"_s, u"2"_s}, {u"b"_s, u"1"_s}}, 2000)};
    applyFilter(examinations, {{u"a"_s, u"1"_s}, {u"b"_s, u"1"_s}, {u"duration_filter_flag"_s, u">1000"_s}});
    QCOMPARE(checks(examinations), QList<bool>({true, false, false, false}));
}

void TestExaminationFilter::whatTheUserUncheckedStaysUnchecked()
{
    QList<Examination> examinations{examination({{u"a"_s, u"1"_s}}), examination({{u"a"_s, u"1"_s}})};
    examinations[0].checked = false;
    applyFilter(examinations, {{u"a"_s, u"1"_s}});
    QCOMPARE(checks(examinations), QList<bool>({false, true}));
}

void TestExaminationFilter::aFilterNeverChecks()
{
    QList<Examination> examinations{examination({{u"a"_s, u"1"_s}}), examination({{u"a"_s, u"2"_s}})};
    applyFilter(examinations, {{u"a"_s, u"3"_s}});
    applyFilter(examinations, {});
    applyFilter(examinations, {{u"a"_s, u"1"_s}});
    QCOMPARE(checks(examinations), QList<bool>({false, false}));
}

void TestExaminationFilter::noExaminations()
{
    QList<Examination> examinations;
    applyFilter(examinations, {{u"a"_s, u"3"_s}});
    QVERIFY(examinations.isEmpty());
}

void TestExaminationFilter::samplesStayShared()
{
    QList<Examination> examinations{examination({{u"a"_s, u"1"_s}}), examination({{u"a"_s, u"2"_s}})};
    const QList<Examination> asImported = examinations;
    applyFilter(examinations, {{u"a"_s, u"1"_s}});
    QCOMPARE(checks(asImported), QList<bool>({true, true}));
    QCOMPARE(checks(examinations), QList<bool>({true, false}));
    for (qsizetype i = 0; i < examinations.size(); ++i)
        QCOMPARE(examinations.at(i).leftEye.gazePoints.constData(), asImported.at(i).leftEye.gazePoints.constData());
}

void TestExaminationFilter::anEmptyFilterLeavesTheListShared()
{
    QList<Examination> examinations{examination({})};
    const QList<Examination> asImported = examinations;
    applyFilter(examinations, {});
    QCOMPARE(std::as_const(examinations).constData(), asImported.constData());
}

QTEST_GUILESS_MAIN(TestExaminationFilter)
#include "TestExaminationFilter.moc"
