// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class QSaveFile;

/// What a link of the file's name becomes.
enum class Links {
    Followed, ///< the file behind it is replaced
    Replaced  ///< the new file takes the link's place, and the file behind it stays
};

/// A file that is written piece by piece and takes its name at the end: whole or, after any failure, not at all. Until
/// then, and after a failure, an older file of this name stays as it is. A name that belongs to something else, such as
/// a folder, a device or a pipe, is refused: it would lose its place.
class FileReplacement {
public:
    explicit FileReplacement(QString path, Links links = Links::Followed);
    /// What was not committed leaves nothing behind.
    ~FileReplacement();
    FileReplacement(FileReplacement &&) noexcept;
    FileReplacement &operator=(FileReplacement &&) noexcept;

    const QString &path() const { return m_path; }

    /// @return false once anything has failed.
    bool write(const QByteArray &bytes);

    /// Puts the file in its place; nothing can be written afterwards.
    ///
    /// @return what went wrong here or before, in words for the user; nothing if the file is there.
    std::optional<QString> commit();

private:
    bool open();
    bool fail(const QString &reason);
    QString openProblem() const;
    QString writeProblem();
    void moveOverLink();

    QString m_path;
    Links m_links;
    std::unique_ptr<QSaveFile> m_file;
    std::optional<QString> m_problem;
};

/// Puts a file with these bytes in the place of the one of this name, as a FileReplacement does.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> replaceFile(const QString &path, const QByteArray &bytes);

/// Makes a folder and those above it; one that is there is right, too.
///
/// @return what went wrong, in words for the user: "the folder cannot be made: Permission denied".
std::optional<QString> makeFolder(const QString &path);

/// "a.png could not be written: the disk is full"
QString writeFailure(const QString &path, const QString &reason);
