// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/CorrectionQuestions.h"

#include "commands/panel/SaveDialog.h"
#include "settings/StoredKeys.h"

#include <QColorDialog>
#include <QFileDialog>

using namespace Qt::StringLiterals;

QString CorrectionDialogs::folder()
{
    return QFileDialog::getExistingDirectory(m_parent, u"Open Directory"_s, readStored(keys::correctionFolder),
                                             QFileDialog::ShowDirsOnly);
}

QString CorrectionDialogs::saveName(const QString &title, const QString &proposal)
{
    return chooseSaveFile(m_parent, title, proposal, u"Text files (*.txt)"_s);
}

QString CorrectionDialogs::iniFile(const QString &title)
{
    return QFileDialog::getOpenFileName(m_parent, title, readStored(keys::correctionFolder), u"Ini files (*.ini)"_s);
}

QColor CorrectionDialogs::color(const QColor &initial)
{
    return QColorDialog::getColor(initial, m_parent);
}
