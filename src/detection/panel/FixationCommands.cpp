// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/panel/FixationCommands.h"

#include "base/Messages.h"
#include "base/Truncation.h"
#include "commands/CountText.h"
#include "commands/IMainWindow.h"
#include "model/DataModel.h"

bool canCalculateFixations(const FixationCalculationParameters &parameters, const IMainWindow *window)
{
    const auto *velocity = std::get_if<VelocityParameters>(&parameters);
    if (!velocity || velocity->unit != VelocityUnit::DegreePerS)
        return true;
    const double widthPx = window ? window->stimulusWidthPx() : velocity->imageWidthPx;
    if (widthPx > 0)
        return true;
    messages::warning(QStringLiteral("Velocity based"),
                      QStringLiteral("The picture behind the drawing cannot be read, so that its width is unknown: "
                                     "speeds cannot be told in degrees. Please choose another background."));
    return false;
}

CommandCalculateFixations::CommandCalculateFixations(DataModel &model, const FixationCalculationParameters &parameters,
                                                     IMainWindow *window, const Log *log)
    : QUndoCommand(QStringLiteral("Calculate Fixations"))
    , m_model(model)
    , m_parameters(parameters)
    , m_window(window)
    , m_log(log)
{
}

void CommandCalculateFixations::undo()
{
    bool differ = false;
    QList<Examination> &examinations = m_model.examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        const auto oldText = m_oldTexts.constFind(i);
        if (!examinations[i].checked || oldText == m_oldTexts.constEnd())
            continue;
        CalculationInfo &info = examinations[i].calculationInfo;
        if (info.fixationCalculationInfo != *oldText)
            info.fixationRemark = QStringLiteral("The fixations are those of a calculation that was undone.\n");
        differ = differ || !info.fixationRemark.isEmpty();
        info.fixationCalculationInfo = *oldText;
    }
    if (differ && m_window)
        m_window->tell(
            {QStringLiteral("Undone: the fixations stay, and differ from the parameters that are told"), {}, {}});
}

void CommandCalculateFixations::redo()
{
    const QList<Examination> &examinations = std::as_const(m_model).examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        if (examinations[i].checked)
            m_oldTexts[i] = examinations[i].calculationInfo.fixationCalculationInfo;
    }
    if (!canCalculateFixations(m_parameters, m_window))
        return;
    takeWhatCountsNow();
    const auto outcome = calculateFixations(m_model, m_parameters, m_log);
    if (!outcome)
        return;
    showReports(*outcome);
    for (Examination &examination : m_model.examinations()) {
        if (examination.checked)
            examination.calculationInfo.fixationRemark.clear();
    }
    if (const auto *velocity = std::get_if<VelocityParameters>(&m_parameters)) {
        FixationSettingsModel written;
        setParameter(written, rows::velocityImageSizePixels, truncated(velocity->imageWidthPx));
    }
    tell(*outcome);
}

void CommandCalculateFixations::tell(const FixationCalculationOutcome &outcome) const
{
    if (!m_window)
        return;
    const QList<const Examination *> checked = m_model.checkedExaminations();
    const EyeCounts counts = countsOf(checked, [](const EyeData &eye) { return eye.scanpath.size(); });
    QStringList warnings;
    for (const DetectionWarning &warning : outcome.warnings)
        warnings << warning.line();
    m_window->tell({countText(QLatin1StringView("Fixations"), checked.size(), counts), warnings, DataKind::Fixations});
}

void CommandCalculateFixations::takeWhatCountsNow()
{
    if (auto *velocity = std::get_if<VelocityParameters>(&m_parameters); velocity && m_window)
        velocity->imageWidthPx = m_window->stimulusWidthPx();
    if (auto *mixture = std::get_if<MixtureParameters>(&m_parameters)) {
        FixationSettingsModel stored;
        loadParameters(stored, std::tie(rows::gaussianMinimumDuration, rows::gaussianMergeSequential));
        *mixture = {stored.gaussianMinimumDuration, stored.gaussianMergeSequential};
    }
}
