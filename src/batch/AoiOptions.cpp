// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/AoiOptions.h"

#include "batch/BatchOptions.h"
#include "batch/OptionValues.h"

#include <QFileInfo>

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::WholeNumber, optionvalues::Word, optionvalues::namesOf, optionvalues::oneOf, optionvalues::text,
    optionvalues::texts, optionvalues::unknownWord, optionvalues::wholeNumber, optionvalues::wordFor;

constexpr Word<GeneratedAois> kinds[] = {{Text("grid"), GeneratedAois::Grid},
                                         {Text("clusters"), GeneratedAois::Clusters},
                                         {Text("regions"), GeneratedAois::Regions}};
constexpr Word<RegionSource> sources[] = {{Text("gaze"), RegionSource::GazePoints},
                                          {Text("fixations"), RegionSource::Fixations},
                                          {Text("clusters"), RegionSource::Clusters},
                                          {Text("cumulative-clusters"), RegionSource::CumulativeClusters},
                                          {Text("itti"), RegionSource::SaliencyItti},
                                          {Text("frequency-tuned"), RegionSource::SaliencyFrequencyTuned},
                                          {Text("integrated"), RegionSource::SaliencyIntegratedFeatures}};
constexpr Word<RegionMethod> methods[] = {{Text("standard"), RegionMethod::Standard},
                                          {Text("gradient"), RegionMethod::Gradient}};
constexpr Word<RegionExport> exports[] = {{Text("aois"), RegionExport::Aois},
                                          {Text("cumulative-clusters"), RegionExport::CumulativeClusters}};
constexpr Word<SaliencyMethod> saliencyMethods[] = {{Text("itti"), SaliencyMethod::Itti},
                                                    {Text("frequency-tuned"), SaliencyMethod::FrequencyTuned},
                                                    {Text("integrated"), SaliencyMethod::IntegratedFeatures}};

// ---- kinds

std::optional<WrongValue> readKind(const QString &value, BatchOptions &options)
{
    for (const Word<GeneratedAois> &kind : kinds) {
        if (kind.name != value)
            continue;
        if (options.generatedAois.contains(kind.meaning))
            return WrongValue{value, QStringLiteral("given twice")};
        options.generatedAois << kind.meaning;
        return std::nullopt;
    }
    return unknownWord(value, namesOf(kinds));
}

QString shownKinds(const BatchOptions &options)
{
    QStringList names;
    for (const GeneratedAois kind : options.generatedAois)
        names << wordFor(kind, kinds);
    return names.join(u',');
}

// ---- regions

/// Sets the member to what the word means; the reason where there is no such word.
template <class T, std::size_t N>
std::optional<QString> setWord(const Word<T> (&vocabulary)[N], const QString &word, T &member)
{
    const auto found = std::find_if(std::begin(vocabulary), std::end(vocabulary),
                                    [&](const Word<T> &each) { return each.name == word; });
    if (found == std::end(vocabulary))
        return unknownWord(word, namesOf(vocabulary)).reason;
    member = found->meaning;
    return std::nullopt;
}

QStringList regionNames()
{
    QStringList names{QStringLiteral("source"), QStringLiteral("method")};
    for (const RegionNumber &number : regionNumbers)
        names << number.name;
    return names << QStringLiteral("as");
}

std::optional<QString> setRegion(const QString &name, const QString &value, AoiOptions &options)
{
    if (name == QLatin1StringView("source"))
        return setWord(sources, value, options.regions.source);
    if (name == QLatin1StringView("method"))
        return setWord(methods, value, options.regions.method);
    if (name == QLatin1StringView("as"))
        return setWord(exports, value, options.regionExport);
    for (const RegionNumber &number : regionNumbers) {
        if (number.name != name)
            continue;
        const WholeNumber read = wholeNumber(value, number.lowest, number.highest);
        if (read.problem)
            return read.problem->reason;
        options.regions.*number.member = read.number;
        return std::nullopt;
    }
    return unknownWord(name, regionNames()).reason;
}

std::optional<WrongValue> readRegion(const QString &value, BatchOptions &options)
{
    const qsizetype equals = value.indexOf(u'=');
    if (equals < 1)
        return WrongValue{value, QStringLiteral("not of the form NAME=VALUE")};
    const QString name = value.left(equals);
    if (options.givenRegions.contains(name))
        return WrongValue{value, QStringLiteral("%1 is given twice").arg(name)};
    if (const auto problem = setRegion(name, value.mid(equals + 1), options))
        return WrongValue{value, *problem};
    options.givenRegions << name;
    return std::nullopt;
}

/// All of them, since none is stored elsewhere.
QString shownRegions(const BatchOptions &options)
{
    if (!options.generatedAois.contains(GeneratedAois::Regions))
        return {};
    QStringList texts{QStringLiteral("source=") + wordFor(options.regions.source, sources),
                      QStringLiteral("method=") + wordFor(options.regions.method, methods)};
    for (const RegionNumber &number : regionNumbers)
        texts << QStringLiteral("%1=%2").arg(number.name).arg(options.regions.*number.member);
    texts << QStringLiteral("as=") + wordFor(options.regionExport, exports);
    return texts.join(u',');
}

// ---- saliency and files

std::optional<WrongValue> readNumbers(const QString &value, BatchOptions &options)
{
    const QStringList parts = value.split(u',');
    SaliencyNumbers numbers{};
    if (std::size_t(parts.size()) != numbers.size())
        return WrongValue{value, QStringLiteral("not four whole numbers with commas between them")};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const WholeNumber read = wholeNumber(parts[qsizetype(i)].trimmed(), 0, highestSaliencyNumber);
        if (read.problem)
            return read.problem;
        numbers[i] = read.number;
    }
    options.saliencyNumbers = numbers;
    return std::nullopt;
}

QString shownNumbers(const BatchOptions &options)
{
    QStringList texts;
    for (const int number : options.saliencyNumbers.value_or(SaliencyNumbers{}))
        texts << QString::number(number);
    return options.saliencyNumbers ? texts.join(u',') : QString();
}

bool endsIn(const QString &path, const QStringList &endings)
{
    return endings.contains(QFileInfo(path).suffix().toLower());
}

std::optional<WrongValue> readOutput(const QString &value, BatchOptions &options)
{
    if (!endsIn(value, {QStringLiteral("aoi"), QStringLiteral("csv"), QStringLiteral("json")}))
        return WrongValue{value, QStringLiteral("the name does not end in .aoi, .csv or .json")};
    options.aoiOutput = value;
    return std::nullopt;
}

std::optional<WrongValue> readSaliencyFile(const QString &value, BatchOptions &options)
{
    if (!endsIn(value, {QStringLiteral("tiff")}))
        return WrongValue{value, QStringLiteral("the name does not end in .tiff")};
    options.saliencyFile = value;
    return std::nullopt;
}

constexpr OptionValue generated{
    .read = readKind, .show = shownKinds, .words = [] { return namesOf(kinds); }, .given = Given::Repeatedly};
constexpr OptionValue regions{.read = readRegion, .show = shownRegions, .given = Given::Repeatedly};
constexpr OptionValue output{.read = readOutput, .show = text<&O::aoiOutput>.show};
constexpr OptionValue saliencyFile{.read = readSaliencyFile, .show = text<&O::saliencyFile>.show};
constexpr OptionValue saliencyNumbers{.read = readNumbers, .show = shownNumbers};

constexpr OptionRow aoiOptionRows[] = {
    {Text("aois"), Text("FILE"), Text("areas of interest: .aoi, .csv, .json or a label image .png; repeatable"),
     &texts<&O::aoiFiles>, Reported::Never},
    {Text("generate-aois"), Text("KIND"), Text("of %1; repeatable, after fixations and clusters, before statistics"),
     &generated},
    {Text("regions"), Text("NAME=VALUE"), Text("how regions are found, such as source=fixations; repeatable"),
     &regions},
    {Text("aois-out"), Text("FILE"), Text("all areas as .aoi, .csv or .json"), &output, Reported::Never},
    {Text("aoi-images"), Text("DIR"), Text("folder for a cut of the background for each area of interest"),
     &text<&O::aoiImageFolder>, Reported::Never},
    {Text("saliency"), Text("METHOD"), Text("saliency of the picture, of %1"), &oneOf<&O::saliency, saliencyMethods>},
    {Text("saliency-out"), Text("FILE.tiff"), Text("the saliency as 32-bit floating point numbers"), &saliencyFile,
     Reported::Never},
    {Text("saliency-parameters"), Text("A,B,C,D"), Text("the four numbers of the method; 0 is its default"),
     &saliencyNumbers},
};

bool isOfSaliency(const AoiOptions &options)
{
    return options.generatedAois.contains(GeneratedAois::Regions) &&
           options.regions.source >= RegionSource::SaliencyItti;
}

} // namespace

OptionGroup aoiOptions()
{
    return {Text("Areas of interest"), aoiOptionRows};
}

std::optional<QString> aoiComplaint(const AoiOptions &options)
{
    if (!options.givenRegions.isEmpty() && !options.generatedAois.contains(GeneratedAois::Regions))
        return QStringLiteral("--regions: only with --generate-aois regions");
    if (options.saliency && options.saliencyFile.isEmpty())
        return QStringLiteral("--saliency: needs --saliency-out");
    if (!options.saliency && !options.saliencyFile.isEmpty())
        return QStringLiteral("--saliency-out: needs --saliency");
    if (options.saliencyNumbers && !options.saliency && !isOfSaliency(options))
        return QStringLiteral("--saliency-parameters: only with --saliency or regions of a saliency");
    return std::nullopt;
}
