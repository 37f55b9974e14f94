// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapFigures.h"
#include "VisualizationPanel.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>

namespace {

using K = PanelKind;

/// Everything that a mode may show or hide, by object name. "start_calc" and "comboBox_vismode" are always there.
const char *optionControls[] = {"sizeSpinBox",
                                "spinBox_stepsize",
                                "transtypecombo",
                                "cluster_perc_box",
                                "fillOpacitySpinBox",
                                "borderWidthSpinBox",
                                "bordertype_comboBox",
                                "heatmap_colormap",
                                "normalDistributionWidthspinBox",
                                "normalDistributionSigmaspinBox",
                                "shadow_power_slider2",
                                "shadow_power_spinbox",
                                "shadow_transparency_slider2",
                                "heat_th_slider2",
                                "durationdependents_checkBox",
                                "showArrowTipCheckBox",
                                "show_gaze_points",
                                "checkBox_original_size",
                                "checkBox_transonly",
                                "line_size_rel_to_abs_max",
                                "checkBox_inproz",
                                "sacheat",
                                "sacfixtime",
                                "saclen",
                                "binsSpinBox",
                                "angleOffsetSpinbox",
                                "quantityCheckBox",
                                "quantitySolidColorCheckBox",
                                "durationCheckBox",
                                "durationSolidColorCheckBox",
                                "lengthCheckBox",
                                "lengthSolidColorCheckBox",
                                "groupsComboBox",
                                "colorButton_dominant",
                                "colorButton_left",
                                "colorButton_right",
                                "toolButton_name_color",
                                "min_val_heat",
                                "max_val_heat",
                                "fixmin1",
                                "perc5",
                                "graphicsView_ADM"};

// What rows have in common.
constexpr char colors[] = " groupsComboBox colorButton_dominant colorButton_left colorButton_right";
constexpr char dominant[] = " groupsComboBox colorButton_dominant";
constexpr char border[] = " borderWidthSpinBox fillOpacitySpinBox bordertype_comboBox";
constexpr char points[] = " show_gaze_points checkBox_original_size";
constexpr char clusterNames[] = " toolButton_name_color cluster_perc_box";
constexpr char circle[] = " sizeSpinBox durationdependents_checkBox";
constexpr char kernel[] = " normalDistributionWidthspinBox normalDistributionSigmaspinBox";
constexpr char heat[] = " heatmap_colormap shadow_power_slider2 heat_th_slider2";
constexpr char scale[] = " min_val_heat max_val_heat";
constexpr char shares[] = " durationCheckBox lengthCheckBox checkBox_inproz";
constexpr char shadow[] = " shadow_power_slider2 shadow_transparency_slider2 heat_th_slider2";
constexpr char chart[] = " shadow_power_slider2 show_gaze_points checkBox_original_size checkBox_transonly";
constexpr char transition[] = " sizeSpinBox spinBox_stepsize heat_th_slider2";
constexpr char star[] = " binsSpinBox angleOffsetSpinbox quantityCheckBox quantitySolidColorCheckBox durationCheckBox "
                        "durationSolidColorCheckBox lengthCheckBox lengthSolidColorCheckBox";

void addRow(const char *title, PanelKind kind, int mode, std::initializer_list<const char *> parts)
{
    QString controls;
    for (const char *part : parts)
        controls += QString::fromLatin1(part);
    QStringList names = controls.split(u' ', Qt::SkipEmptyParts);
    names.sort();
    QTest::newRow(title) << kind << mode << names;
}

/// What a number control takes.
struct Numbers {
    double minimum;
    double maximum;
    double step;
    QString suffix;
};

Numbers numbersOf(const QWidget *control)
{
    if (const auto *box = qobject_cast<const QSpinBox *>(control))
        return {double(box->minimum()), double(box->maximum()), double(box->singleStep()), box->suffix()};
    if (const auto *slider = qobject_cast<const QSlider *>(control))
        return {double(slider->minimum()), double(slider->maximum()), double(slider->singleStep()), QString()};
    const auto *box = qobject_cast<const QDoubleSpinBox *>(control);
    return {box->minimum(), box->maximum(), box->singleStep(), box->suffix()};
}

} // namespace

/// The form of a drawing panel, and what a mode makes of it.
class TestVisualizationOptions : public VisualizationPanelTest {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { closePanel(); }
    void numbersOfTheForm_data();
    void numbersOfTheForm();
    void choicesOfTheForm();
    void captionsOfTheForm();
    void startsAsTheRecordHasIt();
    void sizeLabel_data();
    void sizeLabel();
    void modeShowsItsControls_data();
    void modeShowsItsControls();
    void captionsFollowTheMode_data();
    void captionsFollowTheMode();
    void numbersFollowTheMode_data();
    void numbersFollowTheMode();
    void captionsReturn();
    void undoOfTheModeShowsItsControls();
    void customColormapShowsItsControls();
    void shadowMapsDisableTheColormap();
    void timeWindowStartsAtASecond();
    void loadingKeepsTheTimeWindow();
    void shadowPowerStartsInItsRange();
    void shadowPowerStartsAboveItsLowest();
    void percentageCountsAnew();
    void percentageIsNotUndone();

private:
    QStringList visibleControls() const
    {
        QStringList names;
        for (const char *name : optionControls) {
            if (child<QWidget>(name)->isVisible())
                names << QString::fromLatin1(name);
        }
        names.sort();
        return names;
    }
    QString caption(const char *name) const
    {
        const auto *widget = child<QWidget>(name);
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            return button->text();
        if (const auto *box = qobject_cast<const QGroupBox *>(widget))
            return box->title();
        return qobject_cast<const QLabel *>(widget)->text();
    }
};

void TestVisualizationOptions::numbersOfTheForm_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("singleStep");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("sizeSpinBox") << 1.0 << 999.0 << 1.0 << QString();
    QTest::newRow("fillOpacitySpinBox") << 0.0 << 100.0 << 10.0 << QStringLiteral(" %");
    QTest::newRow("borderWidthSpinBox") << 0.0 << 20.0 << 1.0 << QStringLiteral(" px");
    QTest::newRow("normalDistributionWidthspinBox") << 10.0 << 200.0 << 10.0 << QStringLiteral(" px");
    QTest::newRow("normalDistributionSigmaspinBox") << 10.0 << 100.0 << 10.0 << QStringLiteral(" I");
    QTest::newRow("shadow_power_spinbox") << 0.1 << 1.0 << 0.1 << QString();
    QTest::newRow("shadow_transparency_slider2") << 0.0 << 255.0 << 1.0 << QString();
    QTest::newRow("heat_th_slider2") << 0.0 << 10'000'000.0 << 1.0 << QString();
    QTest::newRow("spinBox_stepsize") << 1.0 << 1000.0 << 1.0 << QString();
    QTest::newRow("binsSpinBox") << 1.0 << 360.0 << 1.0 << QString();
    QTest::newRow("angleOffsetSpinbox") << -360.0 << 360.0 << 1.0 << QStringLiteral("\u00b0");
    QTest::newRow("cluster_perc_box") << 0.0 << 100.0 << 1.0 << QStringLiteral(" %");
    for (const char *slider :
         {"horizontalSlider_cm_t1", "horizontalSlider_cm_t2", "horizontalSlider_cm_t3", "horizontalSlider_cm_t4"})
        QTest::newRow(slider) << 0.0 << 255.0 << 1.0 << QString();
    for (const char *slider :
         {"horizontalSlider_cm_sp1", "horizontalSlider_cm_sp2", "horizontalSlider_cm_sp3", "horizontalSlider_cm_sp4"})
        QTest::newRow(slider) << 0.0 << 100.0 << 1.0 << QString();
}

void TestVisualizationOptions::numbersOfTheForm()
{
    openPanel(K::GazePoints);
    const Numbers numbers = numbersOf(child<QWidget>(QTest::currentDataTag()));
    QTEST(numbers.minimum, "minimum");
    QTEST(numbers.maximum, "maximum");
    QTEST(numbers.step, "singleStep");
    QTEST(numbers.suffix, "suffix");
}

void TestVisualizationOptions::choicesOfTheForm()
{
    openPanel(K::Saccades);
    const auto items = [this](const char *name) {
        QStringList texts;
        for (int i = 0; i < child<QComboBox>(name)->count(); ++i)
            texts << child<QComboBox>(name)->itemText(i);
        return texts.join(u',');
    };
    QCOMPARE(items("bordertype_comboBox"), QStringLiteral("Brighter,Same,Darker"));
    QCOMPARE(items("heatmap_colormap"), QStringLiteral("RED GREEN,BLUE,FOCAL POINT,SUNRISE,CLOUD,CUSTOM"));
    QCOMPARE(items("transtypecombo"), QStringLiteral("Scanpath,Saccades"));
    QCOMPARE(items("groupsComboBox"), QStringLiteral("None"));
    QCOMPARE(items("comboBox_vismode"), QStringLiteral("none,arrows,anglestar,heatmap,shadowmap,histogram,"
                                                       "histogram seperated,histogram sac vs fix"));
    QVERIFY(child<QComboBox>("heatmap_colormap")
                ->toolTip()
                .contains(QStringLiteral(
                    "While the red-green heatmap is the standard version found everywhere, it is not well suited "
                    "for the colorblind.")));
    QVERIFY(child<QSpinBox>("shadow_power_slider2")
                ->toolTip()
                .contains(QStringLiteral("Since our transparency perception and the density of gaze points o not work "
                                         "well together numerically, scaling is required in order to make the "
                                         "shadowmap \"look nice\".")));
}

void TestVisualizationOptions::captionsOfTheForm()
{
    openPanel(K::GazePoints);
    const char *captions[][2] = {{"sacheat", "Saccades as streched gaussians"},
                                 {"sacfixtime", "Fixation duration dependent"},
                                 {"saclen", "Length dependent"},
                                 {"cluster_perc", "&Contained"},
                                 {"checkBox_inproz", "Percentage"},
                                 {"durationdependents_checkBox", "duration dependent"},
                                 {"showArrowTipCheckBox", "show arrowtip"},
                                 {"pushButton_ACM", "Apply changes"},
                                 {"start_calc", "Calculate changes"},
                                 {"sizeBox", "Sizefactor"},
                                 {"classShareCaption", "Percentage of fixations in color range:"},
                                 {"classRangeCaption", "Fixations per minute over color range:"}};
    for (const auto &[name, text] : captions)
        QCOMPARE(caption(name), QString::fromLatin1(text));
}

void TestVisualizationOptions::startsAsTheRecordHasIt()
{
    openPanel(K::Clusters);
    QCOMPARE(child<QDoubleSpinBox>("cluster_perc_box")->value(), record().clusterPercentage);
    QCOMPARE(child<QComboBox>("transtypecombo")->currentIndex(), record().transitionType);
    QCOMPARE(child<QCheckBox>("checkBox_inproz")->isChecked(), record().percentMode);
    QCOMPARE(child<QCheckBox>("sacheat")->isChecked(), record().gaussianSaccades);
    QCOMPARE(child<QCheckBox>("sacfixtime")->isChecked(), record().fixationDurationDependent);
    QCOMPARE(child<QCheckBox>("saclen")->isChecked(), record().lengthDependent);
    QCOMPARE(record().clusterPercentage, 90.0);
    QCOMPARE(caption("perc1"), QStringLiteral("0%"));
    QCOMPARE(caption("fixmin5"), QStringLiteral("0-0"));
}

void TestVisualizationOptions::sizeLabel_data()
{
    QTest::addColumn<PanelKind>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("gaze points") << K::GazePoints << QStringLiteral("Points size:");
    QTest::newRow("fixations") << K::Fixations << QStringLiteral("Circle size:");
    QTest::newRow("clusters") << K::Clusters << QStringLiteral("Circles size:");
    QTest::newRow("saccades") << K::Saccades << QStringLiteral("Line thickness:");
}

void TestVisualizationOptions::sizeLabel()
{
    QFETCH(PanelKind, kind);
    openPanel(kind);
    QTEST(caption("sizeLabel"), "text");
}

void TestVisualizationOptions::modeShowsItsControls_data()
{
    QTest::addColumn<PanelKind>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("expected");
    addRow("gaze points, none", K::GazePoints, 0, {});
    addRow("gaze points, points", K::GazePoints, 1, {colors, " sizeSpinBox spinBox_stepsize"});
    addRow("gaze points, heatmap", K::GazePoints, 2, {kernel, heat, scale});
    addRow("gaze points, shadowmap", K::GazePoints, 3, {kernel, shadow});
    addRow("fixations, none", K::Fixations, 0, {});
    addRow("fixations, elliptic", K::Fixations, 1, {border, colors, points});
    addRow("fixations, circular", K::Fixations, 2, {border, colors, points, circle});
    addRow("fixations, heatmap", K::Fixations, 3, {kernel, heat, shares, " fixmin1 perc5"});
    addRow("fixations, shadowmap", K::Fixations, 4, {kernel, shadow});
    addRow("fixations, histogram", K::Fixations, 5, {chart, dominant});
    addRow("fixations, histogram seperated", K::Fixations, 6, {chart, " line_size_rel_to_abs_max"});
    addRow("clusters, none", K::Clusters, 0, {});
    addRow("clusters, elliptic", K::Clusters, 1, {border, colors, points, clusterNames});
    addRow("clusters, circular", K::Clusters, 2, {border, colors, points, clusterNames, circle});
    addRow("clusters, heatmap", K::Clusters, 3, {kernel, heat, shares, scale});
    addRow("clusters, shadowmap", K::Clusters, 4, {kernel, shadow});
    addRow("clusters, cumulative elliptic", K::Clusters, 5, {border, colors, points, clusterNames});
    addRow("clusters, cumulative circle", K::Clusters, 6, {border, colors, points, clusterNames, circle});
    addRow("clusters, transitions", K::Clusters, 7,
           {transition, colors, points, " checkBox_transonly line_size_rel_to_abs_max transtypecombo"});
    addRow("clusters, cumulative transitions", K::Clusters, 8, {transition, colors, points});
    addRow("clusters, cluster + cumulative transitions", K::Clusters, 9, {transition, colors, points});
    addRow("saccades, none", K::Saccades, 0, {});
    addRow("saccades, arrows", K::Saccades, 1, {colors, " sizeSpinBox showArrowTipCheckBox spinBox_stepsize"});
    addRow("saccades, anglestar", K::Saccades, 2, {border, colors, star});
    addRow("saccades, heatmap", K::Saccades, 3, {kernel, heat, scale, " sacheat saclen"});
    addRow("saccades, shadowmap", K::Saccades, 4, {kernel, shadow});
    addRow("saccades, histogram", K::Saccades, 5, {chart, dominant, " saclen"});
    addRow("saccades, histogram seperated", K::Saccades, 6, {chart, " saclen line_size_rel_to_abs_max"});
    addRow("saccades, histogram sac vs fix", K::Saccades, 7, {chart, dominant, " saclen colorButton_left"});
}

void TestVisualizationOptions::modeShowsItsControls()
{
    QFETCH(PanelKind, kind);
    QFETCH(int, mode);
    QFETCH(QStringList, expected);
    openPanel(kind, mode == 0 ? 1 : mode - 1);
    auto *modes = child<QComboBox>("comboBox_vismode");
    QTest::keyClick(modes, mode == 0 ? Qt::Key_Up : Qt::Key_Down); // from the mode before
    QCOMPARE(record().visualizationMode, mode);
    QCOMPARE(visibleControls(), expected);
    QVERIFY(child<QWidget>("start_calc")->isVisible() && modes->isVisible());
    const auto *fields = panel().findChild<QFormLayout *>(QStringLiteral("optionLayout"));
    for (const char *name : optionControls) {
        auto *control = child<QWidget>(name);
        if (QWidget *label = fields->labelForField(control))
            QCOMPARE(label->isVisible(), control->isVisible());
    }
    openPanel(kind, mode); // the same as the store has it
    QCOMPARE(visibleControls(), expected);
}

void TestVisualizationOptions::captionsFollowTheMode_data()
{
    QTest::addColumn<PanelKind>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QString>("expected");
    const auto row = [](PanelKind kind, int mode, const char *control, const char *text) {
        QTest::addRow("%d %d %s", int(kind), mode, control)
            << kind << mode << QByteArray(control) << QString::fromLatin1(text);
    };
    row(K::GazePoints, 1, "sizeBox", "Sizefactor");
    row(K::GazePoints, 2, "powerLabel", "Absolut maxima");
    row(K::GazePoints, 3, "powerLabel", "Shadow power");
    row(K::GazePoints, 3, "thresholdLabel", "Threshold");
    row(K::Fixations, 1, "show_gaze_points", "Show Cluster points");
    row(K::Fixations, 1, "checkBox_original_size", "Original size");
    row(K::Fixations, 3, "lengthCheckBox", "only Fixations in AOIs");
    row(K::Fixations, 3, "durationCheckBox", "Duration");
    row(K::Fixations, 5, "colorButton_dominant", "Color");
    row(K::Fixations, 5, "powerLabel", "Time window");
    row(K::Fixations, 5, "checkBox_original_size", "Use curves");
    row(K::Fixations, 5, "show_gaze_points", "Use splines");
    row(K::Fixations, 5, "checkBox_transonly", "Lines only");
    row(K::Fixations, 6, "line_size_rel_to_abs_max", "Use groupes");
    row(K::Clusters, 1, "checkBox_original_size", "Show names");
    row(K::Clusters, 7, "sizeBox", "Cluster size");
    row(K::Clusters, 7, "stepSizeLabel", "Maximal line size");
    row(K::Clusters, 7, "colorButton_dominant", "cluster");
    row(K::Clusters, 7, "colorButton_left", "to left");
    row(K::Clusters, 7, "colorButton_right", "to right");
    row(K::Clusters, 7, "show_gaze_points", "Draw cluster elliptical");
    row(K::Clusters, 7, "checkBox_original_size", "Show names");
    row(K::Clusters, 7, "checkBox_transonly", "Transitions only");
    row(K::Clusters, 7, "line_size_rel_to_abs_max", "Line size absolute");
    row(K::Saccades, 2, "lengthCheckBox", "Length");
    row(K::Saccades, 4, "thresholdLabel", "Length threshold");
    row(K::Saccades, 7, "colorButton_dominant", "Saccade");
    row(K::Saccades, 7, "colorButton_left", "Fixation");
}

void TestVisualizationOptions::captionsFollowTheMode()
{
    QFETCH(PanelKind, kind);
    QFETCH(int, mode);
    QFETCH(QByteArray, control);
    openPanel(kind);
    child<QComboBox>("comboBox_vismode")->setCurrentIndex(mode);
    QVERIFY(child<QWidget>(control.constData())->isVisible());
    QTEST(caption(control.constData()), "expected");
}

void TestVisualizationOptions::numbersFollowTheMode_data()
{
    QTest::addColumn<PanelKind>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QString>("expected"); // least, most and suffix
    const auto row = [](PanelKind kind, int mode, const char *control, const char *text) {
        QTest::addRow("%d %d %s", int(kind), mode, control)
            << kind << mode << QByteArray(control) << QString::fromLatin1(text);
    };
    constexpr char power[] = "shadow_power_slider2";
    constexpr char threshold[] = "heat_th_slider2";
    row(K::GazePoints, 2, power, "0-1000000 GP");
    row(K::GazePoints, 2, threshold, "0-10000000 GP/min");
    row(K::GazePoints, 3, power, "10-100 /100 -> exponent");
    row(K::GazePoints, 3, threshold, "0-10000000 %");
    row(K::Fixations, 3, power, "0-1000000 Fixations/min");
    row(K::Fixations, 3, threshold, "0-1000000 Fixations/min");
    row(K::Fixations, 5, power, "10-1000000000 ms");
    row(K::Clusters, 3, power, "0-1000000 Clusters/min");
    row(K::Clusters, 3, threshold, "0-1000000 Clusters/min");
    row(K::Clusters, 8, "spinBox_stepsize", "1-1000 px");
    row(K::Clusters, 8, threshold, "0-10000000 trans/min");
    row(K::Saccades, 1, "spinBox_stepsize", "1-1000");
    row(K::Saccades, 3, power, "0-1000000 Saccades");
    row(K::Saccades, 3, threshold, "0-10000000 Saccades");
    row(K::Saccades, 4, threshold, "0-10000000 px");
    row(K::Saccades, 6, power, "10-1000000000 ms");
}

void TestVisualizationOptions::numbersFollowTheMode()
{
    QFETCH(PanelKind, kind);
    QFETCH(int, mode);
    QFETCH(QByteArray, control);
    openPanel(kind);
    child<QComboBox>("comboBox_vismode")->setCurrentIndex(mode);
    const auto *box = child<QSpinBox>(control.constData());
    QTEST(QStringLiteral("%1-%2").arg(box->minimum()).arg(box->maximum()) + box->suffix(), "expected");
    QCOMPARE(box->singleStep(), 1);
}

void TestVisualizationOptions::captionsReturn()
{
    openPanel(K::Clusters);
    auto *modes = child<QComboBox>("comboBox_vismode");
    modes->setCurrentIndex(7);
    modes->setCurrentIndex(2);
    QCOMPARE(caption("sizeBox"), QStringLiteral("Sizefactor"));
    QCOMPARE(caption("colorButton_dominant"), QStringLiteral("dominant"));
    QCOMPARE(caption("colorButton_left"), QStringLiteral("left"));
    QCOMPARE(caption("colorButton_right"), QStringLiteral("right"));
    modes->setCurrentIndex(0);
    QCOMPARE(caption("stepSizeLabel"), QStringLiteral("Step size"));
    QCOMPARE(child<QSpinBox>("spinBox_stepsize")->suffix(), QString());
    QCOMPARE(caption("show_gaze_points"), QStringLiteral("Show Gazepoints"));
    QCOMPARE(caption("checkBox_original_size"), QStringLiteral("Original size"));
    QCOMPARE(caption("powerLabel"), QStringLiteral("Shadow power"));
}

void TestVisualizationOptions::undoOfTheModeShowsItsControls()
{
    openPanel(K::Saccades, 1);
    const QStringList before = visibleControls();
    QTest::keyClick(child<QWidget>("comboBox_vismode"), Qt::Key_Down);
    const QStringList after = visibleControls();
    QVERIFY(before != after);
    stack().undo();
    QCOMPARE(visibleControls(), before);
    stack().redo();
    QCOMPARE(visibleControls(), after);
}

void TestVisualizationOptions::customColormapShowsItsControls()
{
    openPanel(K::GazePoints, 2);
    auto *colormap = child<QComboBox>("heatmap_colormap");
    QVERIFY(!child<QWidget>("colormapBox")->isVisible());
    QTest::keyClick(colormap, Qt::Key_End);
    QCOMPARE(colormap->currentText(), QStringLiteral("CUSTOM"));
    for (const char *name : {"graphicsView_ADM", "checkBox_use_colormap", "checkBox_cm_1", "toolButton_cm_c4",
                             "horizontalSlider_cm_t2", "horizontalSlider_cm_sp3", "pushButton_ACM"})
        QVERIFY2(child<QWidget>(name)->isVisible(), name);
    stack().undo();
    QVERIFY(!child<QWidget>("colormapBox")->isVisible());
    stack().redo();
    QVERIFY(child<QWidget>("colormapBox")->isVisible());
    child<QComboBox>("comboBox_vismode")->setCurrentIndex(1);
    QVERIFY(!child<QWidget>("colormapBox")->isVisible());
}

void TestVisualizationOptions::shadowMapsDisableTheColormap()
{
    openPanel(K::Fixations, 3);
    QVERIFY(child<QWidget>("heatmap_colormap")->isEnabled() && child<QWidget>("colormapLabel")->isEnabled());
    QVERIFY(!child<QWidget>("shadow_power_spinbox")->isEnabled());
    child<QComboBox>("comboBox_vismode")->setCurrentIndex(4);
    QVERIFY(!child<QWidget>("heatmap_colormap")->isEnabled() && !child<QWidget>("colormapLabel")->isEnabled());
    QVERIFY(!child<QWidget>("shadow_power_spinbox")->isEnabled());
    child<QComboBox>("comboBox_vismode")->setCurrentIndex(3);
    QVERIFY(child<QWidget>("heatmap_colormap")->isEnabled() && child<QWidget>("colormapLabel")->isEnabled());
}

void TestVisualizationOptions::timeWindowStartsAtASecond()
{
    openPanel(K::Fixations, 4);
    auto *window = child<QSpinBox>("shadow_power_slider2");
    QTest::keyClick(child<QWidget>("comboBox_vismode"), Qt::Key_Down);
    QCOMPARE(window->value(), 1000);
    QCOMPARE(record().power, 10.0);
    QCOMPARE(stored("/Power"), QStringLiteral("10"));
    QCOMPARE(stack().count(), 1);
    QTest::keyClick(window, Qt::Key_Up);
    QCOMPARE(record().power, 10.01);
    stack().undo(); // the mode goes back with the number that it set
    QCOMPARE(record().power, 1.0);
    QCOMPARE(window->value(), 100);
    stack().redo();
    QCOMPARE(window->value(), 1001); // with what was chosen there
}

void TestVisualizationOptions::loadingKeepsTheTimeWindow()
{
    openPanel(K::Saccades, 0);
    setStored("/VisualizationMode", 5);
    setStored("/Power", 2.5);
    panel().sltUpdateSettings();
    QCOMPARE(child<QSpinBox>("shadow_power_slider2")->value(), 250);
    QCOMPARE(record().power, 2.5);
}

void TestVisualizationOptions::shadowPowerStartsInItsRange()
{
    openPanel(K::Saccades, 5);
    setStored("/Power", 50.0);
    panel().sltUpdateSettings();
    auto *modes = child<QComboBox>("comboBox_vismode");
    QTest::keyClick(modes, Qt::Key_Up);
    QCOMPARE(record().power, 1.0);
    QCOMPARE(child<QSpinBox>("shadow_power_slider2")->value(), 100);
    child<QSpinBox>("shadow_power_slider2")->setValue(30);
    QTest::keyClick(modes, Qt::Key_Up); // a heatmap starts at its own maximum
    QCOMPARE(record().power, 0.0);
    QTest::keyClick(modes, Qt::Key_Down);
    QCOMPARE(record().power, 1.0);
}

void TestVisualizationOptions::shadowPowerStartsAboveItsLowest()
{
    openPanel(K::Saccades, 3);
    setStored("/Power", 0.09); // a share of 0.1 is the lowest
    panel().sltUpdateSettings();
    auto *modes = child<QComboBox>("comboBox_vismode");
    QTest::keyClick(modes, Qt::Key_Down);
    QCOMPARE(record().power, 1.0);
    QTest::keyClick(modes, Qt::Key_Up);
    child<QSpinBox>("shadow_power_slider2")->setValue(10);
    QTest::keyClick(modes, Qt::Key_Down);
    QCOMPARE(record().power, 0.1);
}

void TestVisualizationOptions::percentageCountsAnew()
{
    openPanel(K::Clusters, 3);
    auto *maximum = child<QSpinBox>("shadow_power_slider2");
    auto *threshold = child<QSpinBox>("heat_th_slider2");
    const auto compare = [&](bool percent, int most, const char *suffix) {
        QCOMPARE(record().percentMode, percent);
        for (const QSpinBox *box : {maximum, threshold}) {
            QCOMPARE(box->value(), 0);
            QCOMPARE(box->maximum(), most);
            QCOMPARE(box->suffix(), QString::fromLatin1(suffix));
        }
        QCOMPARE(record().power, 0.0);
        QCOMPARE(record().heatmapThreashold, 0);
        QCOMPARE(stored("/Power"), QStringLiteral("0"));
        QCOMPARE(stored("/HeatmapThreashold"), QStringLiteral("0"));
        QCOMPARE(caption("perc3"), QStringLiteral("0%"));
        QCOMPARE(caption("fixmin3"), QStringLiteral("0-0"));
    };
    maximum->setValue(700);
    QTest::keyClick(threshold, Qt::Key_Up);
    panel().showFigures({{}, 5, std::array<double, 5>{10, 20, 30, 15, 25}});
    QCOMPARE(caption("perc3"), QStringLiteral("30 %"));
    click("checkBox_inproz"); // what the figures count is something else from now on
    compare(true, 100, " %");
    QCOMPARE(stack().count(), 1); // that of the threshold
    maximum->setValue(70);
    QTest::keyClick(threshold, Qt::Key_Up);
    click("checkBox_inproz");
    compare(false, 1'000'000, " Clusters/min");
    QCOMPARE(stack().count(), 2);
}

void TestVisualizationOptions::percentageIsNotUndone()
{
    openPanel(K::Fixations, 3);
    auto *threshold = child<QSpinBox>("heat_th_slider2");
    threshold->setValue(50);
    click("checkBox_inproz");
    QTest::keyClick(threshold, Qt::Key_Up);
    stack().undo();
    QCOMPARE(threshold->value(), 0);
    QVERIFY(child<QCheckBox>("checkBox_inproz")->isChecked());
    QVERIFY(record().percentMode);
}

QTEST_MAIN(TestVisualizationOptions)
#include "TestVisualizationOptions.moc"
