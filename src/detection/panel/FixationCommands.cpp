#include "detection/panel/FixationCommands.h"

#include "commands/IMainWindow.h"
#include "model/DataModel.h"

CommandCalculateFixations::CommandCalculateFixations(DataModel &model, const FixationCalculationParameters &parameters,
                                                     const IMainWindow *window, const Log *log)
    : QUndoCommand(QStringLiteral("Calculate Fixations"))
    , m_model(model)
    , m_parameters(parameters)
    , m_window(window)
    , m_log(log)
{
}

void CommandCalculateFixations::undo()
{
    QList<Examination> &examinations = m_model.examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        const auto oldText = m_oldTexts.constFind(i);
        if (examinations[i].checked && oldText != m_oldTexts.constEnd())
            examinations[i].calculationInfo.fixationCalculationInfo = *oldText;
    }
}

void CommandCalculateFixations::redo()
{
    const QList<Examination> &examinations = std::as_const(m_model).examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        if (examinations[i].checked)
            m_oldTexts[i] = examinations[i].calculationInfo.fixationCalculationInfo;
    }
    if (auto *velocity = std::get_if<VelocityParameters>(&m_parameters); velocity && m_window)
        velocity->imageWidthPx = m_window->stimulusWidthPx();
    calculateFixations(m_model, m_parameters, m_log);
}
