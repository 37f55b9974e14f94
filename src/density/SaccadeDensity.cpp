// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeDensity.h"

#include "density/HeatmapWorker.h"
#include "density/SaccadeGaussian.h"
#include "density/SaccadeTube.h"

#include <algorithm>

namespace {

/// Tubes between two exchanges of margins, which is how many columns a margin has.
constexpr int tubesPerStage = 32;

class worker_saccade_heatmap : public HeatmapWorker { // NOLINT(readability-identifier-naming): its given name
public:
    worker_saccade_heatmap(ColumnStripe stripe, Density &density, std::span<const SaccadeMark> marks,
                           const SaccadeMarkStyle &style)
        : HeatmapWorker(stripe, density)
        , m_marks(marks)
        , m_style(style)
    {
    }

protected:
    std::span<const SaccadeMark> marks() const { return m_marks; }
    const SaccadeMarkStyle &style() const { return m_style; }

    void runStage(int) override
    {
        clearStripe();
        for (const SaccadeMark &mark : m_marks)
            addStretchedGaussian(density(), stripe(), StretchedGaussian(mark, m_style));
        findPeak();
    }

private:
    std::span<const SaccadeMark> m_marks;
    const SaccadeMarkStyle &m_style;
};

/// Draws tubes into a copy of its stripe that has a margin at both sides. With each tube one column more of the margin
/// becomes wrong (see TubeStrip); before that reaches the stripe, the stage ends and the margins are taken anew from
/// the workers that own them.
class TubeWorker : public worker_saccade_heatmap {
public:
    using worker_saccade_heatmap::worker_saccade_heatmap;

    static std::size_t stages(std::size_t marks) { return std::max<std::size_t>(1, (marks + perStage - 1) / perStage); }

    /// Only between two stages.
    void takeMargin(TubeWorker &owner)
    {
        const ColumnStripe &own = m_strip->columns();
        const ColumnStripe &from = owner.stripe();
        for (int x = std::max(own.begin, from.begin); x < std::min(own.end, from.end); ++x)
            std::copy_n(owner.m_strip->column(x), canvas::height, m_strip->column(x));
    }

private:
    static constexpr std::size_t perStage = tubesPerStage;

    void runStage(int stage) override
    {
        if (!m_strip)
            m_strip.emplace(ColumnStripe{std::max(0, stripe().begin - tubesPerStage),
                                         std::min(canvas::width, stripe().end + tubesPerStage)});
        const std::size_t first = static_cast<std::size_t>(stage) * perStage;
        for (const SaccadeMark &mark : marks().subspan(first, std::min(perStage, marks().size() - first))) {
            if (const auto course = tubeCourse(mark, style().lengthThresholdPx))
                m_strip->add(*course, markFactor(mark, course->lengthPx, style()), m_profile);
        }
        if (first + perStage >= marks().size())
            finish();
    }

    void finish()
    {
        for (int x = stripe().begin; x < stripe().end; ++x)
            std::copy_n(m_strip->column(x), canvas::height, density().column(x));
        findPeak();
    }

    std::optional<TubeStrip> m_strip;
    std::vector<double> m_profile = tubeProfile(style().kernel);
};

template <class Worker>
std::vector<std::unique_ptr<Worker>> makeWorkers(int count, Density &density, std::span<const SaccadeMark> marks,
                                                 const SaccadeMarkStyle &style)
{
    std::vector<std::unique_ptr<Worker>> workers;
    for (const ColumnStripe stripe : columnStripes(count))
        workers.push_back(std::make_unique<Worker>(stripe, density, marks, style));
    return workers;
}

} // namespace

Density saccadeDensity(std::span<const SaccadeEvent> events, const SaccadeMarkStyle &style, int workers)
{
    const std::vector<SaccadeMark> marks = saccadeMarks(events);
    Density density;
    if (style.shape == SaccadeShape::Gaussian) {
        const auto threads = makeWorkers<worker_saccade_heatmap>(workers, density, marks, style);
        DrawingWorker::runAll(threads);
        density.setPeak(peakOf(threads));
        return density;
    }
    const auto threads = makeWorkers<TubeWorker>(workers, density, marks, style);
    for (std::size_t stage = 0; stage < TubeWorker::stages(marks.size()); ++stage) {
        for (std::size_t i = 1; stage > 0 && i < threads.size(); ++i) {
            threads[i - 1]->takeMargin(*threads[i]);
            threads[i]->takeMargin(*threads[i - 1]);
        }
        DrawingWorker::runAll(threads);
    }
    density.setPeak(peakOf(threads));
    return density;
}
