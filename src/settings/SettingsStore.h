// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>
#include <QStringList>
#include <QVariant>

/// The persistent store of all parameters and last used folders. Objects are short-lived: each opens the store where it
/// is needed, and what one writes the next one reads.
///
/// The store is the user's own unless `useFile` named another, as the batch tool and the tests do.
class SettingsStore {
public:
    SettingsStore();

    /// From now on all stores of the process are the ini file of this path; an empty path means the user's own again.
    static void useFile(const QString &path);

    /// Path of the file in which the store is kept; tells it without opening the file.
    static QString path();

    /// A missing key gives an invalid variant, which reads as 0, false or an empty text. No value is a list: text with
    /// commas that was written into the file by hand, without quotes, is text here as well.
    QVariant value(const QString &key) const;
    void setValue(const QString &key, const QVariant &value);
    bool contains(const QString &key) const;
    QStringList allKeys() const;

    /// Writes what is pending and reads what other processes wrote.
    void sync();
    QSettings::Status status() const;
    bool isWritable() const;

private:
    mutable QSettings m_settings;
};
