#include "detection/FixationCalculation.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "detection/StandardScanpathBuilder.h"

namespace {

StandardParameters standardParameters(const FixationSettingsModel &settings)
{
    return {.minimumDurationMs = settings.standardMinimumDuration,
            .maximumRadiusPx = settings.standardMaximumRadius,
            .allowedOutliers = settings.standardOutliers};
}

void dropFixations(EyeData &eye)
{
    eye.scanpath.clear();
    eye.fixationClusters.clear();
}

void dropPooledFixations(DataModel &model)
{
    for (const DataModel::Pool pool : {DataModel::Pool::Left, DataModel::Pool::Right, DataModel::Pool::Mean})
        dropFixations(model.pooledEyeData(static_cast<int>(pool)));
}

/// The reports of both eyes; that of the mean stream is not shown.
QString detect(Examination &examination, const StandardParameters &parameters, const Log *log)
{
    for (EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye})
        dropFixations(*eye);
    const StandardScanpathBuilder left(examination.leftEye, parameters, log);
    const StandardScanpathBuilder right(examination.rightEye, parameters, log);
    const StandardScanpathBuilder mean(examination.meanEye, parameters, log);
    return QStringLiteral("left eye:\n") + left.report() + QStringLiteral("right eye:\n") + right.report();
}

QString resultText(const Examination &examination, const StandardParameters &parameters)
{
    return QStringLiteral("Algorithm:STANDARD\n"
                          "Parameter:\n Minimum Duration:%1, Outliers:%2, Maximum Radius:%3\n"
                          "Fixations found:\n Left Eye:%4, Right Eye:%5, Mean Eye:%6\n")
        .arg(parameters.minimumDurationMs)
        .arg(parameters.allowedOutliers)
        .arg(parameters.maximumRadiusPx)
        .arg(examination.leftEye.scanpath.size())
        .arg(examination.rightEye.scanpath.size())
        .arg(examination.meanEye.scanpath.size());
}

QString detectAll(DataModel &model, const StandardParameters &parameters, const Log *log)
{
    Progress progress(QStringLiteral("Calculating fixation filter. Please wait."),
                      static_cast<int>(model.checkedExaminations().size()));
    QString report;
    for (Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        report += detect(examination, parameters, log);
        examination.calculationInfo.fixationCalculationInfo = resultText(examination, parameters);
        progress.advance();
    }
    return report;
}

} // namespace

void calculateFixations(DataModel &model, const FixationSettingsModel &settings, const Log *log)
{
    if (model.checkedExaminations().isEmpty()) {
        messages::information(QStringLiteral("No examination selected!"),
                              QStringLiteral("Please select some data first."));
        return;
    }
    dropPooledFixations(model);
    const QString report = detectAll(model, standardParameters(settings), log);
    if (!report.isEmpty())
        messages::information(QStringLiteral("Standard Fixation Filter Action Report"), report);
}
