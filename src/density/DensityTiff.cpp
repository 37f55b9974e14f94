// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/DensityTiff.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

namespace {

/// Field types of the format.
enum class FieldType : quint16 { Ascii = 2, Short = 3, Long = 4 };

struct Field {
    quint16 tag;
    FieldType type;
    quint32 count;
    quint32 value; ///< or the offset of what does not fit in
};

constexpr quint32 headerBytes = 8;
constexpr quint32 pixelBytes = sizeof(float) * canvas::pixels;

void writePixels(char *out, const Density &density)
{
    for (int x = 0; x < canvas::width; ++x) {
        const double *cells = density.column(x);
        for (int y = 0; y < canvas::height; ++y)
            qToLittleEndian(static_cast<float>(cells[y]), out + (y * canvas::width + x) * qsizetype(sizeof(float)));
    }
}

} // namespace

QByteArray densityTiff(const Density &density, const QByteArray &description)
{
    constexpr quint16 version = 42;
    const QByteArray text = description.leftJustified(4) + '\0'; // up to four bytes would stand in the field itself
    const quint32 textBytes = static_cast<quint32>(text.size());
    const quint32 textOffset = headerBytes + pixelBytes;
    const quint32 directoryOffset = textOffset + textBytes + textBytes % 2; // on a word
    const Field fields[] = {{256, FieldType::Long, 1, canvas::width},
                            {257, FieldType::Long, 1, canvas::height},
                            {258, FieldType::Short, 1, 8 * sizeof(float)}, // bits of a sample
                            {259, FieldType::Short, 1, 1},                 // not compressed
                            {262, FieldType::Short, 1, 1},                 // 0 is black
                            {270, FieldType::Ascii, textBytes, textOffset},
                            {273, FieldType::Long, 1, headerBytes}, // all rows in one strip
                            {277, FieldType::Short, 1, 1},          // samples of a pixel
                            {278, FieldType::Long, 1, canvas::height},
                            {279, FieldType::Long, 1, pixelBytes},
                            {339, FieldType::Short, 1, 3}}; // floating point
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("II", 2);
    stream << version << directoryOffset;
    QByteArray pixels(pixelBytes, Qt::Uninitialized);
    writePixels(pixels.data(), density);
    stream.writeRawData(pixels.constData(), static_cast<int>(pixels.size()));
    stream.writeRawData(text.constData(), static_cast<int>(text.size()));
    if (textBytes % 2 == 1)
        stream << quint8(0);
    stream << static_cast<quint16>(std::size(fields));
    for (const Field &field : fields)
        stream << field.tag << static_cast<quint16>(field.type) << field.count << field.value; // a short comes first
    stream << quint32(0);                                                                      // no further image
    return bytes;
}
