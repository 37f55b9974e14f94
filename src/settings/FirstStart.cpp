// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FirstStart.h"

#include "base/Messages.h"
#include "settings/SettingsFile.h"
#include "settings/StoredKeys.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

void copyToStore(const QString &factoryFile)
{
    const auto lines = readSettingsFile(factoryFile);
    if (!lines) {
        messages::warning(QStringLiteral("Factory settings"),
                          QStringLiteral("The factory settings \"%1\" could not be opened. Parameters without a value "
                                         "start at zero. Please install the program again.")
                              .arg(factoryFile));
        return;
    }
    SettingsStore store;
    for (const SettingsLine &line : *lines)
        store.setValue(line.key, line.value);
}

QString firstExisting(const QStringList &places)
{
    const auto found =
        std::find_if(places.cbegin(), places.cend(), [](const QString &place) { return QFileInfo::exists(place); });
    return found == places.cend() ? QString() : QDir::cleanPath(*found);
}

QString installedFolder(const QString &programFolder)
{
    return programFolder + QStringLiteral("/../share/vistrum/");
}

} // namespace

bool applyFactorySettings(const QString &factoryFile, const QString &examplesFolder)
{
    if (readStored(keys::version) == settingsVersion)
        return false;
    copyToStore(factoryFile);
    if (readStored(keys::lastRecordingFolder).isEmpty() && !examplesFolder.isEmpty() && QDir(examplesFolder).exists())
        writeStored(keys::lastRecordingFolder, examplesFolder);
    writeStored(keys::version, settingsVersion);
    qDebug("Loaded default settings");
    return true;
}

QString findDataFile(const QString &name, const QString &programFolder)
{
    const QString beside = programFolder + QStringLiteral("/data/") + name;
    const QString found = firstExisting(
        {beside, installedFolder(programFolder) + name, QStringLiteral(VISTRUM_SOURCE_DIR "/data/") + name});
    return found.isEmpty() ? beside : found;
}

QString findDocumentation(const QString &name, const QString &programFolder)
{
    return firstExisting({programFolder + QStringLiteral("/../share/doc/Vistrum/") + name,
                          QStringLiteral(VISTRUM_SOURCE_DIR "/") + name});
}

QString findExamplesFolder(const QString &programFolder)
{
    return firstExisting({programFolder + QStringLiteral("/examples/study"),
                          installedFolder(programFolder) + QStringLiteral("examples/study"),
                          QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study")});
}
