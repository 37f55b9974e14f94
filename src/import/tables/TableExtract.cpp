// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableBytes.h"
#include "import/tables/TableFile.h"

#include <algorithm>

namespace {

constexpr qsizetype headLines = 1000;
constexpr qsizetype tailLines = 100;
constexpr qint64 tailBytes = qint64(64) << 10;
constexpr qsizetype longestShown = 20'000; ///< characters of a line

QString shown(const QString &line)
{
    return line.first(std::min(line.size(), longestShown));
}

/// @return whether there is more of it.
bool takeLines(QByteArrayView lines, const TableBytes &bytes, QStringList &head)
{
    while (!lines.isEmpty() && head.size() < headLines) {
        const qsizetype end = lines.indexOf('\n');
        QByteArrayView line = lines.first(end);
        if (line.endsWith('\r'))
            line.chop(1);
        head << shown(bytes.decoded(line));
        lines = lines.sliced(end + 1);
    }
    return !lines.isEmpty();
}

/// The last lines of a file that is no gzip; the head does not reach so far.
QStringList tailOf(QIODevice &device, TableEncoding encoding)
{
    const qint64 size = device.size();
    const bool isWide = encoding == TableEncoding::Utf16LittleEndian || encoding == TableEncoding::Utf16BigEndian;
    const qint64 start = std::max(qint64(0), size - tailBytes);
    if (device.isSequential() || !device.seek(isWide ? start - start % 2 : start))
        return {};
    TableBytes bytes(device, encoding, 0);
    QByteArray text;
    while (text.size() < 2 * tailBytes && bytes.appendPiece(text))
        continue;
    QStringList lines = bytes.decoded(text).split(u'\n');
    if (lines.constLast().isEmpty())
        lines.removeLast();
    if (!lines.isEmpty())
        lines.removeFirst(); // which the seek may have cut
    lines = lines.sliced(std::max(qsizetype(0), lines.size() - tailLines));
    for (QString &line : lines)
        line = shown(line.endsWith(u'\r') ? line.chopped(1) : line);
    return lines;
}

} // namespace

std::variant<TableExtract, TableProblem> readExtract(QIODevice &device, const QString &file)
{
    TableExtract extract;
    extract.file = file;
    extract.size = device.size();
    TableBytes bytes(device, TableEncoding::ByMark, 0);
    TableLines groups(bytes);
    bool hasMore = false;
    while (!hasMore && extract.head.size() < headLines) {
        const QByteArrayView lines = groups.next(extract.head.size() + 1);
        if (lines.isEmpty())
            break;
        hasMore = takeLines(lines, bytes, extract.head);
    }
    // A file that is cut off can still be looked at; without a single line there is nothing to look at.
    if (extract.head.isEmpty() && groups.problem()) {
        TableProblem problem = *groups.problem();
        problem.file = file;
        return problem;
    }
    extract.encoding = bytes.fileEncoding();
    extract.isWhole = !hasMore && extract.head.size() < headLines;
    if (!extract.isWhole && !bytes.isPacked())
        extract.tail = tailOf(device, extract.encoding);
    return extract;
}
