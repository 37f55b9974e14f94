// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"
#include "commands/IMainWindow.h"
#include "model/DataModel.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class CalculationControl;
class DiagramControl;
class ExaminationTableControl;
class NoticeLine;
class PictureControl;
class QUrl;
class Recorders;
class SessionControl;
class SettingsControl;
class Timeline;
class WindowExports;
class add_heatmap_aoi;

namespace Ui {
class Vistrum;
}

/// The main window: creates, connects and owns the model, the panels, and the controls of what it shows, writes and
/// remembers.
class Vistrum : public QMainWindow, public IMainWindow {
    Q_OBJECT
public:
    explicit Vistrum(QWidget *parent = nullptr);
    ~Vistrum() override;

    const DataModel &model() const { return m_model; }
    PictureControl &picture() { return *m_picture; }
    SessionControl &session() { return *m_session; }
    SettingsControl &settings() { return *m_settings; }
    /// In place of the browser.
    void setPageOpener(const std::function<void(const QUrl &)> &open);

    /// Adds recordings to the list of files and imports them: files, and what lies in folders. Other files open the
    /// assistant.
    void importFiles(const QStringList &paths);

    /// Puts the window where it was left, as large as it was.
    /// @return false at the first start.
    bool restorePlace();

    void addTableRow(const Examination &examination) override;
    void removeTableRows(const QList<int> &numbers) override;
    void refreshPlainBackground() override;
    void showImported() override;
    int stimulusWidthPx() const override;
    QPixmap stimulus() const override;
    void tell(const Notice &notice) override;
    bool hasStimulus() const override;
    void redraw() override;
    void updateAndRedraw() override;
    void holdRedraw() override;
    void releaseRedraw() override;

public Q_SLOTS:
    void sltAddAOIsHeatmap();
    void sltAddAOIsGrid();
    void sltShowTable(bool shown);
    void sltShowTimeline(bool shown);
    /// Puts the detached timeline back above the picture.
    void slt_reinsert_timeline(QWidget *timeline);
    /// Opens a recorder in a window of its own.
    void sltEyeTribeRecorder();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void makeTable();
    void makeMenus();
    void makeRegionDialog();
    void makeControls();
    void connectControls();
    void refreshGroups();
    Timeline &timeline() const;

    Log m_log;
    DataModel m_model;
    ExaminationTableControl *m_table = nullptr; ///< a child
    NoticeLine *m_notice = nullptr;             ///< a child
    std::unique_ptr<PictureControl> m_picture;
    std::unique_ptr<add_heatmap_aoi> m_regionDialog;
    std::unique_ptr<DiagramControl> m_diagram;
    std::unique_ptr<SessionControl> m_session;
    std::unique_ptr<SettingsControl> m_settings;
    std::unique_ptr<WindowExports> m_exports;
    std::unique_ptr<CalculationControl> m_calculations;
    std::unique_ptr<Recorders> m_recorders;
    std::unique_ptr<Ui::Vistrum> m_ui;
};
