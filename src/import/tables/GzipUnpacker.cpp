// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/GzipUnpacker.h"

#include <zlib.h>

namespace {

constexpr QByteArrayView gzipMark("\x1F\x8B");
constexpr int gzipOnly = 16; ///< added to the window's bits: a gzip header, not that of zlib

} // namespace

struct GzipUnpacker::Stream {
    z_stream state{};
};

GzipUnpacker::GzipUnpacker() : m_stream(std::make_unique<Stream>())
{
    if (inflateInit2(&m_stream->state, MAX_WBITS + gzipOnly) != Z_OK)
        fail(QStringLiteral("too little memory to unpack it"));
}

GzipUnpacker::~GzipUnpacker()
{
    inflateEnd(&m_stream->state);
}

bool GzipUnpacker::isGzip(QByteArrayView bytes)
{
    return bytes.startsWith(gzipMark);
}

void GzipUnpacker::fail(const QString &problem)
{
    if (!m_problem)
        m_problem = problem;
}

void GzipUnpacker::setInput(const QByteArray &packed)
{
    m_input = packed; // zlib reads from it until the next one
    m_packedBytes += packed.size();
    m_stream->state.next_in = reinterpret_cast<Bytef *>(m_input.data());
    m_stream->state.avail_in = static_cast<uInt>(m_input.size());
}

bool GzipUnpacker::needsInput() const
{
    return m_stream->state.avail_in == 0 && !m_mayHoldMore && !m_problem && !m_isEnded;
}

/// Behind a member comes another one, or zeros that fill a block of a tape.
void GzipUnpacker::startNextMember()
{
    z_stream &state = m_stream->state;
    while (state.avail_in > 0 && *state.next_in == 0) {
        ++state.next_in;
        --state.avail_in;
    }
    if (state.avail_in == 0)
        return;
    m_isBetweenMembers = false;
    if (inflateReset(&state) != Z_OK)
        fail(QStringLiteral("a gzip stream that cannot be started anew"));
}

void GzipUnpacker::unpackSome()
{
    z_stream &state = m_stream->state;
    const int result = inflate(&state, Z_NO_FLUSH);
    m_isBetweenMembers = result == Z_STREAM_END;
    m_mayHoldMore = result == Z_OK && state.avail_out == 0;
    const bool lacksInput = result == Z_BUF_ERROR && state.avail_in == 0;
    if (result != Z_OK && result != Z_STREAM_END && !lacksInput)
        fail(QStringLiteral("damaged gzip data after %1 unpacked bytes").arg(m_unpackedBytes));
}

QByteArray GzipUnpacker::unpack(qsizetype largest)
{
    z_stream &state = m_stream->state;
    QByteArray bytes(largest, Qt::Uninitialized);
    state.next_out = reinterpret_cast<Bytef *>(bytes.data());
    state.avail_out = static_cast<uInt>(largest);
    while (!m_problem && (state.avail_in > 0 || m_mayHoldMore) && state.avail_out > 0) {
        if (m_isBetweenMembers)
            startNextMember();
        else
            unpackSome();
    }
    bytes.truncate(largest - static_cast<qsizetype>(state.avail_out));
    m_unpackedBytes += bytes.size();
    const qint64 used = m_packedBytes - static_cast<qint64>(state.avail_in);
    if (m_unpackedBytes > harmlessBytes && m_unpackedBytes / largestGrowth > used) {
        fail(QStringLiteral("gzip data that grows beyond %1 times its size").arg(largestGrowth));
        return {};
    }
    return bytes;
}

void GzipUnpacker::finish()
{
    m_isEnded = true;
    if (!m_isBetweenMembers)
        fail(QStringLiteral("a gzip file that is cut off after %1 unpacked bytes").arg(m_unpackedBytes));
}
