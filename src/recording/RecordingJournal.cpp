// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/RecordingJournal.h"

#include "base/FileReplacement.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QStandardPaths>

namespace {

const QByteArray magic = QByteArrayLiteral("VistrumJournal1\n");
constexpr qsizetype payloadBytes = 81;                  ///< of a frame: three fields of 4, 1 and 4 bytes, 18 of 4
constexpr qsizetype recordBytes = 1 + payloadBytes + 2; ///< kind, payload, checksum
constexpr qsizetype recordsPerRead = 8192;

QString lockOf(const QString &path)
{
    return path + QStringLiteral(".lock");
}

/// The lock, held; null where a living process has it.
std::unique_ptr<QLockFile> held(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(lockOf(path));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

QDataStream &operator<<(QDataStream &stream, const gtl::Point2D &point)
{
    return stream << point.x << point.y;
}

QDataStream &operator>>(QDataStream &stream, gtl::Point2D &point)
{
    return stream >> point.x >> point.y;
}

QDataStream &operator<<(QDataStream &stream, const gtl::Eye &eye)
{
    return stream << eye.raw << eye.avg << eye.psize << eye.pcenter;
}

QDataStream &operator>>(QDataStream &stream, gtl::Eye &eye)
{
    return stream >> eye.raw >> eye.avg >> eye.psize >> eye.pcenter;
}

void setUp(QDataStream &stream)
{
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

QByteArray bytesOf(const gtl::GazeData &frame)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    setUp(stream);
    stream << frame.time << frame.fix << frame.state << frame.raw << frame.avg << frame.lefteye << frame.righteye;
    return bytes;
}

gtl::GazeData frameOf(const QByteArray &bytes)
{
    gtl::GazeData frame;
    QDataStream stream(bytes);
    setUp(stream);
    stream >> frame.time >> frame.fix >> frame.state >> frame.raw >> frame.avg >> frame.lefteye >> frame.righteye;
    return frame;
}

} // namespace

QString RecordingJournal::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recordings");
}

QStringList RecordingJournal::interrupted(const QString &folder)
{
    QStringList paths;
    const QDir journals(folder);
    for (const QString &name :
         journals.entryList({QStringLiteral("*.journal")}, QDir::Files, QDir::Time | QDir::Reversed)) {
        const QString path = journals.filePath(name);
        const auto lock = held(path);
        if (!lock)
            continue;
        const JournalContent content = read(path);
        if (content.frames.size() > content.savedFrames)
            paths << path;
        else
            QFile::remove(path);
    }
    return paths;
}

QByteArray RecordingJournal::record(Kind kind, const QByteArray &payload)
{
    const QByteArray content = static_cast<char>(kind) + payload.leftJustified(payloadBytes, ' ');
    const quint16 checksum = qChecksum(content);
    return content + static_cast<char>(checksum & 0xFF) + static_cast<char>(checksum >> 8);
}

JournalContent RecordingJournal::read(const QString &path)
{
    JournalContent content;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.read(magic.size()) != magic)
        return content;
    content.goodBytes = magic.size();
    QByteArray bytes;
    do {
        bytes = file.read(recordBytes * recordsPerRead);
        for (qsizetype at = 0; at + recordBytes <= bytes.size(); at += recordBytes) {
            const QByteArray payload = bytes.mid(at + 1, payloadBytes);
            const auto kind = static_cast<Kind>(bytes[at]);
            if (bytes.mid(at, recordBytes) != record(kind, payload))
                return content;
            if (kind == Kind::Frame)
                content.frames << frameOf(payload);
            else
                content.savedFrames = static_cast<qsizetype>(payload.trimmed().toLongLong());
            content.goodBytes += recordBytes;
        }
    } while (bytes.size() == recordBytes * recordsPerRead);
    return content;
}

void RecordingJournal::remove(const QString &path)
{
    if (const auto lock = held(path))
        QFile::remove(path);
}

void RecordingJournal::create(const QString &folder)
{
    const auto noFolder = makeFolder(folder);
    const QString stem = QStringLiteral("%1/recording-%2-%3")
                             .arg(folder, QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss-zzz")))
                             .arg(QCoreApplication::applicationPid());
    QString path = stem + QStringLiteral(".journal");
    for (int i = 2; QFile::exists(path); ++i)
        path = QStringLiteral("%1-%2.journal").arg(stem).arg(i);
    open(path, QIODevice::WriteOnly | QIODevice::NewOnly);
    if (noFolder)
        m_problem = writeFailure(path, *noFolder);
    write(magic);
}

JournalContent RecordingJournal::adopt(const QString &path)
{
    open(path, QIODevice::ReadWrite | QIODevice::ExistingOnly);
    JournalContent content = read(path);
    if (m_problem.isEmpty() && !(m_file->resize(content.goodBytes) && m_file->seek(content.goodBytes)))
        m_problem = writeFailure(path, m_file->errorString()); // what was cut would shift what comes behind it
    return content;
}

/// Unbuffered: whatever happens to the program, what was written stays.
void RecordingJournal::open(const QString &path, QIODevice::OpenMode mode)
{
    m_problem.clear();
    m_lock = held(path);
    m_file = std::make_unique<QFile>(path);
    if (!m_lock)
        m_problem = writeFailure(path, QStringLiteral("the file is in use, or the folder may not be written"));
    else if (!m_file->open(mode | QIODevice::Unbuffered))
        m_problem = writeFailure(path, m_file->errorString());
}

void RecordingJournal::write(const QByteArray &bytes)
{
    if (m_problem.isEmpty() && m_file->write(bytes) != bytes.size())
        m_problem = writeFailure(m_file->fileName(), m_file->errorString());
}

void RecordingJournal::append(const gtl::GazeData &frame)
{
    write(record(Kind::Frame, bytesOf(frame)));
}

void RecordingJournal::markSaved(qsizetype frames)
{
    write(record(Kind::Saved, QByteArray::number(frames)));
}

void RecordingJournal::removeFile()
{
    if (m_file && m_lock)
        m_file->remove();
    m_file.reset();
    m_lock.reset();
}
