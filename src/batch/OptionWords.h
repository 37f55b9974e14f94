// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/BatchOptions.h"

#include <QLatin1StringView>

#include <algorithm>
#include <iterator>

/// The words that options take as values, for the parser and for the report of a run.
namespace optionwords {

/// A word of a list on the command line and what it stands for; nothing where this version cannot do it.
template <class T>
struct Word {
    QLatin1StringView name;
    std::optional<T> meaning{};
};

using Text = QLatin1StringView;

inline constexpr Word<BatchOptions::Detector> detectors[] = {{Text("standard"), BatchOptions::Detector::Standard},
                                                             {Text("gaussian"), BatchOptions::Detector::Gaussian},
                                                             {Text("velocity"), BatchOptions::Detector::Velocity}};

inline constexpr Word<BatchOptions::VelocityUnit> velocityUnits[] = {
    {Text("pixel-per-ms"), BatchOptions::VelocityUnit::PixelPerMs},
    {Text("degree-per-s"), BatchOptions::VelocityUnit::DegreePerS},
    {Text("percentile"), BatchOptions::VelocityUnit::Percentile}};

inline constexpr Word<BatchOptions::Calculation> calculations[] = {
    {Text("fixations"), BatchOptions::Calculation::Fixations},
    {Text("clusters"), BatchOptions::Calculation::Clusters},
    {Text("cumulative-clusters"), BatchOptions::Calculation::CumulativeClusters},
    {Text("saccade-clusters"), BatchOptions::Calculation::SaccadeClusters},
    {Text("general-statistics")},
    {Text("aoi-statistics")}};

inline constexpr Word<BatchOptions::Table> tables[] = {
    {Text("fixations"), BatchOptions::Table::Fixations},
    {Text("clusters"), BatchOptions::Table::Clusters},
    {Text("events"), BatchOptions::Table::Events},
    {Text("cumulative-clusters"), BatchOptions::Table::CumulativeClusters},
    {Text("general-statistics")},
    {Text("aoi-statistics")},
    {Text("transitions")},
    {Text("anglestar")}};

inline constexpr Word<EyeMode> eyes[] = {{Text("all"), EyeMode::showAll},
                                         {Text("dominant"), EyeMode::showDominant},
                                         {Text("left"), EyeMode::showLeft},
                                         {Text("right"), EyeMode::showRight},
                                         {Text("mean"), EyeMode::showMean}};

inline constexpr Word<DataKind> densityKinds[] = {{Text("gaze"), DataKind::GazePoints},
                                                  {Text("fixations"), DataKind::Fixations},
                                                  {Text("clusters"), DataKind::Clusters},
                                                  {Text("saccades"), DataKind::Saccades}};

/// The word for a meaning that is in the vocabulary.
template <class T, size_t N>
QLatin1StringView wordFor(const T &meaning, const Word<T> (&vocabulary)[N])
{
    const auto found = std::find_if(std::begin(vocabulary), std::end(vocabulary),
                                    [&](const Word<T> &each) { return each.meaning == meaning; });
    return found == std::end(vocabulary) ? QLatin1StringView() : found->name;
}

} // namespace optionwords
