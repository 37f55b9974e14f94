// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/PictureOptions.h"

#include "batch/BatchOptions.h"
#include "batch/DrawValues.h"
#include "batch/OptionValues.h"
#include "visualization/charts/ChartKinds.h"

#include <QFileInfo>

#include <algorithm>

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::Word, optionvalues::flag, optionvalues::namesOf, optionvalues::number, optionvalues::oneOf,
    optionvalues::text, optionvalues::texts, optionvalues::unknownWord, optionvalues::wordFor;

constexpr Word<DataKind> densityKinds[] = {{Text("gaze"), DataKind::GazePoints},
                                           {Text("fixations"), DataKind::Fixations},
                                           {Text("clusters"), DataKind::Clusters},
                                           {Text("saccades"), DataKind::Saccades}};

constexpr Word<PictureArea> areas[] = {{Text("drawing"), PictureArea::Everything},
                                       {Text("picture"), PictureArea::Stimulus}};
constexpr Word<bool> grounds[] = {{Text("transparent"), false}, {Text("white"), true}};
constexpr Word<ImagePer> imagePers[] = {
    {Text("subject"), ImagePer::Subject}, {Text("image"), ImagePer::Image}, {Text("recording"), ImagePer::Recording}};
constexpr Word<bool AppendedParts::*> parts[] = {{Text("legends"), &AppendedParts::legends},
                                                 {Text("parameters"), &AppendedParts::parameters}};

std::optional<WrongValue> readParts(const QString &value, BatchOptions &options)
{
    for (const QString &entry : value.split(u',')) {
        const auto *part = std::find_if(std::begin(parts), std::end(parts),
                                        [&](const auto &each) { return each.name == entry.trimmed(); });
        if (part == std::end(parts))
            return unknownWord(entry.trimmed(), namesOf(parts));
        options.appended.*(part->meaning) = true;
    }
    return std::nullopt;
}

QString shownParts(const BatchOptions &options)
{
    QStringList shown;
    for (const auto &part : parts) {
        if (options.appended.*(part.meaning))
            shown << part.name;
    }
    return shown.join(u',');
}

bool endsInOneOf(const QString &path, const QStringList &formats)
{
    return formats.contains(QFileInfo(path).suffix().toLower());
}

std::optional<WrongValue> readImage(const QString &value, BatchOptions &options)
{
    if (!endsInOneOf(value, QStringLiteral("png,svg,tiff,jpg").split(u',')))
        return WrongValue{value, QStringLiteral("the name does not end in .png, .svg, .tiff or .jpg")};
    options.images << value;
    return std::nullopt;
}

std::optional<WrongValue> readDensity(const QString &value, BatchOptions &options)
{
    if (!endsInOneOf(value, {QStringLiteral("tiff")}))
        return WrongValue{value, QStringLiteral("the name does not end in .tiff")};
    options.densityFile = value;
    return std::nullopt;
}

std::optional<WrongValue> readDrawing(const QString &value, BatchOptions &options)
{
    if (const auto problem = drawvalues::problemOf(value))
        return WrongValue{value, *problem};
    options.drawValues << value;
    return std::nullopt;
}

QStringList chartWords()
{
    QStringList words;
    for (const ChartKind &kind : chartKinds())
        words << kind.word;
    return words;
}

std::optional<WrongValue> readChart(const QString &value, BatchOptions &options)
{
    const ChartFile chart{value.section(u'=', 0, 0), value.section(u'=', 1)};
    if (!chartKind(chart.kind))
        return unknownWord(chart.kind, chartWords());
    if (!endsInOneOf(chart.path, QStringLiteral("png,jpg,svg,csv").split(u',')))
        return WrongValue{value, QStringLiteral("the name does not end in .png, .jpg, .svg or .csv")};
    options.charts << chart;
    return std::nullopt;
}

QString shownCharts(const BatchOptions &options)
{
    QStringList charts;
    for (const ChartFile &chart : options.charts)
        charts << chart.kind + u'=' + chart.path;
    return charts.join(u',');
}

constexpr OptionValue chartFiles{
    .read = readChart, .show = shownCharts, .words = chartWords, .given = Given::Repeatedly};
constexpr OptionValue appendedParts{.read = readParts, .show = shownParts, .words = [] { return namesOf(parts); }};
constexpr OptionValue drawing{
    .read = readDrawing, .show = texts<&O::drawValues>.show, .words = drawvalues::names, .given = Given::Repeatedly};
std::optional<WrongValue> readVideo(const QString &value, BatchOptions &options)
{
    if (!endsInOneOf(value, QStringLiteral("avi,mp4,mkv").split(u',')))
        return WrongValue{value, QStringLiteral("the name does not end in .avi, .mp4 or .mkv")};
    options.videoFile = value;
    return std::nullopt;
}

std::optional<WrongValue> readDiagram(const QString &value, BatchOptions &options)
{
    if (!endsInOneOf(value, QStringLiteral("png,svg,html").split(u',')))
        return WrongValue{value, QStringLiteral("the name does not end in .png, .svg or .html")};
    options.diagramFile = value;
    return std::nullopt;
}

constexpr OptionValue diagramFile{.read = readDiagram, .show = text<&O::diagramFile>.show};
constexpr OptionValue videoFile{.read = readVideo, .show = text<&O::videoFile>.show};
constexpr OptionValue imageFiles{.read = readImage, .show = texts<&O::images>.show, .given = Given::Repeatedly};
constexpr OptionValue densityFile{.read = readDensity, .show = text<&O::densityFile>.show};

constexpr int largestScale = 8; // 20480 x 12800 px

constexpr OptionRow pictureRows[] = {
    {Text("image"), Text("FILE"),
     Text("the drawing as .png, .svg, .tiff or .jpg, in the working folder, not in that of --out; repeatable"),
     &imageFiles, Reported::Never},
    {Text("density"), Text("FILE.tiff"), Text("density of a heatmap as 32-bit floating point numbers"), &densityFile,
     Reported::Never},
    {Text("density-kind"), Text("KIND"), Text("of %1 (default: gaze)"), &oneOf<&O::densityKind, densityKinds>,
     Reported::Never, Text("density")},
    {Text("draw"), Text("NAME=VALUE"), Text("a value of drawings without a key, of %1; repeatable"), &drawing,
     Reported::IfGiven, Text("image,density,chart,diagram,video")},
    {Text("no-border"), Text(), Text("pictures without the black frame"), &flag<&O::noBorder>, Reported::IfGiven,
     Text("image,aoi-images,video")},
    {Text("image-area"), Text("AREA"),
     Text("what pictures show, of %1: all that is drawn or the picture that was seen"), &oneOf<&O::imageArea, areas>,
     Reported::IfGiven, Text("image")},
    {Text("image-scale"), Text("FACTOR"), Text("pixels for one of the canvas, 1 to 8: finer, not enlarged"),
     &number<&O::imageScale, 1, largestScale>, Reported::IfGiven, Text("image")},
    {Text("image-ground"), Text("GROUND"), Text("of pictures where nothing is drawn, of %1"),
     &oneOf<&O::whiteGround, grounds>, Reported::IfGiven, Text("image")},
    {Text("legend"), Text(), Text("what colors and sizes of a picture stand for, below it"), &flag<&O::legend>,
     Reported::IfGiven, Text("image")},
    {Text("label-fixations"), Text(), Text("numbers of fixations in their order"), &flag<&O::labelFixations>,
     Reported::IfGiven, Text("image")},
    {Text("image-per"), Text("WHAT"),
     Text("a picture for each, of %1, its name appended to that of --image, behind it the recording's own image"),
     &oneOf<&O::imagePer, imagePers>, Reported::IfGiven, Text("image")},
    {Text("append"), Text("LIST"), Text("below pictures, of %1: colors of heatmaps, report of the calculation"),
     &appendedParts, Reported::IfGiven, Text("image")},
    {Text("chart"), Text("KIND=FILE"),
     Text("a chart over time, of %1, as .png, .jpg or .svg, or as .csv the numbers behind it; repeatable"), &chartFiles,
     Reported::Never},
    {Text("diagram"), Text("FILE"),
     Text("transitions between areas as .png, .svg or .html, a page that needs no other file"), &diagramFile,
     Reported::Never},
    {Text("video"), Text("FILE"), Text("the drawing as it goes on, as .avi, .mp4 or .mkv"), &videoFile,
     Reported::Never},
    {Text("video-step"), Text("MS"), Text("time that each image of the video shows (default: 100)"),
     &number<&O::videoStepMs, 1>, Reported::IfGiven, Text("video")},
};

} // namespace

PictureSettings pictureSettings(const PictureOptions &options)
{
    return {.appended = options.appended,
            .area = options.imageArea,
            .scale = static_cast<double>(options.imageScale),
            .ground = options.whiteGround ? Qt::white : Qt::transparent,
            .legend = options.legend,
            .labelFixations = options.labelFixations};
}

OptionGroup pictureOptions()
{
    return {Text("Pictures"), pictureRows};
}

QString densityKindWord(DataKind kind)
{
    return wordFor(kind, densityKinds);
}
