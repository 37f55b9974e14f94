// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ChordData.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>

class TestChordData : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sharesOfAllTransitions();
    void uncheckedExaminationsCount();
    void bothEyesCount();
    void outsideIsPassedOverByTheScanpathOnly();
    void frameHoldsBothFixations();
    void withoutTransitionsSharesAreNoNumbers();
    void reasonsForNoDiagram();
};

namespace {

const QPoint inA(50, 50);
const QPoint inB(250, 50);
const QPoint outside(900, 900);

DataModel modelOf(const QList<QPoint> &left, const QList<QPoint> &right = {})
{
    DataModel model;
    Examination examination;
    for (qsizetype i = 0; i < left.size(); ++i)
        examination.leftEye.scanpath << toy::stay(left[i], 100 * i);
    for (qsizetype i = 0; i < right.size(); ++i)
        examination.rightEye.scanpath << toy::stay(right[i], 100 * i);
    model.examinations() = {examination};
    model.insertAoi(AreaOfInterest(QStringLiteral("A"), QPolygon(QRect(0, 0, 100, 100))));
    model.insertAoi(AreaOfInterest(QStringLiteral("B"), QPolygon(QRect(200, 0, 100, 100))));
    return model;
}

constexpr TimeFrame wholeDay{0, 86400000};

QList<QList<double>> sharesOf(const DataModel &model, TransitionType type = TransitionType::Scanpath,
                              TimeFrame frame = wholeDay, EyeMode eyes = EyeMode::showAll)
{
    return chordData(model, eyes, type, frame).shares;
}

} // namespace

void TestChordData::sharesOfAllTransitions()
{
    // A to B, B to B, B to A, A to B
    const QList<QList<double>> expected{{0, 0.5}, {0.25, 0.25}};
    QCOMPARE(sharesOf(modelOf({inA, inB, inB, inA, inB})), expected);
}

void TestChordData::uncheckedExaminationsCount()
{
    DataModel model = modelOf({inA, inB});
    model.examinations()[0].checked = false;
    QCOMPARE(sharesOf(model)[0][1], 1.0);
}

void TestChordData::bothEyesCount()
{
    const DataModel model = modelOf({inA, inB}, {inB, inA});
    QCOMPARE(sharesOf(model), QList<QList<double>>({{0, 0.5}, {0.5, 0}}));
    QCOMPARE(sharesOf(model, TransitionType::Scanpath, wholeDay, EyeMode::showRight),
             QList<QList<double>>({{0, 0}, {1, 0}}));
}

void TestChordData::outsideIsPassedOverByTheScanpathOnly()
{
    const DataModel model = modelOf({inA, outside, inB, inA});
    QCOMPARE(sharesOf(model), QList<QList<double>>({{0, 0.5}, {0.5, 0}}));
    QCOMPARE(sharesOf(model, TransitionType::Saccades), QList<QList<double>>({{0, 0}, {1, 0}}));
}

void TestChordData::frameHoldsBothFixations()
{
    const DataModel model = modelOf({inA, inB, inA}); // 0-80, 100-180, 200-280 ms
    QCOMPARE(sharesOf(model, TransitionType::Scanpath, {0, 200}), QList<QList<double>>({{0, 1}, {0, 0}}));
}

void TestChordData::withoutTransitionsSharesAreNoNumbers()
{
    for (const QList<double> &row : sharesOf(modelOf({inA})))
        QVERIFY(std::all_of(row.cbegin(), row.cend(), [](double share) { return std::isnan(share); }));
}

void TestChordData::reasonsForNoDiagram()
{
    DataModel model;
    QCOMPARE(emptyDiagram(model).value_or(QString()), QStringLiteral("No AOIs available"));
    model.insertAoi(AreaOfInterest(QStringLiteral("A"), {}));
    QCOMPARE(emptyDiagram(model).value_or(QString()), QStringLiteral("No examination selected"));
    model.examinations() = {Examination()};
    model.examinations()[0].meanEye.scanpath = {toy::stay(inA, 0)};
    QCOMPARE(emptyDiagram(model).value_or(QString()), QStringLiteral("No fixations available"));
    model.examinations()[0].rightEye.scanpath = {toy::stay(inA, 0)};
    QVERIFY(!emptyDiagram(model));
}

QTEST_GUILESS_MAIN(TestChordData)
#include "TestChordData.moc"
