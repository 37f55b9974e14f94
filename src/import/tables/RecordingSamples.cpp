// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/RecordingSamples.h"

#include "import/EyeStreams.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// Times in other units that are whole ms are not exactly so as doubles.
constexpr double wholeMs = 1e-6;

/// A line of a .data file on its way: eleven numbers in one buffer.
class LineText {
public:
    void add(qint64 value) { m_end = std::to_chars(m_end, m_text.data() + m_text.size(), value).ptr; }

    /// The shortest form that is read back as the same number; without exponent as far as that is short.
    void add(double value)
    {
        constexpr double smallest = 1e-5;
        constexpr double largest = 1e15;
        const double size = std::abs(value);
        const bool isFixed = size == 0 || (size >= smallest && size < largest);
        m_end = std::to_chars(m_end, m_text.data() + m_text.size(), value,
                              isFixed ? std::chars_format::fixed : std::chars_format::general)
                    .ptr;
    }

    void add(char sign) { *m_end++ = sign; }

    void add(const TableEyeSample &eye, int validity)
    {
        for (const double value : {eye.x, eye.y, eye.pupilWidth, eye.pupilHeight}) {
            add('\t');
            add(value);
        }
        add('\t');
        add(static_cast<qint64>(validity));
    }

    QByteArrayView text() const { return {m_text.data(), m_end}; }

private:
    static constexpr std::size_t longest = 512; ///< eight numbers of up to 25 signs, three short ones
    std::array<char, longest> m_text;
    char *m_end = m_text.data();
};

GazePoint gazePoint(qint64 time, const TableEyeSample &eye, int validity)
{
    return {time, eye.x, eye.y, eye.pupilWidth, eye.pupilHeight, validity};
}

} // namespace

std::optional<DataSample> DataSampleMaker::next(const TableSample &sample)
{
    if (m_isFirst) {
        m_isFirst = false;
        m_shiftMs = sample.timeMs < 0 ? -sample.timeMs : 0;
    }
    // Beyond this a number of ms has no exact double.
    constexpr double latest = 9e15;
    const double time = sample.timeMs + m_shiftMs;
    const double whole = std::floor(time + 0.5);
    if (whole < 0 || !(whole <= latest)) {
        ++m_beforeZero;
        return std::nullopt;
    }
    const double change = std::abs(time - whole);
    if (change > wholeMs) {
        ++m_rounded;
        m_largestRoundingMs = std::max(m_largestRoundingMs, change);
    }
    return DataSample{static_cast<qint64>(whole), sample.left, sample.right, sample.leftValid ? 1 : 0,
                      sample.rightValid ? 1 : 0};
}

QList<TableOddity> DataSampleMaker::oddities() const
{
    QList<TableOddity> oddities;
    if (m_rounded > 0)
        oddities << TableOddity{
            TableOddityKind::RoundedTime, m_rounded, 0,
            QStringLiteral("times that are no whole milliseconds and were rounded, by up to %2 ms: %1.")
                .arg(m_rounded)
                .arg(m_largestRoundingMs, 0, 'g', 3)};
    if (m_beforeZero > 0)
        oddities << TableOddity{
            TableOddityKind::BeforeZeroTime, m_beforeZero, 0,
            QStringLiteral("samples before the first one, below zero of the clock, or beyond its end, left out: %1.")
                .arg(m_beforeZero)};
    return oddities;
}

void appendDataLine(const DataSample &sample, QByteArray &text)
{
    LineText line;
    line.add(sample.timeMs);
    line.add(sample.left, sample.leftValidity);
    line.add(sample.right, sample.rightValidity);
    line.add('\n');
    text += line.text();
}

QByteArray dataLine(const DataSample &sample)
{
    QByteArray text;
    appendDataLine(sample, text);
    return text.chopped(1);
}

QByteArray dataHeader()
{
    return "StaticBinocular\n"
           "time\tleft_x\tleft_y\tleft_w\tleft_h\tleft_valid\tright_x\tright_y\tright_w\tright_h\tright_valid\n";
}

bool putSamples(TableRecording &recording, Examination &examination)
{
    DataSampleMaker maker;
    EyeStreams streams;
    streams.reserve(recording.samples.size());
    qint64 timeZero = 0;
    for (const TableSample &sample : std::as_const(recording.samples)) {
        const auto line = maker.next(sample);
        if (!line)
            continue;
        if (streams.isEmpty())
            timeZero = line->timeMs;
        const qint64 time = line->timeMs - timeZero;
        streams.add(gazePoint(time, line->left, line->leftValidity), line->leftValidity,
                    gazePoint(time, line->right, line->rightValidity), line->rightValidity);
    }
    recording.oddities += maker.oddities();
    if (streams.isEmpty() || !streams.anyValid())
        return false;
    streams.moveTo(examination);
    return true;
}
