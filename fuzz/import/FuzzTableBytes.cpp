// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a text that may be packed, or in two bytes a character: at once and in pieces it is the same.

#include "import/tables/TableBytes.h"
#include "TableChecks.h"

namespace {

// What a few bytes unpack to without end is read so far only, since it costs as much in each of a million inputs.
constexpr qsizetype enough = qsizetype(1) << 13;

struct Read {
    QByteArray bytes;
    bool isProblem = false;
};

Read readAll(QByteArray file, qsizetype pieceBytes)
{
    QBuffer buffer(&file);
    check(buffer.open(QIODevice::ReadOnly));
    TableBytes bytes(buffer, TableEncoding::ByMark, pieceBytes);
    Read read;
    TableLines lines(bytes);
    while (true) {
        const QByteArrayView group = lines.next(1);
        if (group.isEmpty())
            break;
        check(group.endsWith('\n'));
        read.bytes += group.toByteArray();
        if (read.bytes.size() > enough)
            break;
    }
    read.isProblem = lines.problem().has_value();
    return read;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    if (size < 1)
        return 0;
    const QByteArray file(reinterpret_cast<const char *>(data + 1), static_cast<qsizetype>(size) - 1);
    const Read whole = readAll(file, wholePiece);
    // What is packed can be much more than the input: in the smallest pieces it would take a second.
    const qsizetype smallest = file.startsWith("\x1F\x8B") ? 512 : 1;
    const Read cut = readAll(file, smallest + data[0] % 64);
    check(whole.isProblem == cut.isProblem);
    // Up to damage, pieces can give out more or less of a packed text.
    check(whole.isProblem || whole.bytes.size() > enough || whole.bytes == cut.bytes);
    return 0;
}
