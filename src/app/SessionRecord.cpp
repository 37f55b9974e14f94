// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SessionRecord.h"

#include "clustering/panel/ClusterCalculationCommands.h"
#include "detection/panel/FixationCommands.h"
#include "export/panel/ExportCommands.h"
#include "import/bids/BidsRecording.h"
#include "import/panel/DataCommands.h"
#include "table/panel/CommandFilter.h"

#include <QDir>
#include <QSet>
#include <QUndoStack>

namespace {

/// The step of a command; nothing for one that a recipe has in another way, by what held afterwards.
std::optional<recipe::Step> stepOf(const QUndoCommand *command)
{
    if (const auto *import = dynamic_cast<const CommandDataImport *>(command))
        return recipe::Import{import->paths()};
    if (const auto *filter = dynamic_cast<const CommandFilter *>(command)) {
        QMap<QString, QString> where;
        for (auto entry = filter->filter().cbegin(); entry != filter->filter().cend(); ++entry)
            where.insert(entry.key(), entry.value());
        return recipe::Filter{where};
    }
    if (const auto *fixations = dynamic_cast<const CommandCalculateFixations *>(command))
        return recipe::Fixations{fixations->parameters()};
    if (const auto *clusters = dynamic_cast<const CommandCalculateClusters *>(command))
        return recipe::Clusters{clusters->parameters(), false};
    if (const auto *pooled = dynamic_cast<const CommandCalculateCumulativeClusters *>(command))
        return recipe::Clusters{pooled->parameters(), true};
    if (const auto *table = dynamic_cast<const ExportCommand *>(command))
        return recipe::Export{.table = table->word(),
                              .eyes = table->target().eyes,
                              .prefix = table->target().prefix,
                              .folder = table->target().folder,
                              .transitions = {}};
    return {};
}

/// A folder of the window as one below that of a replay: the first one is that itself, others have their own names.
QString replayFolder(const QString &path, QMap<QString, QString> &folders)
{
    const QString folder = QDir::cleanPath(path);
    if (folders.contains(folder))
        return folders.value(folder);
    QString name = folders.isEmpty() ? QString() : QDir(folder).dirName();
    const QString base = name.isEmpty() ? QStringLiteral("tables") : name;
    for (int i = 2; !folders.isEmpty() && (name.isEmpty() || folders.values().contains(name)); ++i)
        name = base + u'-' + QString::number(i);
    folders.insert(folder, name);
    return name;
}

void addStep(recipe::RecipeBuilder &builder, const recipe::Context &context, recipe::Step step,
             QMap<QString, QString> &folders)
{
    if (auto *table = std::get_if<recipe::Export>(&step)) {
        if (table->prefix.contains(u'/')) {
            builder.leaveOut(QStringLiteral("the table %1: its prefix \"%2\" leads to another folder")
                                 .arg(table->table, table->prefix));
            return;
        }
        table->folder = replayFolder(table->folder, folders);
    }
    builder.add(context, step);
}

} // namespace

SessionRecord::SessionRecord(const QUndoStack &stack, ContextSource context, QObject *parent)
    : QObject(parent)
    , m_stack(stack)
    , m_context(std::move(context))
    , m_index(stack.index())
{
    connect(&stack, &QUndoStack::indexChanged, this, &SessionRecord::follow);
}

void SessionRecord::follow(int index)
{
    for (int place = index; place < m_index && place < m_stack.count(); ++place) {
        if (dynamic_cast<const CommandCalculateFixations *>(m_stack.command(place)))
            noteBeside(QStringLiteral("a calculation of fixations that was undone: its fixations stayed until the next "
                                      "calculation, and its saccades stay in the table of events"));
    }
    for (Note &note : m_notes)
        note.index = std::min(note.index, index);
    for (int place = m_index; place < index; ++place) {
        if (stepOf(m_stack.command(place)))
            m_contexts.insert(place, m_context());
    }
    m_index = index;
}

void SessionRecord::note(const recipe::Step &step)
{
    m_notes << Note{m_stack.index(), m_context(), step};
}

void SessionRecord::noteBeside(const QString &what)
{
    if (!m_beside.contains(what))
        m_beside << what;
}

void SessionRecord::addNotes(recipe::RecipeBuilder &builder, int index, QMap<QString, QString> &folders) const
{
    for (const Note &note : m_notes) {
        if (note.index == index)
            addStep(builder, note.context, note.step, folders);
    }
}

void SessionRecord::addCommand(recipe::RecipeBuilder &builder, int place, QMap<QString, QString> &folders) const
{
    const std::optional<recipe::Step> step = stepOf(m_stack.command(place));
    const auto context = m_contexts.constFind(place);
    if (step && context != m_contexts.cend())
        addStep(builder, *context, *step, folders);
}

/// Recordings that did not come by the list of files.
void SessionRecord::leaveOutForeign(recipe::RecipeBuilder &builder, const DataModel &model) const
{
    const auto placeOf = [](const auto &recording) { return recording.directory + recording.baseName; };
    QSet<QString> imported;
    for (const recipe::Step &step : builder.recipe().steps) {
        if (const auto *import = std::get_if<recipe::Import>(&step)) {
            for (const QString &path : import->recordings)
                imported.insert(placeOf(recordingOrBidsPath(path)));
        }
    }
    for (const Examination &examination : model.examinations()) {
        if (!imported.contains(placeOf(examination)))
            builder.leaveOut(
                QStringLiteral("the recording %1: it was not imported by the list of files").arg(examination.baseName));
    }
}

recipe::Recipe SessionRecord::recipe(const QString &release, const QMap<QString, QString> &delivered,
                                     const DataModel &model) const
{
    recipe::RecipeBuilder builder(release, delivered);
    QMap<QString, QString> folders;
    addNotes(builder, 0, folders);
    for (int place = 0; place < m_stack.index(); ++place) {
        addCommand(builder, place, folders);
        addNotes(builder, place + 1, folders);
    }
    leaveOutForeign(builder, model);
    for (const QString &what : m_beside)
        builder.leaveOut(what);
    return builder.recipe();
}
