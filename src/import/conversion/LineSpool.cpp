// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/LineSpool.h"

#include <QTemporaryFile>

LineSpool::LineSpool(qsizetype mostBytes) : m_mostBytes(mostBytes) {}
LineSpool::~LineSpool() = default;
LineSpool::LineSpool(LineSpool &&) noexcept = default;
LineSpool &LineSpool::operator=(LineSpool &&) noexcept = default;

bool LineSpool::add(qsizetype index, const QByteArray &text)
{
    const auto place = static_cast<std::size_t>(index);
    if (place >= m_texts.size())
        m_texts.resize(place + 1);
    m_texts[place].kept += text;
    m_keptBytes += text.size();
    return m_keptBytes <= m_mostBytes || spill();
}

bool LineSpool::take(qsizetype index, const std::function<bool(const QByteArray &)> &taker)
{
    const auto place = static_cast<std::size_t>(index);
    if (place >= m_texts.size())
        return true;
    for (const Segment &segment : m_texts[place].segments) {
        if (!m_file->seek(segment.at))
            return fail();
        const QByteArray text = m_file->read(segment.bytes);
        if (text.size() != segment.bytes)
            return fail();
        if (!taker(text))
            return true;
    }
    taker(m_texts[place].kept);
    return true;
}

bool LineSpool::spill()
{
    if (!m_file) {
        m_file = std::make_unique<QTemporaryFile>();
        if (!m_file->open())
            return fail();
    }
    for (Text &text : m_texts) {
        if (text.kept.isEmpty())
            continue;
        const Segment segment{m_file->size(), text.kept.size()};
        if (!m_file->seek(segment.at) || m_file->write(text.kept) != segment.bytes)
            return fail();
        text.segments.push_back(segment);
        text.kept = {};
    }
    m_keptBytes = 0;
    return m_file->flush() || fail();
}

bool LineSpool::fail()
{
    m_problem = QStringLiteral("the temporary file %1 failed: %2. Make room there, or set TMPDIR to another folder")
                    .arg(m_file->fileName(), m_file->errorString());
    return false;
}
