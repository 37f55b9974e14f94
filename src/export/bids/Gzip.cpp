// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/bids/Gzip.h"

#include <zlib.h>

#include <algorithm>

namespace {

constexpr int level = 6;
constexpr int gzipWindow = 15 + 16; ///< the largest window, and the header of gzip
constexpr int memory = 8;
constexpr int unknownSystem = 255; ///< zlib would write that of this machine

} // namespace

QByteArray gzipped(const QByteArray &bytes)
{
    z_stream stream{};
    deflateInit2(&stream, level, Z_DEFLATED, gzipWindow, memory, Z_DEFAULT_STRATEGY);
    gz_header header{};
    header.os = unknownSystem;
    deflateSetHeader(&stream, &header);
    QByteArray packed(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(bytes.size()))), '\0');
    // zlib counts in 32 bits: long texts go in pieces. Its input is const in all but name.
    constexpr qsizetype piece = qsizetype(1) << 30;
    qsizetype read = 0;
    qsizetype written = 0;
    int state = Z_OK;
    while (state == Z_OK) {
        const qsizetype in = std::min(piece, bytes.size() - read);
        const qsizetype out = std::min(piece, packed.size() - written);
        stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.constData() + read));
        stream.avail_in = static_cast<uInt>(in);
        stream.next_out = reinterpret_cast<Bytef *>(packed.data() + written);
        stream.avail_out = static_cast<uInt>(out);
        state = deflate(&stream, read + in == bytes.size() ? Z_FINISH : Z_NO_FLUSH);
        read += in - stream.avail_in;
        written += out - stream.avail_out;
    }
    deflateEnd(&stream);
    packed.truncate(written);
    return packed;
}
