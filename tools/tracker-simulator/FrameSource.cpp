// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/FrameSource.h"

#include "import/SampleLine.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize screen(1280, 800);
constexpr double longestS = 1e8;

SimulationParameters subjectParameters(double rateHz, quint64 seed)
{
    SimulationParameters parameters;
    parameters.seed = seed;
    parameters.rateHz = rateHz;
    parameters.durationS = longestS;
    return parameters;
}

SentFrame frameOf(const SampleFields &fields, FieldReader &reader)
{
    const auto eye = [&](std::size_t first) {
        return SentFrame::Eye{{reader.toDouble(fields[first]), reader.toDouble(fields[first + 1])},
                              reader.toDouble(fields[first + 2])};
    };
    return {.timeMs = reader.toLongLong(fields[0]),
            .isTracked = reader.toInt(fields[5]) == 1 && reader.toInt(fields[10]) == 1,
            .left = eye(1),
            .right = eye(6)};
}

} // namespace

SentFrame ReplayedRecording::next()
{
    SentFrame frame = m_frames[m_next];
    frame.timeMs += m_offsetMs;
    if (++m_next == m_frames.size()) {
        m_next = 0;
        const std::int64_t spanMs = m_frames.constLast().timeMs - m_frames.constFirst().timeMs;
        const std::int64_t stepMs = m_frames.size() > 1 ? m_frames[1].timeMs - m_frames[0].timeMs : 1;
        m_offsetMs += spanMs + stepMs;
    }
    return frame;
}

SimulatedSubject::SimulatedSubject(double rateHz, quint64 seed)
    : m_rateHz(rateHz)
    , m_simulator(subjectParameters(rateHz, seed), plainSaliency(screen))
{
}

SentFrame SimulatedSubject::next()
{
    const SimulatedSample sample = m_simulator.next();
    constexpr double msPerS = 1000;
    return {.timeMs = std::llround(static_cast<double>(m_index++) * msPerS / m_rateHz),
            .isTracked = sample.left.valid && sample.right.valid,
            .left = {sample.left.position, sample.left.pupilWidth},
            .right = {sample.right.position, sample.right.pupilWidth}};
}

std::optional<QList<SentFrame>> readFrames(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    RecordingText text(bytes);
    FieldReader reader(text);
    QList<SentFrame> frames;
    for (QByteArray line : bytes.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        const auto fields = lineClass(line) == LineClass::Sample ? splitSampleLine(line) : std::nullopt;
        if (fields)
            frames << frameOf(*fields, reader);
    }
    if (frames.isEmpty())
        return {};
    return frames;
}
