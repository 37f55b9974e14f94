#include "detection/panel/FixationControl.h"

#include "detection/panel/FixationCommands.h"
#include "ui_FixationControl.h"

FixationControl::FixationControl(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::FixationControl>())
    , m_settings(initialFixationSettings())
{
    m_ui->setupUi(this);
    for (int type = 0; type < builtCalculationTypes(); ++type)
        m_ui->Fix_comboBox->addItem(calculationTypeNames[type]);
    m_parameters.bind<rows::calculationType>(m_ui->Fix_comboBox, m_settings);
    m_parameters.bind<rows::standardMinimumDuration>(m_ui->s_spinBox_dur, m_settings);
    m_parameters.bind<rows::standardMaximumRadius>(m_ui->s_spinBox_rad, m_settings);
    m_parameters.bind<rows::standardOutliers>(m_ui->s_spinBox_out, m_settings);
    connect(m_ui->toolButton, &QToolButton::clicked, this, &FixationControl::sltCalculateFixations);
}

FixationControl::~FixationControl() = default;

void FixationControl::setLog(const Log *log)
{
    m_log = log;
    m_parameters.setLog(log);
}

void FixationControl::sltUpdateSettings()
{
    loadFixationSettings(m_settings);
    m_parameters.refresh(m_settings, rows::fixation);
}

void FixationControl::sltCalculateFixations()
{
    if (!m_model)
        return;
    // What the combo box shows counts, not the record: without a current item the standard detector runs.
    const int type = calculationTypeNamed(m_ui->Fix_comboBox->currentText());
    CommandStack::instance().push(
        new CommandCalculateFixations(*m_model, calculationParameters(type, m_settings), m_log));
    Q_EMIT sigCalculateFixations();
}
