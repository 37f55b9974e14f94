#include "detection/panel/FixationCommands.h"

#include "detection/FixationCalculation.h"

CommandCalculateFixations::CommandCalculateFixations(DataModel &model, const FixationSettingsModel &settings,
                                                     const Log *log)
    : QUndoCommand(QStringLiteral("Calculate Fixations"))
    , m_model(model)
    , m_settings(settings)
    , m_log(log)
{
}

void CommandCalculateFixations::undo()
{
    for (Examination &examination : m_model.examinations()) {
        const auto before = m_textsBefore.constFind(examination.number);
        if (examination.checked && before != m_textsBefore.cend())
            examination.calculationInfo.fixationCalculationInfo = *before;
    }
}

void CommandCalculateFixations::redo()
{
    m_textsBefore.clear();
    for (const Examination *examination : m_model.checkedExaminations())
        m_textsBefore[examination->number] = examination->calculationInfo.fixationCalculationInfo;
    calculateFixations(m_model, m_settings, m_log);
}
