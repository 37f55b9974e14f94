// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/filterDialog.h"

#include "commands/CommandStack.h"
#include "table/panel/CommandFilter.h"
#include "table/panel/ExaminationTableControl.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int lineCharacters = 32; ///< that can be seen of a value

} // namespace

filterDialog::filterDialog(const QStringList &labels, ExaminationTableControl &table, QWidget *parent)
    : QDialog(parent)
    , m_table(table)
    , m_oldFilter(table.filter())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("filterDialog"));
    setWindowTitle(QStringLiteral("Filter"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeForm(labels));
    layout->addWidget(makeButtons());
}

/// Scrolls where there are more properties than the screen has room for.
QWidget *filterDialog::makeForm(const QStringList &labels)
{
    auto *area = new QScrollArea(this);
    auto *page = new QWidget(area);
    auto *form = new QFormLayout(page);
    for (const QString &label : labels)
        addLine(*form, label, label, tr("Only examinations with exactly this value stay checked"));
    addLine(*form, durationFilterKey, QStringLiteral("Time (<Value or >Value):"),
            tr("In ms: >1000 keeps what takes longer than a second, <1000 what takes less"));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // the first line has it when the dialog opens
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(page);
    area->setMinimumWidth(page->sizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
}

void filterDialog::addLine(QFormLayout &form, const QString &key, const QString &label, const QString &toolTip)
{
    auto *caption = new QLabel(label, form.parentWidget());
    caption->setTextFormat(Qt::PlainText); // "<Value or >" is no markup, and properties may hold anything
    auto *line = new QLineEdit(m_oldFilter.value(key), form.parentWidget());
    line->setToolTip(toolTip);
    line->setMinimumWidth(fontMetrics().averageCharWidth() * lineCharacters);
    line->setAccessibleName(label);
    form.addRow(caption, line);
    m_lines.insert(key, line);
}

QWidget *filterDialog::makeButtons()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addStretch();
    const auto addButton = [&](const QString &name, const QString &text) {
        auto *button = new QPushButton(text, row);
        button->setObjectName(name);
        layout->addWidget(button);
        return button;
    };
    QPushButton *ok = addButton(QStringLiteral("okButton"), QStringLiteral("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &filterDialog::sltConfirmFilter);
    connect(addButton(QStringLiteral("cancelButton"), QStringLiteral("Cancel")), &QPushButton::clicked, this,
            &filterDialog::reject);
    return row;
}

void filterDialog::sltConfirmFilter()
{
    ExaminationFilter filter;
    for (auto line = m_lines.cbegin(); line != m_lines.cend(); ++line) {
        if (const QString value = line.value()->text(); !value.isEmpty())
            filter.insert(line.key(), value);
    }
    CommandStack::instance().push(new CommandFilter(m_oldFilter, filter, m_table));
    accept(); // destroys the dialog
}
