// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/StoreRepair.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>

namespace {

/// Far above any store; a larger file is something else that need not be read.
constexpr qint64 largestStoreBytes = qint64{16} * 1024 * 1024;

/// A store escapes control characters: in its text they are signs of damage.
bool hasControlCharacters(const QByteArray &bytes)
{
    return std::any_of(bytes.cbegin(), bytes.cend(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < ' ' && c != '\n' && c != '\r' && c != '\t';
    });
}

/// Judged on a copy of its own, since one opening of a file finds the errors and later ones do not tell them again.
bool hasSettingsForm(const QByteArray &bytes)
{
    QTemporaryFile copy;
    if (!copy.open() || copy.write(bytes) != bytes.size())
        return true;
    copy.close();
    const QSettings settings(copy.fileName(), QSettings::IniFormat);
    (void)settings.allKeys(); // sections are not looked into before
    return settings.status() != QSettings::FormatError;
}

bool isFolderWritable(const QString &folder)
{
    return !makeFolder(folder) && QTemporaryFile(folder + QStringLiteral("/vistrum-XXXXXX")).open();
}

QString setAside(const QString &file)
{
    const QString first = file + QStringLiteral(".damaged");
    QString name = first;
    for (int i = 2; QFileInfo::exists(name); ++i)
        name = first + QString::number(i);
    return QDir().rename(file, name) ? name : QString();
}

std::unique_ptr<QTemporaryDir> usePrivateStore(const QString &original)
{
    auto folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/vistrum-XXXXXX"));
    const QString path = folder->filePath(QStringLiteral("settings.ini"));
    // Copied by hand: a copy of the file would have its permissions, too.
    if (QFile from(original); !original.isEmpty() && from.open(QIODevice::ReadOnly)) {
        QFile to(path);
        if (to.open(QIODevice::WriteOnly))
            to.write(from.readAll());
    }
    SettingsStore::useFile(path);
    return folder;
}

void warn(const QString &text)
{
    messages::warning(QStringLiteral("Settings"), text);
}

struct Words {
    QString trouble;
    QString remedy;
};

Words wordsFor(StoreState state)
{
    if (state == StoreState::Unreadable)
        return {QStringLiteral("The settings file \"%1\" cannot be read. "), QStringLiteral("make that file readable")};
    return {QStringLiteral("The settings file \"%1\" is damaged. "), QStringLiteral("repair that file")};
}

} // namespace

StoreState examineStore(const QString &file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return isFolderWritable(info.absolutePath()) ? StoreState::Usable : StoreState::Unwritable;
    if (!info.isFile() || info.size() > largestStoreBytes)
        return StoreState::Damaged;
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly))
        return StoreState::Unreadable;
    const QByteArray bytes = content.readAll();
    if (hasControlCharacters(bytes) || !hasSettingsForm(bytes))
        return StoreState::Damaged;
    const bool writable = QFile(file).open(QIODevice::ReadWrite) && isFolderWritable(info.absolutePath());
    return writable ? StoreState::Usable : StoreState::Unwritable;
}

/// The store says only that it failed; a file of its size beside it meets the same, and is told the reason.
std::optional<QString> storeProblem()
{
    SettingsStore store;
    store.sync();
    if (store.status() == QSettings::NoError)
        return std::nullopt;
    const QString path = SettingsStore::path();
    if (QFile file(path); file.exists() && !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return file.errorString();
    constexpr qsizetype roomForChanges = 4096;
    const QString beside = path + QStringLiteral(".part");
    const auto problem = replaceFile(beside, QByteArray(QFileInfo(path).size() + roomForChanges, '\n'));
    QFile::remove(beside);
    return problem.value_or(QStringLiteral("it is not writable"));
}

std::unique_ptr<QTemporaryDir> prepareStore()
{
    const QString file = SettingsStore::path();
    return prepareStore(file, examineStore(file));
}

std::unique_ptr<QTemporaryDir> prepareStore(const QString &file, StoreState state)
{
    switch (state) {
    case StoreState::Usable:
        return nullptr;
    case StoreState::Unwritable:
        warn(QStringLiteral("The settings file \"%1\" cannot be written. Changed settings hold for this run only. "
                            "Please make the file and its folder writable and start again.")
                 .arg(file));
        return usePrivateStore(file);
    case StoreState::Damaged:
    case StoreState::Unreadable:
        break;
    }
    const auto [trouble, remedy] = wordsFor(state);
    const QString aside = setAside(file);
    if (aside.isEmpty()) {
        warn(trouble.arg(file) + QStringLiteral("It could not be set aside either. The factory settings are used, and "
                                                "changes hold for this run only. Please remove the file and start "
                                                "again."));
        return usePrivateStore(QString());
    }
    warn(trouble.arg(file) +
         QStringLiteral("It was set aside as \"%1\", and the factory settings are used. To get your "
                        "own back, %2 and give it its old name, or import settings that you "
                        "saved.")
             .arg(aside, remedy));
    return nullptr;
}
