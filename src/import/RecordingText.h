#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// The UTF-8 form of a text that begins with the byte order mark of UTF-16 or UTF-32; nothing for any other text.
std::optional<QByteArray> utf8OfWideText(QByteArrayView bytes);

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
