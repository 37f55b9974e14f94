// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

/// Unpacks gzip in pieces and bounded memory; several members one after the other are one text.
/// Source: RFC 1952.
class GzipUnpacker {
public:
    /// A text of zeros packs to a thousandth, the most that the format can; tables reach about a tenth.
    static constexpr qint64 largestGrowth = 500;
    /// Below this many unpacked bytes growth is no harm.
    static constexpr qint64 harmlessBytes = qint64(64) << 20;

    GzipUnpacker();
    ~GzipUnpacker();

    static bool isGzip(QByteArrayView bytes);

    /// More packed bytes; only when `needsInput`.
    void setInput(const QByteArray &packed);
    bool needsInput() const;

    /// Up to `largest` unpacked bytes; empty where input is needed, at the end, and on a problem.
    QByteArray unpack(qsizetype largest);

    /// To be called when there is no more input.
    void finish();

    /// What is wrong, in words that follow "found"; nothing if all is well.
    const std::optional<QString> &problem() const { return m_problem; }

private:
    struct Stream;
    void fail(const QString &problem);
    void startNextMember();
    void unpackSome();

    std::unique_ptr<Stream> m_stream;
    QByteArray m_input;
    qint64 m_packedBytes = 0;
    qint64 m_unpackedBytes = 0;
    bool m_isBetweenMembers = false;
    bool m_mayHoldMore = false; ///< unpacked bytes that had no room
    bool m_isEnded = false;
    std::optional<QString> m_problem;
};
