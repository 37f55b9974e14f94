// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PictureFile.h"

#include <QFile>
#include <QImageReader>
#include <QtEndian>

#include <cstdlib>

namespace {

quint8 byteAt(QByteArrayView bytes, qsizetype at)
{
    return static_cast<quint8>(bytes[at]);
}

/// Segments and scans, each begun by a marker, up to the one that ends the picture (ITU-T T.81, B.1.1).
bool isWholeJpeg(QByteArrayView bytes)
{
    constexpr quint8 endOfImage = 0xD9;
    const auto standsAlone = [](quint8 marker) { return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8); };
    qsizetype at = 0;
    while ((at = bytes.indexOf('\xFF', at)) >= 0) {
        while (at < bytes.size() && byteAt(bytes, at) == 0xFF)
            ++at;
        if (at + 2 >= bytes.size())
            return at < bytes.size() && byteAt(bytes, at) == endOfImage;
        const quint8 marker = byteAt(bytes, at);
        if (marker == endOfImage)
            return true;
        ++at;
        if (!standsAlone(marker))
            at += qFromBigEndian<quint16>(bytes.data() + at);
    }
    return false;
}

/// Rows of whole 32-bit words from the offset that the header names; compressed ones have no size of their own.
bool isWholeBmp(QByteArrayView bytes)
{
    constexpr qsizetype headers = 34;
    constexpr quint32 smallestInfo = 40; // older headers have other fields
    if (bytes.size() < headers)
        return false;
    const auto number = [&](qsizetype at) { return qFromLittleEndian<qint32>(bytes.data() + at); };
    const int compression = number(30);
    const bool isPlain = compression == 0 || compression == 3;
    if (static_cast<quint32>(number(14)) < smallestInfo || !isPlain)
        return true;
    const qint64 rowBits = qint64(number(18)) * qFromLittleEndian<quint16>(bytes.data() + 28);
    const qint64 rowBytes = (rowBits + 31) / 32 * 4;
    const double height = std::abs(static_cast<double>(number(22))); // a double: a header may claim any size
    return static_cast<quint32>(number(10)) + static_cast<double>(rowBytes) * height <=
           static_cast<double>(bytes.size());
}

/// Blocks up to the end of the first picture's data (GIF89a, 1990).
class GifBlocks {
public:
    explicit GifBlocks(QByteArrayView bytes) : m_bytes(bytes) {}

    bool reachPicture()
    {
        constexpr quint8 extension = 0x21;
        constexpr quint8 picture = 0x2C;
        skip(6 + 4);
        skipColors();
        skip(2);
        skip(m_colors);
        for (;;) {
            const int kind = next();
            if (kind == extension)
                skip(1);
            else if (kind == picture)
                skipDescriptor();
            else
                return false;
            if (!skipData())
                return false;
            if (kind == picture)
                return true;
        }
    }

private:
    int next() { return m_at < m_bytes.size() ? byteAt(m_bytes, m_at++) : -1; }
    void skip(qsizetype count) { m_at += count; }
    void skipColors()
    {
        const int flags = next();
        m_colors = flags >= 0 && (flags & 0x80) != 0 ? 3 * (2 << (flags & 7)) : 0;
    }
    void skipDescriptor()
    {
        skip(8);
        skipColors();
        skip(m_colors + 1);
    }
    bool skipData()
    {
        for (;;) {
            const int length = next();
            if (length <= 0)
                return length == 0;
            skip(length);
        }
    }

    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    qsizetype m_colors = 0; ///< bytes of the table of colours
};

} // namespace

bool isWholePicture(QByteArrayView bytes)
{
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return isWholeJpeg(bytes);
    if (bytes.startsWith("BM"))
        return isWholeBmp(bytes);
    if (bytes.startsWith("GIF8"))
        return GifBlocks(bytes).reachPicture();
    return true;
}

bool isWholePictureFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.isSequential())
        return true; // what its decoder says
    const uchar *bytes = file.map(0, file.size());
    return !bytes || isWholePicture(QByteArrayView(bytes, file.size()));
}

QImage readPicture(const QString &path, QString *problem)
{
    QImageReader reader(path);
    const QImage image = reader.read();
    const bool isCut = !image.isNull() && !isWholePictureFile(path);
    if (problem && isCut)
        *problem = QStringLiteral("the file is cut short");
    else if (problem && image.isNull())
        *problem = reader.errorString();
    return isCut ? QImage() : image;
}
