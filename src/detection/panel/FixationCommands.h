#pragma once

#include "commands/ParameterCommand.h"
#include "detection/FixationCalculation.h"

#include <QHash>
#include <QUndoCommand>

class DataModel;
class IMainWindow;

/// Detects the fixations of the checked examinations.
///
/// Undo gives each of them back the text of what was done before, and nothing else: the fixations stay as the
/// calculation left them. Redo calculates again.
class CommandCalculateFixations : public QUndoCommand {
public:
    /// @param window  is asked for the width of the stimulus at each calculation; may be null: the parameters' counts.
    /// @param log     may be null.
    CommandCalculateFixations(DataModel &model, const FixationCalculationParameters &parameters,
                              const IMainWindow *window, const Log *log);

    void undo() override;
    void redo() override;

private:
    DataModel &m_model;
    FixationCalculationParameters m_parameters;
    const IMainWindow *m_window;
    const Log *m_log;
    QHash<qsizetype, QString> m_oldTexts; ///< by place in the list of examinations
};

using CommandChangeFixationControlCalculationType = ParameterCommand<rows::calculationType>;
using CommandChangeFixationControlStandardMinimumDuration = ParameterCommand<rows::standardMinimumDuration>;
using CommandChangeFixationControlStandardMaximumRadius = ParameterCommand<rows::standardMaximumRadius>;
using CommandChangeFixationControlStandardOutliersAllowed = ParameterCommand<rows::standardOutliers>;
using CommandChangeFixationControlGaussianMinimumDuration = ParameterCommand<rows::gaussianMinimumDuration>;
using CommandChangeFixationControlGaussianMergeSequentialFixations = ParameterCommand<rows::gaussianMergeSequential>;
using CommandChangeFixationControlVelocityMinimumDuration = ParameterCommand<rows::velocityMinimumDuration>;
using CommandChangeFixationControlVelocityThreshold = ParameterCommand<rows::velocityThreshold>;
using CommandChangeFixationControlVelocityObserverDistance = ParameterCommand<rows::velocityScreenDistance>;
using CommandChangeFixationControlVelocityImageSize = ParameterCommand<rows::velocityImageSize>;
using CommandChangeFixationControlVelocityUnit = ParameterCommand<rows::velocityUnit>;
