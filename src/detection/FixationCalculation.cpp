#include "detection/FixationCalculation.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "model/DataModel.h"

namespace {

/// Runs the detector on one eye and returns its report.
QString run(const StandardParameters &parameters, EyeData &eye, const Log *log)
{
    return StandardScanpathBuilder(eye, parameters, log).report();
}

QString parameterText(const StandardParameters &parameters)
{
    return QStringLiteral("Algorithm:STANDARD\n"
                          "Parameter:\n Minimum Duration:%1, Outliers:%2, Maximum Radius:%3\n")
        .arg(parameters.minimumDurationMs)
        .arg(parameters.allowedOutliers)
        .arg(parameters.maximumRadiusPx);
}

QString resultText(const FixationCalculationParameters &parameters, const Examination &examination)
{
    return std::visit([](const auto &p) { return parameterText(p); }, parameters) +
           QStringLiteral("Fixations found:\n Left Eye:%1, Right Eye:%2, Mean Eye:%3\n")
               .arg(examination.leftEye.scanpath.size())
               .arg(examination.rightEye.scanpath.size())
               .arg(examination.meanEye.scanpath.size());
}

void clearFixations(EyeData &eye)
{
    eye.scanpath.clear();
    eye.fixationClusters.clear();
}

void clearFixations(Examination &examination, DataModel &model)
{
    for (EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye})
        clearFixations(*eye);
    for (const DataModel::Pool pool : {DataModel::Pool::Left, DataModel::Pool::Right, DataModel::Pool::Mean})
        clearFixations(model.pooledEyeData(static_cast<int>(pool)));
}

QString detectFixations(Examination &examination, const FixationCalculationParameters &parameters, const Log *log)
{
    const auto detect = [&](EyeData &eye) {
        return std::visit([&](const auto &p) { return run(p, eye, log); }, parameters);
    };
    const QString left = detect(examination.leftEye);
    const QString right = detect(examination.rightEye);
    detect(examination.meanEye); // its report was never part of the text
    if (left.isEmpty() && right.isEmpty())
        return {};
    return QStringLiteral("left eye:\n") + left + QStringLiteral("right eye:\n") + right;
}

FixationCalculationParameters standardParameters(const FixationSettingsModel &settings)
{
    return StandardParameters{settings.standardMinimumDuration, settings.standardMaximumRadius,
                              settings.standardOutliers};
}

/// How the parameters of each detector are taken from the settings; the index is the calculation type.
constexpr FixationCalculationParameters (*detectors[])(const FixationSettingsModel &) = {standardParameters};

} // namespace

int builtCalculationTypes()
{
    return static_cast<int>(std::size(detectors));
}

FixationCalculationParameters calculationParameters(int calculationType, const FixationSettingsModel &settings)
{
    const bool isBuilt = calculationType >= 0 && calculationType < builtCalculationTypes();
    return detectors[isBuilt ? calculationType : 0](settings);
}

std::optional<QString> calculateFixations(DataModel &model, const FixationCalculationParameters &parameters,
                                          const Log *log)
{
    const auto checkedCount = static_cast<int>(model.checkedExaminations().size());
    if (checkedCount == 0) {
        messages::information(QStringLiteral("No examination selected!"),
                              QStringLiteral("Please select some data first."));
        return std::nullopt;
    }
    QString report;
    {
        Progress progress(QStringLiteral("Calculating fixation filter. Please wait."), checkedCount);
        for (Examination &examination : model.examinations()) {
            if (!examination.checked)
                continue;
            clearFixations(examination, model);
            report += detectFixations(examination, parameters, log);
            examination.calculationInfo.fixationCalculationInfo = resultText(parameters, examination);
            progress.advance();
        }
    }
    if (!report.isEmpty())
        messages::information(QStringLiteral("Standard Fixation Filter Action Report"), report);
    return report;
}
