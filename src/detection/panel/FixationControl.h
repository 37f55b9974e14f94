#pragma once

#include "commands/panel/ParameterPanel.h"
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
    /// Tells the width of the stimulus; without a window, that of the last calculation counts.
    void setMainWindow(const IMainWindow *window) { m_window = window; }
    /// May be null: nothing is logged.
    void setLog(const Log *log);

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
    void sltCalculateFixations();
    void sltCiteGaussianMixtureModel();

    std::unique_ptr<Ui::FixationControl> m_ui;
    FixationSettingsModel m_settings;
    ParameterPanel m_parameters;
    DataModel *m_model = nullptr;
    const IMainWindow *m_window = nullptr;
    const Log *m_log = nullptr;
};
