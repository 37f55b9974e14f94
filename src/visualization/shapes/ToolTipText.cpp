// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/ToolTipText.h"

#include "base/TextFormat.h"

#include <QStringBuilder>

QString sourceLines(const ExaminationEye &stream)
{
    return sourceLines(ClusterSource::Own, stream);
}

QString sourceLines(ClusterSource source, const ExaminationEye &stream)
{
    QString recordings;
    if (source != ClusterSource::Cumulative)
        recordings = stream.examination->baseName;
    if (source == ClusterSource::OwnThenCumulative)
        recordings += QStringLiteral(" and ");
    if (source != ClusterSource::Own)
        recordings += QStringLiteral("cumulative");
    return u"Recording: " % recordings % u"\r\nEye: " % eyeWord(stream.eye);
}

QString axisRatioLine(const ScanpathSection &section)
{
    const double ratio = double(section.majorAxis.length()) / double(section.minorAxis.length());
    return u"Axis ratio: " % text::general6(ratio) % u"\r\n";
}

QString fixationToolTip(QLatin1StringView title, qsizetype index, const Fixation &fixation, const QString &shapeLine)
{
    const QString clock = QStringLiteral("hh:mm:ss.zzz");
    const qint64 first = fixation.firstTime();
    const qint64 last = fixation.lastTime();
    return title % u": " % QString::number(index) % u"\r\nStart: " % text::clockTime(first, clock) % u"\r\nEnd: " %
           text::clockTime(last, clock) % u"\r\nDuration: " % text::clockTime(last - first, QStringLiteral("ss.zzz")) %
           u"\r\n" % shapeLine % u"Mean: (" % QString::number(fixation.mean.x()) % u',' %
           QString::number(fixation.mean.y()) % u')';
}
