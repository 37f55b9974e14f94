// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsStore.h"

#include <QStandardPaths>

namespace {

QString &filePath()
{
    static QString path;
    return path;
}

/// The place that Qt gives the settings of an organisation's application. Not asked of QSettings, which would read the
/// file to tell its name.
QString userFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Brennhaus Institute/Vistrum 2014.conf");
}

} // namespace

SettingsStore::SettingsStore() : m_settings(path(), QSettings::IniFormat) {}

QString SettingsStore::path()
{
    return filePath().isEmpty() ? userFile() : filePath();
}

void SettingsStore::useFile(const QString &path)
{
    filePath() = path;
}

QVariant SettingsStore::value(const QString &key) const
{
    QVariant stored = m_settings.value(key);
    if (stored.typeId() == QMetaType::QStringList)
        return stored.toStringList().join(QStringLiteral(", "));
    return stored;
}

void SettingsStore::setValue(const QString &key, const QVariant &value)
{
    m_settings.setValue(key, value);
}

bool SettingsStore::contains(const QString &key) const
{
    return m_settings.contains(key);
}

QStringList SettingsStore::allKeys() const
{
    return m_settings.allKeys();
}

void SettingsStore::sync()
{
    m_settings.sync();
}

QSettings::Status SettingsStore::status() const
{
    return m_settings.status();
}

bool SettingsStore::isWritable() const
{
    return m_settings.isWritable();
}
