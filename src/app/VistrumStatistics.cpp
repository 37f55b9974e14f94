// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics: what the window calculates and writes for its panels.

#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "app/SessionRecord.h"
#include "export/AngleStarExport.h"
#include "export/panel/ExportWidget.h"
#include "settings/StoredKeys.h"
#include "statistics/StatisticsCalculation.h"

void Vistrum::sltCalculateGeneralStatistics()
{
    calculateGeneralStatistics(m_model, &m_log);
    m_session->note(recipe::Statistics{QStringLiteral("general-statistics")});
}

void Vistrum::sltCalcAOIStats()
{
    calculateAoiStatistics(m_model, &m_log);
    m_session->note(recipe::Statistics{QStringLiteral("aoi-statistics")});
}

void Vistrum::sltexport_aoi_trans_csv(const QString &stem)
{
    exportTransitions(m_model, stem, eyeMode(), m_ui->control->exportWidget().transitionChoice(), &m_log);
    noteTransitions(stem);
}

void Vistrum::sltexport_anglestar(const QString &stem)
{
    const VisualizationParameters &saccades = *drawingRecords()[DataKind::Saccades];
    exportAngleStar(m_model, stem, {saccades.numberOfHistogramBins, saccades.angleOffset});
    noteTable(QStringLiteral("anglestar"), stem);
}
