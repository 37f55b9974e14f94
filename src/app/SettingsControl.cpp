// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SettingsDialogs.h"

#include "base/Messages.h"
#include "settings/Registry.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"

#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

namespace {

const QString settingsFilter = QStringLiteral("Settings (*.ini)");

bool holdsSettings(const QList<SettingsLine> &lines)
{
    const SettingsStore store;
    return std::any_of(lines.cbegin(), lines.cend(),
                       [&](const SettingsLine &line) { return store.contains(line.key); });
}

} // namespace

void askAndSaveSettings(QWidget *parent, const Log &log)
{
    QFileDialog dialog(parent, QStringLiteral("Save Vistrum Settings"), QStringLiteral("."), settingsFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("ini"));
    if (dialog.exec() == QDialog::Accepted && dialog.selectedFiles().size() == 1)
        Registry(log).saveSettings(dialog.selectedFiles().constFirst());
}

bool askAndLoadSettings(QWidget *parent, const Log &log)
{
    QFileDialog dialog(parent, QStringLiteral("Select Vistrum settings"), QString(), settingsFilter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().size() != 1)
        return false;
    const QString path = dialog.selectedFiles().constFirst();
    if (const auto lines = readSettingsFile(path); lines && !holdsSettings(*lines)) {
        messages::warning(QStringLiteral("Settings"),
                          QStringLiteral("\"%1\" holds no settings of this program.").arg(path));
        return false;
    }
    const QString version = readStored(keys::version);
    const bool isLoaded = Registry(log).loadSettings(path);
    writeStored(keys::version, version); // another one would reset everything at the next start
    return isLoaded;
}

bool askForReset(QWidget *parent)
{
    const auto answer = QMessageBox::question(
        parent, QStringLiteral("Settings"),
        QStringLiteral("All parameters get the values of the delivery. This cannot be undone. Go on?"),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return answer == QMessageBox::Yes;
}
