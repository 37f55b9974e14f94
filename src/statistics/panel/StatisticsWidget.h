// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class StatisticsWidget;
}

/// Chooses measures and asks for their calculation, which is the main window's.
class StatisticsWidget : public QWidget {
    Q_OBJECT
public:
    explicit StatisticsWidget(QWidget *parent = nullptr);
    ~StatisticsWidget() override;

Q_SIGNALS:
    void sigCalcAOIstats();
    void sigCalculateGeneralStatistics();
    void sigEnableAOIstatExport();
    void sigEnableGeneralStatisticExport();

public Q_SLOTS:
    /// Stores which measures are chosen and asks for the statistics of the areas of interest.
    void sltCalculateAOIstatistics();
    /// The same for the general statistics.
    void sltCalculateGeneralStatistics();

private:
    std::unique_ptr<Ui::StatisticsWidget> m_ui;
};
