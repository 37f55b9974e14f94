// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/OptionForm.h"
#include "ui_VisualizationWidget.h"

#include <QSignalBlocker>

#include <algorithm>
#include <iterator>

namespace {

using Option = DrawingOption;

void setCaption(QWidget *caption, const QString &text)
{
    if (auto *label = qobject_cast<QLabel *>(caption))
        label->setText(text);
    else if (auto *button = qobject_cast<QAbstractButton *>(caption))
        button->setText(text);
    else if (auto *box = qobject_cast<QGroupBox *>(caption))
        box->setTitle(text);
}

} // namespace

OptionForm::OptionForm(const Ui::VisualizationWidget &form)
    : m_controls(static_cast<std::size_t>(Option::Count))
    , m_fields(form.optionLayout)
    , m_colors(form.colorBox)
{
    listFields(form);
    listButtons(form);
    listBoxes(form);
}

void OptionForm::set(DrawingOption option, const Controls &controls)
{
    m_controls[static_cast<std::size_t>(option)] = controls;
}

void OptionForm::listFields(const Ui::VisualizationWidget &form)
{
    set(Option::StepSize, {{form.spinBox_stepsize}, form.stepSizeLabel, form.spinBox_stepsize});
    set(Option::TransitionType, {{form.transtypecombo}});
    set(Option::ClusterShare, {{form.cluster_perc_box}});
    set(Option::FillOpacity, {{form.fillOpacitySpinBox}});
    set(Option::BorderWidth, {{form.borderWidthSpinBox}});
    set(Option::BorderType, {{form.bordertype_comboBox}});
    set(Option::Colormap, {{form.heatmap_colormap, form.export_heatmap}});
    set(Option::KernelWidth, {{form.normalDistributionWidthspinBox}});
    set(Option::KernelSigma, {{form.normalDistributionSigmaspinBox}});
    set(Option::Power, {{form.shadow_power_slider2}, form.powerLabel, form.shadow_power_slider2});
    set(Option::ShadowTransparency, {{form.shadow_transparency_slider2}});
    set(Option::Threshold, {{form.heat_th_slider2}, form.thresholdLabel, form.heat_th_slider2});
    m_fields->setRowVisible(form.shadow_power_spinbox, false); // its value is set as a whole number, in every mode
}

void OptionForm::listButtons(const Ui::VisualizationWidget &form)
{
    const auto button = [this](Option option, QAbstractButton *check) { set(option, {{check}, check}); };
    button(Option::DurationDependent, form.durationdependents_checkBox);
    button(Option::ArrowTip, form.showArrowTipCheckBox);
    button(Option::Colors, form.colorButton_dominant);
    button(Option::ColorLeft, form.colorButton_left);
    button(Option::ColorRight, form.colorButton_right);
    button(Option::GazePoints, form.show_gaze_points);
    button(Option::OriginalSize, form.checkBox_original_size);
    button(Option::TransitionsOnly, form.checkBox_transonly);
    button(Option::LineSizeAbsolute, form.line_size_rel_to_abs_max);
    button(Option::LengthArcs, form.lengthCheckBox);
    set(Option::NameColor, {{form.toolButton_name_color}});
    set(Option::PercentMode, {{form.checkBox_inproz}});
    set(Option::QuantityArcs, {{form.quantityCheckBox}});
    set(Option::DurationArcs, {{form.durationCheckBox}});
    set(Option::GaussianSaccades, {{form.sacheat}});
    set(Option::FixationTimeDependent, {{form.sacfixtime}});
    set(Option::LengthDependent, {{form.saclen}});
}

void OptionForm::listBoxes(const Ui::VisualizationWidget &form)
{
    set(Option::Size, {{form.sizeBox}, form.sizeBox});
    set(Option::HeatmapScale, {{form.scaleBox}});
    set(Option::FixationClasses, {{form.classBox}});
    set(Option::AdjustableColormap, {{form.colormapBox}});
    set(Option::AngleStar, {{form.anglestarBox}, form.anglestarBox});
    set(Option::StarBins, {{form.binsLabel, form.binsSpinBox, form.angleOffsetLabel, form.angleOffsetSpinbox}});
    set(Option::SolidArcs,
        {{form.quantitySolidColorCheckBox, form.durationSolidColorCheckBox, form.lengthSolidColorCheckBox}});
}

void OptionForm::show(const QList<ShownOption> &layout)
{
    for (const Controls &option : m_controls)
        setShown(option, false);
    for (int option = 0; option < static_cast<int>(Option::Count); ++option)
        dress(plainOption(static_cast<Option>(option)));
    for (const ShownOption &option : layout) {
        dress(option);
        setShown(controls(option.option), true);
    }
    const auto isColor = [](const ShownOption &shown) {
        return shown.option == Option::Colors || shown.option == Option::NameColor;
    };
    m_colors->setVisible(std::any_of(layout.cbegin(), layout.cend(), isColor));
}

void OptionForm::setShown(const Controls &controls, bool shown)
{
    for (QWidget *widget : controls.widgets) {
        if (m_fields->indexOf(widget) >= 0)
            m_fields->setRowVisible(widget, shown);
        else
            widget->setVisible(shown);
    }
}

void OptionForm::dress(const ShownOption &option)
{
    const Controls &known = controls(option.option);
    if (!option.text.isEmpty())
        setCaption(known.caption, option.text);
    if (!known.number)
        return;
    const QSignalBlocker blocker(known.number);
    known.number->setSuffix(option.suffix);
    if (option.range) {
        known.number->setRange(option.range->minimum, option.range->maximum);
        known.number->setSingleStep(option.range->step);
    }
}
