// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/timeline/TimeLabels.h"

#include "base/TextFormat.h"

#include <algorithm>

namespace {

constexpr int gap = 4;        ///< between two texts, px
constexpr int leftMargin = 1; ///< the outline of the strip

constexpr int upperTop = 2;
constexpr int upperHeight = 15;

/// The first one stands at its tick, the others beside it, in the middle of a box.
TimeLabel tickLabel(const TimeTick &tick, int top)
{
    constexpr QSize box(152, 20);
    const bool isFirst = tick.timeMs == 0;
    const QPoint corner(isFirst ? tick.pixel : tick.pixel - box.width() / 4, top);
    return {{corner, box}, isFirst ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter, text::timeText(tick.timeMs)};
}

QList<TimeLabel> tickLabels(const TimeScale &scale, QSize strip, const QFontMetrics &font)
{
    const int top = static_cast<int>(strip.height() * 0.7);
    QList<TimeLabel> labels;
    int free = 0; // from here on
    for (const TimeTick &tick : timeTicks(scale, strip.width())) {
        if (!tick.isLabelled)
            continue;
        const TimeLabel label = tickLabel(tick, top);
        const int width = font.horizontalAdvance(label.text);
        const bool isCentred = label.alignment == Qt::AlignCenter;
        const int left = isCentred ? label.box.left() + (label.box.width() - width) / 2 : label.box.left();
        if (left < free || left + width > strip.width())
            continue;
        labels << label;
        free = left + width + gap;
    }
    return labels;
}

QList<TimeLabel> upperLabels(const TimeScale &scale, int stripWidth, const QFontMetrics &font)
{
    constexpr Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
    constexpr Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    const QString frame = frameText(scale);
    const QString span = text::timeText(scale.spanMs());
    const int frameWidth = font.horizontalAdvance(frame);
    const int spanWidth = font.horizontalAdvance(span);
    const int end = scale.timeToPixel(scale.spanMs(), stripWidth);
    const auto textAt = [](int x, int width) { return QRect(x, upperTop, width, upperHeight); };
    const int start = scale.timeToPixel(scale.startMs(), stripWidth);
    const bool bothFit = leftMargin + frameWidth + gap + spanWidth <= end;
    QList<TimeLabel> labels;
    if (bothFit || leftMargin + frameWidth <= end) {
        const int room = bothFit ? end - spanWidth - gap : end;
        labels << TimeLabel{textAt(std::min(start, room - frameWidth), frameWidth), left, frame};
    }
    if (bothFit)
        labels << TimeLabel{textAt(end - spanWidth, spanWidth), right, span};
    return labels;
}

} // namespace

QString frameText(const TimeScale &scale)
{
    return text::timeText(scale.startMs()) + QStringLiteral(" - ") + text::timeText(scale.endMs());
}

QList<TimeLabel> timeLabels(const TimeScale &scale, QSize strip, const QFontMetrics &font)
{
    return tickLabels(scale, strip, font) + upperLabels(scale, strip.width(), font);
}
