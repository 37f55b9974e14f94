// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "table/DataQuality.h"

#include <QTableWidget>

/// One recording through one eye, as it was measured.
struct QualityRow {
    int number = 0; ///< running number of the examination
    QString recording;
    bool checked = true;
    Eye eye = Eye::Left;
    EyeQuality quality;
};

/// Data quality of recordings, a row for each eye. Rows stand worst first: by the number of limits that are not kept
/// to, then by the share of valid samples; a click on a column sorts by it. What is beyond a limit is marked by colour
/// and by an exclamation mark. An eye without a valid sample was not recorded and stands last.
class QualityTable : public QTableWidget {
    Q_OBJECT
public:
    enum Column { CheckedColumn = 0, NumberColumn = 1, RecordingColumn = 2, EyeColumn = 3, BeyondColumn = 4 };
    static constexpr int firstMeasure = BeyondColumn + 1;

    explicit QualityTable(QWidget *parent = nullptr);

    /// Shows these, the worst first.
    ///
    /// @param limits  a value for each of `qualityLimits`.
    void showQuality(const QList<QualityRow> &rows, const QList<double> &limits);

    /// The running numbers of the examinations of the selected rows, each once, ascending.
    QList<int> selectedNumbers() const;

    /// Selects the rows that are beyond a limit.
    void selectMarked();

    /// The measures as they stand in the columns: those with a limit first.
    static QList<Measure<EyeQuality>> shownMeasures();

private:
    void fillRow(int row, const QualityRow &measured, const QList<double> &limits);
};
