// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/panel/ParameterPanel.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QGraphicsScene>
#include <QWidget>

#include <memory>

class DataModel;
class OptionForm;
struct AdjustableColorMap;
struct HeatmapFigures;
struct VisualizationKind;

namespace Ui {
class VisualizationWidget;
}

/// The panel of one kind of data: how it is drawn. It owns the record that the drawing reads.
///
/// Changes collect in the record, and the picture follows when the user asks for it with "Calculate changes". Only the
/// options of the current mode are shown, under the names that they have there.
class VisualizationWidget : public QWidget {
    Q_OBJECT
public:
    explicit VisualizationWidget(QWidget *parent = nullptr);
    ~VisualizationWidget() override;

    /// Makes this the panel of the kind: its keys, its modes and the label of its size. To be called once, before
    /// anything else.
    void setKind(const VisualizationKind &kind);
    /// Where the groups are; without a model there are none.
    void setModel(const DataModel *model) { m_model = model; }
    /// May be null: nothing is logged.
    void setLog(const Log *log);
    /// Replaces the colour dialogs.
    void setColorChooser(const ColorChooser &chooser);

    const VisualizationParameters &parameters() const { return m_record; }

    /// Lists the model's groups anew.
    void refreshGroups();

    /// Labels the colours of the heatmap that was drawn.
    void showFigures(const HeatmapFigures &figures);

Q_SIGNALS:
    /// The user wants the picture to follow the parameters.
    void sigGraphicsParametersChanged();
    /// @param id  0 gaze points, 1 fixations, 2 clusters, 3 saccades.
    void sigExportheatmap(int id);

public Q_SLOTS:
    /// Reads the store and shows its values.
    void sltUpdateSettings();
    void sltExportheatmap();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void bindNumbers();
    void bindFlags();
    void bindColors();
    void bindColorMap();
    void bindWithoutKeys();

    void takeStartValues();
    void applyLayout();
    void showColorTable();

    void sltFixHeatmapinPercentage();
    void clearFigures();
    void sltGroupsSelectComboBoxChanged(const QString &name);
    void sltShowShadowMap(int shadow);
    void sltShadowMapPower_update();
    void sltsacchkboxes();
    void sltColorMapChanged();
    void sltColorMapChangedApply();
    AdjustableColorMap shownColorMap() const;
    void showColorMap(const AdjustableColorMap &map);

    std::unique_ptr<Ui::VisualizationWidget> m_ui;
    VisualizationParameters m_record;
    ParameterPanel m_parameters;
    std::unique_ptr<OptionForm> m_options;
    QGraphicsScene m_colorMapScene;
    ColorChooser m_chooseColor;
    ColorChooser m_chooseMapColor; ///< with its opacity, of which the map has no use
    const DataModel *m_model = nullptr;
    const Log *m_log = nullptr;
    bool m_previewIsSetUp = false;
};
