// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/LayoutForm.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace {

using namespace Qt::Literals::StringLiterals;

bool isLog(const TableLayout &layout)
{
    return layout.kind == TableKind::EventLog;
}

bool isShown(const LayoutField &field, const TableLayout &layout)
{
    return field.of == LayoutField::Of::Both || (field.of == LayoutField::Of::Logs) == isLog(layout);
}

} // namespace

LayoutForm::LayoutForm(QWidget *parent) : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    for (const LayoutField &field : layoutFields())
        addRow(*grid, field);
    grid->setRowStretch(grid->rowCount(), 1);
    clear();
}

void LayoutForm::addRow(QGridLayout &grid, const LayoutField &field)
{
    Row row{&field, new QLabel(field.label, this), makeEditor(field), new QLabel(this)};
    row.label->setBuddy(row.editor);
    row.label->setToolTip(field.help);
    row.editor->setToolTip(field.help);
    row.editor->setObjectName(field.key);
    row.certainty->setObjectName("certainty of "_L1 + field.key);
    const int line = grid.rowCount();
    grid.addWidget(row.label, line, 0);
    grid.addWidget(row.editor, line, 1);
    grid.addWidget(row.certainty, line, 2);
    m_rows << row;
}

QWidget *LayoutForm::makeEditor(const LayoutField &field)
{
    if (field.kind == LayoutField::Kind::Text && !field.words) {
        auto *line = new QLineEdit(this);
        connect(line, &QLineEdit::editingFinished, this, [this, line, &field] {
            if (line->isModified())
                Q_EMIT changed(field, line->text());
        });
        return line;
    }
    auto *box = new QComboBox(this);
    constexpr int leastLetters = 10;
    box->setMinimumContentsLength(leastLetters);
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    const bool isOpen = field.kind != LayoutField::Kind::Word;
    box->setEditable(isOpen);
    connect(box, &QComboBox::textActivated, this, [this, &field](const QString &text) { Q_EMIT changed(field, text); });
    if (isOpen) {
        box->setInsertPolicy(QComboBox::NoInsert);
        connect(box->lineEdit(), &QLineEdit::editingFinished, this, [this, box, &field] {
            if (box->lineEdit()->isModified())
                Q_EMIT changed(field, box->lineEdit()->text());
        });
    }
    return box;
}

bool LayoutForm::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Wheel || !control || control->hasFocus())
        return QWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

void LayoutForm::show(const ImportSession &session, qsizetype table)
{
    setEnabled(true);
    for (const Row &row : std::as_const(m_rows)) {
        const bool shown = isShown(*row.field, session.tables()[table].layout);
        for (QWidget *widget : {static_cast<QWidget *>(row.label), row.editor, static_cast<QWidget *>(row.certainty)})
            widget->setVisible(shown);
        if (shown)
            fill(row, session, table);
    }
}

void LayoutForm::clear()
{
    setEnabled(false);
}

void LayoutForm::fill(const Row &row, const ImportSession &session, qsizetype table) const
{
    const QSignalBlocker blocker(row.editor);
    const QString text = row.field->read(session.tables()[table].layout);
    if (auto *line = qobject_cast<QLineEdit *>(row.editor)) {
        line->setText(text);
    } else if (auto *box = qobject_cast<QComboBox *>(row.editor)) {
        box->clear();
        box->addItems(session.suggestions(table, *row.field));
        box->setCurrentIndex(box->findText(text));
        if (box->isEditable()) {
            const QSignalBlocker lineBlocker(box->lineEdit());
            box->setEditText(text);
        }
    }
    const LayoutChoice *choice = session.choice(table, row.field->key);
    row.certainty->setText(choice ? u"%1 %"_s.arg(qRound(choice->certainty * 100)) : QString());
    const QString reason = choice ? choice->reason : QString();
    row.certainty->setToolTip(reason);
    row.editor->setToolTip(reason.isEmpty() ? QString(row.field->help) : QString(row.field->help) + u'\n' + reason);
    const bool isUnsure = choice && choice->certainty < LayoutGuess::certaintyLimit;
    row.certainty->setStyleSheet(isUnsure ? u"QLabel { background-color: #b8312f; color: white; padding: 1px 3px; }"_s
                                          : QString());
}
