// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramStart.h"

#include "base/Release.h"

#include <QFileInfo>

#include <algorithm>

std::optional<QString> answerOfStart(const QByteArrayList &arguments)
{
    const auto isGiven = [&](const char *name, const char *letter) {
        return arguments.contains(name) || arguments.contains(letter);
    };
    if (isGiven("--help", "-h"))
        return QStringLiteral(
            "vistrum [options] [FILE or FOLDER]...\n"
            "Opens the window and imports recordings: files, and what lies in folders. Tables of "
            "other programs open\nthe assistant.\n\n"
            "  -h, --help     Write this text and end.\n"
            "  -v, --version  Write the version and end.\n\n"
            "Options of the toolkit, such as -style NAME, are taken, too. vistrum-batch works without "
            "a window.\n");
    if (isGiven("--version", "-v"))
        return QStringLiteral("vistrum 0.2014\nrelease %1\n").arg(releaseText());
    return {};
}

std::optional<QString> unknownOption(const QStringList &arguments)
{
    const auto option = std::ranges::find_if(
        arguments, [](const QString &argument) { return argument.startsWith(u'-') && !QFileInfo::exists(argument); });
    return option == arguments.end() ? std::nullopt : std::optional(*option);
}
