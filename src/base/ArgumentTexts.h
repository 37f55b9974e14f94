// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <filesystem>
#include <map>
#include <optional>

/// The arguments of a command line as texts, which have to be valid UTF-8, whereas names of files can be any bytes. A
/// file whose name is not valid gets a link, and its argument is the link's path: what opens it need not know. So does
/// what lies beside it, such as its set file and picture. The links end with this object.
class ArgumentTexts {
public:
    /// @param arguments  as the system gave them, without the program's name.
    QStringList texts(const QByteArrayList &arguments);

    /// A text for the user with the names that the files have, in place of those of the links; bytes that are no valid
    /// text are shown as the characters of their numbers.
    QString asGiven(QString text) const;

    /// The arguments that are neither valid texts nor files: what they name could be opened or made by no such name.
    const QStringList &unusable() const { return m_unusable; }

private:
    /// Null where there is no such file, or no link can be made.
    QString linkTo(const QByteArray &path);
    QString linksBeside(const std::filesystem::path &folder);

    std::optional<QTemporaryDir> m_links; ///< has a folder for each folder of such files
    std::map<std::filesystem::path, QString> m_folders;
    QStringList m_unusable;
};
