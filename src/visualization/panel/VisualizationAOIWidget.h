// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/panel/ParameterPanel.h"
#include "visualization/parameters/AoiVisualizationParameters.h"

#include <QWidget>

#include <memory>

namespace Ui {
class VisualizationAOIWidget;
}

/// The panel of how areas of interest are drawn. A change goes into the record and the store; the picture follows when
/// "Calculate changes" is pressed. Only the options of the current mode are shown.
class VisualizationAOIWidget : public QWidget {
    Q_OBJECT
public:
    explicit VisualizationAOIWidget(QWidget *parent = nullptr);
    ~VisualizationAOIWidget() override;

    /// May be null: nothing is logged.
    void setLog(const Log *log) { m_parameters.setLog(log); }

    const AoiVisualizationParameters &parameters() const { return m_record; }

    /// Asks for a colour under a title; in place of the colour dialog.
    using TitledChooser = std::function<QColor(const QColor &start, const QString &title)>;
    void setColorChooser(const TitledChooser &chooser) { m_chooseColor = chooser; }

Q_SIGNALS:
    /// The picture is to be drawn anew.
    void sigGraphicsParametersChanged();

public Q_SLOTS:
    void sltEmitGraphicsParametersChanged() { Q_EMIT sigGraphicsParametersChanged(); }
    /// Reads the store and shows its values.
    void sltUpdateSettings();

private:
    void bindWithCommands();
    void bindWithoutCommands();
    void bindColors();
    void bindUnstored();
    void showOptions(int mode);

    std::unique_ptr<Ui::VisualizationAOIWidget> m_ui;
    AoiVisualizationParameters m_record;
    ParameterPanel m_parameters;
    TitledChooser m_chooseColor;
};
