// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/MethodsText.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QPlainTextEdit;

/// The methods section as a text that can be edited, copied and saved.
class MethodsWindow : public QDialog {
    Q_OBJECT
public:
    /// Asks where to save; empty: nowhere.
    using FileChooser = std::function<QString(const QString &proposed)>;

    MethodsWindow(const MethodsRecord &record, QWidget *parent);

    /// Replaces the file dialog.
    void setFileChooser(FileChooser choose) { m_choose = std::move(choose); }

    /// The text as it stands there now.
    QString text() const;

private:
    void write();
    void copy() const;
    void save();

    const MethodsRecord m_record;
    FileChooser m_choose;
    QComboBox *m_format;    ///< a child
    QPlainTextEdit *m_text; ///< a child
};
