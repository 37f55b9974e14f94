// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/FixationExport.h"

#include "base/TextFormat.h"

namespace {

QString fixationFields(const Fixation &fixation, qsizetype number)
{
    const QStringList fields{QString::number(number),
                             QString::number(fixation.samples.size()),
                             QString::number(fixation.mean.x()),
                             QString::number(fixation.mean.y()),
                             text::general6(static_cast<double>(fixation.majorAxis.length())),
                             QString::number(fixation.cluster)};
    return fields.join(u';');
}

QString fixationTable(const Examination &examination, const QList<Fixation> &fixations, TimeFrame frame)
{
    const QString subject = QStringLiteral("\"%1\";\"%2\";").arg(examination.subjectId, examination.subjectText);
    QString table = QStringLiteral("subjectID;subjectINFO;Number;GazePoints;mean_x;mean_y;radius;cluster\n");
    for (qsizetype i = 0; i < fixations.size(); ++i) {
        if (frame.holds(fixations[i]))
            table += subject + fixationFields(fixations[i], i + 1) + u'\n';
    }
    return table;
}

} // namespace

QString fixationBlock(const Examination &examination, const EyeData &stream, TimeFrame frame)
{
    const QString table = stream.scanpath.isEmpty()
                              ? QStringLiteral("Unable to calculate fixations with this parameters!\n") // sic
                              : fixationTable(examination, stream.scanpath, frame);
    return table + QLatin1StringView("Fixation calculation parameters:\n") +
           examination.calculationInfo.fixationLines() + QLatin1StringView("\nSubject information:\n") +
           examination.subjectText + u'\n';
}
