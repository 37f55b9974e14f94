// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/IMainWindow.h"
#include "report/ReportRecords.h"

#include <QObject>

class Log;
class PictureControl;
class SessionControl;
class add_heatmap_aoi;
class controlWidget;

/// What the window writes for the export panel, each into the file or to the stem of files that the panel names: the
/// picture, the video, charts, and the tables that rest on what is drawn.
class WindowExports : public QObject {
    Q_OBJECT
public:
    /// All outlive this.
    struct Sources {
        PictureControl &picture;
        SessionControl &session;
        controlWidget &control;
        const add_heatmap_aoi &regions; ///< tells how areas were made, for the report
        const Log &log;
        QWidget &window; ///< parent of dialogs
    };
    explicit WindowExports(const Sources &sources);

public Q_SLOTS:
    /// The tables of transitions that the export panel has chosen, of the eyes that are shown.
    void sltexport_aoi_trans_csv(const QString &stem);
    void sltexport_anglestar(const QString &stem);
    /// The scene as it is shown.
    void sltExportImage(const QString &path);
    /// The view stands as it is meanwhile: frames have a scene of their own.
    void sltexport_video(const QString &path);
    // Charts of what the panels choose.
    void sltExportSaccadenHistogram(const QString &path);
    void sltExportSaccadenHistogramsep(const QString &path);
    void sltExportSaccadenFixationHistogramsep(const QString &path);
    void sltExportFixationHistogram(const QString &path);
    void sltExportFixationHistogramsep(const QString &path);
    void sltExportAOITimeTransHistogram(const QString &path);
    void sltExportAOIFixationHistogram(const QString &path);
    void sltExportAOITransitionHistogram(const QString &path);
    void sltExportAOIFixationShareHistogram(const QString &path);

Q_SIGNALS:
    /// For the status bar.
    void told(const Notice &notice);

private:
    void exportChart(const QString &kind, const QString &path);
    ReportRecords reportRecords() const;

    Sources m_sources;
};
