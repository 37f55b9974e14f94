#include "detection/panel/FixationControl.h"
#include "ui_FixationControl.h"

#include "detection/panel/FixationCommands.h"

FixationControl::FixationControl(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::FixationControl>())
{
    m_ui->setupUi(this);
    bindParameters();
    connect(m_ui->toolButton, &QToolButton::clicked, this, &FixationControl::sltCalculateFixations);
    sltUpdateSettings();
}

FixationControl::~FixationControl() = default;

void FixationControl::setLog(const Log *log)
{
    m_log = log;
    m_parameters.setLog(log);
}

void FixationControl::bindParameters()
{
    m_parameters.bind<rows::fixationCalculationType>(m_ui->Fix_comboBox, m_settings);
    m_parameters.bind<rows::standardMinimumDuration>(m_ui->s_spinBox_dur, m_settings);
    m_parameters.bind<rows::standardMaximumRadius>(m_ui->s_spinBox_rad, m_settings);
    m_parameters.bind<rows::standardOutliers>(m_ui->s_spinBox_out, m_settings);
}

void FixationControl::sltCalculateFixations()
{
    if (!m_model)
        return;
    FixationSettingsModel settings = m_settings;
    settings.calculationType = qMax(0, m_ui->Fix_comboBox->currentIndex());
    CommandStack::instance().push(new CommandCalculateFixations(*m_model, settings, m_log));
    Q_EMIT sigCalculateFixations();
}

void FixationControl::sltUpdateSettings()
{
    loadFixationSettings(m_settings);
    m_parameters.refresh(m_settings, rows::fixation);
}
