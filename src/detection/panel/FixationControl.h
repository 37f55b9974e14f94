// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/panel/ParameterPanel.h"
#include "detection/FixationCalculationParameters.h"
#include "detection/FixationSettingsModel.h"

#include <QWidget>

#include <memory>

namespace Ui {
class FixationControl;
}
class DataModel;
class IMainWindow;

/// The panel of fixation detection: choice and parameters of the detector, and the button that runs it.
class FixationControl : public QWidget {
    Q_OBJECT
public:
    explicit FixationControl(QWidget *parent = nullptr);
    ~FixationControl() override;

    /// Without a model the button does nothing.
    void setModel(DataModel *model) { m_model = model; }
    /// Tells the width of the stimulus, and hears of results; without a window, the width of the last calculation
    /// counts.
    void setMainWindow(IMainWindow *window);
    /// Shows the width that degrees of visual angle are measured by, in px; 0 where there is no picture.
    void showStimulusWidth(int widthPx);
    /// May be null: nothing is logged.
    void setLog(const Log *log);

    const FixationSettingsModel &settings() const { return m_settings; }

public Q_SLOTS:
    /// Reads the store and shows its values.
    void sltUpdateSettings();

Q_SIGNALS:
    /// A calculation has run.
    void sigCalculateFixations();

private:
    void bindControls();
    void showBoxOf(int calculationType);
    void showGeometry(int velocityUnit);
    void tellLostChoices() const;
    void sltCalculateFixations();
    void sltCiteGaussianMixtureModel();

    std::unique_ptr<Ui::FixationControl> m_ui;
    FixationSettingsModel m_settings;
    ParameterPanel m_parameters;
    DataModel *m_model = nullptr;
    IMainWindow *m_window = nullptr;
    QStringList m_lostChoices; ///< that stood in the store and are not in force
    const Log *m_log = nullptr;
};
