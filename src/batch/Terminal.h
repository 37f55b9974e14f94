// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <mutex>

class QIODevice;

/// The error channel of a program: lines that stay and, on a screen, one status line below them that is drawn over. May
/// be used from several threads; a line is never torn.
class Terminal {
public:
    enum class Kind {
        Screen, ///< understands the return to the beginning of a line
        Stream  ///< a file or a pipe: it gets no status line
    };

    /// @param device  open for writing; must outlive this object.
    Terminal(QIODevice &device, Kind kind) : m_device(device), m_kind(kind) {}

    /// @return false where the device does not take it, such as a file on a full disk.
    bool writeLine(const QString &text);

    /// Replaces the status line; an empty text removes it.
    void setStatus(const QString &text);

    /// The kind of the process's own error channel.
    static Kind kindOfStandardError();

private:
    bool write(const QString &text);
    void eraseStatus();

    std::mutex m_mutex;
    QIODevice &m_device;
    const Kind m_kind;
    QString m_status; ///< as it stands on the screen
};
