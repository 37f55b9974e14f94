// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "clustering/ClusterSettingsModel.h"
#include "commands/panel/ParameterPanel.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ClusterControl;
}
class DataModel;
class IMainWindow;

/// The panel of fixation clusters: choice and parameters of the method, and the buttons that run it for each
/// examination or for all of them together.
class ClusterControl : public QWidget {
    Q_OBJECT
public:
    explicit ClusterControl(QWidget *parent = nullptr);
    ~ClusterControl() override;

    /// Without a model the buttons do nothing.
    void setModel(DataModel *model) { m_model = model; }
    /// Hears of results; may be null.
    void setMainWindow(IMainWindow *window) { m_window = window; }
    /// May be null: nothing is logged.
    void setLog(const Log *log) { m_parameters.setLog(log); }

    /// Of the method that is chosen.
    ClusterParameters parameters() const;

public Q_SLOTS:
    /// Reads the store and shows its values, as the construction does.
    void checkSettings();

    void sltCalculateClusters();
    void sltCalculateCumulativeClusters();
    /// The overlap method that tells the examinations apart; with another method nothing happens.
    void sltCalculateCumulativeClusters_MERIDOS();

Q_SIGNALS:
    /// A calculation has run.
    void sigCalculateClusters();
    void sigCalculateCumulativeClusters();
    /// A setting for the registry. Settings are written by their commands, so that nothing emits it.
    void sigAddToRegistry(const QString &key, const QString &value);

private:
    void showMethod(int calculationType);
    int calculationType() const;
    void calculateCumulativeClusters(const ClusterParameters &parameters);

    std::unique_ptr<Ui::ClusterControl> m_ui;
    ClusterSettingsModel m_settings;
    ParameterPanel m_parameters;
    DataModel *m_model = nullptr;
    IMainWindow *m_window = nullptr;
};
