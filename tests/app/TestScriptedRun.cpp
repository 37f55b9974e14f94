// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/ExaminationTable.h"
#include "visualization/panel/Timeline.h"
#include "visualization/panel/VisualizationWidget.h"
#include "WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

namespace {

/// A number that the session sets, in the panel and control that it is set in.
struct Change {
    const char *panel;
    const char *control;
    int value;
};

constexpr Change changes[] = {
    {"gazepoint_widget", "sizeSpinBox", 4},           {"gazepoint_widget", "spinBox_stepsize", 3},
    {"fixation_widget", "comboBox_vismode", 1},       {"fixation_widget", "fillOpacitySpinBox", 70},
    {"fixation_widget", "borderWidthSpinBox", 6},     {"fixation_widget", "bordertype_comboBox", 0},
    {"fixation_widget", "checkBox_original_size", 1}, {"fixation_widget", "checkBox_original_size", 0},
    {"fixation_widget", "comboBox_vismode", 2},       {"fixation_widget", "sizeSpinBox", 3},
    {"saccade_widget", "comboBox_vismode", 2},        {"saccade_widget", "binsSpinBox", 12},
    {"saccade_widget", "angleOffsetSpinbox", 15},     {"saccade_widget", "durationCheckBox", 1},
    {"saccade_widget", "lengthCheckBox", 1},          {"saccade_widget", "fillOpacitySpinBox", 100},
    {"saccade_widget", "comboBox_vismode", 1},        {"saccade_widget", "sizeSpinBox", 6},
    {"saccade_widget", "spinBox_stepsize", 2},        {"FixCalc_widget", "s_spinBox_rad", 55},
    {"FixCalc_widget", "s_spinBox_dur", 150},         {"FixCalc_widget", "s_spinBox_out", 1},
};

} // namespace

/// A session of a user, from import to the last parameter, taken back and done again.
class TestScriptedRun : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { closeWindow(); }
    void endsInThePictureOfTheSameStateReachedDirectly();

private:
    void set(const Change &change) const;
    void groupBy(const QString &property) const;
    void dragFrame() const;
    void calculate() const { find<QToolButton>("fixationsPage", "toolButton")->click(); }
    void drawChanges() const { find<QPushButton>("saccade_widget", "start_calc")->click(); }
};

void TestScriptedRun::set(const Change &change) const
{
    auto *control = find<QWidget>(change.panel, change.control);
    if (auto *number = qobject_cast<QSpinBox *>(control))
        number->setValue(change.value);
    else if (auto *choice = qobject_cast<QComboBox *>(control))
        choice->setCurrentIndex(change.value);
    else if (auto *box = qobject_cast<QCheckBox *>(control))
        box->setChecked(change.value != 0);
    else
        QFAIL(change.control);
}

void TestScriptedRun::groupBy(const QString &property) const
{
    auto *box = find<QComboBox>("groupByComboBox");
    QVERIFY(box->findText(property) > 0);
    box->setCurrentText(property);
}

/// Takes the start handle to a quarter of the strip.
void TestScriptedRun::dragFrame() const
{
    auto *timeline = find<Timeline>("timeline_widget");
    const int middle = timeline->height() / 2;
    QTest::mousePress(timeline, Qt::LeftButton, Qt::NoModifier,
                      QPoint(timeline->timeToPixel(timeline->start()) + 3, middle));
    QTest::mouseMove(timeline, QPoint(timeline->width() / 4, middle));
    QTest::mouseRelease(timeline, Qt::LeftButton, Qt::NoModifier, QPoint(timeline->width() / 4, middle));
    QVERIFY(timeline->start() > 0);
}

void TestScriptedRun::endsInThePictureOfTheSameStateReachedDirectly()
{
    openWindow();
    importExamples();
    const QImage imported = picture();
    filterBy(QStringLiteral("dominant"), QStringLiteral("right"));
    groupBy(QStringLiteral("subjectID"));
    find<QComboBox>("comboBox_eyemode")->setCurrentIndex(static_cast<int>(EyeMode::showDominant));
    dragFrame();
    for (const Change &change : changes)
        set(change);
    calculate();
    drawChanges();
    const QImage session = picture();
    QVERIFY(session != imported);

    CommandStack &stack = CommandStack::instance();
    QVERIFY(stack.count() > 20);
    stack.setIndex(0);
    QVERIFY(m_window->model().examinations().isEmpty());
    stack.setIndex(stack.count());
    drawChanges();
    const QImage redone = picture();
    QCOMPARE(m_messages->texts().count(QStringLiteral("IMPORT ERROR!")), 0);
    // The time frame is no command: examinations that a redo imports anew come in full.
    QVERIFY(redone != session);
    dragFrame();
    QCOMPARE(picture(), session);
    const qsizetype commands = stack.count();
    closeWindow();

    openWindow();
    for (const Change &change : changes)
        set(change);
    find<QComboBox>("comboBox_eyemode")->setCurrentIndex(static_cast<int>(EyeMode::showDominant));
    importExamples();
    filterBy(QStringLiteral("dominant"), QStringLiteral("right"));
    groupBy(QStringLiteral("subjectID"));
    calculate();
    drawChanges();
    QCOMPARE(stack.count(), commands);
    QCOMPARE(picture(), redone);
}

QTEST_MAIN(TestScriptedRun)
#include "TestScriptedRun.moc"
