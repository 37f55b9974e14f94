// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FixationCalculation.h"

#include "base/Log.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "detection/DetectionWarnings.h"
#include "detection/GaussianMixtureScanpathBuilder.h"
#include "model/DataModel.h"

#include <algorithm>
#include <vector>

namespace {

/// What one run of a detector has to say.
struct Run {
    QString report;
    QString failure; ///< empty where the detector could work
};

Run run(const StandardParameters &parameters, EyeData &eye, const Log *log)
{
    return {StandardScanpathBuilder(eye, parameters, log).report(), {}};
}

Run run(const MixtureParameters &parameters, EyeData &eye, const Log *)
{
    const std::variant<QList<Fixation>, FitFailure> found = mixtureFixations(eye.gazePoints, parameters, eye.scanpath);
    if (const auto *failure = std::get_if<FitFailure>(&found))
        return {{}, failure->reason};
    eye.scanpath = std::get<QList<Fixation>>(found);
    return {};
}

Run run(const VelocityParameters &parameters, EyeData &eye, const Log *)
{
    return {VelocityScanpathBuilder(eye.gazePoints, &eye.scanpath, parameters).report(), {}};
}

QString parameterText(const StandardParameters &parameters)
{
    return QStringLiteral("Algorithm:STANDARD\n"
                          "Parameter:\n Minimum Duration:%1, Outliers:%2, Maximum Radius:%3\n")
        .arg(parameters.minimumDurationMs)
        .arg(parameters.allowedOutliers)
        .arg(parameters.maximumRadiusPx);
}

QString parameterText(const MixtureParameters &parameters)
{
    return QStringLiteral("Algorithm:GAUSSIAN\n"
                          "Parameter:\n Minimum Duration:%1, Merge Sequential:%2\n")
        .arg(parameters.minimumDurationMs)
        .arg(parameters.mergeSequential ? 1 : 0);
}

QString parameterText(const VelocityParameters &parameters)
{
    return QStringLiteral("Algorithm:VELOCITY\n"
                          "Parameter:\n Minimum Duration:%1, Velocity Threshold:%2, Screen Distance:%3, Image Size:%4, "
                          "Unit:%5\n")
        .arg(QString::number(parameters.minimumDurationMs), text::general6(parameters.threshold),
             text::general6(parameters.screenDistanceM), text::general6(parameters.imageSizeM),
             velocityUnitNames[static_cast<int>(parameters.unit)]);
}

QString resultText(const FixationCalculationParameters &parameters, const Examination &examination)
{
    return std::visit([](const auto &p) { return parameterText(p); }, parameters) + fixationsFoundLine +
           QStringLiteral(" Left Eye:%1, Right Eye:%2, Mean Eye:%3\n")
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
    for (EyeData *eye : examination.streams())
        clearFixations(*eye);
    for (const Eye pool : {Eye::Left, Eye::Right, Eye::Mean})
        clearFixations(model.pooled(pool));
}

/// What the detection in one examination has to say. Threads work on examinations beside each other: each keeps its
/// words until it is its turn.
struct Detected {
    FixationCalculationOutcome outcome;
    QStringList logLines;
    QList<messages::Message> messages;
};

/// Runs a detector over the eyes of one examination.
class Detection {
public:
    Detection(const FixationCalculationParameters &parameters, bool isLogged)
        : m_parameters(parameters)
        , m_log(isLogged ? &m_lines : nullptr)
    {
    }

    Detected detect(Examination &examination)
    {
        messages::Collector collector;
        const QString left = detect(examination.leftEye, examination.baseName, QStringLiteral("left eye"));
        const QString right = detect(examination.rightEye, examination.baseName, QStringLiteral("right eye"));
        detect(examination.meanEye, examination.baseName, QStringLiteral("mean eye")); // its report is not shown
        if (!left.isEmpty() || !right.isEmpty())
            m_detected.outcome.reports << RecordingReport{
                examination.baseName, QStringLiteral("left eye:\n") + left + QStringLiteral("right eye:\n") + right};
        examination.calculationInfo.fixationCalculationInfo = resultText(m_parameters, examination);
        m_detected.messages = collector.take();
        return std::move(m_detected);
    }

private:
    QString detect(EyeData &eye, const QString &recording, const QString &eyeName)
    {
        QStringList texts = detectionWarnings(eye.gazePoints, m_parameters);
        const Run done = std::visit([&](const auto &p) { return run(p, eye, m_log); }, m_parameters);
        if (!done.failure.isEmpty())
            texts << QStringLiteral("No fixations: %1.").arg(done.failure);
        const bool isDoubtful = wasRecorded(eye.gazePoints); // nobody expects fixations of an eye without samples
        for (const QString &text : texts) {
            if (isDoubtful)
                m_detected.outcome.warnings << DetectionWarning{recording, eyeName, text};
            if (m_log)
                m_log->write(QStringLiteral("%1, %2: %3").arg(recording, eyeName, text));
        }
        return done.report;
    }

    const FixationCalculationParameters &m_parameters;
    Detected m_detected;
    const Log m_lines{m_detected.logLines};
    const Log *m_log;
};

QList<Examination *> checkedOf(DataModel &model)
{
    QList<Examination *> checked;
    for (Examination &examination : model.examinations()) {
        if (examination.checked)
            checked << &examination;
    }
    return checked;
}

bool anyRecorded(const QList<Examination *> &examinations)
{
    return std::any_of(examinations.cbegin(), examinations.cend(), [](const Examination *examination) {
        const auto eyes = examination->streams();
        return std::any_of(eyes.begin(), eyes.end(), [](const EyeData *eye) { return wasRecorded(eye->gazePoints); });
    });
}

FixationCalculationOutcome detectAll(const QList<Examination *> &examinations,
                                     const FixationCalculationParameters &parameters, const Log *log, int threads)
{
    Progress progress(QStringLiteral("Calculating fixation filter. Please wait."),
                      static_cast<int>(examinations.size()));
    messages::Run told;
    FixationCalculationOutcome outcome;
    for (const QString &text : anyRecorded(examinations) ? parameterWarnings(parameters) : QStringList()) {
        outcome.warnings << DetectionWarning{{}, {}, text};
        if (log)
            log->write(text);
    }
    std::vector<Detected> detected(static_cast<std::size_t>(examinations.size()));
    sideBySide(
        examinations.size(), threads,
        [&](qsizetype i) {
            detected[static_cast<std::size_t>(i)] = Detection(parameters, log != nullptr).detect(*examinations[i]);
        },
        [&](qsizetype i) {
            const Detected &one = detected[static_cast<std::size_t>(i)];
            outcome.reports << one.outcome.reports;
            outcome.warnings << one.outcome.warnings;
            told.addRecording(examinations[i]->baseName, one.messages);
            if (log)
                log->write(one.logLines);
            progress.advance();
        });
    return outcome;
}

FixationCalculationParameters standardParameters(const FixationSettingsModel &settings)
{
    return StandardParameters{settings.standardMinimumDuration, settings.standardMaximumRadius,
                              settings.standardOutliers};
}

FixationCalculationParameters mixtureParameters(const FixationSettingsModel &settings)
{
    return MixtureParameters{settings.gaussianMinimumDuration, settings.gaussianMergeSequential};
}

FixationCalculationParameters velocityParameters(const FixationSettingsModel &settings)
{
    const auto unitCount = static_cast<int>(std::size(velocityUnitNames));
    const bool isKnown = settings.velocityUnit >= 0 && settings.velocityUnit < unitCount;
    return VelocityParameters{.minimumDurationMs = settings.velocityMinimumDuration,
                              .threshold = settings.velocityThreshold,
                              .unit = isKnown ? VelocityUnit(settings.velocityUnit) : VelocityUnit::Percentile,
                              .screenDistanceM = settings.velocityScreenDistance,
                              .imageSizeM = settings.velocityImageSize,
                              .imageWidthPx = static_cast<double>(settings.velocityImageSizePixels)};
}

/// How the parameters of each detector are taken from the settings; the index is the calculation type.
constexpr FixationCalculationParameters (*detectorParameters[])(const FixationSettingsModel &) = {
    standardParameters, mixtureParameters, velocityParameters};
static_assert(std::size(detectorParameters) == std::size(calculationTypeNames));

} // namespace

FixationCalculationParameters calculationParameters(int calculationType, const FixationSettingsModel &settings)
{
    const bool isKnown = calculationType >= 0 && calculationType < static_cast<int>(std::size(detectorParameters));
    return detectorParameters[isKnown ? calculationType : 0](settings);
}

std::optional<FixationCalculationOutcome>
calculateFixations(DataModel &model, const FixationCalculationParameters &parameters, const Log *log, int threads)
{
    const QList<Examination *> checked = checkedOf(model);
    if (checked.isEmpty()) {
        messages::information(QStringLiteral("No examination selected!"),
                              QStringLiteral("Please select some data first."));
        return std::nullopt;
    }
    for (Examination *examination : checked)
        clearFixations(*examination, model);
    return detectAll(checked, parameters, log, threads);
}

void showReports(const FixationCalculationOutcome &outcome)
{
    QString text;
    for (const RecordingReport &report : outcome.reports)
        text += report.text;
    if (!text.isEmpty())
        messages::information(detectionReportTitle, text);
}
