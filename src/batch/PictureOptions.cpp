#include "batch/PictureOptions.h"

#include "batch/DrawValues.h"
#include "batch/OptionValues.h"
#include "visualization/charts/ChartKinds.h"

#include <QFileInfo>

namespace {

using O = PictureOptions;
using Text = QLatin1StringView;
using namespace optionvalues;

constexpr Word<DataKind> densityKinds[] = {{Text("gaze"), DataKind::GazePoints},
                                           {Text("fixations"), DataKind::Fixations},
                                           {Text("clusters"), DataKind::Clusters},
                                           {Text("saccades"), DataKind::Saccades}};

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
constexpr OptionValue drawing{
    .read = readDrawing, .show = texts<&O::drawValues>.show, .words = drawvalues::names, .given = Given::Repeatedly};
constexpr OptionValue imageFiles{.read = readImage, .show = texts<&O::images>.show, .given = Given::Repeatedly};
constexpr OptionValue densityFile{.read = readDensity, .show = text<&O::densityFile>.show};

constexpr OptionRow pictureRows[] = {
    {Text("image"), Text("FILE"),
     Text("the drawing as .png, .svg, .tiff or .jpg, in the working folder, not in that of --out; repeatable"),
     &imageFiles, Reported::Never},
    {Text("density"), Text("FILE.tiff"), Text("density of a heatmap as 32-bit floating point numbers"), &densityFile,
     Reported::Never},
    {Text("density-kind"), Text("KIND"), Text("of %1 (default: gaze)"), &oneOf<&O::densityKind, densityKinds>,
     Reported::Never},
    {Text("draw"), Text("NAME=VALUE"), Text("a value of drawings without a key, of %1; repeatable"), &drawing},
    {Text("no-border"), Text(), Text("pictures without the black frame"), &flag<&O::noBorder>},
    {Text("image-area"), Text("AREA")},
    {Text("image-scale"), Text("FACTOR")},
    {Text("legend"), Text()},
    {Text("label-fixations"), Text()},
    {Text("image-per"), Text("WHAT")},
    {Text("append"), Text("LIST")},
    {Text("chart"), Text("KIND=FILE"),
     Text("a chart over time, of %1, as .png, .jpg or .svg, or as .csv the numbers behind it; repeatable"), &chartFiles,
     Reported::Never},
    {Text("diagram"), Text("FILE")},
    {Text("video"), Text("FILE")},
    {Text("video-step"), Text("MS")},
};

} // namespace

OptionGroup pictureOptions()
{
    return {Text("Pictures"), pictureRows};
}

QString densityKindWord(DataKind kind)
{
    return wordFor(kind, densityKinds);
}
