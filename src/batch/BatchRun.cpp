// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchRun.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "base/SideBySide.h"
#include "batch/AoiInput.h"
#include "batch/EffectChecks.h"
#include "batch/OptionTable.h"
#include "batch/OutputChecks.h"
#include "batch/PictureCheck.h"
#include "batch/RecipeRun.h"
#include "batch/RecordingInput.h"
#include "batch/RunAois.h"
#include "batch/RunCharts.h"
#include "batch/RunMethods.h"
#include "batch/RunPictures.h"
#include "batch/RunQuality.h"
#include "batch/SettingInput.h"
#include "batch/StatisticsRows.h"
#include "batch/TableRows.h"
#include "clustering/ClusterOrder.h"
#include "detection/FixationSettingsModel.h"
#include "import/ExaminationImport.h"
#include "model/OutlierCut.h"
#include "report/MethodsText.h"
#include "settings/Registry.h"
#include "settings/StoredKeys.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// @param lines  with the file that each is about.
void tellDoubts(const QStringList &lines)
{
    for (const QString &line : lines)
        messages::warning(QStringLiteral("Import"), line);
}

std::optional<UsageError> pictureComplaint(QLatin1StringView option, const QString &path)
{
    const std::optional<QString> problem = pictureProblem(path);
    return problem ? std::optional(UsageError{QStringLiteral("--%1 %2: %3").arg(option, path, *problem)})
                   : std::nullopt;
}

} // namespace

BatchRun::BatchRun(const BatchOptions &options, MessageRecord &record, Terminal &output)
    : m_options(options)
    , m_journal(record, output,
                options.reportFile.isEmpty() ? RunJournal::Digests::NotNeeded : RunJournal::Digests::Made)
{
}

BatchRun::~BatchRun() = default;

ExitCode BatchRun::run()
{
    std::optional<UsageError> problem = checkInputs();
    if (!problem)
        problem = chooseSettings();
    if (!problem)
        problem = chooseLayout();
    if (!problem)
        problem = readRecipe();
    if (!problem)
        problem = makeOutputFolder();
    if (problem) {
        messages::critical(QStringLiteral("vistrum-batch"), problem->text);
        return ExitCode::Usage;
    }
    for (const QString &line : optionsWithoutEffect(m_options))
        messages::warning(QStringLiteral("Options"), line);
    QMap<QString, QString> density;
    if (m_recipe)
        runRecipe();
    else
        density = doOptions();
    writeRecords(density);
    return m_journal.failed() ? ExitCode::SomethingFailed : ExitCode::AllDone;
}

/// The steps in the order of the help.
/// @return what an exported density is, for the report.
QMap<QString, QString> BatchRun::doOptions()
{
    importRecordings(m_options.recordings);
    loadAois();
    setTimeFrame();
    if (m_state.model.examinations().isEmpty())
        return {};
    calculate(findingCalculations());
    orderClusters(m_state.model, m_state.model.timeFrame()); // as each redraw of the window does
    generateAois(m_state);
    calculate(statisticsCalculations());
    exportTables();
    exportAois(m_state);
    exportCharts(m_state);
    exportDiagram(m_state);
    exportImages(m_state);
    exportAoiImages(m_state);
    exportVideo(m_state);
    QMap<QString, QString> density = exportDensity(m_state);
    exportSaliency(m_state);
    return density;
}

void BatchRun::runRecipe()
{
    RecipeRun(*m_recipe, m_state, m_options, [this](const QStringList &recordings) {
        importRecordings(recordings);
    }).run();
}

/// A recipe that cannot be done is refused as a whole.
std::optional<UsageError> BatchRun::readRecipe()
{
    auto read = recipeOf(m_options);
    if (const auto *problem = std::get_if<UsageError>(&read))
        return *problem;
    if (!std::holds_alternative<recipe::Recipe>(read))
        return std::nullopt;
    m_recipe = std::get<recipe::Recipe>(read);
    m_journal.addInput(m_options.recipeFile, QStringLiteral("recipe"));
    const RecipeRun run(*m_recipe, m_state, m_options, {});
    if (const auto problem = run.complaint())
        return UsageError{QStringLiteral("--recipe %1: %2").arg(m_options.recipeFile, *problem)};
    return run.applySettings();
}

/// What can be seen to be missing is told before anything is started.
std::optional<UsageError> BatchRun::checkInputs() const
{
    if (auto complaint = outputComplaint(m_options))
        return complaint;
    if (auto complaint = pictureComplaint(QLatin1StringView("background"), m_options.background))
        return complaint;
    return pictureComplaint(QLatin1StringView("millimetre-image"), m_options.millimetres.imagePath);
}

std::optional<UsageError> BatchRun::chooseLayout()
{
    if (m_options.layout.isEmpty())
        return std::nullopt;
    auto request = layoutRequest(m_options.layout, {});
    if (const auto *problem = std::get_if<QString>(&request))
        return UsageError{QStringLiteral("--layout %1: %2").arg(m_options.layout, *problem)};
    m_layout = std::make_unique<LayoutRequest>(std::get<LayoutRequest>(std::move(request)));
    if (QFileInfo(m_options.layout).isFile())
        m_journal.addInput(m_options.layout, QStringLiteral("layout"));
    return std::nullopt;
}

/// After all other checks: a run that is refused leaves nothing behind.
std::optional<UsageError> BatchRun::makeOutputFolder() const
{
    if (const auto problem = makeFolder(m_options.outputFolder))
        return UsageError{QStringLiteral("--out %1: %2").arg(m_options.outputFolder, *problem)};
    return std::nullopt;
}

std::optional<UsageError> BatchRun::chooseSettings()
{
    for (const QString &path : m_options.settingsFiles) {
        if (auto problem = applySettingsFile(path))
            return problem;
        m_journal.addInput(path, QStringLiteral("settings"));
    }
    if (auto problem = applySettings(m_options.settings))
        return problem;
    if (m_options.detector)
        SettingsStore().setValue(rows::calculationType.key,
                                 calculationTypeNames[static_cast<int>(*m_options.detector)]);
    if (m_options.eyes)
        writeStored(keys::eyeMode, static_cast<int>(*m_options.eyes)); // one choice for tables and drawings alike
    if (!m_options.background.isEmpty())
        m_journal.addInput(m_options.background, QStringLiteral("background"));
    if (!m_options.millimetres.imagePath.isEmpty())
        m_journal.addInput(m_options.millimetres.imagePath, QStringLiteral("picture in millimetres"));
    return std::nullopt;
}

void BatchRun::importRecordings(const QStringList &recordings)
{
    const QList<RecordingInput> inputs = recordingInputs(recordings, m_options, m_journal);
    Progress progress(QStringLiteral("Loading data, please wait."), static_cast<int>(inputs.size()));
    QStringList missingImages;
    std::vector<ReadInput> read(static_cast<std::size_t>(inputs.size()));
    const auto noteImage = [&](const ImportedFile &file) {
        if (!file.examination.missingImagePath.isEmpty())
            missingImages << file.examination.missingImagePath;
    };
    sideBySide(
        inputs.size(), m_state.threads(),
        [&](qsizetype i) { read[static_cast<std::size_t>(i)] = readInput(inputs[i], m_layout.get()); },
        [&](qsizetype i) {
            const ReadInput input = std::exchange(read[static_cast<std::size_t>(i)], {});
            if (const auto *table = std::get_if<ImportedTable>(&input)) {
                takeTable(*table);
                std::for_each(table->recordings.begin(), table->recordings.end(), noteImage);
            } else {
                takeRecording(std::get<ImportedFile>(input));
                noteImage(std::get<ImportedFile>(input));
            }
            progress.advance();
        });
    reportMissingImages(missingImages);
    followExaminations(m_state.model);
}

void BatchRun::takeRecording(const ImportedFile &file)
{
    const QString &path = file.path;
    m_journal.beginInput();
    const bool used = addToModel(file, m_state.model).has_value();
    if (!used)
        m_failedRecordings << RecordingPath(path).baseName;
    if (!used || file.counts.samples == 0)
        m_journal.fail();
    if (used) // otherwise its message has the reason
        tellDoubts(doubtsWithName(file, path));
    m_journal.addInputWithMessages(path, QStringLiteral("recording"), used,
                                   file.furtherCounts.isEmpty() ? reportedCounts(file.counts) : file.furtherCounts);
    if (file.pipeDigest)
        m_journal.setDigest(*file.pipeDigest);
    addSetFile(file);
}

/// What was read is told, too: a layout that was found may be another one than was meant.
void BatchRun::takeTable(const ImportedTable &table)
{
    m_journal.beginInput();
    if (!table.note.isEmpty())
        messages::information(QStringLiteral("Import"), QStringLiteral("%1: %2.").arg(table.path, table.note));
    for (const ImportMessage &message : table.messages)
        messages::show(message);
    if (!table.messages.isEmpty())
        m_journal.fail();
    m_failedRecordings += table.notRead;
    tellDoubts(table.doubts);
    for (const ImportedFile &file : table.recordings) {
        addToModel(file, m_state.model);
        tellDoubts(file.doubts);
    }
    QStringList names;
    for (const ImportedFile &file : table.recordings)
        names << file.examination.baseName;
    m_journal.addTable(table.path, names, table.report);
    for (const ImportedFile &file : table.recordings)
        addSetFile(file);
}

void BatchRun::addSetFile(const ImportedFile &file)
{
    const QString setFile = RecordingPath(file.path).directory + file.examination.baseName + QStringLiteral(".set");
    if (QFileInfo::exists(setFile))
        m_journal.addInput(setFile, QStringLiteral("set file"));
}

void BatchRun::loadAois()
{
    for (const QString &path : m_options.aoiFiles) {
        m_journal.beginInput();
        const AoiInput input = loadAoiFile(path, m_state.model);
        if (!input.complete)
            m_journal.fail();
        m_journal.addInputWithMessages(path, QStringLiteral("areas of interest"), input.used, input.counts);
    }
}

void BatchRun::setTimeFrame()
{
    const qint64 longestMs = m_state.model.longestCheckedDuration();
    if (m_options.time && m_options.time->startMs > longestMs && longestMs > 0)
        messages::warning(QStringLiteral("Options"),
                          QStringLiteral("--time %1:%2: no recording is that long; the longest has %3 ms.")
                              .arg(m_options.time->startMs)
                              .arg(m_options.time->endMs)
                              .arg(longestMs));
    m_state.model.setTimeFrame(m_options.time.value_or(TimeFrame{0, longestMs}));
}

void BatchRun::calculate(const QList<CalculationRow> &rows)
{
    for (const CalculationRow &row : rows) {
        if (m_options.calculations.contains(row.word))
            row.run(m_state);
    }
}

void BatchRun::exportTables()
{
    const ExportTarget target{m_options.outputFolder, m_options.prefix, eyeMode()};
    for (const TableRow &row : tableRows()) {
        if (!m_options.tables.contains(row.word))
            continue;
        const ExportResult result = row.write(m_state, target);
        for (const QString &path : result.written)
            m_journal.keep(path);
        if (!result.failed.isEmpty())
            m_journal.fail();
    }
}

/// The record of the run: as a methods section and as a report.
void BatchRun::writeRecords(const QMap<QString, QString> &density)
{
    if (m_options.reportFile.isEmpty() && m_options.methodsFile.isEmpty())
        return;
    const QList<StreamQuality> quality = qualityOf(m_state);
    const MethodsRecord methods = methodsOf(m_state, quality, m_failedRecordings);
    if (!m_options.methodsFile.isEmpty())
        m_journal.write(QStringLiteral("Methods"), m_options.methodsFile,
                        methodsText(methods, methodsFormatOf(m_options.methodsFile)).toUtf8());
    if (m_options.reportFile.isEmpty())
        return;
    BatchReport report = m_journal.report();
    addQuality(quality, report);
    report.methods = toJson(methods);
    report.methods.insert(QStringLiteral("text"), methodsText(methods, MethodsFormat::Plain));
    report.version = QCoreApplication::applicationVersion();
    BatchOptions asUsed = m_options;
    asUsed.eyes = eyeMode();
    report.options = reportedOptions(asUsed);
    report.density = density;
    report.parameters = storedParameters(SettingsStore());
    report.areas = reportedAreas(m_state);
    m_journal.write(QStringLiteral("Report"), m_options.reportFile, toJson(report).toJson());
}
