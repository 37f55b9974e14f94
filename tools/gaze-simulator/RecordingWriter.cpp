// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/RecordingWriter.h"

#include "base/Messages.h"
#include "import/tables/RecordingSamples.h"

#include <QSaveFile>

#include <array>
#include <charconv>
#include <cmath>

namespace recording {

namespace {

constexpr int positionDecimals = 4;
constexpr int pupilDecimals = 2;
constexpr qsizetype blockBytes = 1 << 20;

/// Builds one line in place: a long recording has millions, and each of these steps is the cost of the whole.
class LineBuilder {
public:
    void add(qint64 number) { m_end = std::to_chars(m_end, m_line.data() + m_line.size(), number).ptr; }
    void add(char character) { *m_end++ = character; }

    /// Fixed form, rounded half away from zero.
    template <int decimals>
    void addFixed(double value)
    {
        constexpr qint64 scale = powerOfTen(decimals);
        const qint64 scaled = std::llround(value * static_cast<double>(scale));
        const qint64 size = std::abs(scaled);
        if (scaled < 0)
            add('-');
        add(size / scale);
        add('.');
        qint64 rest = size % scale;
        for (int digit = decimals - 1; digit >= 0; --digit) {
            m_end[digit] = static_cast<char>('0' + rest % 10);
            rest /= 10;
        }
        m_end += decimals;
    }

    void addEye(const EyeSample &eye)
    {
        if (!eye.valid) {
            add(QByteArrayView("\t0\t0\t0\t0\t0"));
            return;
        }
        add('\t');
        addFixed<positionDecimals>(eye.position.x());
        add('\t');
        addFixed<positionDecimals>(eye.position.y());
        add('\t');
        addFixed<pupilDecimals>(eye.pupilWidth);
        add('\t');
        addFixed<pupilDecimals>(eye.pupilHeight);
        add(QByteArrayView("\t1"));
    }

    QByteArrayView text() const { return {m_line.data(), m_end}; }

private:
    static constexpr qint64 powerOfTen(int exponent) { return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1); }

    void add(QByteArrayView characters) { m_end = std::ranges::copy(characters, m_end).out; }

    std::array<char, 512> m_line; // 11 numbers of at most 26 characters, and separators
    char *m_end = m_line.data();
};

/// A file that is written in blocks and appears when it is complete.
class BlockFile {
public:
    explicit BlockFile(const QString &path) : m_file(path) {}

    bool open() { return m_file.open(QIODevice::WriteOnly) || failed(); }

    QByteArray &text() { return m_text; }

    bool flushFull() { return m_text.size() < blockBytes || flush(); }

    bool finish() { return flush() && (m_file.commit() || failed()); }

private:
    bool flush()
    {
        // A full disk takes a part first; only the next attempt tells why.
        for (qint64 done = 0; done < m_text.size();) {
            const qint64 written = m_file.write(m_text.constData() + done, m_text.size() - done);
            if (written <= 0)
                return failed();
            done += written;
        }
        m_text.resize(0);
        return true;
    }

    bool failed() const
    {
        messages::critical(QStringLiteral("Cannot write"),
                           QStringLiteral("%1: %2. Choose a folder that exists, may be written and has space left.")
                               .arg(m_file.fileName(), m_file.errorString()));
        return false;
    }

    QSaveFile m_file;
    QByteArray m_text;
};

void appendLabel(QByteArray &text, qint64 index, const SimulatedSample &sample)
{
    LineBuilder line;
    line.add(index);
    line.add(',');
    line.add(sample.timeMs);
    line.add(',');
    line.add(static_cast<qint64>(sample.label));
    line.add('\n');
    text += line.text();
}

/// @param labels  null where the truth is not asked for.
bool writeSamples(BlockFile &data, BlockFile *labels, GazeSimulator &simulator)
{
    if (!data.open() || (labels && !labels->open()))
        return false;
    data.text() += header();
    if (labels)
        labels->text() += "sample,time,label\n";
    for (qint64 i = 0; i < simulator.sampleCount(); ++i) {
        const SimulatedSample sample = simulator.next();
        appendLine(data.text(), sample);
        if (labels)
            appendLabel(labels->text(), i, sample);
        if (!data.flushFull() || (labels && !labels->flushFull()))
            return false;
    }
    return data.finish() && (!labels || labels->finish());
}

bool writeSet(const QString &path, const QByteArray &text)
{
    BlockFile set(path);
    if (!set.open())
        return false;
    set.text() = text;
    return set.finish();
}

} // namespace

QByteArray header()
{
    return dataHeader();
}

void appendLine(QByteArray &text, const SimulatedSample &sample)
{
    LineBuilder line;
    line.add(sample.timeMs);
    line.addEye(sample.left);
    line.addEye(sample.right);
    line.add('\n');
    text += line.text();
}

bool write(const QString &name, const QByteArray &setText, GazeSimulator &simulator, Truth truth)
{
    BlockFile data(name + QStringLiteral(".data"));
    BlockFile labels(name + QStringLiteral(".labels.csv"));
    return writeSamples(data, truth == Truth::Write ? &labels : nullptr, simulator) &&
           writeSet(name + QStringLiteral(".set"), setText);
}

} // namespace recording
