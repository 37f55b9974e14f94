// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ArgumentTexts.h"

#include "base/FileReplacement.h"

#include <QFileInfo>
#include <QUtf8StringView>

namespace {

namespace fs = std::filesystem;

/// The name as it is where it is valid; otherwise each byte is the character of that number.
QString textOf(const fs::path &name)
{
    const QByteArray bytes(name.c_str());
    return QUtf8StringView(bytes).isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

void linkAll(const fs::path &from, const QString &folder)
{
    std::error_code problem;
    for (const fs::directory_entry &entry : fs::directory_iterator(from, problem)) {
        const QString link = folder + u'/' + textOf(entry.path().filename());
        fs::create_symlink(fs::absolute(entry.path()), fs::path(link.toStdString()), problem);
    }
}

} // namespace

QStringList ArgumentTexts::texts(const QByteArrayList &arguments)
{
    QStringList texts;
    for (const QByteArray &argument : arguments) {
        const bool isValid = QUtf8StringView(argument).isValidUtf8();
        const QString link = isValid ? QString() : linkTo(argument);
        texts << (link.isNull() ? QString::fromLocal8Bit(argument) : link);
        if (link.isNull() && !isValid)
            m_unusable << textOf(argument.toStdString());
    }
    return texts;
}

QString ArgumentTexts::asGiven(QString text) const
{
    for (const auto &[folder, links] : m_folders)
        text.replace(links + u'/', textOf(folder) + u'/');
    return text;
}

QString ArgumentTexts::linkTo(const QByteArray &path)
{
    const fs::path file(path.toStdString());
    std::error_code problem;
    if (!fs::exists(file, problem))
        return {};
    const QString link = linksBeside(fs::absolute(file).parent_path()) + u'/' + textOf(file.filename());
    return QFileInfo::exists(link) ? link : QString();
}

QString ArgumentTexts::linksBeside(const fs::path &folder)
{
    QString &links = m_folders[folder];
    if (links.isNull()) {
        if (!m_links)
            m_links.emplace();
        links = m_links->filePath(QString::number(m_folders.size()));
        if (!makeFolder(links))
            linkAll(folder, links);
    }
    return links;
}
