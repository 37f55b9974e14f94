// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/panel/StatisticsWidget.h"

#include "settings/StoredKeys.h"
#include "ui_StatisticsWidget.h"

namespace {

using Form = Ui::StatisticsWidget;

/// A measure: its check box and the key under which the choice is kept.
struct MeasureBox {
    QCheckBox *Form::*box;
    StoredKey<bool> key;
};

constexpr MeasureBox generalMeasures[] = {
    {&Form::horizontalActivityCheckBox, keys::horizontalActivity},
    {&Form::verticalActivityCheckBox, keys::verticalActivity},
    {&Form::minimumSpeedCheckBox, keys::minimumSpeed},
    {&Form::maximumSpeedCheckBox, keys::maximumSpeed},
    {&Form::averageSpeedCheckBox, keys::averageSpeed},
};

constexpr MeasureBox aoiMeasures[] = {
    {&Form::timeOfFirstGlanceCheckBox, keys::timeOfFirstGlance},
    {&Form::numberOfGlancesCheckBox, keys::numberOfGlances},
    {&Form::glanceFrequencyCheckBox, keys::glanceFrequency},
    {&Form::glanceProportionCheckBox, keys::glanceProportion},
    {&Form::totalGlanceTimeCheckBox, keys::totalGlanceTime},
    {&Form::minimumGlanceDurationCheckBox, keys::minimumGlanceDuration},
    {&Form::meanGlanceDurationCheckBox, keys::meanGlanceDuration},
    {&Form::maximumGlanceDurationCheckBox, keys::maximumGlanceDuration},
    {&Form::numberOfFixationsCheckBox, keys::numberOfFixations},
    {&Form::glanceLocationProbabilityCheckBox, keys::glanceLocationProbability},
};

template <size_t N>
void store(const Form &form, const MeasureBox (&measures)[N])
{
    for (const MeasureBox &measure : measures)
        writeCheckState(measure.key, (form.*measure.box)->checkState());
}

} // namespace

StatisticsWidget::StatisticsWidget(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Form>())
{
    m_ui->setupUi(this);
    connect(m_ui->aoiButton, &QPushButton::clicked, this, &StatisticsWidget::sltCalculateAOIstatistics);
    connect(m_ui->generalButton, &QPushButton::clicked, this, &StatisticsWidget::sltCalculateGeneralStatistics);
}

StatisticsWidget::~StatisticsWidget() = default;

void StatisticsWidget::sltCalculateAOIstatistics()
{
    store(*m_ui, aoiMeasures);
    Q_EMIT sigCalcAOIstats();
    Q_EMIT sigEnableAOIstatExport();
}

void StatisticsWidget::sltCalculateGeneralStatistics()
{
    store(*m_ui, generalMeasures);
    Q_EMIT sigCalculateGeneralStatistics();
    Q_EMIT sigEnableGeneralStatisticExport();
}
