// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/timeline/ActivityCurves.h"

#include <QTest>

class TestActivityCurves : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void placement_data();
    void placement();
    void distances();
    void eyes_data();
    void eyes();
    void uncheckedDoNotCount();
    void columnsOutside_data();
    void columnsOutside();
    void noColumns_data();
    void noColumns();
};

namespace {

int tenMsPerColumn(qint64 timeMs)
{
    return static_cast<int>(timeMs / 10);
}

/// Samples at these times on a line, 5 px from one to the next.
Fixation fixation(const QList<qint64> &timesMs)
{
    QList<GazePoint> samples;
    for (const qint64 time : timesMs) {
        const auto step = static_cast<double>(samples.size());
        samples << toy::sample(time, 100 + 3 * step, 200 - 4 * step);
    }
    return toy::fixation({}, {}, {}, samples);
}

Examination recording(const QList<Fixation> &left, const QList<Fixation> &right = {})
{
    Examination examination;
    examination.leftEye.scanpath = left;
    examination.rightEye.scanpath = right;
    return examination;
}

DataModel modelOf(const QList<Examination> &examinations)
{
    DataModel model;
    model.examinations() = examinations;
    return model;
}

} // namespace

void TestActivityCurves::placement_data()
{
    QTest::addColumn<QList<QList<qint64>>>("fixations"); // times of their samples
    QTest::addColumn<QList<double>>("samples");          // of columns of 10 ms
    using Times = QList<QList<qint64>>;
    QTest::newRow("no fixation") << Times{} << QList<double>{0, 0, 0};
    QTest::newRow("one sample") << Times{{12}} << QList<double>{0, 1, 0};
    QTest::newRow("all in the column of the middle") << Times{{1, 2, 3, 27}} << QList<double>{0, 4, 0};
    QTest::newRow("half a ms rounds down") << Times{{0, 19}} << QList<double>{2, 0, 0};
    QTest::newRow("the middle on the edge of a column") << Times{{0, 20}} << QList<double>{0, 2, 0};
    QTest::newRow("a column sums up") << Times{{10, 12}, {11, 13, 15}} << QList<double>{0, 5, 0};
    QTest::newRow("two columns") << Times{{1, 3}, {21, 23, 25}} << QList<double>{2, 0, 3};
    QTest::newRow("in any order") << Times{{21, 23, 25}, {1, 3}} << QList<double>{2, 0, 3};
    QTest::newRow("one without samples does not count") << Times{{}, {11}} << QList<double>{0, 1, 0};
}

void TestActivityCurves::placement()
{
    QFETCH(QList<QList<qint64>>, fixations);
    QList<Fixation> scanpath;
    for (const QList<qint64> &times : fixations)
        scanpath << fixation(times);
    const DataModel model = modelOf({recording(scanpath)});
    const ActivityCurves curves = activityCurves(model, EyeMode::showLeft, 3, tenMsPerColumn);
    QTEST(curves.samples, "samples");
    QCOMPARE(curves.distances.size(), 3);
}

void TestActivityCurves::distances()
{
    // 10 px in two steps and 15 px in three, one after the other in column 1; a single sample in column 2 has no way.
    const DataModel model = modelOf({recording({fixation({10, 11, 12}), fixation({13, 14, 15, 16}), fixation({25})})});
    const ActivityCurves curves = activityCurves(model, EyeMode::showLeft, 3, tenMsPerColumn);
    QCOMPARE(curves.distances, (QList<double>{0, 25, 0}));
    QCOMPARE(curves.samples, (QList<double>{0, 7, 1}));
}

void TestActivityCurves::eyes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("dominantEye");
    QTest::addColumn<QList<double>>("samples");
    const auto row = [](const char *name, EyeMode mode, const char *dominant, const QList<double> &samples) {
        QTest::newRow(name) << static_cast<int>(mode) << QString::fromLatin1(dominant) << samples;
    };
    row("both", EyeMode::showAll, "left", {1, 2, 0});
    row("left", EyeMode::showLeft, "right", {1, 0, 0});
    row("right", EyeMode::showRight, "left", {0, 2, 0});
    row("dominant left", EyeMode::showDominant, "left", {1, 0, 0});
    row("dominant right", EyeMode::showDominant, "right", {0, 2, 0});
    row("mean", EyeMode::showMean, "left", {0, 0, 3});
}

void TestActivityCurves::eyes()
{
    QFETCH(int, mode);
    QFETCH(QString, dominantEye);
    Examination examination = recording({fixation({5})}, {fixation({15, 15})});
    examination.meanEye.scanpath = {fixation({25, 25, 25})};
    examination.dominantEye = dominantEye;
    const ActivityCurves curves = activityCurves(modelOf({examination}), static_cast<EyeMode>(mode), 3, tenMsPerColumn);
    QTEST(curves.samples, "samples");
}

void TestActivityCurves::uncheckedDoNotCount()
{
    Examination unchecked = recording({fixation({5, 5})});
    unchecked.checked = false;
    const DataModel model = modelOf({recording({fixation({5})}), unchecked, recording({fixation({5, 5, 5})})});
    const ActivityCurves curves = activityCurves(model, EyeMode::showLeft, 1, tenMsPerColumn);
    QCOMPARE(curves.samples, QList<double>{4});
    QCOMPARE(curves.distances, QList<double>{10});
}

void TestActivityCurves::columnsOutside_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QList<double>>("samples");
    QTest::newRow("before the first") << -1 << QList<double>{0, 0};
    QTest::newRow("the first") << 0 << QList<double>{1, 0};
    QTest::newRow("the last") << 1 << QList<double>{0, 1};
    QTest::newRow("behind the last") << 2 << QList<double>{0, 0};
}

void TestActivityCurves::columnsOutside()
{
    QFETCH(int, column);
    const DataModel model = modelOf({recording({fixation({5})})});
    const ActivityCurves curves = activityCurves(model, EyeMode::showLeft, 2, [&](qint64) { return column; });
    QTEST(curves.samples, "samples");
}

void TestActivityCurves::noColumns_data()
{
    QTest::addColumn<int>("columns");
    QTest::newRow("none") << 0;
    QTest::newRow("below none") << -1;
}

void TestActivityCurves::noColumns()
{
    QFETCH(int, columns);
    const DataModel model = modelOf({recording({fixation({5})})});
    QCOMPARE(activityCurves(model, EyeMode::showLeft, columns, tenMsPerColumn), ActivityCurves());
}

QTEST_GUILESS_MAIN(TestActivityCurves)
#include "TestActivityCurves.moc"
