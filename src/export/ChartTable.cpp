// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/ChartTable.h"

#include "export/TidyTable.h"
#include "visualization/charts/Chart.h"
#include "visualization/charts/ChartBins.h"

QString chartTable(const Chart &chart)
{
    QStringList header{QStringLiteral("bin_start_ms")};
    for (const ChartCurve &curve : chart.curves)
        header << curve.name;
    TidyTable table(header);
    const chart::BinScale scale = chart::binScale(chart.frame, 1); // bins begin at the same times with any window
    for (int bin = 0; bin < chart::binCount; ++bin) {
        QStringList row{TidyTable::number(scale.startMs + bin * scale.msPerBin)};
        for (const ChartCurve &curve : chart.curves)
            row << TidyTable::number(curve.bins[bin]);
        table.addRow(row);
    }
    return table.text();
}
