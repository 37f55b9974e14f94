// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/MillimetreQuestions.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

using namespace Qt::StringLiterals;

bool MillimetreDialogs::useLastSettings()
{
    return QMessageBox::question(m_parent, u"Use last settings"_s, u"Use last settings?"_s,
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

QString MillimetreDialogs::image(const QString &folder)
{
    return oneFile(u"Select Image File"_s, folder, u"Image (*.png *.jpg *.jpeg)"_s);
}

std::optional<int> MillimetreDialogs::length(const QString &label, int preset)
{
    constexpr int least = 1;
    constexpr int most = 5'000'000;
    bool isGiven = false;
    const int value = QInputDialog::getInt(m_parent, label, label, preset, least, most, 1, &isGiven);
    return isGiven ? std::optional(value) : std::nullopt;
}

QString MillimetreDialogs::calibration(const QString &folder)
{
    return oneFile(u"Select Ini File"_s, folder, u"Ini file for examination (*.ini)"_s);
}

QStringList MillimetreDialogs::recordings(const QString &folder)
{
    QFileDialog dialog(m_parent, u"Select Data Files"_s, folder, u"Ilmenau data file (*.txt)"_s);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QString MillimetreDialogs::correctionIni(const QString &folder)
{
    return oneFile(u"Select Ini File"_s, folder, u"Ini (*.ini)"_s);
}

QString MillimetreDialogs::oneFile(const QString &title, const QString &folder, const QString &filter)
{
    QFileDialog dialog(m_parent, title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}
