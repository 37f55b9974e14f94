#pragma once

#include "commands/panel/ParameterPanel.h"
#include "detection/FixationSettingsModel.h"

#include <QWidget>

#include <memory>

class DataModel;
class Log;

namespace Ui {
class FixationControl;
}

/// The panel of the detectors: choice, parameters, and the button that calculates the fixations. The model is set after
/// construction, before the first click.
class FixationControl : public QWidget {
    Q_OBJECT
public:
    explicit FixationControl(QWidget *parent = nullptr);
    ~FixationControl() override;

    void setModel(DataModel *model) { m_model = model; }
    void setLog(const Log *log);

Q_SIGNALS:
    void sigCalculateFixations();

public Q_SLOTS:
    void sltCalculateFixations();
    /// Loads the parameters from the store and shows them.
    void sltUpdateSettings();

private:
    void bindParameters();

    std::unique_ptr<Ui::FixationControl> m_ui;
    FixationSettingsModel m_settings;
    ParameterPanel m_parameters;
    DataModel *m_model = nullptr;
    const Log *m_log = nullptr;
};
