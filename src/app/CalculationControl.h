// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class DataModel;
class IMainWindow;
class Log;
class PictureControl;
class SessionControl;
class controlWidget;

/// What follows a calculation, or an import that comes with results: tables that can be exported now, a picture that is
/// drawn anew, saccade clusters that do not count any more. Statistics are calculated here.
class CalculationControl : public QObject {
    Q_OBJECT
public:
    /// All outlive this.
    struct Sources {
        DataModel &model;
        PictureControl &picture;
        SessionControl &session;
        controlWidget &control;
        const Log &log;
        IMainWindow &window;
    };
    explicit CalculationControl(const Sources &sources);

public Q_SLOTS:
    void sltCalculateFixations();
    void sltCalculateClusters();
    void sltCalculateCumulativeClusters();
    void sltCalculateGeneralStatistics();
    void sltCalcAOIStats();

Q_SIGNALS:
    void sigEnable_trans_matrix_export();
    void sigEnable_fixation_export();
    void sigEnable_cumulativecluster_export();
    void sigEnable_event_export();
    void sigEnable_fixationcluster_export();
    void sigSetSaccadeClusterStatusNone();

private:
    void connectCalculations();
    void connectExports();
    void followImport();
    void followDrawing();
    void tellSaccadeClusters();
    /// @param what  has been calculated, over the checked recordings.
    void tellStatistics(const QString &what);

    Sources m_sources;
};
