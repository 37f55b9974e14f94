// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/CountText.h"

EyeCounts countsOf(const QList<const Examination *> &examinations, qsizetype (*count)(const EyeData &))
{
    EyeCounts counts{};
    for (const Examination *examination : examinations) {
        const auto streams = examination->streams();
        for (std::size_t i = 0; i < streams.size(); ++i)
            counts[i] += count(*streams[i]);
    }
    return counts;
}

QString countText(QLatin1StringView what, qsizetype recordings, const EyeCounts &counts)
{
    return QStringLiteral("%1 in %2 %3: left eye %4, right eye %5, mean eye %6")
        .arg(what)
        .arg(recordings)
        .arg(recordings == 1 ? QLatin1StringView("recording") : QLatin1StringView("recordings"))
        .arg(counts[0])
        .arg(counts[1])
        .arg(counts[2]);
}
