// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileReplacement.h"

/// One table file of one export, written block by block as UTF-16, little endian on every machine, with a byte order
/// mark before each block. Line ends are the platform's.
///
/// The blocks are collected beside the place of the file; `commit` puts it there, whole or not at all. A link of its
/// name is replaced: what stands behind it belongs to somebody else.
class CsvFile {
public:
    enum class State {
        Untouched, ///< nothing was to be written
        Open,      ///< every block so far could be taken
        Written,   ///< every block stands in the file
        Failed     ///< there is no new file of this name
    };

    explicit CsvFile(const QString &path) : m_file(path, Links::Replaced) {}

    /// Adds the text as one block; false after a failure, which `commit` tells.
    bool append(const QString &block);

    /// Puts the blocks in their place; without any, no file is touched.
    State commit();

    const QString &path() const { return m_file.path(); }
    State state() const { return m_state; }
    /// In words for the user; empty without a failure.
    const QString &problem() const { return m_problem; }

private:
    FileReplacement m_file;
    State m_state = State::Untouched;
    QString m_problem;
};
