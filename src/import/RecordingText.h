// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstring>
#include <optional>

inline constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");

constexpr bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// The UTF-8 form of a text that begins with the byte order mark of UTF-16 or UTF-32; nothing for any other text.
std::optional<QByteArray> utf8OfWideText(QByteArrayView bytes);

/// The content of a file. Not mapped: a file that another program shortens meanwhile must not end the program.
///
/// @param problem  gets the reason, in words that follow "because", where there is no result.
std::optional<QByteArray> readWholeRecording(const QString &path, QString &problem);

/// Walks over the lines of a text, which end at "\n" or "\r\n"; the last one may lack its end.
class LineWalk {
public:
    explicit LineWalk(QByteArrayView bytes) : m_at(bytes.begin()), m_end(bytes.end()) {}

    /// The next line without its end; nothing behind the last one.
    std::optional<QByteArrayView> next()
    {
        if (m_at >= m_end)
            return std::nullopt;
        const auto *newline =
            static_cast<const char *>(std::memchr(m_at, '\n', static_cast<std::size_t>(m_end - m_at)));
        const char *const end = newline ? newline : m_end;
        const QByteArrayView line(m_at, end != m_at && end[-1] == '\r' ? end - 1 : end);
        m_at = end + 1;
        return line;
    }

private:
    const char *m_at;
    const char *m_end;
};

/// The bytes of a recording and the way in which they become text: UTF-8 where all of them are valid UTF-8, otherwise
/// Latin-1. Hardly any recording has a byte above 127 where it matters, so that the bytes are only checked when one
/// turns up.
class RecordingText {
public:
    /// @param bytes  not owned; a UTF-8 byte order mark at their start is left out.
    explicit RecordingText(QByteArrayView bytes);

    QByteArrayView bytes() const { return m_bytes; }

    /// Text of a part of the bytes.
    QString decoded(QByteArrayView part);

private:
    bool isUtf8();

    QByteArrayView m_bytes;
    std::optional<bool> m_isUtf8;
};
