#include "batch/BatchRun.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "batch/AoiInput.h"
#include "batch/OptionWords.h"
#include "batch/ParallelImport.h"
#include "batch/Suggestion.h"
#include "batch/Terminal.h"
#include "clustering/ClusterCalculation.h"
#include "clustering/ClusterOrder.h"
#include "clustering/CumulativeClusters.h"
#include "detection/FixationCalculation.h"
#include "detection/FixationSettingsModel.h"
#include "export/DataExport.h"
#include "settings/Registry.h"
#include "settings/StoredKeys.h"
#include "density/DensityTiff.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/scene/ArrowGroup.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/scene/ImageExport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QImageReader>
#include <QJsonDocument>

#include <thread>

namespace {

/// The name of the recording in messages and in the report.
QString nameOf(const QString &recording)
{
    return QFileInfo(recording).fileName();
}

bool isReadable(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isReadable();
}

QMap<QString, qint64> countsOf(const ImportCounts &counts)
{
    return {{QStringLiteral("samples"), counts.samples},
            {QStringLiteral("lines of wrong length"), counts.wrongLengthLines}};
}

/// The window, too, runs the standard detector where it does not recognise the name, but not so quietly: there the
/// panel shows no detector.
void warnOfUnknownDetector(const QString &name)
{
    messages::warning(
        QStringLiteral("Detector"),
        QStringLiteral("The settings choose \"%1\", which is not recognised when settings are read, as in "
                       "the window: the standard detector runs. --detector chooses another.")
            .arg(name));
}

/// The parameters as the window has them after a start, and on top what the command line chooses: some choices do not
/// survive the store.
FixationSettingsModel fixationSettings(const BatchOptions &options)
{
    FixationSettingsModel settings;
    loadFixationSettings(settings);
    if (options.detector)
        settings.calculationType = static_cast<int>(*options.detector);
    else if (settings.calculationType == unknownCalculationType)
        warnOfUnknownDetector(SettingsStore().value(rows::calculationType.key).toString());
    if (options.velocityUnit)
        setParameter(settings, rows::velocityUnit, static_cast<int>(*options.velocityUnit));
    if (options.detector == BatchOptions::Detector::Velocity)
        settings.velocityImageSizePixels = backgroundPixmap(options.background, Border::None).width();
    return settings;
}

QString wrongLengthText(const QString &path, const ImportCounts &counts)
{
    return QStringLiteral("%1: left out %2 of the sample lines, which do not have eleven fields; the first is line %3. "
                          "Fields are separated by one tab each.")
        .arg(path, QString::number(counts.wrongLengthLines), QString::number(counts.firstWrongLengthLine));
}

/// The parameters of drawings as the store has them.
struct DrawingParameters {
    VisualizationParameters gazePoints = gazePointParameters();
    VisualizationParameters fixations = fixationParameters();
    VisualizationParameters clusters = clusterParameters();
    VisualizationParameters saccades = saccadeParameters();
};

/// What the model shows with them in its time frame.
DrawingContext contextOf(const DataModel &model, const DrawingParameters &parameters)
{
    return {.model = model,
            .eyeMode = eyeMode(),
            .frame = model.timeFrame(),
            .gazePoints = parameters.gazePoints,
            .fixations = parameters.fixations,
            .clusters = parameters.clusters,
            .saccades = parameters.saccades};
}

} // namespace

BatchRun::BatchRun(const BatchOptions &options, MessageRecord &record, Terminal &output)
    : m_options(options)
    , m_record(record)
    , m_output(output)
{
}

ExitCode BatchRun::run()
{
    std::optional<UsageError> problem = checkInputs();
    if (!problem)
        problem = applySettings();
    if (!problem)
        problem = makeOutputFolder();
    if (problem) {
        messages::critical(QStringLiteral("vistrum-batch"), problem->text);
        return ExitCode::Usage;
    }
    importRecordings();
    loadAois();
    setTimeFrame();
    calculate();
    exportTables();
    exportImages();
    exportDensity();
    writeReport();
    return m_failed ? ExitCode::SomethingFailed : ExitCode::AllDone;
}

/// What can be seen to be missing is told before anything is started.
std::optional<UsageError> BatchRun::checkInputs() const
{
    for (const QString &path : m_options.settingsFiles) {
        if (!isReadable(path))
            return UsageError{QStringLiteral("--settings %1: no such file, or it cannot be read").arg(path)};
    }
    if (!m_options.background.isEmpty() && !isReadable(m_options.background))
        return UsageError{
            QStringLiteral("--background %1: no such file, or it cannot be read").arg(m_options.background)};
    if (!m_options.background.isEmpty() && !QImageReader(m_options.background).canRead())
        return UsageError{QStringLiteral("--background %1: not a picture").arg(m_options.background)};
    return std::nullopt;
}

/// After all other checks: a run that is refused leaves nothing behind.
std::optional<UsageError> BatchRun::makeOutputFolder() const
{
    if (QDir().mkpath(m_options.outputFolder))
        return std::nullopt;
    return UsageError{QStringLiteral("--out %1: the folder cannot be made").arg(m_options.outputFolder)};
}

std::optional<UsageError> BatchRun::applySettings()
{
    for (const QString &path : m_options.settingsFiles) {
        Registry(Log(QString())).loadSettings(path); // a run leaves no log behind
        addInput(path, QStringLiteral("settings"));
    }
    SettingsStore store;
    for (const BatchOptions::Setting &setting : m_options.settings) {
        if (!store.contains(setting.key)) {
            const QString nearest = suggestion(setting.key, store.allKeys());
            const QString hint = nearest.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(nearest);
            return UsageError{QStringLiteral("--set %1: no such key").arg(setting.key) + hint};
        }
        store.setValue(setting.key, setting.value);
    }
    if (m_options.detector)
        store.setValue(rows::calculationType.key, calculationTypeNames[static_cast<int>(*m_options.detector)]);
    if (!m_options.background.isEmpty())
        addInput(m_options.background, QStringLiteral("background"));
    return std::nullopt;
}

/// Contents are only read again where somebody will see their hash.
void BatchRun::addInput(const QString &path, const QString &kind)
{
    const ReportedFile file = m_options.reportFile.isEmpty() ? ReportedFile{path, 0, {}} : reportedFile(path);
    m_inputs << ReportedInput{.file = file, .kind = kind, .counts = {}, .messages = {}};
}

void BatchRun::importRecordings()
{
    const int cores = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    Progress progress(QStringLiteral("Loading data, please wait."), static_cast<int>(m_options.recordings.size()));
    QStringList missingImages;
    qsizetype index = 0;
    readRecordings(m_options.recordings, m_options.jobs.value_or(cores), [&](const ImportedFile &file) {
        takeRecording(m_options.recordings[index++], file);
        if (!file.examination.missingImagePath.isEmpty())
            missingImages << file.examination.missingImagePath;
        progress.advance();
    });
    reportMissingImages(missingImages);
    m_model.allExaminations() = m_model.examinations();
}

void BatchRun::takeRecording(const QString &path, const ImportedFile &file)
{
    m_messages << m_record.take();
    const bool used = addToModel(file, m_model).has_value();
    m_failed = m_failed || !used;
    if (file.counts.wrongLengthLines > 0)
        messages::warning(nameOf(path), wrongLengthText(path, file.counts));
    addInput(path, QStringLiteral("recording"));
    m_inputs.last().used = used;
    m_inputs.last().counts = countsOf(file.counts);
    m_inputs.last().messages = m_record.take();
    const QString setFile = RecordingPath(path).setFile();
    if (QFileInfo::exists(setFile))
        addInput(setFile, QStringLiteral("set file"));
}

void BatchRun::loadAois()
{
    for (const QString &path : m_options.aoiFiles) {
        m_messages << m_record.take();
        const AoiInput input = loadAoiFile(path, m_model);
        m_failed = m_failed || !input.complete;
        addInput(path, QStringLiteral("areas of interest"));
        m_inputs.last().used = input.used;
        m_inputs.last().counts = input.counts;
        m_inputs.last().messages = m_record.take();
    }
}

void BatchRun::setTimeFrame()
{
    m_model.setTimeFrame(m_options.time.value_or(TimeFrame{0, m_model.longestCheckedDuration()}));
}

void BatchRun::calculate()
{
    if (m_model.examinations().isEmpty())
        return;
    for (const BatchOptions::Calculation calculation : m_options.calculations) {
        switch (calculation) {
        case BatchOptions::Calculation::Fixations:
            detectFixations();
            break;
        case BatchOptions::Calculation::Clusters:
            calculateClusters(m_model, clusterParametersOfRun(std::nullopt));
            break;
        case BatchOptions::Calculation::CumulativeClusters:
            calculateCumulativeClusters(m_model, clusterParametersOfRun(m_options.overlapOutliers));
            break;
        case BatchOptions::Calculation::SaccadeClusters:
            clusterSaccades();
            break;
        }
    }
    orderClusters(m_model, m_model.timeFrame()); // as each redraw of the window does
}

void BatchRun::detectFixations()
{
    const FixationSettingsModel settings = fixationSettings(m_options);
    const auto outcome =
        calculateFixations(m_model, calculationParameters(settings.calculationType, settings), nullptr);
    if (!outcome)
        return;
    for (const DetectionWarning &warning : outcome->warnings)
        messages::warning(warning.recording, QStringLiteral("%1: %2").arg(warning.eye, warning.text));
}

void BatchRun::clusterSaccades()
{
    m_saccadeClusters.setModel(&m_model);
    m_saccadeClusters.setParameters(m_options.saccadeClusters.parameters);
    m_saccadeClusters.cluster();
    m_failed = m_failed || m_saccadeClusters.stage() < SaccadeClusterModel::stageCount;
}

ClusterParameters BatchRun::clusterParametersOfRun(std::optional<int> overlapOutliers) const
{
    ClusterSettingsModel settings;
    loadParameters(settings, rows::cluster);
    return clusterParameters(settings.calculationType, settings, {m_options.overlapFixations, overlapOutliers});
}

ExportResult BatchRun::exported(BatchOptions::Table table, const ExportTarget &target)
{
    switch (table) {
    case BatchOptions::Table::Fixations:
        return exportFixations(m_model, target);
    case BatchOptions::Table::Clusters:
        return exportClusters(m_model, target);
    case BatchOptions::Table::Events:
        return exportEvents(m_model, target);
    case BatchOptions::Table::CumulativeClusters:
        break;
    }
    return exportCumulativeClusters(m_model, target);
}

void BatchRun::exportTables()
{
    if (m_model.examinations().isEmpty())
        return;
    const ExportTarget target{m_options.outputFolder, m_options.prefix, m_options.eyes};
    for (const BatchOptions::Table table : m_options.tables) {
        const ExportResult result = exported(table, target);
        for (const QString &path : result.written)
            keep(path);
        for (const QString &path : result.failed)
            fail(QStringLiteral("Export"), QStringLiteral("%1 could not be written.").arg(path));
    }
}

void BatchRun::exportImages()
{
    if (m_options.images.isEmpty() || m_model.examinations().isEmpty())
        return;
    QGraphicsScene scene;
    addBackground(scene, backgroundPixmap(m_options.background, Border::Black));
    const DrawingParameters parameters;
    runDrawingPass(scene, m_model, contextOf(m_model, parameters));
    addArrowGroup(scene, saccadeClusterArrows(m_saccadeClusters.distanceClusters(), m_options.saccadeClusters.mode,
                                              m_options.saccadeClusters.style));
    for (const QString &path : m_options.images) {
        if (const auto problem = exportScene(scene, path))
            fail(QStringLiteral("Image"), *problem);
        else
            keep(path);
    }
}

void BatchRun::exportDensity()
{
    if (m_options.densityFile.isEmpty() || m_model.examinations().isEmpty())
        return;
    const DrawingParameters parameters;
    const std::optional<NamedDensity> density = heatmapDensity(contextOf(m_model, parameters), m_options.densityKind);
    if (!density) {
        fail(QStringLiteral("Density"), QStringLiteral("There is nothing of this kind in the time frame."));
        return;
    }
    m_density = {{QStringLiteral("kind"), optionwords::wordFor(m_options.densityKind, optionwords::densityKinds)},
                 {QStringLiteral("kernelWidthPx"), QString::number(density->kernel.width)},
                 {QStringLiteral("kernelSigma"), QString::number(density->kernel.sigma)},
                 {QStringLiteral("unit"), density->unit}};
    write(QStringLiteral("Density"), m_options.densityFile, densityTiff(density->cells, density->unit.toLatin1()));
}

void BatchRun::write(const QString &title, const QString &path, const QByteArray &bytes)
{
    if (const std::optional<QString> problem = replaceFile(path, bytes))
        fail(title, QStringLiteral("%1 could not be written: %2").arg(path, *problem));
    else
        keep(path);
}

void BatchRun::writeReport()
{
    if (m_options.reportFile.isEmpty())
        return;
    m_messages << m_record.take();
    const BatchReport report = collectReport();
    write(QStringLiteral("Report"), m_options.reportFile, toJson(report).toJson());
}

BatchReport BatchRun::collectReport() const
{
    BatchReport report{.version = QCoreApplication::applicationVersion(),
                       .options = reportedOptions(m_options),
                       .density = m_density,
                       .parameters = storedParameters(SettingsStore()),
                       .inputs = m_inputs,
                       .messages = m_messages,
                       .outputs = {}};
    for (const QString &path : m_written)
        report.outputs << reportedFile(path);
    return report;
}

void BatchRun::keep(const QString &path)
{
    m_written << path;
    m_output.writeLine(path);
}

void BatchRun::fail(const QString &title, const QString &text)
{
    m_failed = true;
    messages::warning(title, text);
}
