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

QString recordingsText(qsizetype count)
{
    return count == 1 ? QStringLiteral("1 recording") : QStringLiteral("%1 recordings").arg(count);
}

QString countText(QLatin1StringView what, qsizetype recordings, const EyeCounts &counts)
{
    return QStringLiteral("%1 in %2: left eye %3, right eye %4, mean eye %5")
        .arg(what, recordingsText(recordings))
        .arg(counts[0])
        .arg(counts[1])
        .arg(counts[2]);
}
