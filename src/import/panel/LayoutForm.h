// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/ImportSession.h"

#include <QWidget>

class QGridLayout;
class QLabel;

/// The choices of a layout as controls, one a line, with how sure each is and why.
class LayoutForm : public QWidget {
    Q_OBJECT
public:
    explicit LayoutForm(QWidget *parent = nullptr);

    /// Shows the choices of a table that can be read.
    void show(const ImportSession &session, qsizetype table);
    /// Nothing can be chosen.
    void clear();

Q_SIGNALS:
    /// The user has chosen.
    void changed(const LayoutField &field, const QString &text);

protected:
    /// The wheel scrolls the form; a choice under the mouse takes it only once it has the focus.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Row {
        const LayoutField *field;
        QLabel *label;
        QWidget *editor;
        QLabel *certainty;
    };

    void addRow(QGridLayout &grid, const LayoutField &field);
    QWidget *makeEditor(const LayoutField &field);
    void fill(const Row &row, const ImportSession &session, qsizetype table) const;

    QList<Row> m_rows;
};
