// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/ChangesPicture.h"
#include "commands/ParameterCommand.h"
#include "detection/FixationCalculation.h"

#include <QHash>
#include <QUndoCommand>

class DataModel;
class IMainWindow;

/// Whether speeds can be told in the unit of the parameters. Degrees need the width of the picture behind the drawing
/// or, without a window, that of the parameters; where it is unknown, the user is told.
bool canCalculateFixations(const FixationCalculationParameters &parameters, const IMainWindow *window);

/// Detects the fixations of the checked examinations.
///
/// Undo gives each of them back the text of what was done before, and nothing else: the fixations stay as the
/// calculation left them, which is remarked beside the text and told. Redo calculates again; where it cannot, all
/// stays as the undo left it.
///
/// A velocity calculation leaves the width of the stimulus in the store. A mixture calculation takes its parameters
/// from there at each redo: settings that were loaded since then count.
class CommandCalculateFixations : public QUndoCommand, public ChangesPicture {
public:
    /// @param window  is asked for the width of the stimulus at each calculation, and told what came of it; may be
    ///                null: the parameters' width counts.
    /// @param log     may be null.
    CommandCalculateFixations(DataModel &model, const FixationCalculationParameters &parameters, IMainWindow *window,
                              const Log *log);

    void undo() override;
    void redo() override;

    /// Of the last calculation.
    const FixationCalculationParameters &parameters() const { return m_parameters; }

private:
    void takeWhatCountsNow();
    void tell(const FixationCalculationOutcome &outcome) const;

    DataModel &m_model;
    FixationCalculationParameters m_parameters;
    IMainWindow *m_window;
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
