// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/QualityExport.h"

#include "export/TextTable.h"
#include "export/TidyTable.h"
#include "table/StudyQuality.h"

namespace {

using Text = QLatin1StringView;

QStringList header()
{
    QStringList names = QStringLiteral("recording,subject,group,image,eye").split(u',');
    for (const Measure<EyeQuality> &measure : qualityMeasures())
        names << measure.name;
    return names;
}

QStringList rowOf(const Examination &examination, const QString &group, const StreamQuality &measured)
{
    QStringList fields{examination.baseName, examination.subjectId, group, examination.imageName,
                       eyeWord(measured.eye)};
    for (const Measure<EyeQuality> &measure : qualityMeasures())
        fields << TidyTable::number(measure.value(measured.quality));
    return fields;
}

} // namespace

ExportResult exportQuality(const DataModel &model, const ExportTarget &target, const MeasureForm &form)
{
    const QList<StreamQuality> all = studyQuality(model, {.eyes = target.eyes,
                                                          .which = MeasuredExaminations::Checked,
                                                          .pixelPerDistance = form.pixelPerDistance,
                                                          .threads = form.threads});
    TidyTable table(header());
    for (const StreamQuality &measured : all) {
        const Examination &examination = model.examinations()[measured.examination];
        table.addRow(rowOf(examination, groupOf(examination, model.comparedBy), measured));
    }
    ExportResult result;
    const QString path = pathStem(target) + Text("_quality.csv");
    writeTable(path, table.text(), result);
    tellExported(QStringLiteral("Data quality Export"), QStringLiteral("Data quality exported to: ") + path, result);
    return result;
}
