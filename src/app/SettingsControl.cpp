// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SettingsControl.h"

#include "base/BoundedFile.h"
#include "base/Messages.h"
#include "commands/panel/SaveDialog.h"
#include "rules/SettingsCheck.h"
#include "settings/FirstStart.h"
#include "settings/Registry.h"
#include "settings/StoredKeys.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace {

const QString settingsFilter = QStringLiteral("Settings (*.ini)");

/// Tells what keeps the file from being taken.
bool holdsUsableSettings(const QString &path, const SettingsCheck &check)
{
    if (check.problem) {
        messages::warning(QStringLiteral("Settings"),
                          QStringLiteral("%1, line %2: %3. Nothing was changed.")
                              .arg(path, QString::number(check.problem->line), check.problem->text));
        return false;
    }
    if (check.lines.isEmpty())
        messages::warning(QStringLiteral("Settings"),
                          QStringLiteral("\"%1\" holds no settings of this program.").arg(path));
    return !check.lines.isEmpty();
}

} // namespace

void SettingsControl::sltSaveRegistry()
{
    const QString path =
        chooseSaveFile(&m_window, QStringLiteral("Save Vistrum Settings"), QStringLiteral("."), settingsFilter);
    if (!path.isEmpty())
        save(path);
}

/// A store that was edited by hand, or filled by an older version, may hold what an import refuses: what is saved can
/// be taken back.
void SettingsControl::save(const QString &path)
{
    const auto rules = settingRules();
    const bool isSaved = Registry(m_log).saveSettings(
        path, [&](const QString &key, const QString &value) { return rules.value(key).nearest(value); });
    if (isSaved)
        Q_EMIT told({QStringLiteral("Settings saved to: ") + path, {}, {}});
}

void SettingsControl::sltImportRegistry()
{
    QFileDialog dialog(&m_window, QStringLiteral("Select Vistrum settings"), QString(), settingsFilter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().size() != 1)
        return;
    if (load(dialog.selectedFiles().constFirst()))
        Q_EMIT sigUpdateSettings();
}

/// @return whether the store may have changed.
bool SettingsControl::load(const QString &path) const
{
    const std::variant<QByteArray, QString> read = readBounded(path, largestDescription);
    std::optional<SettingsCheck> check;
    if (const auto *bytes = std::get_if<QByteArray>(&read))
        check = checkSettings(*bytes);
    if (check && !holdsUsableSettings(path, *check))
        return false;
    const QString version = readStored(keys::version);
    const bool isLoaded = Registry(m_log).loadSettings(path);
    writeStored(keys::version, version); // another one would reset everything at the next start
    if (check)
        tellPassedOver(path, *check);
    return isLoaded;
}

void SettingsControl::sltLoadDefaultSettings()
{
    Registry(m_log).loadSettings(
        findDataFile(QStringLiteral("factory_settings.ini"), QCoreApplication::applicationDirPath()));
    Q_EMIT sigUpdateSettings();
}

void SettingsControl::sltResetSettings()
{
    const auto answer = QMessageBox::question(
        &m_window, QStringLiteral("Settings"),
        QStringLiteral("All parameters get the values of the delivery. This cannot be undone. Go on?"),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes)
        sltLoadDefaultSettings();
}
