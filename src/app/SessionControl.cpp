// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SessionControl.h"

#include "app/PictureControl.h"
#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/Release.h"
#include "clustering/panel/ClusterCalculationCommands.h"
#include "clustering/SaccadeClusterModel.h"
#include "commands/CommandStack.h"
#include "commands/panel/SaveDialog.h"
#include "detection/panel/FixationCommands.h"
#include "detection/StoredGeometry.h"
#include "export/panel/ExportCommands.h"
#include "export/TransitionExport.h"
#include "import/panel/DataCommands.h"
#include "import/panel/TableImportCommand.h"
#include "report/panel/MethodsWindow.h"
#include "settings/ParameterTexts.h"
#include "settings/StoredKeys.h"

namespace {

/// The tables of a choice, by their words in the batch program.
recipe::Transitions transitionsOf(const TransitionChoice &choice)
{
    constexpr QLatin1StringView flavours[] = {QLatin1StringView("own"), QLatin1StringView("pooled"),
                                              QLatin1StringView("own-and-pooled")};
    const std::pair<bool, QLatin1StringView> contents[] = {{choice.absolute, QLatin1StringView("absolute")},
                                                           {choice.relative, QLatin1StringView("relative")},
                                                           {choice.measures, QLatin1StringView("statistics")}};
    recipe::Transitions transitions;
    for (const auto &[isChosen, word] : contents) {
        if (isChosen)
            transitions.values << word;
    }
    if (!transitions.values.isEmpty()) {
        for (const TransitionFlavour flavour : choice.flavours)
            transitions.of << flavours[static_cast<size_t>(flavour)];
    }
    if (choice.areas)
        transitions.of << QStringLiteral("aoi");
    return transitions;
}

recipe::Export tableAt(const QString &word, const QString &stem)
{
    return {.table = word,
            .eyes = eyeMode(),
            .prefix = stem.section(u'/', -1),
            .folder = stem.section(u'/', 0, -2),
            .transitions = {}};
}

} // namespace

SessionControl::SessionControl(const DataModel &model, const SaccadeClusterModel &saccades,
                               const PictureControl &picture, QWidget &window)
    : m_model(model)
    , m_saccades(saccades)
    , m_window(window)
    , m_delivered(deliveredParameters())
    , m_record(
          CommandStack::instance(),
          [this, &picture] {
              return recipe::contextOf(m_model, picture.cutPicture().toSize(), currentParameters(m_delivered));
          },
          nullptr)
{
}

/// By the commands that were not undone, the last of each kind.
MethodsRun SessionControl::methodsRun() const
{
    MethodsRun run{.release = releaseText(),
                   .groupBy = m_model.comparedBy,
                   .eyes = eyeMode(),
                   .pixelPerDistance = storedPixelPerDistance()};
    const CommandStack &stack = CommandStack::instance();
    for (int i = 0; i < stack.index(); ++i) {
        const QUndoCommand *command = stack.command(i);
        if (const auto *import = dynamic_cast<const CommandDataImport *>(command))
            run.failed += import->notRead();
        else if (const auto *tables = dynamic_cast<const TableImportCommand *>(command))
            run.failed += tables->notRead();
        else if (const auto *fixations = dynamic_cast<const CommandCalculateFixations *>(command))
            run.detector = fixations->parameters();
        else if (const auto *clusters = dynamic_cast<const CommandCalculateClusters *>(command))
            run.clusters = clusters->parameters();
        else if (const auto *pooled = dynamic_cast<const CommandCalculateCumulativeClusters *>(command))
            run.pooledClusters = pooled->parameters();
        else if (const auto *table = dynamic_cast<const ExportCommand *>(command))
            run.statistics << table->word();
    }
    if (m_saccades.stage() == SaccadeClusterModel::Stage::Done)
        run.saccadeClusters = m_saccades.parameters();
    return run;
}

void SessionControl::sltShowMethods()
{
    const MethodsRun run = methodsRun();
    const QList<StreamQuality> quality =
        studyQuality(m_model, {.eyes = run.eyes, .pixelPerDistance = run.pixelPerDistance});
    auto *window = new MethodsWindow(methodsRecord(m_model, run, quality), &m_window); // deletes itself
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

void SessionControl::noteTable(const QString &word, const QString &stem)
{
    m_record.note(tableAt(word, stem));
}

void SessionControl::noteTransitions(const QString &stem, const TransitionChoice &choice)
{
    recipe::Export table = tableAt(QStringLiteral("transitions"), stem);
    table.transitions = transitionsOf(choice);
    if (!table.transitions->of.isEmpty())
        m_record.note(table);
}

void SessionControl::sltSaveRecipe()
{
    const QString path = chooseSaveFile(&m_window, QStringLiteral("Save recipe"), QStringLiteral("vistrum.recipe.json"),
                                        QStringLiteral("Recipe (*.json)"));
    if (!path.isEmpty())
        saveRecipe(path);
}

void SessionControl::saveRecipe(const QString &path)
{
    const QString title = QStringLiteral("Recipe");
    const recipe::Recipe recipe = m_record.recipe(releaseText(), m_delivered, m_model);
    if (const std::optional<QString> problem = replaceFile(path, recipe::toBytes(recipe))) {
        messages::warning(title, writeFailure(path, *problem));
        return;
    }
    QString text =
        QStringLiteral("%1 saved to: %2\n\nvistrum-batch --recipe FILE does the same again. Pictures, charts, "
                       "videos and diagrams, and what the pages of saccade clusters, comparison and correction "
                       "do, are no steps of a recipe.")
            .arg(recipe.steps.size() == 1 ? QStringLiteral("1 step")
                                          : QStringLiteral("%1 steps").arg(recipe.steps.size()),
                 path);
    if (!recipe.notReplayed.isEmpty())
        text += QStringLiteral("\n\nNot replayed either:\n") + recipe.notReplayed.join(u'\n');
    messages::information(title, text);
}
