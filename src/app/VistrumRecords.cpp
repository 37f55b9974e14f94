// The record of what was done: as a methods section.

#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "base/Release.h"
#include "clustering/panel/ClusterCalculationCommands.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "commands/CommandStack.h"
#include "detection/panel/FixationCommands.h"
#include "detection/PixelSize.h"
#include "export/panel/ExportCommands.h"
#include "report/panel/MethodsWindow.h"
#include "settings/StoredKeys.h"

/// By the commands that were not undone, the last of each kind.
MethodsRun Vistrum::methodsRun() const
{
    MethodsRun run{.release = releaseText(),
                   .groupBy = m_model.comparedBy,
                   .eyes = eyeMode(),
                   .pixelPerDistance = storedPixelPerDistance()};
    const CommandStack &stack = CommandStack::instance();
    for (int i = 0; i < stack.index(); ++i) {
        const QUndoCommand *command = stack.command(i);
        if (const auto *fixations = dynamic_cast<const CommandCalculateFixations *>(command))
            run.detector = fixations->parameters();
        else if (const auto *clusters = dynamic_cast<const CommandCalculateClusters *>(command))
            run.clusters = clusters->parameters();
        else if (const auto *pooled = dynamic_cast<const CommandCalculateCumulativeClusters *>(command))
            run.pooledClusters = pooled->parameters();
        else if (const auto *table = dynamic_cast<const ExportCommand *>(command))
            run.statistics << table->word();
    }
    const auto saccades = m_ui->control->saccadeClusterControl().saccadeClusterModel();
    if (saccades->stage() == SaccadeClusterModel::Stage::Done)
        run.saccadeClusters = saccades->parameters();
    return run;
}

void Vistrum::sltShowMethods()
{
    const MethodsRun run = methodsRun();
    const QList<StreamQuality> quality =
        studyQuality(m_model, {.eyes = run.eyes, .pixelPerDistance = run.pixelPerDistance});
    auto *window = new MethodsWindow(methodsRecord(m_model, run, quality), this); // deletes itself
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}
