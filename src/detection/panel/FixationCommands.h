#pragma once

#include "commands/ParameterCommand.h"
#include "detection/FixationSettingsModel.h"
#include "model/DataModel.h"

#include <QUndoCommand>

class Log;

using CommandChangeFixationControlCalculationType = ParameterCommand<rows::fixationCalculationType>;
using CommandChangeFixationControlStandardMaximumRadius = ParameterCommand<rows::standardMaximumRadius>;
using CommandChangeFixationControlStandardMinimumDuration = ParameterCommand<rows::standardMinimumDuration>;
using CommandChangeFixationControlStandardOutliersAllowed = ParameterCommand<rows::standardOutliers>;

/// Calculates the fixations of the checked examinations, with the parameters at the time of the click.
///
/// The undo brings back what the examinations say about their calculation, but not the fixations that the calculation
/// replaced: users take the text as a note of what they did before, and redo to come back.
class CommandCalculateFixations : public QUndoCommand {
public:
    CommandCalculateFixations(DataModel &model, const FixationSettingsModel &settings, const Log *log);

    void undo() override;
    void redo() override;

private:
    DataModel &m_model;
    FixationSettingsModel m_settings;
    const Log *m_log;
    QMap<int, QString> m_textsBefore; ///< by the running number of the examination
};
