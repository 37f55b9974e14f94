// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/SampleLine.h"

#include <QList>
#include <QMap>
#include <QString>

/// How often something was found in a file, and where first.
struct LineCount {
    bool operator==(const LineCount &) const = default;

    void add(qsizetype more, qsizetype lineNumber)
    {
        if (count == 0 && more > 0)
            firstLine = lineNumber;
        count += more;
    }

    qsizetype count = 0;
    qsizetype firstLine = 0; ///< number among all lines, from 1; 0 if there is none
};

/// What a recording held, for reports.
struct ImportCounts {
    bool operator==(const ImportCounts &) const = default;

    /// Samples come too slowly or too fast for an eye tracker: most likely the times are in another unit than ms.
    bool isRateImplausible() const;

    void add(const FieldFaults &faults, qsizetype lineNumber)
    {
        if (faults == FieldFaults{}) // nearly every line
            return;
        noNumbers.add(faults.noNumbers, lineNumber);
        decimalCommas.add(faults.decimalCommas, lineNumber);
        decimalTimes.add(faults.decimalTimes, lineNumber);
    }

    /// Line of the first step that is too long or, where samples come too fast, too short.
    qsizetype firstDoubtfulStep() const;

    /// Notes what is doubtful in the time from the sample before, where there is one.
    void countStep(qint64 stepMs, qsizetype lineNumber)
    {
        if (stepMs > 0 && stepMs <= longestPlausibleStepMs) // nearly every sample
            return;
        if (stepMs > 0)
            longSteps.add(1, lineNumber);
        else
            (stepMs < 0 ? backwardTimes : repeatedTimes).add(1, lineNumber);
    }

    qsizetype samples = 0;
    LineCount wrongLength = {};   ///< sample lines without exactly 11 fields; they are left out
    LineCount shifted = {};       ///< lines like samples that do not begin with a digit; they are passed over
    LineCount noNumbers = {};     ///< fields that are no numbers and count as 0; without those below
    LineCount decimalCommas = {}; ///< fields with a decimal comma, which count as 0
    LineCount decimalTimes = {};  ///< times with decimals, which count as 0
    LineCount backwardTimes = {}; ///< samples earlier than the sample before them
    LineCount repeatedTimes = {}; ///< samples at the time of the sample before them
    LineCount longSteps = {};     ///< samples more than `longestPlausibleStepMs` after the sample before them
    qint64 durationMs = 0;        ///< from the first sample to the last; negative where the clock ran backwards

    static constexpr qint64 longestPlausibleStepMs = 100;
};

/// What is doubtful in a recording that was imported all the same, a sentence each for the user.
QStringList importDoubts(const ImportCounts &counts);

/// The counts by the names that they have in reports; with first lines where there are any.
QMap<QString, qint64> reportedCounts(const ImportCounts &counts);
