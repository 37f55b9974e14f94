#pragma once

#include "commands/panel/ParameterPanel.h"
#include "detection/FixationSettingsModel.h"

#include <QWidget>

#include <memory>

namespace Ui {
class FixationControl;
}
class DataModel;

/// The panel of fixation detection: choice and parameters of the detector, and the button that runs it.
class FixationControl : public QWidget {
    Q_OBJECT
public:
    explicit FixationControl(QWidget *parent = nullptr);
    ~FixationControl() override;

    /// Without a model the button does nothing.
    void setModel(DataModel *model) { m_model = model; }
    /// May be null: nothing is logged.
    void setLog(const Log *log);

public Q_SLOTS:
    /// Reads the store and shows its values.
    void sltUpdateSettings();

Q_SIGNALS:
    /// A calculation has run.
    void sigCalculateFixations();

private:
    void sltCalculateFixations();

    std::unique_ptr<Ui::FixationControl> m_ui;
    FixationSettingsModel m_settings;
    ParameterPanel m_parameters;
    DataModel *m_model = nullptr;
    const Log *m_log = nullptr;
};
