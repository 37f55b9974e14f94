// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RecipeRun.h"

#include "base/BoundedFile.h"
#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/NamedPlace.h"
#include "batch/CalculationRows.h"
#include "batch/OptionValues.h"
#include "batch/SettingInput.h"
#include "batch/StatisticsRows.h"
#include "batch/TableRows.h"
#include "batch/TransitionWords.h"
#include "clustering/ClusterCalculation.h"
#include "clustering/ClusterOrder.h"
#include "clustering/CumulativeClusters.h"
#include "detection/FixationCalculation.h"
#include "model/OutlierCut.h"
#include "rules/SettingsCheck.h"
#include "table/ExaminationFilter.h"
#include "table/Grouping.h"

#include <QSet>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;
using optionvalues::wordsOf;

/// Such as "general-statistics is none of a, b"; nothing where all are.
std::optional<QString> unknownAmong(const QStringList &wanted, const QStringList &known)
{
    for (const QString &word : wanted) {
        if (!known.contains(word))
            return u"%1 is none of %2"_s.arg(word, known.join(u", "_s));
    }
    return {};
}

std::optional<QString> settingComplaint(const QString &key, const QString &value)
{
    const auto rules = settingRules();
    const auto rule = rules.constFind(key);
    if (rule == rules.cend())
        return u"%1 is no parameter of this program"_s.arg(key);
    if (!rule->value(value))
        return notOfItsRule(key, value, *rule);
    return {};
}

std::optional<QString> exportComplaint(const recipe::Export &step, const QString &outputFolder)
{
    if (const auto unknown = unknownAmong({step.table}, wordsOf(tableRows())))
        return u"table: "_s + *unknown;
    if (step.prefix.contains(u'/') || step.prefix.contains(u'\\'))
        return u"prefix: \"%1\" is no beginning of a file name"_s.arg(step.prefix);
    if (!step.folder.isEmpty() && !placeInside(outputFolder, step.folder))
        return u"folder: \"%1\" is no folder below that of the run"_s.arg(step.folder);
    if (!step.transitions)
        return {};
    if (const auto unknown = unknownAmong(step.transitions->of, wordsOf(transitionRows())))
        return u"of: "_s + *unknown;
    return unknownAmong(step.transitions->values, wordsOf(transitionValueRows()));
}

QString recordingNameOf(const Examination &examination)
{
    return examination.baseName;
}

} // namespace

RecipeRun::RecipeRun(const recipe::Recipe &recipe, RunState &state, BatchOptions &options, Import import)
    : m_recipe(recipe)
    , m_state(state)
    , m_options(options)
    , m_import(std::move(import))
{
}

std::optional<QString> RecipeRun::complaintOf(const recipe::Step &step) const
{
    if (const auto *set = std::get_if<recipe::Set>(&step))
        return settingComplaint(set->key, set->value);
    if (const auto *statistics = std::get_if<recipe::Statistics>(&step)) {
        const auto unknown = unknownAmong({statistics->of}, wordsOf(statisticsCalculations()));
        return unknown ? std::optional(u"of: "_s + *unknown) : std::nullopt;
    }
    if (const auto *table = std::get_if<recipe::Export>(&step))
        return exportComplaint(*table, m_options.outputFolder);
    return {};
}

std::optional<QString> RecipeRun::complaint() const
{
    for (auto setting = m_recipe.settings.cbegin(); setting != m_recipe.settings.cend(); ++setting) {
        if (const auto problem = settingComplaint(setting.key(), setting.value()))
            return u"settings: "_s + *problem;
    }
    for (qsizetype i = 0; i < m_recipe.steps.size(); ++i) {
        if (const auto problem = complaintOf(m_recipe.steps[i]))
            return u"step %1: %2: %3"_s.arg(QString::number(i + 1), recipe::wordOf(m_recipe.steps[i]), *problem);
    }
    const bool hasRecordings =
        std::any_of(m_recipe.steps.cbegin(), m_recipe.steps.cend(), [](const recipe::Step &step) {
            const auto *import = std::get_if<recipe::Import>(&step);
            return import && !import->recordings.isEmpty();
        });
    if (!hasRecordings)
        return u"no step imports a recording"_s;
    return {};
}

std::optional<UsageError> RecipeRun::applySettings() const
{
    QList<BatchOptions::Setting> settings;
    for (auto setting = m_recipe.settings.cbegin(); setting != m_recipe.settings.cend(); ++setting)
        settings << BatchOptions::Setting{setting.key(), setting.value()};
    return ::applySettings(settings);
}

void RecipeRun::run()
{
    for (const QString &what : m_recipe.notReplayed)
        messages::information(u"Recipe"_s, u"not replayed: %1"_s.arg(what));
    for (const recipe::Step &step : m_recipe.steps)
        std::visit([this](const auto &each) { take(each); }, step);
}

/// In the window, too, an import begins with all samples, or cuts them anew.
void RecipeRun::take(const recipe::Import &step)
{
    const bool isReplaced = !m_options.recordings.isEmpty();
    if (isReplaced && m_isImported)
        return;
    m_import(isReplaced ? m_options.recordings : step.recordings);
    m_isImported = true;
    take(recipe::CutEdges{m_cutPicturePx});
}

void RecipeRun::take(const recipe::Filter &step)
{
    ExaminationFilter filter;
    for (auto entry = step.where.cbegin(); entry != step.where.cend(); ++entry)
        filter.insert(entry.key(), entry.value());
    applyFilter(m_state.model.examinations(), filter);
    followTime();
}

/// A recipe that is used for other recordings may name some that are not among them.
void RecipeRun::warnOfMissing(const QStringList &names, QLatin1StringView what) const
{
    QSet<QString> known;
    for (const Examination &examination : m_state.model.examinations())
        known.insert(recordingNameOf(examination));
    for (const QString &name : names) {
        if (!known.contains(name))
            messages::warning(u"Recipe"_s, u"%1: there is no recording %2"_s.arg(what, name));
    }
}

void RecipeRun::take(const recipe::LeaveOut &step)
{
    warnOfMissing(step.recordings, "leave-out"_L1);
    for (Examination &examination : m_state.model.examinations())
        examination.checked = !step.recordings.contains(recordingNameOf(examination));
    followTime();
}

void RecipeRun::take(const recipe::Groups &step)
{
    warnOfMissing(step.groups.keys(), "groups"_L1);
    for (Examination &examination : m_state.model.examinations()) {
        const QString group = step.groups.value(recordingNameOf(examination));
        if (group.isEmpty())
            clearGroup(examination);
        else
            assignGroup(examination, group, 0);
    }
}

void RecipeRun::take(const recipe::CompareBy &step)
{
    m_options.groupBy = step.entry;
}

/// As each redraw of the window does.
void RecipeRun::followTime()
{
    m_state.model.setTimeFrame(m_frame.value_or(TimeFrame{0, m_state.model.longestCheckedDuration()}));
    orderClusters(m_state.model, m_state.model.timeFrame());
}

void RecipeRun::take(const recipe::Time &step)
{
    m_frame = step.frame;
    followTime();
}

void RecipeRun::take(const recipe::CutEdges &step)
{
    m_cutPicturePx = step.picturePx;
    if (m_cutPicturePx)
        cutOutliers(m_state.model, *m_cutPicturePx);
    else
        restoreOutliers(m_state.model);
    followTime();
}

void RecipeRun::take(const recipe::Areas &step)
{
    for (const AreaOfInterest &area : m_state.model.aoiList())
        m_state.model.removeAoi(area.name);
    for (const recipe::Areas::Area &each : step.areas) {
        AreaOfInterest area(each.name, each.polygon);
        area.enabled = each.enabled;
        m_state.model.insertAoi(area);
    }
}

void RecipeRun::take(const recipe::Set &step)
{
    ::applySettings({BatchOptions::Setting{step.key, step.value}});
}

void RecipeRun::take(const recipe::Fixations &step)
{
    m_options.calculations << fixationWord;
    m_state.done.detector = step.parameters;
    const auto outcome = calculateFixations(m_state.model, step.parameters, nullptr, m_state.threads());
    if (!outcome)
        return;
    tellDetection(*outcome);
    followTime();
}

void RecipeRun::take(const recipe::Clusters &step)
{
    m_options.calculations << (step.pooled ? cumulativeClusterWord : clusterWord);
    (step.pooled ? m_state.done.pooledClusters : m_state.done.clusters) = step.parameters;
    if (step.pooled)
        poolClusters(m_state.model, step.parameters);
    else
        calculateClusters(m_state.model, step.parameters, m_state.threads());
    followTime();
}

void RecipeRun::take(const recipe::Statistics &step)
{
    m_options.calculations << step.of;
    for (const CalculationRow &row : statisticsCalculations()) {
        if (row.word == step.of)
            row.run(m_state);
    }
}

void RecipeRun::take(const recipe::Export &step)
{
    m_options.tables << step.table;
    m_options.transitions = step.transitions ? step.transitions->of : QStringList();
    m_options.transitionValues = step.transitions ? step.transitions->values : QStringList();
    const QString folder = step.folder.isEmpty() ? m_options.outputFolder : m_options.outputFolder + u'/' + step.folder;
    if (const auto problem = makeFolder(folder)) {
        m_state.journal.fail(u"Export"_s, writeFailure(folder, *problem));
        return;
    }
    for (const TableRow &row : tableRows()) {
        if (row.word != step.table)
            continue;
        const ExportResult result = row.write(m_state, {folder, step.prefix, step.eyes});
        for (const QString &path : result.written)
            m_state.journal.keep(path);
        if (!result.failed.isEmpty())
            m_state.journal.fail();
    }
}

std::variant<std::monostate, recipe::Recipe, UsageError> recipeOf(const BatchOptions &options)
{
    if (options.recipeFile.isEmpty())
        return {};
    const auto complaint = [&](const QString &reason) {
        return UsageError{u"--recipe %1: %2"_s.arg(options.recipeFile, reason)};
    };
    constexpr qint64 largest = qint64(64) << 20; // far above any recipe
    const auto bytes = readBounded(options.recipeFile, largest);
    if (const auto *problem = std::get_if<QString>(&bytes))
        return complaint(u"it cannot be read: "_s + *problem);
    const auto read = recipe::read(std::get<QByteArray>(bytes));
    if (const auto *problem = std::get_if<QString>(&read))
        return complaint(*problem);
    return std::get<recipe::Recipe>(read);
}
