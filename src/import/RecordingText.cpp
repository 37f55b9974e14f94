// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/RecordingText.h"

#include "import/LargePages.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(), [](char byte) { return (byte & 0x80) == 0; });
}

bool isDevice(const QString &path)
{
    std::error_code problem;
    return std::filesystem::is_character_file(QFile::encodeName(path).toStdString(), problem);
}

} // namespace

std::optional<QByteArray> utf8OfWideText(QByteArrayView bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding || *encoding == QStringConverter::Utf8)
        return std::nullopt;
    QStringDecoder decoder(*encoding);
    const QString text = decoder(bytes);
    return text.toUtf8();
}

std::optional<QByteArray> readWholeRecording(const QString &path, QString &problem)
{
    if (isDevice(path)) {
        problem = QStringLiteral("it is a device, which may have no end");
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("it cannot be opened: ") + file.errorString();
        return std::nullopt;
    }
    QByteArray bytes(file.size(), Qt::Uninitialized);
    adviseLargePages(bytes.constData(), bytes.size());
    bytes.truncate(std::max(qint64(0), file.read(bytes.data(), bytes.size())));
    bytes += file.readAll(); // of files that grow or do not know their size
    if (file.error() == QFile::NoError)
        return bytes;
    problem = QStringLiteral("it cannot be read: ") + file.errorString();
    return std::nullopt;
}

RecordingText::RecordingText(QByteArrayView bytes)
    : m_bytes(bytes.startsWith(utf8Mark) ? bytes.sliced(utf8Mark.size()) : bytes)
{
}

QString RecordingText::decoded(QByteArrayView part)
{
    if (isAscii(part) || !isUtf8())
        return QString::fromLatin1(part);
    // Only at the start of a file is U+FEFF a byte order mark.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(part);
}

bool RecordingText::isUtf8()
{
    if (!m_isUtf8)
        m_isUtf8 = m_bytes.isValidUtf8();
    return *m_isUtf8;
}
