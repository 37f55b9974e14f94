// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionDensity.h"

#include "aoi/generation/DiscDensity.h"
#include "aoi/saliency/Saliency.h"
#include "base/Progress.h"
#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "density/FixationDensity.h"
#include "model/DataModel.h"
#include "visualization/heatmap/SectionEvent.h"

#include <algorithm>
#include <numbers>

namespace {

constexpr Eye eyes[] = {Eye::Left, Eye::Right};
constexpr double msPerMinute = 60000;

struct SourceRow {
    RegionSource source;
    QLatin1StringView unit;
};

constexpr SourceRow sources[] = {
    {RegionSource::GazePoints, QLatin1StringView(" gp/min")},
    {RegionSource::Fixations, QLatin1StringView(" fix/min")},
    {RegionSource::Clusters, QLatin1StringView(" clu/min")},
    {RegionSource::CumulativeClusters, QLatin1StringView(" cumclu/min")},
    {RegionSource::SaliencyItti, QLatin1StringView(" saliency")},
    {RegionSource::SaliencyFrequencyTuned, QLatin1StringView(" saliency")},
    {RegionSource::SaliencyIntegratedFeatures, QLatin1StringView(" saliency")},
};

QString unitOf(RegionSource source)
{
    const auto row = std::find_if(std::begin(sources), std::end(sources),
                                  [source](const SourceRow &candidate) { return candidate.source == source; });
    return row == std::end(sources) ? QString() : QString(row->unit);
}

/// What is taken for a density: the events, and whether there was anything to take them from.
template <class Event>
struct Taken {
    std::vector<Event> events;
    bool isAny = false;
};

Taken<GazePointEvent> gazePoints(const DataModel &model)
{
    Taken<GazePointEvent> taken;
    const TimeFrame frame = model.timeFrame();
    for (const Examination *examination : model.checkedExaminations()) {
        for (const Eye eye : eyes) {
            const QList<GazePoint> &samples = examination->stream(eye).gazePoints;
            taken.isAny |= !samples.isEmpty();
            for (const GazePoint &sample : samples) {
                if (sample.validFlag && frame.contains(sample.time))
                    taken.events.push_back({truncated(sample.x), truncated(sample.y)});
            }
        }
    }
    return taken;
}

template <class Section>
void take(Taken<FixationEvent> &taken, const QList<Section> &sections, TimeFrame frame)
{
    taken.isAny |= !sections.isEmpty();
    for (const Section &section : sections) {
        if (frame.holds(section))
            taken.events.push_back(sectionEvent(section));
    }
}

Taken<FixationEvent> sections(const DataModel &model, RegionSource source)
{
    Taken<FixationEvent> taken;
    if (source == RegionSource::CumulativeClusters) {
        for (const Eye eye : eyes)
            take(taken, model.pooled(eye).fixationClusters, model.timeFrame());
        return taken;
    }
    for (const Examination *examination : model.checkedExaminations()) {
        for (const Eye eye : eyes) {
            const EyeData &stream = examination->stream(eye);
            if (source == RegionSource::Fixations)
                take(taken, stream.scanpath, model.timeFrame());
            else
                take(taken, stream.fixationClusters, model.timeFrame());
        }
    }
    return taken;
}

int workersFor(std::size_t events)
{
    constexpr std::size_t workers = 4;
    return events < workers ? 1 : workers;
}

std::optional<Density> eventDensity(const DataModel &model, const RegionParameters &parameters)
{
    const NormalDistribution kernel{.width = parameters.size, .sigma = parameters.sigma};
    if (parameters.source == RegionSource::GazePoints) {
        const Taken<GazePointEvent> taken = gazePoints(model);
        if (!taken.isAny)
            return std::nullopt;
        return discDensity(taken.events, kernel, workersFor(taken.events.size()));
    }
    const Taken<FixationEvent> taken = sections(model, parameters.source);
    if (!taken.isAny)
        return std::nullopt;
    return fixationDensity(taken.events, kernel, FixationMass::One, workersFor(taken.events.size()));
}

Grid<double> gridOf(const double *cells)
{
    Grid<double> grid(canvas::width, canvas::height);
    std::copy_n(cells, grid.size(), grid.data());
    return grid;
}

/// How many events lie on the highest cell, in the measure of a Gaussian's peak, by the minute.
double perMinute(double highest, const RegionParameters &parameters, qint64 durationMs)
{
    const double peak = 1 / (2 * std::numbers::pi * parameters.sigma * parameters.sigma);
    return highest / peak / (static_cast<double>(durationMs) / msPerMinute);
}

std::optional<RegionDensity> densityOfEvents(const DataModel &model, const RegionParameters &parameters)
{
    const Progress progress(QStringLiteral("Calculating the heatmap, please wait."), 1);
    const std::optional<Density> density = eventDensity(model, parameters);
    if (!density)
        return std::nullopt;
    const double highest = density->peak().value > 0 ? density->peak().value : 1;
    return RegionDensity{.cells = gridOf(density->column(0)),
                         .highest = highest,
                         .unit = unitOf(parameters.source),
                         .atHighest = perMinute(highest, parameters, model.longestCheckedDuration()),
                         .remark = {}};
}

QString stretchRemark(QSize picture)
{
    const QSize whole(canvas::width, canvas::height);
    if (picture == whole)
        return {};
    return QStringLiteral(
               "The saliency fills %1 x %2 cells, the picture has %3 x %4 pixels: regions do not lie on what "
               "they mark. Scale the picture to %1 x %2.")
        .arg(whole.width())
        .arg(whole.height())
        .arg(picture.width())
        .arg(picture.height());
}

std::optional<RegionDensity> densityOfPicture(const DataModel &model, const QImage &picture, RegionSource source,
                                              const std::stop_token &stop)
{
    const auto method =
        static_cast<SaliencyMethod>(static_cast<int>(source) - static_cast<int>(RegionSource::SaliencyItti) +
                                    static_cast<int>(SaliencyMethod::Itti));
    const cv::Mat map = saliencyMap(method, picture, model.saliencyParameters, stop);
    if (map.empty())
        return std::nullopt;
    const cv::Mat columns = saliencyOnCanvas(map).t();
    return RegionDensity{
        .cells = gridOf(columns.ptr<double>()), .unit = unitOf(source), .remark = stretchRemark(picture.size())};
}

} // namespace

std::optional<RegionDensity> regionDensity(const DataModel &model, const QImage &picture,
                                           const RegionParameters &parameters, const std::stop_token &stop)
{
    if (isSaliency(parameters.source))
        return densityOfPicture(model, picture, parameters.source, stop);
    return densityOfEvents(model, parameters);
}

QStringList scaleTexts(const RegionDensity &density)
{
    if (density.unit == unitOf(RegionSource::SaliencyItti))
        return {QStringLiteral("0 "), QStringLiteral("0.5 "), QStringLiteral("1.0 ")};
    constexpr double half = 0.5;
    return {QStringLiteral("0") + density.unit, text::general6(density.atHighest * half) + density.unit,
            text::general6(density.atHighest) + density.unit};
}

double preThresholdInUnit(const RegionDensity &density, int percent)
{
    return percent / wholeInPercent * density.atHighest;
}
