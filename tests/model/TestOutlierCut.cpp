// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DataModel.h"
#include "model/OutlierCut.h"

#include <QTest>

class TestOutlierCut : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void keepsWhatLiesInside_data();
    void keepsWhatLiesInside();
    void dropsResultsAndBringsSamplesBack();
    void choicesOfTheUserStay();
    void importedSamplesOutliveAnImportBetween();
    void withoutACutTheImportedFollowAsTheyAre();
    void noExaminationIsNoError();
};

namespace {

DataModel modelWith(double x, double y)
{
    Examination examination;
    examination.leftEye.gazePoints = {GazePoint(0, x, y, 0, 0, 0)};
    DataModel model;
    model.examinations() = {examination};
    model.allExaminations() = model.examinations();
    return model;
}

} // namespace

void TestOutlierCut::keepsWhatLiesInside_data()
{
    QTest::addColumn<QSizeF>("picture");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("kept");
    const QSizeF picture(1000, 500); // margins 10 and 5
    QTest::newRow("on the left margin stays") << picture << 10.0 << 100.0 << true;
    QTest::newRow("left of it goes") << picture << 9.9 << 100.0 << false;
    QTest::newRow("on the right margin goes") << picture << 990.0 << 100.0 << false;
    QTest::newRow("left of that stays") << picture << 989.9 << 100.0 << true;
    QTest::newRow("on the upper margin stays") << picture << 100.0 << 5.0 << true;
    QTest::newRow("above it goes") << picture << 100.0 << 4.9 << false;
    QTest::newRow("on the lower margin goes") << picture << 100.0 << 495.0 << false;
    QTest::newRow("a picture beyond the canvas counts as the canvas") << QSizeF(5000, 5000) << 2534.3 << 1583.9 << true;
    QTest::newRow("and its margin holds") << QSizeF(5000, 5000) << 2534.4 << 100.0 << false;
    QTest::newRow("a picture that cannot be read cuts nothing") << QSizeF(0, 0) << 0.0 << 0.0 << true;
}

void TestOutlierCut::keepsWhatLiesInside()
{
    QFETCH(QSizeF, picture);
    QFETCH(double, x);
    QFETCH(double, y);
    DataModel model = modelWith(x, y);
    cutOutliers(model, picture);
    QTEST(!model.examinations().first().leftEye.gazePoints.isEmpty(), "kept");
}

void TestOutlierCut::dropsResultsAndBringsSamplesBack()
{
    DataModel model = modelWith(1, 1);
    model.examinations().first().leftEye.scanpath = {Fixation({GazePoint(0, 1, 1, 0, 0, 1)}, {}, {1, 1}, 0)};
    cutOutliers(model, {1000, 500});
    QVERIFY(model.examinations().first().leftEye.scanpath.isEmpty());
    QVERIFY(model.examinations().first().leftEye.gazePoints.isEmpty());
    QCOMPARE(model.allExaminations().first().leftEye.gazePoints.size(), 1);
    restoreOutliers(model);
    QCOMPARE(model.examinations().first().leftEye.gazePoints.size(), 1);
}

void TestOutlierCut::choicesOfTheUserStay()
{
    DataModel model = modelWith(1, 1);
    Examination &examination = model.examinations().first();
    examination.checked = false;
    examination.groupName = QStringLiteral("patients");
    examination.groupIndex = 2;
    const auto choices = [&] {
        const Examination &now = model.examinations().first();
        return QStringLiteral("%1 %2 %3").arg(now.checked ? 1 : 0).arg(now.groupName).arg(now.groupIndex);
    };
    cutOutliers(model, {1000, 500});
    QCOMPARE(choices(), QStringLiteral("0 patients 2"));
    model.examinations().first().checked = true;
    restoreOutliers(model);
    QCOMPARE(choices(), QStringLiteral("1 patients 2"));
}

void TestOutlierCut::importedSamplesOutliveAnImportBetween()
{
    DataModel model = modelWith(1, 1);
    model.examinations().first().number = model.allExaminations().first().number = 1;
    cutOutliers(model, {1000, 500});
    Examination second;
    second.number = 2;
    second.leftEye.gazePoints = {GazePoint(0, 2, 2, 0, 0, 1)};
    model.examinations() << second;
    followExaminations(model);
    restoreOutliers(model);
    QCOMPARE(model.examinations().size(), 2);
    QCOMPARE(model.examinations()[0].leftEye.gazePoints.size(), 1);
    QCOMPARE(model.examinations()[1].leftEye.gazePoints.size(), 1);

    cutOutliers(model, {1000, 500});
    model.examinations().removeLast(); // the import is undone
    followExaminations(model);
    restoreOutliers(model);
    QCOMPARE(model.examinations().size(), 1);
    QCOMPARE(model.examinations()[0].leftEye.gazePoints.size(), 1);
}

void TestOutlierCut::withoutACutTheImportedFollowAsTheyAre()
{
    DataModel model = modelWith(1, 1);
    model.examinations().first().leftEye.scanpath = {Fixation({GazePoint(0, 1, 1, 0, 0, 1)}, {}, {1, 1}, 0)};
    followExaminations(model);
    QCOMPARE(model.allExaminations().first().leftEye.scanpath.size(), 1);
}

void TestOutlierCut::noExaminationIsNoError()
{
    DataModel model;
    cutOutliers(model, {1000, 500});
    QVERIFY(model.examinations().isEmpty());
}

QTEST_GUILESS_MAIN(TestOutlierCut)
#include "TestOutlierCut.moc"
