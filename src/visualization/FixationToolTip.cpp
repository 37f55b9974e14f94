#include "visualization/FixationToolTip.h"

#include "base/TextFormat.h"

QString fixationToolTip(QLatin1StringView title, qsizetype index, const Fixation &fixation, const QString &shapeLine)
{
    const QString clock = QStringLiteral("hh:mm:ss.zzz");
    const qint64 first = fixation.firstTime();
    const qint64 last = fixation.lastTime();
    return QStringLiteral("%1: %2\r\nStart: %3\r\nEnd: %4\r\nDuration: %5\r\n%6Mean: (%7,%8)")
        .arg(title)
        .arg(index)
        .arg(text::clockTime(first, clock), text::clockTime(last, clock),
             text::clockTime(last - first, QStringLiteral("ss.zzz")), shapeLine)
        .arg(fixation.mean.x())
        .arg(fixation.mean.y());
}
