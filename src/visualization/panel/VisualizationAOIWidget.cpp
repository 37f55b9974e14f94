// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/VisualizationAOIWidget.h"
#include "ui_VisualizationAOIWidget.h"

#include "visualization/modes/AoiModes.h"

#include <QColorDialog>

VisualizationAOIWidget::VisualizationAOIWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::VisualizationAOIWidget>())
    , m_chooseColor(
          [this](const QColor &start, const QString &title) { return QColorDialog::getColor(start, this, title); })
{
    m_ui->setupUi(this);
    for (const AoiMode &mode : aoiModes())
        m_ui->comboBox_vismode->addItem(mode.name);
    bindWithCommands();
    bindWithoutCommands();
    bindColors();
    bindUnstored();
    m_parameters.whenShown<rows::aoiDrawMode>([this](int mode) { showOptions(mode); });
    connect(m_ui->stat_calc, &QPushButton::clicked, this, &VisualizationAOIWidget::sltEmitGraphicsParametersChanged);
    sltUpdateSettings();
}

VisualizationAOIWidget::~VisualizationAOIWidget() = default;

void VisualizationAOIWidget::sltUpdateSettings()
{
    loadParameters(m_record, rows::aoiVisualization);
    m_parameters.refresh(m_record, rows::aoiVisualization);
}

void VisualizationAOIWidget::bindWithCommands()
{
    m_parameters.bind<rows::aoiDrawMode>(m_ui->comboBox_vismode, m_record);
    m_parameters.bind<rows::aoiDisplayNames>(m_ui->checkBox_display_names, m_record);
    m_parameters.bind<rows::aoiFillOpacity>(m_ui->fillOpacitySpinBox_aoi, m_record);
    m_parameters.bind<rows::aoiBorderWidth>(m_ui->borderWidthSpinBox_aoi, m_record);
    m_parameters.bind<rows::aoiBorderType>(m_ui->bordertype_comboBox_aoi, m_record);
}

void VisualizationAOIWidget::bindWithoutCommands()
{
    m_parameters.bindWithoutCommand<rows::aoiShowLines>(m_ui->checkBox_as_line, m_record);
    m_parameters.bindWithoutCommand<rows::aoiShowAll>(m_ui->checkBox_show_all, m_record);
    m_parameters.bindWithoutCommand<rows::aoiOutlines>(m_ui->outlines, m_record);
    m_parameters.bindWithoutCommand<rows::aoiOneColor>(m_ui->one_color, m_record);
    m_parameters.bindWithoutCommand<rows::aoiLineSize>(m_ui->line_size, m_record);
    m_parameters.bindWithoutCommand<rows::aoiTransMin>(m_ui->transminSpinBox, m_record);
    m_parameters.bindWithoutCommand<rows::aoiNoText>(m_ui->no_text, m_record);
    m_parameters.bindWithoutCommand<rows::aoiMixColor>(m_ui->mix_color, m_record);
}

void VisualizationAOIWidget::bindColors()
{
    const auto titled = [this](const char *title) {
        return [this, title](const QColor &start) { return m_chooseColor(start, QString::fromLatin1(title)); };
    };
    m_parameters.bindColor<rows::aoiColor>(m_ui->colorButton_dominant, m_record, titled("AOI Color"));
    m_parameters.bindColorWithoutCommand<rows::aoiColorLeft>(m_ui->color_left, m_record, titled("Color Left"));
    m_parameters.bindColorWithoutCommand<rows::aoiColorRight>(m_ui->color_right, m_record, titled("Color Right"));
    m_parameters.bindColorWithoutCommand<rows::aoiColorAoi>(m_ui->color_aoi, m_record, titled("Color AOI"));
}

/// What lasts as long as the panel and is not stored.
void VisualizationAOIWidget::bindUnstored()
{
    m_ui->comboBox_transtype->setCurrentIndex(m_record.transitionType);
    m_ui->spinBox_timewindow->setValue(m_record.timeWindowMs);
    m_ui->checkBox_global->setChecked(m_record.normTransGlobal);
    connect(m_ui->comboBox_transtype, &QComboBox::currentIndexChanged, this,
            [this](int type) { m_record.transitionType = type; });
    connect(m_ui->spinBox_timewindow, &QSpinBox::valueChanged, this,
            [this](int timeMs) { m_record.timeWindowMs = timeMs; });
    connect(m_ui->checkBox_global, &QCheckBox::toggled, this,
            [this](bool isGlobal) { m_record.normTransGlobal = isGlobal; });
}

/// A mode that the table does not have shows no options.
void VisualizationAOIWidget::showOptions(int number)
{
    const AoiMode *mode = aoiMode(number);
    const AoiModeOptions shown = mode ? mode->options : AoiModeOptions();
    const std::pair<AoiModeOptions, QList<QWidget *>> controls[] = {
        {AoiModeOption::TransitionType, {m_ui->comboBox_transtype}},
        {AoiModeOption::TimeWindow, {m_ui->spinBox_timewindow}},
        {AoiModeOption::Transitions,
         {m_ui->transminSpinBox, m_ui->line_size, m_ui->checkBox_as_line, m_ui->checkBox_global,
          m_ui->checkBox_show_all, m_ui->one_color, m_ui->no_text, m_ui->color_left, m_ui->color_right,
          m_ui->color_aoi}},
        {AoiModeOption::Outlines | AoiModeOption::LinesOnly, {m_ui->outlines}},
        {AoiModeOption::MixedColors, {m_ui->mix_color}},
        {AoiModeOption::Names, {m_ui->checkBox_display_names}},
        {AoiModeOption::Opacity, {m_ui->fillOpacitySpinBox_aoi}},
        {AoiModeOption::Border, {m_ui->borderWidthSpinBox_aoi, m_ui->bordertype_comboBox_aoi}},
        {AoiModeOption::Color, {m_ui->colorButton_dominant}},
    };
    const bool isChart = shown.testFlag(AoiModeOption::LinesOnly);
    m_ui->outlines->setText(isChart ? tr("Lines only") : tr("outlines"));
    m_ui->outlines->setToolTip(isChart ? tr("Curves without filling") : tr("Areas without filling"));
    for (const auto &[option, widgets] : controls) {
        const bool isShown = (shown & option) != 0;
        for (QWidget *widget : widgets) {
            if (m_ui->formLayout->indexOf(widget) >= 0)
                m_ui->formLayout->setRowVisible(widget, isShown);
            else
                widget->setVisible(isShown);
        }
    }
}
