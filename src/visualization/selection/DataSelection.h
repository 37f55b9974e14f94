// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"
#include "model/TimeFrame.h"

#include <algorithm>

/// One stream of an examination.
struct ExaminationEye {
    const EyeData &stream() const { return examination->stream(eye); }

    const Examination *examination; ///< never null; not owned
    Eye eye;
};

/// The streams of an examination that are drawn, in drawing order.
QList<ExaminationEye> eyesToDraw(const Examination &examination, EyeMode mode);

/// The streams of several examinations for what is drawn eye by eye: for `showAll` first the left eyes of all, then the
/// right eyes; for the other modes one pass over all of them. Without examinations there is no pass.
QList<QList<ExaminationEye>> passesToDraw(const QList<const Examination *> &examinations, EyeMode mode);

/// Whether a raw sample takes part in the drawing: it is valid and inside the frame.
inline bool isDrawn(const GazePoint &sample, TimeFrame frame)
{
    return sample.validFlag && frame.contains(sample.time);
}

/// Indices of a list of sections, the last one not included.
struct SectionRange {
    qsizetype begin = 0;
    qsizetype end = 0;

    bool operator==(const SectionRange &) const = default;
};

/// The sections that the frame shows: from the first one that does not end before it, up to the first one that begins
/// after it. Sections in between are taken as they come. A section without samples stands at -1 ms.
template <class Section>
SectionRange sectionsInFrame(const QList<Section> &sections, TimeFrame frame)
{
    const auto first = std::find_if(sections.cbegin(), sections.cend(),
                                    [&](const Section &section) { return section.lastTime() >= frame.startMs; });
    const auto stop =
        std::find_if(first, sections.cend(), [&](const Section &section) { return section.firstTime() > frame.endMs; });
    return {first - sections.cbegin(), stop - sections.cbegin()};
}
