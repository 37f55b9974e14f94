// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "visualization/heatmap/HeatmapEvents.h"
#include "visualization/heatmap/HeatmapOptions.h"

#include <algorithm>
#include <array>
#include <span>

/// Which colour a cell gets on the absolute scale, on which maps of several recordings can be compared.
struct AbsoluteScale {
    double gain = 1;    ///< a cell times this must be above the limit to be coloured
    double limit = 0;   ///< density; NaN: no cell is coloured
    double unit = 1;    ///< density of the last colour
    double maximum = 0; ///< what the last colour stands for, as the label shows it

    bool operator==(const AbsoluteScale &) const = default;
};

/// Percentages of the events in five classes of density, from the lowest.
using ClassPercentages = std::array<double, 5>;

/// How many events lie around the peak, nearer than half the kernel's width along both axes.
template <class Event>
int eventsAround(const DensityPeak &peak, std::span<const Event> events, int kernelWidth)
{
    const qint64 reach = kernelWidth / 2;
    return static_cast<int>(std::count_if(events.begin(), events.end(), [&](const Event &event) {
        return event.x - reach < peak.x && peak.x < event.x + reach && event.y - reach < peak.y &&
               peak.y < event.y + reach;
    }));
}

/// @param around  events around the peak.
/// The threshold is in gaze points per minute, and so is what the cells are compared as; `power` is in hundreds of
/// points.
AbsoluteScale gazePointScale(double peak, int around, double perMinute, const VisualizationParameters &parameters);

/// As for gaze points, but nothing is related to the duration of the frame. At least one event counts as around the
/// peak where there are two.
AbsoluteScale saccadeScale(double peak, int around, std::size_t events, const VisualizationParameters &parameters);

/// The scale of fixations or clusters, and where their five classes end.
struct FixationScale {
    AbsoluteScale colors;
    double top = 0;   ///< density: 80 percent of it begin the highest class
    double lower = 0; ///< events at this density or less are in no class

    bool operator==(const FixationScale &) const = default;
};

/// @param examinations  number of the checked ones.
FixationScale fixationScale(double peak, int around, double perMinute, int examinations,
                            const VisualizationParameters &parameters);

ClassPercentages classPercentages(const Density &density, std::span<const FixationEvent> events, double top,
                                  double lower);
