// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ImportCounts.h"

namespace {

using namespace Qt::Literals::StringLiterals;

/// What is counted in lines: in the text, "%1" is the count and "%2" the first line.
struct LineCountRow {
    LineCount ImportCounts::*member;
    QLatin1StringView name;
    QLatin1StringView text;
};

constexpr LineCountRow lineCounts[] = {
    {&ImportCounts::wrongLength, "lines of wrong length"_L1,
     "sample lines without eleven fields, left out: %1; the first is line %2. Fields are separated by one tab each."_L1},
    {&ImportCounts::shifted, "lines that begin with no digit"_L1,
     "lines that look like samples but do not begin with a digit, passed over: %1; the first is line %2. No blank, "
     "quote or sign stands before the time."_L1},
    {&ImportCounts::noNumbers, "fields that are no numbers"_L1,
     "fields that are no numbers and count as 0: %1; the first is in line %2. Times are whole numbers, decimals have a "
     "point."_L1},
    {&ImportCounts::decimalCommas, "decimal commas"_L1,
     "fields with a decimal comma, which count as 0: %1; the first is in line %2. Write a point, or use \"Import other "
     "formats...\" or vistrum-import, which read commas."_L1},
    {&ImportCounts::decimalTimes, "decimal times"_L1,
     "times with decimals, which count as 0: %1; the first is in line %2. Write whole milliseconds, or use \"Import "
     "other "
     "formats...\" or vistrum-import, which round them."_L1},
    {&ImportCounts::backwardTimes, "backward times"_L1,
     "samples earlier than the sample before them: %1; the first is line %2."_L1},
    {&ImportCounts::repeatedTimes, "repeated times"_L1,
     "samples with the time of the sample before them: %1; the first is line %2."_L1},
};

/// Below this nothing can be said of a rate.
constexpr qsizetype fewestSteps = 10;
/// The fastest trackers reach about 2000.
constexpr qsizetype mostSamplesPerMs = 5;

} // namespace

bool ImportCounts::isRateImplausible() const
{
    const qsizetype steps = samples - 1;
    if (steps < fewestSteps)
        return false;
    const bool isSlow = longSteps.count > steps - longSteps.count;
    const bool isFast = durationMs >= 0 && steps / mostSamplesPerMs > durationMs;
    return isSlow || isFast;
}

qsizetype ImportCounts::firstDoubtfulStep() const
{
    if (longSteps.count > 0)
        return longSteps.firstLine;
    return repeatedTimes.count > 0 ? repeatedTimes.firstLine : backwardTimes.firstLine;
}

QStringList importDoubts(const ImportCounts &counts)
{
    QStringList doubts;
    for (const LineCountRow &row : lineCounts) {
        const LineCount &found = counts.*row.member;
        if (found.count > 0)
            doubts << QString(row.text).arg(QString::number(found.count), QString::number(found.firstLine));
    }
    if (counts.isRateImplausible())
        doubts << QStringLiteral("%1 samples in %2 ms are no rate of an eye tracker; the first doubtful step is line "
                                 "%3. Times are in milliseconds; \"Import other formats...\" or vistrum-import read "
                                 "other units.")
                      .arg(counts.samples)
                      .arg(counts.durationMs)
                      .arg(counts.firstDoubtfulStep());
    return doubts;
}

QMap<QString, qint64> reportedCounts(const ImportCounts &counts)
{
    QMap<QString, qint64> reported{{QStringLiteral("samples"), counts.samples}};
    for (const LineCountRow &row : lineCounts) {
        const LineCount &found = counts.*row.member;
        reported.insert(row.name, found.count);
        if (found.count > 0)
            reported.insert(QStringLiteral("first of ") + row.name, found.firstLine);
    }
    if (counts.isRateImplausible()) {
        reported.insert(QStringLiteral("implausible rate"), 1);
        reported.insert(QStringLiteral("first of implausible rate"), counts.firstDoubtfulStep());
    }
    return reported;
}
