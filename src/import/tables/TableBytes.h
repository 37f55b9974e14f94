// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

#include <QIODevice>
#include <QStringDecoder>

#include <algorithm>
#include <memory>

class GzipUnpacker;

/// The bytes of a table piece by piece: unpacked where they are gzip, and as UTF-8 where they were UTF-16, so that
/// readers meet bytes in which a digit is a digit. A byte order mark is left out. Line ends of old kind, "\r" alone,
/// become "\n" where the first 64 KB have no other.
class TableBytes {
public:
    /// The first 64 KB are read at once.
    /// @param device  open for reading; not owned.
    /// @param pieceBytes  how much is read at a time; 0: as suits.
    TableBytes(QIODevice &device, TableEncoding encoding, qsizetype pieceBytes);
    ~TableBytes();

    /// Appends the next piece.
    /// @return false at the end and on a problem.
    bool appendPiece(QByteArray &bytes);

    /// @return null if all is well.
    const std::optional<TableProblem> &problem() const { return m_problem; }

    /// How the bytes become text: UTF-8 or Latin-1.
    TableEncoding textEncoding() const { return m_textEncoding; }
    /// As the file has it.
    TableEncoding fileEncoding() const { return m_fileEncoding; }
    /// Text of a part of the bytes. Where the file does not say that it is UTF-8, a part that is not is Latin-1.
    QString decoded(QByteArrayView part) const;
    /// A text as the bytes have it.
    QByteArray encoded(const QString &text) const;

    bool isPacked() const { return m_unpacker != nullptr; }
    /// Bytes of the device that were not read yet.
    qint64 restBytes() const { return std::max(qint64(0), m_device.size() - m_consumed); }
    /// The part of the device that was read, from 0 to 1.
    double part() const;

private:
    qint64 bytesToRead() const;
    QByteArray readPiece();
    void decideEncoding(const QByteArray &piece);
    void lookAhead();
    QByteArray nextPiece();
    QByteArray utf8Of(const QByteArray &piece);
    std::optional<TableProblem> readProblem() const;

    QIODevice &m_device;
    TableEncoding m_fileEncoding;
    TableEncoding m_textEncoding = TableEncoding::Utf8;
    qsizetype m_pieceBytes;
    QByteArray m_ahead; ///< read, but not given out
    qint64 m_consumed = 0;
    std::unique_ptr<GzipUnpacker> m_unpacker;
    std::unique_ptr<QStringDecoder> m_decoder;
    QString m_halfCharacter; ///< what the end of the last piece had of one
    std::optional<TableProblem> m_problem;
    bool m_isFoundOut = false; ///< the encoding, by the first bytes
    bool m_hasOldLineEnds = false;
};

/// The lines of a table in groups of whole lines, so that the loop over them needs no case for the end of a piece.
class TableLines {
public:
    static constexpr qsizetype longestLine = qsizetype(1) << 20;

    explicit TableLines(TableBytes &bytes) : m_bytes(bytes) {}

    /// The next whole lines, each with its "\n"; the last line of the file gets one where it has none.
    /// @param lineNumber  of the first of them, for the problem of a line that is too long.
    /// @return empty at the end and on a problem.
    QByteArrayView next(qsizetype lineNumber);

    const std::optional<TableProblem> &problem() const { return m_problem; }

private:
    TableBytes &m_bytes;
    QByteArray m_buffer;
    qsizetype m_taken = 0; ///< bytes of the buffer that were given out
    bool m_isAtEnd = false;
    std::optional<TableProblem> m_problem;
};
