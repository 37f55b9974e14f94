// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/FixationNumbers.h"

#include "visualization/selection/DataSelection.h"

namespace {

/// On a disc, so that it can be read on any picture.
Drawing label(QPoint place, qsizetype number)
{
    constexpr int points = 14;
    constexpr int diameter = 34;
    constexpr int opacity = 200;
    const QFont font(QStringLiteral("Times New Roman"), points);
    return {OvalShape{squareAround(place, diameter), QPen(Qt::black), QBrush(QColor(255, 255, 255, opacity)), {}},
            TextShape{place, QString::number(number), font, Qt::black, TextAnchor::Center}};
}

} // namespace

Drawing fixationNumbers(const DrawingContext &context)
{
    Drawing drawing;
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const ExaminationEye &each : eyesToDraw(*examination, context.eyeMode)) {
            const QList<Fixation> &scanpath = each.stream().scanpath;
            const auto [begin, end] = sectionsInFrame(scanpath, context.frame);
            for (qsizetype i = begin; i < end; ++i) {
                const QPoint place = scanpath[i].mean;
                if (place.x() >= 0 && place.y() >= 0)
                    drawing << label(place, i + 1);
            }
        }
    }
    return drawing;
}
