// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/QualityTable.h"

#include "table/QualityLimits.h"

#include <QHeaderView>
#include <QItemSelection>

#include <algorithm>
#include <memory>
#include <set>

namespace {

constexpr int sortRole = Qt::UserRole;

/// Sorts by a number of its own; what has none stands behind all others.
class SortedItem : public QTableWidgetItem {
public:
    SortedItem(const QString &text, std::optional<double> sortKey) : QTableWidgetItem(text)
    {
        if (sortKey)
            setData(sortRole, *sortKey);
    }

    bool operator<(const QTableWidgetItem &other) const override
    {
        const QVariant mine = data(sortRole);
        const QVariant others = other.data(sortRole);
        if (!mine.isValid() || !others.isValid())
            return mine.isValid();
        return mine.toDouble() < others.toDouble();
    }
};

/// Numbers as users read them; the exported table has all digits.
QString shortened(std::optional<double> value)
{
    constexpr int digits = 4;
    constexpr double wholeFrom = 1000;
    if (!value)
        return QStringLiteral("-");
    return std::abs(*value) >= wholeFrom ? QString::number(*value, 'f', 0) : QString::number(*value, 'g', digits);
}

/// Dark letters on amber, whatever the palette.
void mark(QTableWidgetItem &item, const QString &limit)
{
    item.setText(item.text() + QStringLiteral(" !"));
    item.setBackground(QColor(255, 205, 120));
    item.setForeground(QColor(40, 20, 0));
    item.setToolTip(limit);
}

QString limitText(const QualityLimit &limit, double value)
{
    return QStringLiteral("%1: %2 %3 %4")
        .arg(limit.caption, limit.side == LimitSide::AtLeast ? QStringLiteral("at least") : QStringLiteral("at most"),
             QString::number(value), limit.unit);
}

const QualityLimit *limitOf(QLatin1StringView measure)
{
    const auto limits = qualityLimits();
    const auto found =
        std::find_if(limits.begin(), limits.end(), [&](const QualityLimit &limit) { return limit.measure == measure; });
    return found == limits.end() ? nullptr : &*found;
}

/// More limits beyond is worse; of as many, fewer valid samples. An eye that was not recorded stands last.
double badness(const QList<qsizetype> &broken, const EyeQuality &quality)
{
    if (!wasRecorded(quality))
        return -1;
    return static_cast<double>(broken.size()) + (1 - quality.validShare.value_or(0)) / 2;
}

} // namespace

QualityTable::QualityTable(QWidget *parent) : QTableWidget(parent)
{
    QStringList labels{tr("checked"), QStringLiteral("#"), tr("recording"), tr("eye"), tr("beyond limits")};
    for (const Measure<EyeQuality> &measure : shownMeasures())
        labels << measure.name;
    setColumnCount(static_cast<int>(labels.size()));
    setHorizontalHeaderLabels(labels);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    verticalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
}

QList<Measure<EyeQuality>> QualityTable::shownMeasures()
{
    const auto all = qualityMeasures();
    QList<Measure<EyeQuality>> measures(all.begin(), all.end());
    std::stable_partition(measures.begin(), measures.end(),
                          [](const Measure<EyeQuality> &measure) { return limitOf(measure.name) != nullptr; });
    return measures;
}

void QualityTable::showQuality(const QList<QualityRow> &rows, const QList<double> &limits)
{
    setSortingEnabled(false); // a half filled row must not wander
    setRowCount(0);
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rowCount(); ++row)
        fillRow(row, rows[row], limits);
    resizeColumnsToContents();
    setSortingEnabled(true);
    sortByColumn(BeyondColumn, Qt::DescendingOrder);
}

void QualityTable::fillRow(int row, const QualityRow &measured, const QList<double> &limits)
{
    const auto put = [&](int column, const QString &text, std::optional<double> key) {
        auto item = std::make_unique<SortedItem>(text, key);
        SortedItem *shown = item.get();
        setItem(row, column, item.release());
        return shown;
    };
    const QList<qsizetype> broken = limitsBroken(measured.quality, limits);
    put(CheckedColumn, measured.checked ? tr("yes") : tr("no"), measured.checked);
    put(NumberColumn, QString::number(measured.number), measured.number);
    setItem(row, RecordingColumn, std::make_unique<QTableWidgetItem>(measured.recording).release());
    setItem(row, EyeColumn, std::make_unique<QTableWidgetItem>(eyeWord(measured.eye)).release());
    put(BeyondColumn, wasRecorded(measured.quality) ? QString::number(broken.size()) : tr("not recorded"),
        badness(broken, measured.quality));
    const QList<Measure<EyeQuality>> measures = shownMeasures();
    for (int i = 0; i < measures.size(); ++i) {
        const std::optional<double> value = measures[i].value(measured.quality);
        QTableWidgetItem *item = put(firstMeasure + i, shortened(value), value);
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        for (const qsizetype place : broken) {
            const QualityLimit &limit = qualityLimits()[static_cast<size_t>(place)];
            if (limit.measure == measures[i].name)
                mark(*item, limitText(limit, limits[place]));
        }
    }
}

QList<int> QualityTable::selectedNumbers() const
{
    std::set<int> numbers;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        numbers.insert(item(index.row(), NumberColumn)->text().toInt());
    return {numbers.begin(), numbers.end()};
}

void QualityTable::selectMarked()
{
    QItemSelection marked;
    for (int row = 0; row < rowCount(); ++row) {
        if (item(row, BeyondColumn)->text().toInt() > 0)
            marked.select(model()->index(row, 0), model()->index(row, columnCount() - 1));
    }
    selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
}
