// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/IMainWindow.h"
#include "detection/panel/FixationCommands.h"
#include "detection/panel/FixationControl.h"
#include "model/DataModel.h"
#include "TestLog.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {

const QString durationKey = QStringLiteral("Calculation/Fixation/Standard/MinimumDuration");
const QString typeKey = QStringLiteral("Calculation/Fixation/CalculationType");
const QString notSet = QStringLiteral("Not set\n");
const QString missingWidth =
    QStringLiteral("Velocity based|The picture behind the drawing cannot be read, so that its width is unknown: speeds "
                   "cannot be told in degrees. Please choose another background.");

Examination examination(const QString &earlierText)
{
    Examination made;
    for (int i = 0; i < 40; ++i)
        made.leftEye.gazePoints << GazePoint(10 * i, 100, 100, 0, 0, i >= 3 && i < 8 ? 0 : 1);
    made.rightEye.gazePoints = made.meanEye.gazePoints = made.leftEye.gazePoints;
    made.calculationInfo.fixationCalculationInfo = earlierText;
    return made;
}

template <class Widget>
Widget *child(const QWidget &panel, const char *name)
{
    return panel.findChild<Widget *>(QString::fromLatin1(name));
}

/// A main window of which only the picture matters, and what it was told.
class StimulusWindow : public IMainWindow {
public:
    void addTableRow(const Examination &) override {}
    void removeTableRows(const QList<int> &) override {}
    void refreshPlainBackground() override {}
    void showImported() override {}
    int stimulusWidthPx() const override { return widthPx; }
    void redraw() override {}
    void updateAndRedraw() override {}
    void tell(const Notice &notice) override { notices << notice; }

    int widthPx = 1024;
    QList<Notice> notices;
};

} // namespace

class TestFixationControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void formAtConstruction_data();
    void formAtConstruction();
    void settingsAreShown();
    void emptyStoreIsShownClamped();
    void unknownTypeHasNoCurrentItem_data();
    void unknownTypeHasNoCurrentItem();
    void lostChoicesAreTold_data();
    void lostChoicesAreTold();
    void lostChoicesAreToldOnceThereIsAWindow();
    void changeOfControlIsACommand_data();
    void changeOfControlIsACommand();
    void typeCommandNamesTheType();
    void widthIsStoredByACalculationOnly();
    void mixtureTakesItsParametersFromTheStore();
    void clickCalculates();
    void clickRunsTheChosenDetector_data();
    void clickRunsTheChosenDetector();
    void widthOfTheStimulusAtTheTimeOfTheCalculation();
    void degreesNeedAPicture();
    void redoneDegreesNeedAPicture();
    void undoReturnsOnlyTheTexts();
    void redoCalculatesAgain();
    void valueOfTheClickIsKeptForRedo();
    void withoutModelNothingHappens();
    void withoutCheckedExaminationNothingIsTouched();

private:
    std::unique_ptr<TemporarySettings> m_settings;
    /// Chooses the velocity detector with a threshold of 30 degrees a second.
    void chooseDegrees() const;

    std::unique_ptr<FixationControl> m_panel;
    DataModel m_model;
};

void TestFixationControl::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    SettingsStore store;
    store.setValue(typeKey, QStringLiteral("Standard"));
    store.setValue(durationKey, 100);
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius"), 50);
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/Outlier"), 2);
    m_model = DataModel();
    m_model.examinations() << examination(QStringLiteral("first\n")) << examination(QStringLiteral("second\n"))
                           << examination(notSet);
    m_model.examinations()[2].checked = false;
    m_panel = std::make_unique<FixationControl>();
    m_panel->setModel(&m_model);
    m_panel->sltUpdateSettings();
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestFixationControl::cleanup()
{
    CommandStack::instance().clear(); // its commands hold on to the panel
    m_panel.reset();
    m_settings.reset();
}

void TestFixationControl::formAtConstruction_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("duration") << QStringLiteral("s_spinBox_dur") << 0 << 5000 << 10 << 200 << QStringLiteral(" ms");
    QTest::newRow("radius") << QStringLiteral("s_spinBox_rad") << 10 << 1000 << 1 << 50 << QStringLiteral(" px");
    QTest::newRow("outliers") << QStringLiteral("s_spinBox_out") << 0 << 20 << 1 << 2 << QString();
    QTest::newRow("mixture") << QStringLiteral("minDurationGauss") << 0 << 5000 << 10 << 200 << QString();
    QTest::newRow("velocity") << QStringLiteral("minVelocityDuration") << 0 << 5000 << 10 << 200 << QString();
}

void TestFixationControl::formAtConstruction()
{
    QFETCH(QString, name);
    const FixationControl panel;
    const auto *control = panel.findChild<QSpinBox *>(name);
    QVERIFY(control);
    QTEST(control->minimum(), "minimum");
    QTEST(control->maximum(), "maximum");
    QTEST(control->singleStep(), "step");
    QTEST(control->value(), "value");
    QTEST(control->suffix(), "suffix");
}

void TestFixationControl::settingsAreShown()
{
    QCOMPARE(child<QSpinBox>(*m_panel, "s_spinBox_dur")->value(), 100);
    QCOMPARE(child<QSpinBox>(*m_panel, "s_spinBox_rad")->value(), 50);
    QCOMPARE(child<QSpinBox>(*m_panel, "s_spinBox_out")->value(), 2);
    QCOMPARE(child<QComboBox>(*m_panel, "Fix_comboBox")->currentIndex(), 0);
    QCOMPARE(CommandStack::instance().count(), 0);
    SettingsStore().setValue(durationKey, QStringLiteral("340"));
    m_panel->sltUpdateSettings();
    QCOMPARE(child<QSpinBox>(*m_panel, "s_spinBox_dur")->value(), 340);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestFixationControl::emptyStoreIsShownClamped()
{
    const TemporarySettings empty;
    FixationControl panel;
    panel.sltUpdateSettings();
    QCOMPARE(child<QSpinBox>(panel, "s_spinBox_dur")->value(), 0);
    QCOMPARE(child<QSpinBox>(panel, "s_spinBox_rad")->value(), 10); // the record keeps the 0
    QCOMPARE(SettingsStore().value(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius")).toInt(), 0);
    QCOMPARE(child<QComboBox>(panel, "Fix_comboBox")->currentIndex(), -1);
}

void TestFixationControl::unknownTypeHasNoCurrentItem_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("never recognised") << QStringLiteral("Velocity based");
    QTest::newRow("unknown") << QStringLiteral("x");
}

void TestFixationControl::unknownTypeHasNoCurrentItem()
{
    QFETCH(QString, text);
    SettingsStore().setValue(typeKey, text);
    m_panel->sltUpdateSettings();
    QCOMPARE(child<QComboBox>(*m_panel, "Fix_comboBox")->currentIndex(), -1);
    QCOMPARE(child<QComboBox>(*m_panel, "Fix_comboBox")->placeholderText(), QStringLiteral("Standard")); // shown then
    QCOMPARE(SettingsStore().value(typeKey).toString(), text);
    const RecordedMessages messages;
    child<QToolButton>(*m_panel, "toolButton")->click();
    QVERIFY(m_model.examinations()[0].calculationInfo.fixationCalculationInfo.startsWith(
        QStringLiteral("Algorithm:STANDARD\n")));
}

void TestFixationControl::lostChoicesAreTold_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QStringList>("told");
    const QString standard = QStringLiteral("Standard");
    const QString type = QStringLiteral(
        "The stored detector \"%1\" is not recognised: the standard detector runs until another is chosen.");
    const QString unit = QStringLiteral("The stored unit of the velocity threshold, %1, is read as Percentile.");
    const QString velocity = QStringLiteral("Velocity based");
    QTest::newRow("nothing stored") << QString() << QString() << QStringList();
    QTest::newRow("what survives") << standard << QStringLiteral("2") << QStringList();
    QTest::newRow("mixture") << QStringLiteral("Gaussian Mixture Model") << QString() << QStringList();
    QTest::newRow("velocity detector") << velocity << QStringLiteral("2") << QStringList{type.arg(velocity)};
    QTest::newRow("unknown detector") << QStringLiteral("x") << QString() << QStringList{type.arg(QStringLiteral("x"))};
    QTest::newRow("pixels") << standard << QStringLiteral("0") << QStringList{unit.arg(QStringLiteral("[Pixel/ms]"))};
    QTest::newRow("degrees") << standard << QStringLiteral("1") << QStringList{unit.arg(QStringLiteral("[\u00B0/s]"))};
    QTest::newRow("no unit at all") << standard << QStringLiteral("7") << QStringList();
    QTest::newRow("both") << velocity << QStringLiteral("1")
                          << QStringList{type.arg(velocity), unit.arg(QStringLiteral("[\u00B0/s]"))};
}

void TestFixationControl::lostChoicesAreTold()
{
    QFETCH(QString, type);
    QFETCH(QString, unit);
    QFETCH(QStringList, told);
    const auto notices = [](const QStringList &warnings) {
        const Notice notice{QStringLiteral("The choice of the detector was not taken over"), warnings, {}};
        return warnings.isEmpty() ? QList<Notice>() : QList<Notice>{notice};
    };
    StimulusWindow window;
    m_panel->setMainWindow(&window);
    SettingsStore().setValue(typeKey, type);
    SettingsStore().setValue(rows::velocityUnit.key, unit);
    m_panel->sltUpdateSettings();
    QCOMPARE(window.notices, notices(told));
    window.notices.clear();
    m_panel->sltUpdateSettings(); // the unit that was read is stored now, the detector is left as it was
    QCOMPARE(window.notices, notices(told.filter(QStringLiteral("The stored detector"))));
}

/// The panel reads the store before it knows the window.
void TestFixationControl::lostChoicesAreToldOnceThereIsAWindow()
{
    SettingsStore().setValue(rows::velocityUnit.key, 0);
    m_panel->sltUpdateSettings();
    StimulusWindow window;
    m_panel->setMainWindow(&window);
    QCOMPARE(window.notices.size(), 1);
    QCOMPARE(window.notices[0].warnings,
             QStringList{QStringLiteral("The stored unit of the velocity threshold, [Pixel/ms], is read as "
                                        "Percentile.")});
}

void TestFixationControl::changeOfControlIsACommand_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("command");
    QTest::newRow("duration") << QStringLiteral("s_spinBox_dur") << durationKey
                              << QStringLiteral("Fixation standard calculation minimum duration changed: 17")
                              << QStringLiteral("CommandChangeFixationControlStandardMinimumDuration");
    QTest::newRow("radius") << QStringLiteral("s_spinBox_rad")
                            << QStringLiteral("Calculation/Fixation/Standard/MaximumRadius")
                            << QStringLiteral("Fixation standard calculation maximum radius changed: 17")
                            << QStringLiteral("CommandChangeFixationControlStandardMaximumRadius");
    QTest::newRow("outliers") << QStringLiteral("s_spinBox_out")
                              << QStringLiteral("Calculation/Fixation/Standard/Outlier")
                              << QStringLiteral("Fixation standard calculation outliers allowed changed: 17")
                              << QStringLiteral("CommandChangeFixationControlStandardOutliersAllowed");
    QTest::newRow("mixture duration") << QStringLiteral("minDurationGauss")
                                      << QStringLiteral("Calculation/Fixation/Gaussian/MinimumDuration")
                                      << QStringLiteral("Fixation gaussian calculation minimum duration changed: 17")
                                      << QStringLiteral("CommandChangeFixationControlGaussianMinimumDuration");
    QTest::newRow("velocity duration") << QStringLiteral("minVelocityDuration")
                                       << QStringLiteral("Calculation/Fixation/Velocity/MinimumDuration")
                                       << QStringLiteral("Fixation velocity calculation minimum duration changed: 17")
                                       << QStringLiteral("CommandChangeFixationControlVelocityMinimumDuration");
}

void TestFixationControl::changeOfControlIsACommand()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    QFETCH(QString, command);
    const RecordedLog log;
    m_panel->setLog(&log.log());
    auto *control = m_panel->findChild<QSpinBox *>(name);
    const int before = control->value();
    control->setValue(17);
    QCOMPARE(CommandStack::instance().count(), 1);
    QTEST(CommandStack::instance().text(0), "text");
    QCOMPARE(SettingsStore().value(key).toInt(), 17);
    CommandStack::instance().undo();
    QCOMPARE(control->value(), before);
    QCOMPARE(SettingsStore().value(key).toInt(), before);
    QCOMPARE(CommandStack::instance().count(), 1); // the control's signal makes no new command
    CommandStack::instance().redo();
    QCOMPARE(control->value(), 17);
    QCOMPARE(log.lines(), QStringList({command + QStringLiteral("::redo = 17"),
                                       command + QStringLiteral("::undo = ") + QString::number(before),
                                       command + QStringLiteral("::redo = 17")}));
}

void TestFixationControl::typeCommandNamesTheType()
{
    const RecordedLog log;
    FixationSettingsModel record;
    ParameterPanel view;
    CommandStack::instance().push(new CommandChangeFixationControlCalculationType(1, record, view, &log.log()));
    QCOMPARE(CommandStack::instance().text(0),
             QStringLiteral("Fixation calculation type changed: Gaussian Mixture Model"));
    QCOMPARE(SettingsStore().value(typeKey).toString(), QStringLiteral("Gaussian Mixture Model"));
    CommandStack::instance().undo();
    QCOMPARE(SettingsStore().value(typeKey).toString(), QStringLiteral("Standard"));
    QCOMPARE(log.lines(), QStringList({QStringLiteral("CommandChangeFixationControlCalculationType::redo = 1"),
                                       QStringLiteral("CommandChangeFixationControlCalculationType::undo = 0")}));
}

void TestFixationControl::clickRunsTheChosenDetector_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("standard") << 0
                              << QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Duration:100, Outliers:2, "
                                                "Maximum Radius:50\n");
    QTest::newRow("mixture") << 1
                             << QStringLiteral("Algorithm:GAUSSIAN\nParameter:\n Minimum Duration:0, "
                                               "Merge Sequential:0\n");
    QTest::newRow("velocity") << 2
                              << QStringLiteral("Algorithm:VELOCITY\nParameter:\n Minimum Duration:0, "
                                                "Velocity Threshold:0, Screen Distance:0, Image Size:0, "
                                                "Unit:Percentile\n");
}

void TestFixationControl::clickRunsTheChosenDetector()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    child<QComboBox>(*m_panel, "Fix_comboBox")->setCurrentIndex(type);
    const RecordedMessages messages;
    const QSignalSpy calculated(m_panel.get(), &FixationControl::sigCalculateFixations);
    QTest::mouseClick(child<QToolButton>(*m_panel, "toolButton"), Qt::LeftButton);
    QCOMPARE(calculated.count(), 1);
    QVERIFY(m_model.examinations()[0].calculationInfo.fixationCalculationInfo.startsWith(text));
    QCOMPARE(messages.texts().size(), type == 0 ? 1 : 0);
    CommandStack::instance().undo();
    QCOMPARE(m_model.examinations()[0].calculationInfo.fixationCalculationInfo, QStringLiteral("first\n"));
    QCOMPARE(m_model.examinations()[1].calculationInfo.fixationCalculationInfo, QStringLiteral("second\n"));
}

/// A redo measures the picture that is shown by then.
void TestFixationControl::widthOfTheStimulusAtTheTimeOfTheCalculation()
{
    StimulusWindow window;
    m_panel->setMainWindow(&window);
    const auto stored = [] { return SettingsStore().value(rows::velocityImageSizePixels.key).toInt(); };
    child<QToolButton>(*m_panel, "toolButton")->click();
    QCOMPARE(stored(), 0); // of no concern to the standard detector
    child<QComboBox>(*m_panel, "Fix_comboBox")->setCurrentIndex(2);
    child<QToolButton>(*m_panel, "toolButton")->click();
    QCOMPARE(stored(), 1024);
    CommandStack::instance().undo();
    window.widthPx = 640;
    CommandStack::instance().redo();
    QCOMPARE(stored(), 640);
}

void TestFixationControl::chooseDegrees() const
{
    child<QComboBox>(*m_panel, "Fix_comboBox")->setCurrentIndex(2);
    child<QComboBox>(*m_panel, "comboVelocityUnit")->setCurrentIndex(1);
    child<QDoubleSpinBox>(*m_panel, "velocityThreshold")->setValue(30);
    child<QDoubleSpinBox>(*m_panel, "screenDistance")->setValue(0.6);
    child<QDoubleSpinBox>(*m_panel, "imgSize")->setValue(0.2);
}

void TestFixationControl::degreesNeedAPicture()
{
    StimulusWindow window;
    window.widthPx = 0;
    m_panel->setMainWindow(&window);
    chooseDegrees();
    const int commands = CommandStack::instance().count();
    const RecordedMessages messages;
    const QSignalSpy calculated(m_panel.get(), &FixationControl::sigCalculateFixations);
    child<QToolButton>(*m_panel, "toolButton")->click();
    QCOMPARE(messages.texts(), QStringList{missingWidth});
    QCOMPARE(calculated.count(), 0);
    QCOMPARE(CommandStack::instance().count(), commands);
    QCOMPARE(m_model.examinations()[0].calculationInfo.fixationLines(), QStringLiteral("first\n"));
}

/// A redo comes without a click, and the picture may have gone since then. The jump at the end, of 800 px or 14.6
/// degrees within 10 ms, ends the one fixation.
void TestFixationControl::redoneDegreesNeedAPicture()
{
    StimulusWindow window;
    m_panel->setMainWindow(&window);
    chooseDegrees();
    m_model.examinations()[0].leftEye.gazePoints.last().x = 900;
    const RecordedMessages messages;
    child<QToolButton>(*m_panel, "toolButton")->click();
    const EyeData calculated = m_model.examinations()[0].leftEye;
    QCOMPARE(calculated.scanpath.size(), 1);
    CommandStack::instance().undo();
    const CalculationInfo undone = m_model.examinations()[0].calculationInfo;
    window.widthPx = 0;
    CommandStack::instance().redo();
    QCOMPARE(messages.texts(), QStringList{missingWidth});
    QCOMPARE(m_model.examinations()[0].leftEye, calculated);
    QCOMPARE(m_model.examinations()[0].calculationInfo, undone);
    QCOMPARE(SettingsStore().value(rows::velocityImageSizePixels.key).toInt(), 1024);
    CommandStack::instance().undo();
    QCOMPARE(m_model.examinations()[0].calculationInfo, undone);
    window.widthPx = 1024;
    CommandStack::instance().redo();
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(
        m_model.examinations()[0].calculationInfo.fixationLines().startsWith(QStringLiteral("Algorithm:VELOCITY\n")));
}

void TestFixationControl::widthIsStoredByACalculationOnly()
{
    const RecordedMessages messages;
    for (Examination &each : m_model.examinations())
        each.checked = false;
    const auto stored = [] { return SettingsStore().value(rows::velocityImageSizePixels.key).toInt(); };
    VelocityParameters given;
    given.imageWidthPx = 1024;
    CommandStack::instance().push(new CommandCalculateFixations(m_model, given, nullptr, nullptr));
    QCOMPARE(stored(), 0);
    m_model.examinations()[0].checked = true;
    CommandStack::instance().push(new CommandCalculateFixations(m_model, given, nullptr, nullptr));
    QCOMPARE(stored(), 1024);
}

/// Those at the time of the calculation: a redo follows settings that were loaded since.
void TestFixationControl::mixtureTakesItsParametersFromTheStore()
{
    const auto text = [this] { return m_model.examinations()[0].calculationInfo.fixationCalculationInfo; };
    SettingsStore().setValue(rows::gaussianMergeSequential.key, false);
    SettingsStore().setValue(rows::gaussianMinimumDuration.key, 5000);
    CommandStack::instance().push(
        new CommandCalculateFixations(m_model, MixtureParameters{10, true}, nullptr, nullptr));
    QVERIFY(text().contains(QStringLiteral("Minimum Duration:5000, Merge Sequential:0\n")));
    CommandStack::instance().undo();
    SettingsStore().setValue(rows::gaussianMinimumDuration.key, 70);
    CommandStack::instance().redo();
    QVERIFY(text().contains(QStringLiteral("Minimum Duration:70, Merge Sequential:0\n")));
}

void TestFixationControl::clickCalculates()
{
    const RecordedMessages messages;
    const QSignalSpy calculated(m_panel.get(), &FixationControl::sigCalculateFixations);
    QTest::mouseClick(child<QToolButton>(*m_panel, "toolButton"), Qt::LeftButton);
    QCOMPARE(calculated.count(), 1);
    QCOMPARE(CommandStack::instance().text(0), QStringLiteral("Calculate Fixations"));
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts()[0].startsWith(QStringLiteral("Standard Fixation Filter Action Report|left eye:\n")));
    QCOMPARE(m_model.examinations()[0].leftEye.scanpath.size(), 1);
    QCOMPARE(m_model.examinations()[1].meanEye.scanpath.size(), 1);
    QCOMPARE(m_model.examinations()[2].leftEye.scanpath.size(), 0);
}

void TestFixationControl::undoReturnsOnlyTheTexts()
{
    const RecordedMessages messages;
    child<QToolButton>(*m_panel, "toolButton")->click();
    const EyeData after = m_model.examinations()[0].leftEye;
    CommandStack::instance().undo();
    QCOMPARE(m_model.examinations()[0].calculationInfo.fixationCalculationInfo, QStringLiteral("first\n"));
    QCOMPARE(m_model.examinations()[1].calculationInfo.fixationCalculationInfo, QStringLiteral("second\n"));
    QCOMPARE(m_model.examinations()[2].calculationInfo.fixationCalculationInfo, notSet);
    QCOMPARE(m_model.examinations()[0].leftEye, after);
}

void TestFixationControl::redoCalculatesAgain()
{
    const RecordedMessages messages;
    child<QToolButton>(*m_panel, "toolButton")->click();
    const EyeData once = m_model.examinations()[0].leftEye;
    CommandStack::instance().undo();
    CommandStack::instance().redo();
    const EyeData &twice = m_model.examinations()[0].leftEye;
    QCOMPARE(twice.scanpath, once.scanpath);
    QCOMPARE(twice.saccades.size(), 2 * once.saccades.size());
    QVERIFY(m_model.examinations()[0].calculationInfo.fixationCalculationInfo.startsWith(
        QStringLiteral("Algorithm:STANDARD\n")));
    QCOMPARE(messages.texts().size(), 2);
    CommandStack::instance().undo();
    QCOMPARE(m_model.examinations()[1].calculationInfo.fixationCalculationInfo, QStringLiteral("second\n"));
}

void TestFixationControl::valueOfTheClickIsKeptForRedo()
{
    const RecordedMessages messages;
    child<QToolButton>(*m_panel, "toolButton")->click();
    CommandStack::instance().undo();
    SettingsStore().setValue(durationKey, 4000);
    m_panel->sltUpdateSettings();
    CommandStack::instance().redo();
    QCOMPARE(m_model.examinations()[0].leftEye.scanpath.size(), 1);
}

void TestFixationControl::withoutModelNothingHappens()
{
    m_panel->setModel(nullptr);
    const QSignalSpy calculated(m_panel.get(), &FixationControl::sigCalculateFixations);
    child<QToolButton>(*m_panel, "toolButton")->click();
    QCOMPARE(calculated.count(), 0);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestFixationControl::withoutCheckedExaminationNothingIsTouched()
{
    for (Examination &made : m_model.examinations())
        made.checked = false;
    const RecordedMessages messages;
    child<QToolButton>(*m_panel, "toolButton")->click();
    CommandStack::instance().undo();
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("No examination selected!|Please select some data first.")));
    QCOMPARE(m_model.examinations()[0].calculationInfo.fixationCalculationInfo, QStringLiteral("first\n"));
}

QTEST_MAIN(TestFixationControl)
#include "TestFixationControl.moc"
