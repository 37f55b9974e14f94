#pragma once

#include "commands/ParameterCommand.h"
#include "detection/FixationCalculation.h"

#include <QHash>
#include <QUndoCommand>

class DataModel;

/// Detects the fixations of the checked examinations.
///
/// Undo gives each of them back the text of what was done before, and nothing else: the fixations stay as the
/// calculation left them. Redo calculates again.
class CommandCalculateFixations : public QUndoCommand {
public:
    /// @param log  may be null.
    CommandCalculateFixations(DataModel &model, const FixationCalculationParameters &parameters, const Log *log);

    void undo() override;
    void redo() override;

private:
    DataModel &m_model;
    FixationCalculationParameters m_parameters;
    const Log *m_log;
    QHash<qsizetype, QString> m_oldTexts; ///< by place in the list of examinations
};

using CommandChangeFixationControlCalculationType = ParameterCommand<rows::calculationType>;
using CommandChangeFixationControlStandardMinimumDuration = ParameterCommand<rows::standardMinimumDuration>;
using CommandChangeFixationControlStandardMaximumRadius = ParameterCommand<rows::standardMaximumRadius>;
using CommandChangeFixationControlStandardOutliersAllowed = ParameterCommand<rows::standardOutliers>;
