#include "settings/SettingsStore.h"

namespace {

QString &filePath()
{
    static QString path;
    return path;
}

QString userFile()
{
    return QSettings(QStringLiteral("Brennhaus Institute"), QStringLiteral("Vistrum 2014")).fileName();
}

} // namespace

SettingsStore::SettingsStore() : m_settings(filePath().isEmpty() ? userFile() : filePath(), QSettings::IniFormat) {}

void SettingsStore::useFile(const QString &path)
{
    filePath() = path;
}

QString SettingsStore::fileName() const
{
    return m_settings.fileName();
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
