// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/SetFileEntries.h"

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QTableWidget;

/// Asks for what the set file beside a new recording says: subject, picture and free fields. Only what such a file can
/// hold is accepted.
class SetFileDialog : public QDialog {
    Q_OBJECT
public:
    /// @param dataFile  the recording.
    /// @param picture   path of the picture that is proposed; may be empty.
    SetFileDialog(const QString &dataFile, const QString &picture, QWidget *parent = nullptr);

    SetFileEntries entries() const;

    /// Where the file will lie.
    QString setFile() const;

private:
    void makeForm(const QString &picture);
    void makeTable();
    void choosePicture();
    void check();

    QString m_dataFile;
    QLineEdit *m_subject; ///< these are children
    QComboBox *m_dominantEye;
    QLineEdit *m_group;
    QLineEdit *m_picture;
    QTableWidget *m_fields;
    QLabel *m_fault;
    QDialogButtonBox *m_buttons;
};
