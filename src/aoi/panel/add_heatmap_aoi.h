// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/RegionSearch.h"

#include <QGraphicsScene>
#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class addaoiheatmap;
}
class DataModel;
class IMainWindow;
class Log;
class QSpinBox;

/// The window in which regions are found in a density and become areas of interest or cumulative clusters.
///
/// A density is made, then regions are searched in it, as often as wanted; the export takes those of the last search
/// and needs a new one afterwards. Only the areas can be undone.
class add_heatmap_aoi : public QWidget {
    Q_OBJECT
public:
    using Insert = std::function<void(const QList<AreaOfInterest> &aois)>;

    explicit add_heatmap_aoi(QWidget *parent = nullptr);
    ~add_heatmap_aoi() override;

    /// Both are to outlive this window. Without either of them nothing happens.
    void setModel(DataModel *model) { m_model = model; }
    void setMainWindow(const IMainWindow *window) { m_window = window; }
    /// May be null: nothing is logged.
    void setLog(const Log *log) { m_log = log; }
    /// Takes the areas of an export.
    void setInsert(const Insert &insert) { m_insert = insert; }

    /// As the form shows them.
    RegionParameters parameters() const;
    const std::optional<RegionDensity> &density() const { return m_density; }
    const std::optional<RegionSearch> &search() const { return m_search; }
    /// Of the last search that became areas of interest.
    const std::optional<RegionParameters> &exported() const { return m_exported; }

Q_SIGNALS:
    /// Areas or clusters were made.
    void sigGenAOIs();

public Q_SLOTS:
    void sltGenHeatmap();
    void sltGenAOIs();
    void sltGenAOIsGrdient(); // sic
    void sltExport();
    void sltExportGrdient(); // sic
    void sltChangeState(int source);
    void sltchange_method(int method);

private:
    bool isReady() const { return m_model && m_window; }
    void connectForm();
    void setUpViews();
    void searchWith(RegionMethod method);
    void exportAois();
    void exportClusters();
    void finishExport();
    void showReadOuts();
    void showPreThreshold();
    void drawPreview();
    void drawRegions();
    void tell(const QString &text);

    std::unique_ptr<Ui::addaoiheatmap> m_ui;
    QGraphicsScene m_scene;
    QGraphicsScene m_legend;
    DataModel *m_model = nullptr;
    const IMainWindow *m_window = nullptr;
    const Log *m_log = nullptr;
    Insert m_insert;
    std::optional<RegionDensity> m_density;
    std::optional<RegionSearch> m_search; ///< of this density, not yet exported
    std::optional<RegionParameters> m_exported;
};
