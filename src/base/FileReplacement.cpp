// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileReplacement.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <system_error>

namespace {

/// Where the file grows that will replace a link: beside it, since a file cannot be renamed into another volume.
QString besideLink(const QString &path)
{
    return path + QStringLiteral(".part");
}

std::filesystem::path nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

} // namespace

FileReplacement::FileReplacement(QString path, Links links) : m_path(std::move(path)), m_links(links)
{
    if (m_links == Links::Replaced && !QFileInfo(m_path).isSymLink())
        m_links = Links::Followed; // there is none
}

FileReplacement::~FileReplacement() = default;
FileReplacement::FileReplacement(FileReplacement &&) noexcept = default;
FileReplacement &FileReplacement::operator=(FileReplacement &&) noexcept = default;

bool FileReplacement::write(const QByteArray &bytes)
{
    if (m_problem || (!m_file && !open()))
        return false;
    return m_file->write(bytes) == bytes.size() || fail(writeProblem());
}

std::optional<QString> FileReplacement::commit()
{
    if (!m_problem && !m_file)
        open();
    // What is still in the buffer can fail, too, and the commit alone would not tell.
    if (!m_problem && !m_file->flush())
        fail(writeProblem());
    if (!m_problem && !m_file->commit())
        fail(m_file->errorString());
    if (!m_problem && m_links == Links::Replaced)
        moveOverLink();
    m_file.reset();
    return m_problem;
}

bool FileReplacement::open()
{
    const QFileInfo info(m_path);
    if (m_links == Links::Followed && info.exists() && !info.isFile())
        return fail(QStringLiteral("it is not a regular file"));
    m_file = std::make_unique<QSaveFile>(m_links == Links::Replaced ? besideLink(m_path) : m_path);
    return m_file->open(QIODevice::WriteOnly) || fail(openProblem());
}

/// Of a file that is there and cannot be written, the other class says only that; the system says why.
QString FileReplacement::openProblem() const
{
    QFile older(m_path);
    const bool isOlder = older.exists() && !older.open(QIODevice::ReadWrite | QIODevice::ExistingOnly);
    return isOlder ? older.errorString() : m_file->errorString();
}

/// Where a disk takes the first part of some bytes, the system tells the reason with the next bytes only.
QString FileReplacement::writeProblem()
{
    m_file->write("\n");
    m_file->flush();
    return m_file->errorString();
}

/// What is written from here on would not be whole.
bool FileReplacement::fail(const QString &reason)
{
    m_problem = reason;
    if (m_file)
        m_file->cancelWriting();
    return false;
}

void FileReplacement::moveOverLink()
{
    std::error_code error;
    std::filesystem::rename(nativePath(besideLink(m_path)), nativePath(m_path), error);
    if (!error)
        return;
    m_problem = QString::fromLocal8Bit(error.message());
    QFile::remove(besideLink(m_path));
}

std::optional<QString> replaceFile(const QString &path, const QByteArray &bytes)
{
    FileReplacement file(path);
    file.write(bytes);
    return file.commit();
}

std::optional<QString> makeFolder(const QString &path)
{
    std::error_code error;
    std::filesystem::create_directories(nativePath(path), error);
    if (error)
        return QStringLiteral("the folder cannot be made: ") + QString::fromLocal8Bit(error.message());
    return std::nullopt;
}

QString writeFailure(const QString &path, const QString &reason)
{
    return QStringLiteral("%1 could not be written: %2").arg(path, reason);
}
