// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DataModel.h"
#include "VisualizationPanel.h"

#include <QLabel>
#include <QSignalSpy>
#include <QToolButton>

namespace {

/// The signal of a control by which it tells its panel of a change.
QByteArray changeSignal(const QWidget *control)
{
    if (qobject_cast<const QCheckBox *>(control))
        return QMetaMethod::fromSignal(&QCheckBox::toggled).methodSignature();
    if (qobject_cast<const QComboBox *>(control))
        return QMetaMethod::fromSignal(&QComboBox::currentIndexChanged).methodSignature();
    return QByteArrayLiteral("valueChanged(int)");
}

Group testGroup()
{
    Group group;
    group.name = QStringLiteral("experts");
    group.colorsDominant[QStringLiteral("FixationVisualization")] = QColor(10, 20, 30);
    group.colorsLeft[QStringLiteral("FixationVisualization")] = QColor(40, 50, 60);
    group.colorsRight[QStringLiteral("FixationVisualization")] = QColor(70, 80, 90);
    return group;
}

} // namespace

/// The controls of a drawing panel as a user changes them: record, store, command, and nothing drawn.
class TestVisualizationWidget : public VisualizationPanelTest {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { closePanel(); }
    void changeOfControl_data();
    void changeOfControl();
    void controlsWithoutCommand_data();
    void controlsWithoutCommand();
    void optionsThatAreNotStored();
    void theExponentIsShownTwice();
    void colorIsChosen_data();
    void colorIsChosen();
    void aCancelledChoiceChangesNothing();
    void colorOfNamesHasNoCommand();
    void everyChangeIsACommand();
    void onlyTheButtonAsksForThePicture();
    void exportTellsTheKind_data();
    void exportTellsTheKind();
    void groupShowsItsColors();
    void aGroupThatIsGoneIsNotShown();
    void updateSettingsShowsTheStore();
    void updateSettingsOfAnEmptyStore();
    void theRecordKeepsWhatTheControlCannotShow();
    void aModeBeyondTheItemsShowsNone();

private:
    QString style(const char *button) const { return child<QToolButton>(button)->styleSheet(); }
    void compareValue(const QWidget *control, const char *key, const QString &value) const
    {
        QCOMPARE(shown(control), value);
        QCOMPARE(recorded(key), value);
        QCOMPARE(stored(key), value);
    }
};

namespace {

struct ControlRow {
    const char *control;
    PanelKind kind;
    int mode; ///< in which the control is shown
    const char *key;
    const char *before;
    const char *after; ///< one step
    const char *text;
    const char *command;
};

using K = PanelKind;

constexpr ControlRow numberRows[] = {
    {"comboBox_vismode", K::Saccades, 0, "/VisualizationMode", "0", "1", "Visualization mode changed to: 1",
     "CommandChangeVisualizationMode"},
    {"sizeSpinBox", K::GazePoints, 1, "/Size", "5", "6", "Size factor changed: 6", "CommandChangeSizeFactor"},
    {"spinBox_stepsize", K::GazePoints, 1, "/StepSize", "1", "2", "Step size changed: 2", "CommandChangeStepSize"},
    {"fillOpacitySpinBox", K::Fixations, 1, "/FillOpacity", "50", "60", "Fill opacity changed: 60",
     "CommandChangeFillOpacity"},
    {"borderWidthSpinBox", K::Clusters, 1, "/BorderWidth", "1", "2", "Border width changed: 2",
     "CommandChangeBorderWidth"},
    {"bordertype_comboBox", K::Fixations, 2, "/BorderType", "1", "2", "Border type changed: 2",
     "CommandChangeBorderType"},
    {"heatmap_colormap", K::GazePoints, 2, "/HeatmapColormap", "0", "1", "Colormap changed: 1",
     "CommandChangeColorMap"},
    {"normalDistributionWidthspinBox", K::Saccades, 3, "/NormalDistributionWidth", "100", "110",
     "Normal distribution width changed: 110", "CommandChangeNormalDistributionWidth"},
    {"normalDistributionSigmaspinBox", K::Fixations, 3, "/NormalDistributionSigma", "50", "60",
     "Normal distribution sigma changed: 60", "CommandChangeNormalDistributionSigma"},
    {"shadow_transparency_slider2", K::Clusters, 4, "/ShadowTransparency", "10", "11",
     "Shadow transparency changed: 11", "CommandChangeShadowTransparency"},
    {"heat_th_slider2", K::GazePoints, 2, "/HeatmapThreashold", "0", "1", "Heatmap Threashold changed: 1",
     "CommandChangeHeatmapThreashold"},
    {"binsSpinBox", K::Saccades, 2, "/NumberOfHistogramBins", "25", "26", "Bins quantity changed: 26",
     "CommandChangeBinsQuantity"},
    {"angleOffsetSpinbox", K::Saccades, 2, "/AngleOffset", "0", "1", "Angleoffset changed: 1",
     "CommandChangeAngleOffset"},
};

constexpr ControlRow flagRows[] = {
    {"durationdependents_checkBox", K::Fixations, 2, "/DurationDependent", "false", "true",
     "Duration dependent changed: 1", "CommandChangeDurationDependent"},
    {"showArrowTipCheckBox", K::Saccades, 1, "/ShowArrowTip", "true", "false", "Show arrow tip changed: 0",
     "CommandChangeShowArrowTip"},
    {"show_gaze_points", K::Fixations, 1, "/ShowGazePoints", "false", "true", "Show gazepoints changed: 1",
     "CommandChangeShowGazePoints"},
    {"checkBox_original_size", K::Fixations, 1, "/ShowOriginalSize", "false", "true", "Show original size changed: 1",
     "CommandChangeShowOriginalSize"},
    {"quantityCheckBox", K::Saccades, 2, "/ShowQuantityArcs", "false", "true", "Quantity visible changed: 1",
     "CommandChangeQuantityVisible"},
    {"durationCheckBox", K::Saccades, 2, "/ShowDurationArcs", "true", "false", "Duration visible changed: 0",
     "CommandChangeDurationVisible"},
    {"lengthCheckBox", K::Clusters, 3, "/ShowLenghtArcs", "false", "true", "Lenght visible changed: 1",
     "CommandChangeLenghtVisible"},
    {"quantitySolidColorCheckBox", K::Saccades, 2, "/QuantityArcsHighlight", "false", "true",
     "Quantity solid color changed: 1", "CommandChangeQuantitySolidColor"},
    {"durationSolidColorCheckBox", K::Saccades, 2, "/DurationArcsHighlight", "false", "true",
     "Duration solid color changed: 1", "CommandChangeDurationSolidColor"},
    {"lengthSolidColorCheckBox", K::Saccades, 2, "/LenghtArcsHighlight", "false", "true",
     "Lenght solid color changed: 1", "CommandChangeLenghtSolidColor"},
};

} // namespace

void TestVisualizationWidget::changeOfControl_data()
{
    QTest::addColumn<ControlRow>("row");
    for (const ControlRow &row : numberRows)
        QTest::newRow(row.control) << row;
    for (const ControlRow &row : flagRows)
        QTest::newRow(row.control) << row;
}

void TestVisualizationWidget::changeOfControl()
{
    QFETCH(ControlRow, row);
    const QString before = QString::fromLatin1(row.before);
    const QString after = QString::fromLatin1(row.after);
    openPanel(row.kind, row.mode);
    auto *control = child<QWidget>(row.control);
    QVERIFY(control->isVisible() && control->isEnabled());
    compareValue(control, row.key, before);
    const QSignalSpy drawn(&panel(), &VisualizationWidget::sigGraphicsParametersChanged);
    step(control, qobject_cast<QComboBox *>(control) ? Qt::Key_Down : Qt::Key_Up);
    compareValue(control, row.key, after);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().text(0), QString::fromLatin1(row.text));

    const QSignalSpy changes(control, QByteArrayLiteral("2") + changeSignal(control));
    QVERIFY(changes.isValid());
    stack().undo();
    compareValue(control, row.key, before);
    stack().redo();
    compareValue(control, row.key, after);
    stack().undo();
    compareValue(control, row.key, before);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(drawn.count(), 0);
    const QString command = QString::fromLatin1(row.command);
    const auto written = [](const QString &value) {
        return value == QStringLiteral("true")    ? QStringLiteral("1")
               : value == QStringLiteral("false") ? QStringLiteral("0")
                                                  : value;
    };
    const QString redone = command + QStringLiteral("::redo = ") + written(after);
    const QString undone = command + QStringLiteral("::undo = ") + written(before);
    QCOMPARE(takeLogLines(), (QStringList{redone, undone, redone, undone}));
}

void TestVisualizationWidget::controlsWithoutCommand_data()
{
    QTest::addColumn<PanelKind>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("after");
    QTest::newRow("checkBox_transonly") << K::Clusters << 7 << QByteArray("/transonly") << QStringLiteral("true");
    QTest::newRow("line_size_rel_to_abs_max")
        << K::Clusters << 7 << QByteArray("/linesizeabs") << QStringLiteral("true");
    QTest::newRow("shadow_power_slider2") << K::GazePoints << 3 << QByteArray("/Power") << QStringLiteral("0.99");
}

void TestVisualizationWidget::controlsWithoutCommand()
{
    QFETCH(PanelKind, kind);
    QFETCH(int, mode);
    QFETCH(QByteArray, key);
    openPanel(kind, mode);
    auto *control = child<QWidget>(QTest::currentDataTag());
    QVERIFY(control->isVisible() && control->isEnabled());
    step(control, Qt::Key_Down);
    QTEST(recorded(key.constData()), "after");
    QTEST(stored(key.constData()), "after");
    QCOMPARE(stack().count(), 0);
    QVERIFY(takeLogLines().isEmpty());
    const QString value = shown(control);
    panel().sltUpdateSettings();
    QCOMPARE(shown(control), value);
    QTEST(recorded(key.constData()), "after");
}

void TestVisualizationWidget::optionsThatAreNotStored()
{
    openPanel(K::Clusters, 7);
    QCOMPARE(record().transitionType, 0);
    step(child<QWidget>("transtypecombo"), Qt::Key_Down);
    QCOMPARE(record().transitionType, 1);
    child<QComboBox>("comboBox_vismode")->setCurrentIndex(1);
    QCOMPARE(record().clusterPercentage, 90.0);
    step(child<QWidget>("cluster_perc_box"), Qt::Key_Up);
    QCOMPARE(record().clusterPercentage, 91.0);
    QCOMPARE(stack().count(), 1); // the mode
    panel().sltUpdateSettings();  // they are as the user left them
    QCOMPARE(record().clusterPercentage, 91.0);
    QCOMPARE(shown(child<QWidget>("cluster_perc_box")), QStringLiteral("91"));
    QCOMPARE(record().transitionType, 1);

    openPanel(K::Saccades, 3);
    const QStringList keys = SettingsStore().allKeys();
    click("sacheat");
    QVERIFY(record().gaussianSaccades && !record().fixationDurationDependent && !record().lengthDependent);
    click("saclen");
    QVERIFY(record().gaussianSaccades && !record().fixationDurationDependent && record().lengthDependent);
    click("sacheat");
    child<QCheckBox>("sacfixtime")->setChecked(true);
    QVERIFY(!record().gaussianSaccades && record().fixationDurationDependent && record().lengthDependent);
    QCOMPARE(stack().count(), 0);
    QCOMPARE(SettingsStore().allKeys(), keys);
}

void TestVisualizationWidget::theExponentIsShownTwice()
{
    openPanel(K::GazePoints, 3);
    auto *exponent = child<QDoubleSpinBox>("shadow_power_spinbox");
    auto *hundredths = child<QSpinBox>("shadow_power_slider2");
    QVERIFY(!exponent->isEnabled());
    QTest::keyClick(hundredths, Qt::Key_Down);
    QCOMPARE(exponent->value(), 0.99);
    QCOMPARE(stack().count(), 0);
    exponent->setValue(0.25); // as a program may do
    QCOMPARE(hundredths->value(), 25);
    QCOMPARE(record().power, 0.25);
    QCOMPARE(stack().text(0), QStringLiteral("Shadow power changed: 0.25"));
    QCOMPARE(takeLogLines(), QStringList(QStringLiteral("CommandChangeShadowPower::redo = 0.25")));
    stack().undo();
    QCOMPARE(hundredths->value(), 99);
    QCOMPARE(exponent->value(), 0.99);
    QCOMPARE(stored("/Power"), QStringLiteral("0.99"));
    stack().redo();
    QCOMPARE(hundredths->value(), 25);
    QCOMPARE(stack().count(), 1);
}

void TestVisualizationWidget::colorIsChosen_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("border");
    QTest::addColumn<QColor>("before");
    QTest::addColumn<QString>("eye");
    QTest::newRow("colorButton_dominant")
        << QByteArray("/FillColor") << QByteArray("/BorderColor") << QColor(255, 0, 0) << QStringLiteral("Dominant");
    QTest::newRow("colorButton_left") << QByteArray("/FillColorLeft") << QByteArray("/BorderColorLeft")
                                      << QColor(0, 255, 0) << QStringLiteral("Left");
    QTest::newRow("colorButton_right") << QByteArray("/FillColorRight") << QByteArray("/BorderColorRight")
                                       << QColor(0, 0, 255) << QStringLiteral("Right");
}

void TestVisualizationWidget::colorIsChosen()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, border);
    QFETCH(QColor, before);
    QFETCH(QString, eye);
    const char *button = QTest::currentDataTag();
    openPanel(K::Fixations, 1);
    QColor start;
    panel().setColorChooser([&start](const QColor &color) {
        start = color;
        return QColor(200, 100, 50);
    });
    click(button);
    const auto compare = [&](const QColor &color) {
        QCOMPARE(style(button), QStringLiteral("background-color:") + color.name());
        QCOMPARE(child<QWidget>(button)->grab().toImage().pixelColor(4, 4), color); // and no tone of it
        QCOMPARE(recorded(key.constData()), color.name());
        QCOMPARE(stored(key.constData()), color.name());
        QCOMPARE(stored(border.constData()), borderColorFor(color, 1).name());
    };
    QCOMPARE(start, before);
    compare(QColor(200, 100, 50));
    QCOMPARE(stack().text(0), eye + QStringLiteral(" fill color changed: #c86432"));
    stack().undo();
    compare(before);
    stack().redo();
    compare(QColor(200, 100, 50));
    QCOMPARE(stack().count(), 1);
    const QString command = QStringLiteral("CommandChangeFillColor%1::").arg(eye);
    QCOMPARE(takeLogLines(), (QStringList{command + QStringLiteral("redo = #c86432"),
                                          command + QStringLiteral("undo = ") + before.name(),
                                          command + QStringLiteral("redo = #c86432")}));
}

void TestVisualizationWidget::aCancelledChoiceChangesNothing()
{
    openPanel(K::Clusters, 1);
    panel().setColorChooser([](const QColor &) { return QColor(); });
    const VisualizationParameters before = record();
    for (const char *button : {"colorButton_dominant", "colorButton_left", "colorButton_right"}) {
        const QString shownBefore = style(button);
        click(button);
        QCOMPARE(style(button), shownBefore);
    }
    click("toolButton_name_color");
    QVERIFY(record() == before);
    QCOMPARE(stack().count(), 0);
}

void TestVisualizationWidget::colorOfNamesHasNoCommand()
{
    openPanel(K::Clusters, 1);
    panel().setColorChooser([](const QColor &start) { return start == QColor(0, 0, 0) ? QColor(1, 2, 3) : QColor(); });
    click("toolButton_name_color");
    QCOMPARE(style("toolButton_name_color"), QStringLiteral("background-color:#010203"));
    QCOMPARE(recorded("/FillColorName"), QStringLiteral("#010203"));
    QCOMPARE(stored("/FillColorName"), QStringLiteral("#010203"));
    QCOMPARE(stack().count(), 0);
    QVERIFY(takeLogLines().isEmpty());
}

void TestVisualizationWidget::everyChangeIsACommand()
{
    openPanel(K::GazePoints, 1);
    auto *size = child<QSpinBox>("sizeSpinBox");
    QTest::keyClick(size, Qt::Key_Up);
    QTest::keyClick(size, Qt::Key_Up);
    QCOMPARE(stack().count(), 2); // commands never merge
    stack().undo();
    QCOMPARE(size->value(), 6);
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("42"));
    QTest::keyClick(size, Qt::Key_Return); // what could be redone is gone
    QCOMPARE(stack().count(), 2);
    QCOMPARE(stack().text(1), QStringLiteral("Size factor changed: 42"));
}

void TestVisualizationWidget::onlyTheButtonAsksForThePicture()
{
    openPanel(K::Fixations, 1);
    const QSignalSpy drawn(&panel(), &VisualizationWidget::sigGraphicsParametersChanged);
    step(child<QWidget>("fillOpacitySpinBox"), Qt::Key_Up);
    step(child<QWidget>("comboBox_vismode"), Qt::Key_Down);
    stack().undo();
    panel().sltUpdateSettings();
    QCOMPARE(drawn.count(), 0);
    QCOMPARE(child<QAbstractButton>("start_calc")->text(), QStringLiteral("Calculate changes"));
    click("start_calc");
    QCOMPARE(drawn.count(), 1);
}

void TestVisualizationWidget::exportTellsTheKind_data()
{
    QTest::addColumn<PanelKind>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("id");
    QTest::newRow("gaze points") << K::GazePoints << 2 << 0;
    QTest::newRow("fixations") << K::Fixations << 3 << 1;
    QTest::newRow("clusters") << K::Clusters << 3 << 2;
    QTest::newRow("saccades") << K::Saccades << 3 << 3;
}

void TestVisualizationWidget::exportTellsTheKind()
{
    QFETCH(PanelKind, kind);
    QFETCH(int, mode);
    openPanel(kind, mode);
    const QSignalSpy exported(&panel(), &VisualizationWidget::sigExportheatmap);
    QVERIFY(child<QWidget>("export_heatmap")->isVisible());
    click("export_heatmap");
    QCOMPARE(exported.count(), 1);
    QTEST(exported[0][0].toInt(), "id");
}

void TestVisualizationWidget::groupShowsItsColors()
{
    openPanel(K::Fixations, 1);
    auto *groups = child<QComboBox>("groupsComboBox");
    QCOMPARE(groups->count(), 1);
    DataModel model;
    model.setGroups({testGroup()});
    panel().setModel(&model);
    panel().refreshGroups();
    QCOMPARE(groups->count(), 2);
    QCOMPARE(groups->itemText(0), QStringLiteral("None"));
    QCOMPARE(groups->currentIndex(), 0);
    QCOMPARE(style("colorButton_dominant"), QStringLiteral("background-color:#ff0000"));
    const VisualizationParameters before = record();
    QTest::keyClick(groups, Qt::Key_Down);
    QCOMPARE(groups->currentText(), QStringLiteral("experts"));
    QCOMPARE(style("colorButton_dominant"), QStringLiteral("background-color:#0a141e"));
    QCOMPARE(style("colorButton_left"), QStringLiteral("background-color:#28323c"));
    QCOMPARE(style("colorButton_right"), QStringLiteral("background-color:#46505a"));
    QVERIFY(record() == before); // shown, not taken over
    QTest::keyClick(groups, Qt::Key_Up);
    QCOMPARE(style("colorButton_dominant"), QStringLiteral("background-color:#ff0000"));
    QCOMPARE(style("colorButton_left"), QStringLiteral("background-color:#00ff00"));
    QCOMPARE(style("colorButton_right"), QStringLiteral("background-color:#0000ff"));
    QCOMPARE(stack().count(), 0);
}

void TestVisualizationWidget::aGroupThatIsGoneIsNotShown()
{
    openPanel(K::Fixations, 1);
    DataModel model;
    model.setGroups({testGroup()});
    panel().setModel(&model);
    panel().refreshGroups();
    auto *groups = child<QComboBox>("groupsComboBox");
    QTest::keyClick(groups, Qt::Key_Down);
    panel().refreshGroups();
    QCOMPARE(groups->currentText(), QStringLiteral("experts")); // still there
    QCOMPARE(style("colorButton_left"), QStringLiteral("background-color:#28323c"));
    model.setGroups({});
    panel().refreshGroups();
    QCOMPARE(groups->count(), 1);
    QCOMPARE(style("colorButton_left"), QStringLiteral("background-color:#00ff00"));
    panel().setModel(nullptr);
}

void TestVisualizationWidget::updateSettingsShowsTheStore()
{
    openPanel(K::Clusters, 0);
    setStored("/VisualizationMode", QStringLiteral("2")); // as text, as a loaded file leaves it
    setStored("/Size", QStringLiteral("77"));
    setStored("/DurationDependent", QStringLiteral("true"));
    setStored("/BorderType", QStringLiteral("0"));
    setStored("/FillColorLeft", QStringLiteral("#123456"));
    setStored("/FillColorName", QStringLiteral("#654321"));
    setStored("/linesizeabs", QStringLiteral("true"));
    panel().sltUpdateSettings();
    QCOMPARE(child<QComboBox>("comboBox_vismode")->currentText(), QStringLiteral("circular"));
    QCOMPARE(shown(child<QWidget>("sizeSpinBox")), QStringLiteral("77"));
    QVERIFY(child<QWidget>("sizeSpinBox")->isVisible());
    QCOMPARE(shown(child<QWidget>("durationdependents_checkBox")), QStringLiteral("true"));
    QCOMPARE(shown(child<QWidget>("bordertype_comboBox")), QStringLiteral("0"));
    QCOMPARE(shown(child<QWidget>("line_size_rel_to_abs_max")), QStringLiteral("true"));
    QCOMPARE(style("colorButton_left"), QStringLiteral("background-color:#123456"));
    QCOMPARE(style("toolButton_name_color"), QStringLiteral("background-color:#654321"));
    QCOMPARE(record().size, 77);
    QCOMPARE(record().visualizationMode, 2);
    QCOMPARE(stack().count(), 0);
}

void TestVisualizationWidget::updateSettingsOfAnEmptyStore()
{
    openPanel(K::Fixations, 2);
    const TemporarySettings empty;
    panel().sltUpdateSettings();
    QCOMPARE(shown(child<QWidget>("comboBox_vismode")), QStringLiteral("0"));
    QCOMPARE(shown(child<QWidget>("sizeSpinBox")), QStringLiteral("1")); // its least; the record keeps the 0
    QCOMPARE(record().size, 0);
    QCOMPARE(record().power, 0.0);
    QVERIFY(!record().fillColor.isValid());
    QCOMPARE(stack().count(), 0);
    QVERIFY2(SettingsStore().allKeys().isEmpty(), "a refresh writes nothing");
}

void TestVisualizationWidget::theRecordKeepsWhatTheControlCannotShow()
{
    openPanel(K::GazePoints, 1);
    setStored("/Size", 5000);
    panel().sltUpdateSettings();
    auto *size = child<QSpinBox>("sizeSpinBox");
    QCOMPARE(size->value(), 999);
    QCOMPARE(record().size, 5000);
    QCOMPARE(stored("/Size"), QStringLiteral("5000"));
    QTest::keyClick(size, Qt::Key_Down);
    QCOMPARE(record().size, 998);
    stack().undo();
    QCOMPARE(size->value(), 999);
    QCOMPARE(record().size, 5000);
    QCOMPARE(stored("/Size"), QStringLiteral("5000"));
}

void TestVisualizationWidget::aModeBeyondTheItemsShowsNone()
{
    openPanel(K::GazePoints, 8);
    QCOMPARE(shown(child<QWidget>("comboBox_vismode")), QStringLiteral("-1"));
    QCOMPARE(record().visualizationMode, 8);
    QVERIFY(!child<QWidget>("sizeSpinBox")->isVisible());
    QVERIFY(child<QWidget>("start_calc")->isVisible());
}

QTEST_MAIN(TestVisualizationWidget)
#include "TestVisualizationWidget.moc"
