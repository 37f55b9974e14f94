// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableBytes.h"

#include "import/RecordingText.h"
#include "import/tables/GzipUnpacker.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype usualPiece = qsizetype(1) << 20;

std::optional<QStringConverter::Encoding> wideEncoding(TableEncoding encoding)
{
    switch (encoding) {
    case TableEncoding::Utf16LittleEndian:
        return QStringConverter::Utf16LE;
    case TableEncoding::Utf16BigEndian:
        return QStringConverter::Utf16BE;
    case TableEncoding::ByMark:
    case TableEncoding::Utf8:
    case TableEncoding::Latin1:
        break;
    }
    return std::nullopt;
}

/// Without the character that the end of a piece cuts.
bool isUtf8(QByteArrayView piece)
{
    constexpr qsizetype longestCharacter = 4;
    qsizetype end = piece.size();
    while (end > 0 && piece.size() - end < longestCharacter && (piece[end - 1] & 0xC0) == 0x80)
        --end;
    if (end > 0 && (piece[end - 1] & 0x80) != 0)
        --end;
    return piece.first(end).isValidUtf8();
}

/// Plain text in two bytes each has a zero in every second one.
TableEncoding encodingWithoutMark(QByteArrayView piece)
{
    constexpr qsizetype looked = 512;
    const QByteArrayView start = piece.first(std::min(piece.size(), looked));
    qsizetype zeros[2] = {0, 0};
    for (qsizetype i = 0; i < start.size(); ++i)
        zeros[i % 2] += start[i] == '\0' ? 1 : 0;
    const qsizetype most = start.size() / 4;
    if (start.size() >= 2 && zeros[1] > most && zeros[0] == 0)
        return TableEncoding::Utf16LittleEndian;
    if (start.size() >= 2 && zeros[0] > most && zeros[1] == 0)
        return TableEncoding::Utf16BigEndian;
    return isUtf8(piece) ? TableEncoding::Utf8 : TableEncoding::Latin1;
}

TableEncoding encodingOf(QByteArrayView piece)
{
    if (piece.startsWith(utf8Mark))
        return TableEncoding::Utf8;
    if (piece.startsWith("\xFF\xFE"))
        return TableEncoding::Utf16LittleEndian;
    if (piece.startsWith("\xFE\xFF"))
        return TableEncoding::Utf16BigEndian;
    return encodingWithoutMark(piece);
}

} // namespace

TableBytes::TableBytes(QIODevice &device, TableEncoding encoding, qsizetype pieceBytes)
    : m_device(device)
    , m_fileEncoding(encoding)
    , m_pieceBytes(pieceBytes > 0 ? pieceBytes : usualPiece)
{
    constexpr qint64 markBytes = 2;
    if (GzipUnpacker::isGzip(m_device.peek(markBytes)))
        m_unpacker = std::make_unique<GzipUnpacker>();
    lookAhead();
}

TableBytes::~TableBytes() = default;

/// Of a small file no more than it has: a whole piece of fresh memory takes longer than all the rest.
qint64 TableBytes::bytesToRead() const
{
    constexpr qint64 fewest = 4096; // of what does not know its size
    const qint64 left = m_device.isSequential() ? m_pieceBytes : m_device.size() - m_device.pos();
    return std::min(qint64(m_pieceBytes), std::max(left, fewest));
}

QByteArray TableBytes::readPiece()
{
    const auto read = [this] {
        QByteArray bytes = m_device.read(bytesToRead());
        m_consumed += bytes.size();
        return bytes;
    };
    if (!m_unpacker)
        return read();
    while (true) {
        if (m_unpacker->needsInput()) {
            const QByteArray packed = read();
            if (packed.isEmpty())
                m_unpacker->finish();
            else
                m_unpacker->setInput(packed);
        }
        // A piece that unpacks to nothing is followed by the next one.
        QByteArray bytes = m_unpacker->unpack(m_pieceBytes);
        if (!bytes.isEmpty() || !m_unpacker->needsInput())
            return bytes;
    }
}

void TableBytes::decideEncoding(const QByteArray &piece)
{
    m_isFoundOut = m_fileEncoding == TableEncoding::ByMark;
    if (m_isFoundOut)
        m_fileEncoding = encodingOf(piece);
    if (const auto wide = wideEncoding(m_fileEncoding))
        m_decoder = std::make_unique<QStringDecoder>(*wide);
    m_textEncoding = m_fileEncoding == TableEncoding::Latin1 ? TableEncoding::Latin1 : TableEncoding::Utf8;
}

/// The first 64 KB decide how all is read; they are given out in pieces like all else.
void TableBytes::lookAhead()
{
    constexpr qsizetype enough = qsizetype(64) << 10;
    while (m_ahead.size() < enough) {
        const QByteArray piece = readPiece();
        if (piece.isEmpty())
            break;
        m_ahead += piece;
    }
    decideEncoding(m_ahead);
    if (m_fileEncoding == TableEncoding::Utf8 && m_ahead.startsWith(utf8Mark))
        m_ahead.remove(0, utf8Mark.size());
    const qsizetype oldEnd = m_ahead.indexOf('\r');
    m_hasOldLineEnds = !m_decoder && oldEnd >= 0 && oldEnd + 1 < m_ahead.size() && !m_ahead.contains('\n');
}

QByteArray TableBytes::nextPiece()
{
    if (m_ahead.isEmpty())
        return readPiece();
    QByteArray piece = m_ahead.first(std::min(m_pieceBytes, m_ahead.size()));
    m_ahead.remove(0, piece.size());
    return piece;
}

/// Of a character in two parts the first one waits for the next piece.
QByteArray TableBytes::utf8Of(const QByteArray &piece)
{
    QString text = (*m_decoder)(piece);
    text.prepend(std::exchange(m_halfCharacter, {})); // mostly nothing
    if (!piece.isEmpty() && !text.isEmpty() && text.back().isHighSurrogate()) {
        m_halfCharacter = text.back();
        text.chop(1);
    }
    return text.toUtf8();
}

bool TableBytes::appendPiece(QByteArray &bytes)
{
    QByteArray piece = nextPiece();
    if (piece.isEmpty() && m_halfCharacter.isEmpty()) {
        m_problem = readProblem();
        return false;
    }
    if (m_decoder)
        piece = utf8Of(piece);
    if (m_hasOldLineEnds)
        piece.replace('\r', '\n');
    bytes += piece;
    return true;
}

std::optional<TableProblem> TableBytes::readProblem() const
{
    if (m_unpacker && m_unpacker->problem())
        return TableProblem{.found = *m_unpacker->problem(),
                            .expected = QStringLiteral("a whole gzip file"),
                            .remedy = QStringLiteral("Copy or pack the file again.")};
    if (!m_device.isSequential() && m_consumed < m_device.size())
        return TableProblem{.found = QStringLiteral("a file that cannot be read to its end: ") + m_device.errorString(),
                            .remedy = QStringLiteral("Check the disk or the connection, then try again.")};
    return std::nullopt;
}

QString TableBytes::decoded(QByteArrayView part) const
{
    const bool isLatin1 = m_textEncoding == TableEncoding::Latin1 || (m_isFoundOut && !part.isValidUtf8());
    return isLatin1 ? QString::fromLatin1(part) : QString::fromUtf8(part);
}

QByteArray TableBytes::encoded(const QString &text) const
{
    return m_textEncoding == TableEncoding::Latin1 ? text.toLatin1() : text.toUtf8();
}

double TableBytes::part() const
{
    const qint64 size = m_device.size();
    return size > 0 ? std::min(1.0, static_cast<double>(m_consumed) / static_cast<double>(size)) : 0;
}

QByteArrayView TableLines::next(qsizetype lineNumber)
{
    m_buffer.remove(0, m_taken);
    m_taken = 0;
    qsizetype searched = 0;
    while (!m_isAtEnd) {
        if (!m_bytes.appendPiece(m_buffer)) {
            m_isAtEnd = true;
            m_problem = m_bytes.problem();
            if (m_problem)
                return {};
            if (!m_buffer.isEmpty() && !m_buffer.endsWith('\n'))
                m_buffer += '\n';
            break;
        }
        // Only what is new: a long line that comes in small pieces would be looked through again with each.
        if (QByteArrayView(m_buffer).sliced(searched).contains('\n'))
            break;
        if (m_buffer.size() > longestLine) {
            m_problem = TableProblem{.line = lineNumber,
                                     .found = QStringLiteral("a line of more than %1 bytes").arg(longestLine),
                                     .expected = QStringLiteral("lines of a table, which end at line breaks"),
                                     .remedy = QStringLiteral("Check that the file is text and has line breaks.")};
            return {};
        }
        searched = m_buffer.size();
    }
    m_taken = m_buffer.lastIndexOf('\n') + 1;
    return QByteArrayView(m_buffer).first(m_taken);
}
