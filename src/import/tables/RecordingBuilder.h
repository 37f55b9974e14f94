// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ImportCounts.h"
#include "import/tables/TableFile.h"

/// What is told of lines, by kind.
class OddityCounts {
public:
    void add(TableOddityKind kind, qsizetype line, qsizetype more = 1)
    {
        m_counts[static_cast<std::size_t>(kind)].add(more, line);
    }
    const LineCount &of(TableOddityKind kind) const { return m_counts[static_cast<std::size_t>(kind)]; }
    /// With their sentences.
    QList<TableOddity> list() const;

private:
    std::array<LineCount, static_cast<std::size_t>(TableOddityKind::BeforeZeroTime) + 1> m_counts;
};

/// A recording while its lines come in: takes samples, measures them and notes what is odd.
class RecordingBuilder {
public:
    RecordingBuilder(const TableGeometry &place, bool hasLeft, bool hasRight);

    TableRecording recording; ///< name, entries and screen are set by the reader
    OddityCounts oddities;

    void reserve(qsizetype samples);
    void add(const TableSample &sample, qsizetype line)
    {
        TableFacts &facts = recording.facts;
        const double stepMs = sample.timeMs - facts.lastTimeMs;
        const bool isUsual = stepMs > 0 && stepMs <= ImportCounts::longestPlausibleStepMs;
        if (isUsual && m_isMeasured && !m_isAfterPause) // nearly every one
            ++m_usualSteps;
        else
            addUnusual(sample, line);
        facts.lastTimeMs = sample.timeMs;
        ++facts.samples;
        countEyes(sample, line);
        recording.samples.append(sample);
    }
    /// The next sample is not measured against the one before it.
    void pause() { m_isAfterPause = true; }
    void setEyes(bool hasLeft, bool hasRight);
    void setScreen(const QSizeF &px);

    /// Facts and oddities; the samples are whole.
    TableRecording finish();

private:
    void countStep(double stepMs, qsizetype line);
    void addUnusual(const TableSample &sample, qsizetype line);
    void countEyes(const TableSample &sample, qsizetype line)
    {
        TableFacts &facts = recording.facts;
        facts.leftValid += sample.leftValid ? 1 : 0;
        facts.rightValid += sample.rightValid ? 1 : 0;
        if (!sample.leftValid)
            m_leftLost.add(1, line);
        if (!sample.rightValid)
            m_rightLost.add(1, line);
        if (m_widthPx > 0 &&
            ((sample.leftValid && isOutside(sample.left)) || (sample.rightValid && isOutside(sample.right))))
            oddities.add(TableOddityKind::OutsideScreen, line);
    }
    void measureRate();
    void addEyeOddities();
    void addRateOddity();
    void addStatedRateOddity();
    bool isOutside(const TableEyeSample &eye) const
    {
        return eye.x < 0 || eye.y < 0 || eye.x > m_widthPx || eye.y > m_heightPx;
    }

    double m_widthPx = 0;
    double m_heightPx = 0;
    QList<double> m_steps; ///< the first forward steps, ms
    double m_stepSum = 0;  ///< of steps that are no jumps
    qsizetype m_stepCount = 0;
    qsizetype m_usualSteps = 0; ///< all but the jumps
    bool m_isMeasured = false;  ///< there are enough steps for the rate
    bool m_isAfterPause = false;
    LineCount m_leftLost;
    LineCount m_rightLost;
};
