// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/OutputChecks.h"

#include "base/NamedPlace.h"
#include "batch/BatchOptions.h"
#include "import/SetFile.h"

#include <QFileInfo>
#include <QMap>

namespace {

struct NamedFile {
    QString option; ///< with its value
    QString path;
};

QList<NamedFile> outputsOf(const BatchOptions &options)
{
    QList<NamedFile> files;
    const auto add = [&](const char *option, const QString &value, const QString &path) {
        if (!path.isEmpty())
            files << NamedFile{QStringLiteral("--%1 %2").arg(QLatin1StringView(option), value), path};
    };
    if (options.imagePer == ImagePer::Run) { // to others a name is appended
        for (const QString &path : options.images)
            add("image", path, path);
    }
    for (const ChartFile &chart : options.charts)
        add("chart", chart.kind + u'=' + chart.path, chart.path);
    const std::pair<const char *, const QString &> others[] = {
        {"density", options.densityFile},       {"diagram", options.diagramFile}, {"video", options.videoFile},
        {"saliency-out", options.saliencyFile}, {"aois-out", options.aoiOutput},  {"methods", options.methodsFile},
        {"report", options.reportFile}};
    for (const auto &[option, path] : others)
        add(option, path, path);
    return files;
}

/// By their identities: what a file is to the run.
QMap<QString, QString> inputsOf(const BatchOptions &options)
{
    QMap<QString, QString> inputs;
    const auto add = [&](const QString &path, const QString &use) {
        if (QFileInfo(path).isFile())
            inputs.insert(fileIdentity(path), use);
    };
    for (const QString &recording : options.recordings) {
        add(recording, QStringLiteral("a recording"));
        add(RecordingPath(recording).setFile(), QStringLiteral("a set file"));
        if (!QFileInfo(recording).isFile())
            continue;
        for (const ImageReference &image : readSetFile(recording).images)
            add(image.path, QStringLiteral("the picture of a recording"));
    }
    for (const QString &path : options.aoiFiles)
        add(path, QStringLiteral("areas of interest"));
    for (const QString &path : options.settingsFiles)
        add(path, QStringLiteral("settings"));
    add(options.background, QStringLiteral("the background"));
    add(options.millimetres.imagePath, QStringLiteral("the picture in millimetres"));
    add(options.layout, QStringLiteral("a layout"));
    add(options.recipeFile, QStringLiteral("the recipe"));
    return inputs;
}

} // namespace

std::optional<UsageError> outputComplaint(const BatchOptions &options)
{
    const QList<NamedFile> outputs = outputsOf(options);
    if (outputs.isEmpty())
        return std::nullopt;
    const QMap<QString, QString> inputs = inputsOf(options);
    QMap<QString, QString> written;
    for (const NamedFile &output : outputs) {
        const QString file = fileIdentity(output.path);
        if (inputs.contains(file))
            return UsageError{QStringLiteral("%1: this run reads that file, as %2; give another name")
                                  .arg(output.option, inputs[file])};
        if (written.contains(file))
            return UsageError{
                QStringLiteral("%1: %2 writes the same file; give another name").arg(output.option, written[file])};
        written.insert(file, output.option);
    }
    return std::nullopt;
}
