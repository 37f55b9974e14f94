// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/panel/FixationControl.h"

#include "base/Messages.h"
#include "commands/IMainWindow.h"
#include "detection/panel/FixationCommands.h"
#include "ui_FixationControl.h"

FixationControl::FixationControl(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::FixationControl>())
    , m_settings(initialFixationSettings())
{
    m_ui->setupUi(this);
    for (const QLatin1StringView &type : calculationTypeNames)
        m_ui->Fix_comboBox->addItem(type);
    m_ui->Fix_comboBox->setPlaceholderText(calculationTypeNames[0]); // what runs without a current item
    for (const QLatin1StringView &unit : velocityUnitNames)
        m_ui->comboVelocityUnit->addItem(unit);
    bindControls();
    showBoxOf(m_ui->Fix_comboBox->currentIndex());
    showGeometry(m_ui->comboVelocityUnit->currentIndex());
    m_ui->toolButton->setFocusPolicy(Qt::StrongFocus); // a click completes the number that is being typed
    connect(m_ui->toolButton, &QToolButton::clicked, this, &FixationControl::sltCalculateFixations);
    connect(m_ui->citeButton, &QPushButton::clicked, this, &FixationControl::sltCiteGaussianMixtureModel);
}

void FixationControl::bindControls()
{
    m_parameters.bind<rows::calculationType>(m_ui->Fix_comboBox, m_settings);
    m_parameters.bind<rows::standardMinimumDuration>(m_ui->s_spinBox_dur, m_settings);
    m_parameters.bind<rows::standardMaximumRadius>(m_ui->s_spinBox_rad, m_settings);
    m_parameters.bind<rows::standardOutliers>(m_ui->s_spinBox_out, m_settings);
    m_parameters.bind<rows::gaussianMinimumDuration>(m_ui->minDurationGauss, m_settings);
    m_parameters.bind<rows::gaussianMergeSequential>(m_ui->mergeGauss, m_settings);
    m_parameters.bind<rows::velocityMinimumDuration>(m_ui->minVelocityDuration, m_settings);
    m_parameters.bind<rows::velocityThreshold>(m_ui->velocityThreshold, m_settings);
    m_parameters.bind<rows::velocityScreenDistance>(m_ui->screenDistance, m_settings);
    m_parameters.bind<rows::velocityImageSize>(m_ui->imgSize, m_settings);
    m_parameters.bind<rows::velocityUnit>(m_ui->comboVelocityUnit, m_settings);
    m_parameters.whenShown<rows::calculationType>([this](int type) { showBoxOf(type); });
    m_parameters.whenShown<rows::velocityUnit>([this](int unit) { showGeometry(unit); });
}

/// Without a type the standard detector runs, and its box shows with what.
void FixationControl::showBoxOf(int calculationType)
{
    QGroupBox *const boxes[] = {m_ui->standardBox, m_ui->gaussianBox, m_ui->velocityBox};
    const bool isKnown = calculationType >= 0 && calculationType < static_cast<int>(std::size(boxes));
    QGroupBox *const current = boxes[isKnown ? calculationType : 0];
    for (QGroupBox *box : boxes)
        box->setVisible(box == current);
}

void FixationControl::showGeometry(int velocityUnit)
{
    const bool isAngle = velocityUnit == static_cast<int>(VelocityUnit::DegreePerS);
    QWidget *const widgets[] = {m_ui->screenDistanceLabel, m_ui->screenDistance, m_ui->imgSizeLabel, m_ui->imgSize,
                                m_ui->imageWidthLabel,     m_ui->imageWidth};
    for (QWidget *widget : widgets)
        widget->setVisible(isAngle);
}

FixationControl::~FixationControl() = default;

void FixationControl::showStimulusWidth(int widthPx)
{
    m_ui->imageWidth->setText(widthPx > 0 ? QStringLiteral("%1 px").arg(widthPx) : QStringLiteral("unknown"));
}

void FixationControl::setLog(const Log *log)
{
    m_log = log;
    m_parameters.setLog(log);
}

void FixationControl::setMainWindow(IMainWindow *window)
{
    m_window = window;
    tellLostChoices();
}

void FixationControl::tellLostChoices() const
{
    if (m_window && !m_lostChoices.isEmpty())
        m_window->tell({QStringLiteral("The choice of the detector was not taken over"), m_lostChoices, {}});
}

void FixationControl::sltUpdateSettings()
{
    const LostFixationChoices lost = lostFixationChoices();
    m_lostChoices = {lost.detector, lost.velocityUnit};
    m_lostChoices.removeAll(QString());
    loadFixationSettings(m_settings);
    m_parameters.refresh(m_settings, rows::fixation);
    tellLostChoices();
}

void FixationControl::sltCalculateFixations()
{
    if (!m_model)
        return;
    // What the combo box shows counts, not the record: without a current item the standard detector runs.
    const int type = calculationTypeNamed(m_ui->Fix_comboBox->currentText());
    const FixationCalculationParameters parameters = calculationParameters(type, m_settings);
    if (!canCalculateFixations(parameters, m_window))
        return;
    const RedrawHold once(m_window); // the command draws, and so do those who hear the signal
    CommandStack::instance().push(new CommandCalculateFixations(*m_model, parameters, m_window, m_log));
    Q_EMIT sigCalculateFixations();
}

void FixationControl::sltCiteGaussianMixtureModel()
{
    messages::information(
        QStringLiteral("How to cite the Gaussian Mixture Model"),
        QStringLiteral(
            "Fitting of a mixture by expectation maximisation:\n"
            "Dempster, A. P., Laird, N. M., Rubin, D. B. (1977). Maximum likelihood from incomplete data via "
            "the EM algorithm. Journal of the Royal Statistical Society, Series B, 39(1), 1-38.\n\n"
            "Fixations and saccades as two Gaussian distributions of eye velocity:\n"
            "Salvucci, D. D., Goldberg, J. H. (2000). Identifying fixations and saccades in eye-tracking "
            "protocols. Proceedings of the Symposium on Eye Tracking Research and Applications (ETRA), "
            "71-78."));
}
