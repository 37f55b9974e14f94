// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/SectionEvent.h"

#include "base/Truncation.h"
#include "model/ScanpathSection.h"

#include <cmath>

FixationEvent sectionEvent(const ScanpathSection &section)
{
    const auto roundedUp = [](float component) { return truncated(std::ceil(static_cast<double>(component))); };
    return {section.mean.x(),
            section.mean.y(),
            roundedUp(section.majorAxis.x()),
            roundedUp(section.majorAxis.y()),
            roundedUp(section.minorAxis.x()),
            roundedUp(section.minorAxis.y()),
            section.duration()};
}
