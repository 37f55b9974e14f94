// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/ColumnPlan.h"

#include "import/tables/TableFields.h"

#include <algorithm>

namespace {

class ColumnPlanner {
public:
    ColumnPlanner(const QStringList &names, qsizetype line) : m_names(names), m_line(line) {}

    /// The place of a column among the kept ones; -1 if it is not given or not found.
    int keep(const TableColumn &column, ColumnPlan::Use use)
    {
        const qsizetype field = fieldOf(column);
        if (field < 0)
            return -1;
        while (plan.kept.size() <= field)
            plan.kept << qint16(-1);
        if (plan.kept[field] < 0) {
            plan.kept[field] = static_cast<qint16>(plan.uses.size());
            plan.uses << quint8(ColumnPlan::Skip);
            plan.fields << static_cast<qint16>(field);
        }
        const int place = plan.kept[field];
        plan.uses[place] = static_cast<quint8>(plan.uses[place] | use);
        return place;
    }

    ColumnPlan::Eye keep(const TableEyeColumns &columns)
    {
        return {keep(columns.x, ColumnPlan::Number), keep(columns.y, ColumnPlan::Number),
                keep(columns.pupil, ColumnPlan::Number), keep(columns.pupilHeight, ColumnPlan::Number),
                keep(columns.validity, ColumnPlan::Text)};
    }

    ColumnPlan plan;
    std::optional<TableProblem> problem;

private:
    qsizetype fieldOf(const TableColumn &column)
    {
        if (!column.isGiven())
            return -1;
        if (column.number > 0) {
            if (!m_names.isEmpty() && column.number > m_names.size())
                fail(QStringLiteral("%1 columns").arg(m_names.size()),
                     QStringLiteral("at least %1").arg(column.number));
            return column.number - 1;
        }
        const qsizetype first = m_names.indexOf(column.name);
        if (first < 0)
            fail(QStringLiteral("the columns ") + shortList(), QStringLiteral("a column \"%1\"").arg(column.name));
        else if (m_names.indexOf(column.name, first + 1) >= 0)
            fail(QStringLiteral("the column \"%1\" more than once").arg(column.name),
                 QStringLiteral("one of this name"));
        return first;
    }

    QString shortList() const
    {
        constexpr qsizetype shown = 20;
        const QString list = m_names.first(std::min(shown, m_names.size())).join(QStringLiteral(", "));
        return m_names.size() > shown ? list + QStringLiteral(", ...") : list;
    }

    void fail(const QString &found, const QString &expected)
    {
        if (!problem)
            problem = TableProblem{.line = m_line,
                                   .found = found,
                                   .expected = expected,
                                   .remedy = QStringLiteral("Choose the columns in the layout, by name or number.")};
    }

    const QStringList &m_names;
    qsizetype m_line;
};

} // namespace

std::variant<ColumnPlan, TableProblem> columnPlan(const TableLayout &layout, const QStringList &names, qsizetype line)
{
    if (names.size() > mostTableColumns)
        return TableProblem{.line = line,
                            .found = QStringLiteral("more than %1 columns").arg(mostTableColumns),
                            .expected = QStringLiteral("a table of samples"),
                            .remedy = QStringLiteral("Choose the delimiter of the layout anew.")};
    ColumnPlanner planner(names, line);
    planner.plan.fieldCount = names.size();
    planner.plan.time = planner.keep(layout.time, ColumnPlan::Time);
    planner.plan.eyes = {planner.keep(layout.left), planner.keep(layout.right)};
    planner.plan.eye = planner.keep(layout.eye.column, ColumnPlan::Text);
    for (const TableColumn &column : layout.split)
        planner.plan.split << planner.keep(column, ColumnPlan::Text);
    for (const TableSetColumn &column : layout.set)
        planner.plan.set << planner.keep(column.column, ColumnPlan::Text);
    if (planner.problem)
        return *planner.problem;
    return planner.plan;
}

QList<TableColumn> columnsOf(const TableLayout &layout)
{
    QList<TableColumn> columns{layout.time, layout.eye.column};
    for (const TableEyeColumns &eye : layout.eyes())
        columns << eye.x << eye.y << eye.pupil << eye.pupilHeight << eye.validity;
    columns += layout.split;
    for (const TableSetColumn &column : layout.set)
        columns << column.column;
    columns.removeIf([](const TableColumn &column) { return !column.isGiven(); });
    return columns;
}

bool hasNames(const QStringList &names, const TableLayout &layout)
{
    return std::ranges::all_of(columnsOf(layout), [&](const TableColumn &column) {
        return column.name.isEmpty() || names.contains(column.name);
    });
}
