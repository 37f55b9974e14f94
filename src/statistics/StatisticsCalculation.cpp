// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/StatisticsCalculation.h"

#include "base/Log.h"
#include "base/Progress.h"
#include "statistics/AoiMeasures.h"
#include "statistics/GeneralMeasures.h"

namespace {

/// Measures the streams of the checked examinations and keeps the results.
///
/// @param measure  a stream's result, called from several threads.
/// @param keep  puts a result into its stream.
template <class Measure, class Keep>
void measureStreams(DataModel &model, const QString &label, int threads, const Measure &measure, const Keep &keep)
{
    using Result = std::invoke_result_t<Measure, const EyeData &>;
    const QList<const Examination *> checked = model.checkedExaminations();
    std::vector<std::array<Result, 3>> results(static_cast<size_t>(checked.size()));
    Progress progress(label, static_cast<int>(checked.size()));
    sideBySide(
        checked.size(), threads,
        [&](qsizetype i) {
            const auto streams = checked[i]->streams();
            for (size_t eye = 0; eye < streams.size(); ++eye)
                results[static_cast<size_t>(i)][eye] = measure(*streams[eye]);
        },
        [&](qsizetype) { progress.advance(); });
    size_t next = 0;
    for (Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        const auto streams = examination.streams();
        for (size_t eye = 0; eye < streams.size(); ++eye)
            keep(*streams[eye], results[next][eye]);
        ++next;
    }
}

void write(const Log *log, const QString &line)
{
    if (log)
        log->write(line);
}

} // namespace

void calculateGeneralStatistics(DataModel &model, const Log *log, int threads)
{
    const TimeFrame frame = model.timeFrame();
    measureStreams(
        model, QStringLiteral("Calculate General Statistics, please wait."), threads,
        [frame](const EyeData &stream) { return generalStatistics(stream.gazePoints, frame); },
        [](EyeData &stream, const GeneralStatistics &result) { stream.generalStatistics = result; });
    write(log, QStringLiteral("Information: General statistics calculation was succesfull")); // sic
}

void calculateAoiStatistics(DataModel &model, const Log *log, int threads)
{
    const TimeFrame frame = model.timeFrame();
    const QList<AreaOfInterest> areas = model.aoiList();
    const AoiIndex index(areas);
    measureStreams(
        model, QStringLiteral("Calculate AOI Statistics, please wait."), threads,
        [&, frame](const EyeData &stream) { return aoiStatistics(stream, areas, index, frame); },
        [](EyeData &stream, const QList<AreaOfInterest> &result) { stream.aoiStatistics = result; });
    write(log, QStringLiteral("Information: AOI statistics calculation was succesfull")); // sic
}
