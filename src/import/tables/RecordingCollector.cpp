// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/RecordingCollector.h"

#include <QFileInfo>

RecordingCollector::RecordingCollector(const QString &file, const TableLayout &layout, const TableReadOptions &options)
    : m_place(layout.place)
    , m_options(options)
{
    QString name = QFileInfo(file).fileName();
    if (name.endsWith(QLatin1StringView(".gz"), Qt::CaseInsensitive))
        name.chop(3);
    m_baseName = QFileInfo(name).completeBaseName();
    if (m_baseName.isEmpty())
        m_baseName = QStringLiteral("recording");
}

qsizetype RecordingCollector::add(const QStringList &parts, bool hasLeft, bool hasRight)
{
    if (size() >= mostRecordings)
        return -1;
    RecordingBuilder &builder = m_recordings.emplace_back(m_place, hasLeft, hasRight);
    builder.recording.name = (QStringList(m_baseName) + parts).join(u'_');
    builder.recording.splitValues = parts;
    return size() - 1;
}

void RecordingCollector::reserve(qint64 restBytes, qsizetype bytesPerSample)
{
    if (size() != 1 || m_options.take || m_options.sampleLimit >= 0 || bytesPerSample <= 0 || restBytes <= 0)
        return;
    RecordingBuilder &only = m_recordings.front();
    only.reserve(only.recording.samples.size() + static_cast<qsizetype>(restBytes / bytesPerSample));
}

bool RecordingCollector::handOn(double part)
{
    bool isWanted = !m_options.progress || m_options.progress(part);
    if (!m_options.take)
        return isWanted;
    for (const qsizetype recording : std::as_const(m_touched)) {
        QList<TableSample> &samples = (*this)[recording].recording.samples;
        isWanted = isWanted && m_options.take(recording, samples);
        samples.clear();
    }
    m_touched.clear();
    return isWanted;
}

QList<TableRecording> RecordingCollector::finish()
{
    QList<TableRecording> recordings;
    recordings.reserve(size());
    for (RecordingBuilder &builder : m_recordings)
        recordings << builder.finish();
    m_recordings.clear();
    return recordings;
}
