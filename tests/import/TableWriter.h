// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableFile.h"

#include <QBuffer>
#include <QStringEncoder>
#include <QTest>

#include <cmath>
#include <functional>
#include <numbers>
#include <random>

#include <zlib.h>

/// Writes recordings in the layouts that the readers are tried with: the inverse of reading, in the plainest form.
namespace table_writer {

/// Gaze of both eyes at 500 Hz with every seventh sample of the left eye lost; places and pupils are quarters, which
/// binary and decimal numbers have exactly.
inline QList<TableSample> gaze(int samples, unsigned seed, bool hasRight = true)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> x(4, 4 * 1020);
    std::uniform_int_distribution<int> y(4, 4 * 500);
    QList<TableSample> list;
    for (int i = 0; i < samples; ++i) {
        TableSample sample;
        sample.timeMs = 36'000'000 + 2.0 * i; // ten o'clock
        const auto eye = [&] { return TableEyeSample{x(random) / 4.0, y(random) / 4.0, 3.25, 3.25}; };
        sample.leftValid = i % 7 != 3;
        sample.rightValid = hasRight;
        if (sample.leftValid)
            sample.left = eye();
        if (sample.rightValid)
            sample.right = eye();
        list << sample;
    }
    return list;
}

struct Recording {
    QString name;
    QList<TableSample> samples;
};

inline QByteArray number(double value, const TableLayout &layout)
{
    return QByteArray::number(value, 'f', QLocale::FloatingPointShortest).replace('.', layout.decimalSign);
}

inline QByteArray timeText(double ms, const TableLayout &layout)
{
    switch (layout.timeUnit) {
    case TableTimeUnit::Seconds:
        return number(ms / 1000, layout);
    case TableTimeUnit::Milliseconds:
        return number(ms, layout);
    case TableTimeUnit::Microseconds:
        return number(ms * 1e3, layout);
    case TableTimeUnit::Nanoseconds:
        return number(ms * 1e6, layout);
    case TableTimeUnit::Clock:
        return "2024-05-01 " +
               QTime::fromMSecsSinceStartOfDay(int(ms)).toString(QStringLiteral("hh:mm:ss.zzz")).toUtf8();
    case TableTimeUnit::Samples:
        return number(ms * layout.rateHz / 1000, layout);
    }
    return {};
}

inline double inverse(double px, double screenPx, double screenMm, const TableGeometry &place, bool isX)
{
    const double origin = place.origin == TableOrigin::Centre               ? screenPx / 2
                          : place.origin == TableOrigin::BottomLeft && !isX ? screenPx
                                                                            : 0;
    const double sign = (isX ? place.xAxis : place.yAxis) == TableAxis::LeftOrUp ? -1 : 1;
    const double length = sign * (px - origin);
    switch (place.unit) {
    case TablePlaceUnit::Pixels:
        return length;
    case TablePlaceUnit::Normalised:
        return length / screenPx;
    case TablePlaceUnit::Millimetres:
        return length * screenMm / screenPx;
    case TablePlaceUnit::Degrees:
        return std::atan(length * screenMm / screenPx / place.distanceMm) * 180 / std::numbers::pi;
    }
    return 0;
}

inline QByteArrayList eyeFields(const TableEyeSample &eye, bool isValid, const TableLayout &layout)
{
    const QByteArray missing = layout.missing.value(0).toUtf8();
    if (!isValid)
        return {missing, missing, number(0, layout)};
    const TableGeometry &place = layout.place;
    return {number(inverse(eye.x, place.screenPx.width(), place.screenMm.width(), place, true), layout),
            number(inverse(eye.y, place.screenPx.height(), place.screenMm.height(), place, false), layout),
            number(eye.pupilWidth, layout)};
}

/// The columns are recording, time, lx, ly, lp, rx, ry, rp; the names are those of the layout.
inline QByteArray tableText(const QList<Recording> &recordings, const TableLayout &layout)
{
    const QByteArray delimiter(1, layout.delimiter);
    QByteArrayList lines;
    if (!layout.commentPrefix.isEmpty())
        lines << layout.commentPrefix.toUtf8() + " written by a test";
    const QStringList names{QStringLiteral("recording"), layout.time.name,       layout.left.x.name,
                            layout.left.y.name,          layout.left.pupil.name, layout.right.x.name,
                            layout.right.y.name,         layout.right.pupil.name};
    if (layout.header != TableHeader::None)
        lines << names.join(QLatin1Char(layout.delimiter)).toUtf8();
    for (const Recording &recording : recordings) {
        for (const TableSample &sample : recording.samples) {
            const QByteArrayList fields = QByteArrayList{recording.name.toUtf8(), timeText(sample.timeMs, layout)} +
                                          eyeFields(sample.left, sample.leftValid, layout) +
                                          eyeFields(sample.right, sample.rightValid, layout);
            lines << fields.join(delimiter);
        }
    }
    return lines.join('\n') + '\n';
}

inline QByteArray encoded(const QByteArray &utf8, TableEncoding encoding)
{
    const QString text = QString::fromUtf8(utf8);
    if (encoding == TableEncoding::Latin1)
        return text.toLatin1();
    if (encoding == TableEncoding::Utf16LittleEndian)
        return QByteArray("\xFF\xFE", 2) + QByteArray(QStringEncoder(QStringEncoder::Utf16LE)(text));
    if (encoding == TableEncoding::Utf16BigEndian)
        return QByteArray("\xFE\xFF", 2) + QByteArray(QStringEncoder(QStringEncoder::Utf16BE)(text));
    return utf8;
}

/// A layout of the columns above.
inline TableLayout layout()
{
    TableLayout made;
    made.time = TableColumn::named(QStringLiteral("time"));
    made.left = {TableColumn::named(QStringLiteral("lx")),
                 TableColumn::named(QStringLiteral("ly")),
                 TableColumn::named(QStringLiteral("lp")),
                 {},
                 {}};
    made.right = {TableColumn::named(QStringLiteral("rx")),
                  TableColumn::named(QStringLiteral("ry")),
                  TableColumn::named(QStringLiteral("rp")),
                  {},
                  {}};
    made.place.screenPx = {1024, 512};
    return made;
}

inline std::variant<TableContent, TableProblem> read(QByteArray bytes, const TableLayout &layout,
                                                     const TableReadOptions &options = {})
{
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        qFatal("a buffer does not open");
    return readTable(buffer, QStringLiteral("p01.csv"), layout, options);
}

/// What was read; a problem fails the test.
inline TableContent content(const std::variant<TableContent, TableProblem> &result)
{
    if (const auto *problem = std::get_if<TableProblem>(&result)) {
        qWarning("%s", qPrintable(problem->text()));
        return {};
    }
    return std::get<TableContent>(result);
}

/// A gzip file of one member with the bytes as they are.
inline QByteArray stored(const QByteArray &bytes)
{
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    crc = ~crc;
    const auto little = [](quint32 value, int count) {
        QByteArray result;
        for (int i = 0; i < count; ++i)
            result += static_cast<char>(value >> (8 * i));
        return result;
    };
    QByteArray packed("\x1F\x8B\x08\0\0\0\0\0\0\xFF", 10);
    constexpr qsizetype block = 60'000;
    for (qsizetype at = 0; at < bytes.size() || at == 0; at += block) {
        const QByteArray part = bytes.mid(at, block);
        const bool isLast = at + block >= bytes.size();
        packed += little(isLast ? 1 : 0, 1) + little(quint32(part.size()), 2) + little(~quint32(part.size()), 2) + part;
    }
    return packed + little(crc, 4) + little(quint32(bytes.size()), 4);
}

inline TableLayout with(const std::function<void(TableLayout &)> &change)
{
    TableLayout made = layout();
    change(made);
    return made;
}

/// A gzip file.
inline QByteArray packed(const QByteArray &bytes)
{
    QByteArray result(static_cast<qsizetype>(compressBound(static_cast<uLong>(bytes.size()))) + 32, Qt::Uninitialized);
    z_stream stream{};
    deflateInit2(&stream, 6, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef *>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

} // namespace table_writer
