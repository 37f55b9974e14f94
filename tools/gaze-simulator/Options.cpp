// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/Options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <limits>

namespace {

struct NumberOption {
    const char *name;
    const char *unit;
    const char *help;
    double SimulationParameters::*member;
    double least;
    double greatest;
};

using P = SimulationParameters;
constexpr NumberOption numberOptions[] = {
    {"rate", "HZ", "Samples per second", &P::rateHz, 1, 100000},
    {"duration", "S", "Length of the recording", &P::durationS, 0.001, 1e8},
    {"pixels-per-degree", "PX", "Pixels of the picture per degree of visual angle", &P::pixelsPerDegree, 1, 1000},
    {"fixation-duration-mean", "MS", "Mean duration of fixations", &P::fixationMeanMs, 20, 1e9},
    {"fixation-duration-spread", "LOG", "Standard deviation of its logarithm", &P::fixationSpread, 0, 2},
    {"saccade-spread", "LOG", "Standard deviation of the logarithm of saccade durations around the main sequence",
     &P::saccadeSpread, 0, 1},
    {"microsaccade-rate", "PER_S", "Microsaccades per second of fixation", &P::microsaccadesPerS, 0, 10},
    {"drift", "DEG_PER_S", "Standard deviation of the drift speed", &P::driftDegPerS, 0, 100},
    {"tremor", "DEG", "Standard deviation of the tremor", &P::tremorDeg, 0, 10},
    {"blink-rate", "PER_MIN", "Blinks per minute", &P::blinksPerMin, 0, 100},
    {"blink-duration", "MS", "Mean duration of blinks", &P::blinkMeanMs, 1, 1e6},
    {"lid-artefact", "MS", "Time before and after a blink in which the lid spoils valid samples", &P::lidArtefactMs, 0,
     200},
    {"loss-rate", "PER_MIN", "Tracking losses per minute", &P::lossesPerMin, 0, 600},
    {"loss-duration", "MS", "Mean duration of losses", &P::lossMeanMs, 1, 1e6},
    {"noise", "DEG", "Standard deviation of the measurement noise", &P::noiseDeg, 0, 10},
    {"eye-offset", "DEG", "Horizontal distance between the gaze of the two eyes", &P::eyeOffsetDeg, -10, 10},
    {"pupil", "PX", "Mean pupil width in pixels of the tracker's camera", &P::pupilPx, 1, 1000},
};

constexpr const char *description = R"(Makes recordings of simulated gaze: NAME.data and NAME.set.

Fixations, drift, tremor, saccades on the main sequence, blinks, tracking losses
and noise of two eyes, with the gaze drawn to what stands out in the picture.
The same options give the same bytes.

Examples:
  gaze-simulator --make-stimulus meadow.png anna
      A picture and ten seconds of somebody looking at it.
  gaze-simulator --image photo.jpg --seed 7 --rate 1000 --truth --subject P07 --property age=31 p07
      Another person, another picture, with the true event of each sample in p07.labels.csv.
  gaze-simulator --duration 600 --noise 0.5 --loss-rate 20 --loss-duration 800 poor
      A poor recording without a picture.
  gaze-simulator --rate 1000 --duration 15000 big
      About 1 GB to measure speed with.

Exit status: 0 all written, 1 a file cannot be read or written, 2 wrong options.)";

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

void addNumberOptions(QCommandLineParser &parser)
{
    const SimulationParameters defaults;
    for (const NumberOption &option : numberOptions) {
        const QString initial = QString::number(defaults.*option.member);
        const QString help =
            QStringLiteral("%1, %2 to %3. Default: %4.")
                .arg(latin1(option.help), QString::number(option.least), QString::number(option.greatest), initial);
        parser.addOption({latin1(option.name), help, latin1(option.unit), initial});
    }
}

void addTextOptions(QCommandLineParser &parser)
{
    const SimulationParameters defaults;
    const auto add = [&parser](const char *name, const char *help, const char *value, const QString &initial = {}) {
        const QString known = initial.isEmpty() ? QString() : QStringLiteral(" Default: %1.").arg(initial);
        parser.addOption({latin1(name), latin1(help) + known, latin1(value), initial});
    };
    add("image", "The picture that is looked at, PNG or JPG.", "FILE");
    add("make-stimulus", "Make a picture (PNG); it is looked at. Without NAME only the picture is made.", "FILE.png");
    add("size", "Size of a made picture, or of the screen where there is no picture.", "WxH",
        QStringLiteral("1280x800"));
    add("seed", "Number that determines everything random.", "N", QString::number(defaults.seed));
    add("clock-start", "Clock of the recorder at the first sample.", "MS", QString::number(defaults.clockStartMs));
    add("eyes", "Eyes that are recorded: both, left or right.", "EYES", QStringLiteral("both"));
    add("subject", "Subject id; the recording's name if not given.", "ID");
    add("dominant", "Dominant eye: left or right.", "EYE", QStringLiteral("right"));
    add("group", "Group of the subject.", "NAME", QStringLiteral("None"));
    add("property", "Further line of the .set file; repeatable.", "KEY=VALUE");
    parser.addOption(
        {QStringLiteral("truth"), QStringLiteral("Also write NAME.labels.csv: sample,time,label with label "
                                                 "1 fixation, 2 saccade, 5 blink, 6 lost.")});
}

/// Reads the values in turn and keeps the first fault.
class OptionReader {
public:
    explicit OptionReader(const QCommandLineParser &parser) : m_parser(parser) {}

    const QString &fault() const { return m_fault; }

    void setFault(const QString &fault)
    {
        if (m_fault.isEmpty())
            m_fault = fault;
    }

    QString text(const char *name) const { return m_parser.value(latin1(name)); }

    void number(const NumberOption &option, SimulationParameters &parameters)
    {
        bool ok = false;
        const double value = text(option.name).toDouble(&ok);
        if (ok && value >= option.least && value <= option.greatest)
            parameters.*option.member = value;
        else
            refuse(option.name, QStringLiteral("a number from %1 to %2")
                                    .arg(QString::number(option.least), QString::number(option.greatest)));
    }

    quint64 wholeNumber(const char *name, quint64 greatest)
    {
        bool ok = false;
        const quint64 value = text(name).toULongLong(&ok);
        if (!ok || value > greatest)
            refuse(name, QStringLiteral("a whole number from 0 to %1").arg(greatest));
        return value;
    }

    /// The position of the value in the list.
    qsizetype choice(const char *name, const QStringList &values)
    {
        const qsizetype found = values.indexOf(text(name));
        if (found < 0)
            refuse(name, values.join(QStringLiteral(" or ")));
        return std::max<qsizetype>(found, 0);
    }

    QSize size(const char *name)
    {
        constexpr int greatest = 16384;
        const QRegularExpression form(QStringLiteral("^([1-9]\\d{0,4})x([1-9]\\d{0,4})$"));
        const QRegularExpressionMatch match = form.match(text(name));
        const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
        if (!match.hasMatch() || size.width() > greatest || size.height() > greatest)
            refuse(name, QStringLiteral("WIDTHxHEIGHT, each from 1 to %1").arg(greatest));
        return size;
    }

private:
    void refuse(const char *name, const QString &wanted)
    {
        setFault(QStringLiteral("--%1 needs %2, not \"%3\".").arg(latin1(name), wanted, text(name)));
    }

    const QCommandLineParser &m_parser;
    QString m_fault;
};

SimulationParameters readParameters(OptionReader &reader)
{
    constexpr quint64 latestClockMs = 1'000'000'000'000'000;
    constexpr std::array eyes = {RecordedEyes::Both, RecordedEyes::Left, RecordedEyes::Right};
    SimulationParameters parameters;
    for (const NumberOption &option : numberOptions)
        reader.number(option, parameters);
    parameters.seed = reader.wholeNumber("seed", std::numeric_limits<quint64>::max());
    parameters.clockStartMs = static_cast<qint64>(reader.wholeNumber("clock-start", latestClockMs));
    const qsizetype eye =
        reader.choice("eyes", {QStringLiteral("both"), QStringLiteral("left"), QStringLiteral("right")});
    parameters.eyes = eyes[static_cast<size_t>(eye)];
    return parameters;
}

SetFileEntries readEntries(OptionReader &reader, const QCommandLineParser &parser, const QString &name)
{
    SetFileEntries entries;
    const QString subject = reader.text("subject");
    entries.subjectId = subject.isEmpty() ? name.section(u'/', -1) : subject;
    const QStringList eyes = {QStringLiteral("left"), QStringLiteral("right")};
    entries.dominantEye = eyes[reader.choice("dominant", eyes)];
    entries.group = reader.text("group");
    for (const QString &property : parser.values(QStringLiteral("property")))
        entries.properties << propertyFromText(property);
    reader.setFault(setFileFault(entries));
    return entries;
}

/// Which files are meant, and that they can be meant together.
void readFiles(OptionReader &reader, const QCommandLineParser &parser, Options &options)
{
    const QStringList names = parser.positionalArguments();
    options.name = names.value(0);
    if (options.name.endsWith(QStringLiteral(".data")))
        options.name.chop(5);
    options.imagePath = reader.text("image");
    options.stimulusPath = reader.text("make-stimulus");
    if (names.size() > 1)
        reader.setFault(QStringLiteral("one NAME is enough; \"%1\" is a second one.").arg(names[1]));
    if (options.name.isEmpty() && options.stimulusPath.isEmpty())
        reader.setFault(QStringLiteral("a NAME for the recording is missing."));
    if (options.name.endsWith(u'/'))
        reader.setFault(QStringLiteral("\"%1\" is a folder; add a name for the recording.").arg(options.name));
    if (!options.imagePath.isEmpty() && !options.stimulusPath.isEmpty())
        reader.setFault(QStringLiteral("--image and --make-stimulus exclude each other; give one of them."));
    if (!options.imagePath.isEmpty() && parser.isSet(QStringLiteral("size")))
        reader.setFault(QStringLiteral("--size does not go with --image; the picture has its own size."));
    if (!options.stimulusPath.isEmpty() && !options.stimulusPath.endsWith(QStringLiteral(".png"), Qt::CaseInsensitive))
        reader.setFault(
            QStringLiteral("--make-stimulus writes PNG; let \"%1\" end with .png.").arg(options.stimulusPath));
}

} // namespace

std::variant<Options, HelpText, UsageFault> parseOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(latin1(description));
    parser.addPositionalArgument(QStringLiteral("NAME"), QStringLiteral("The recording, a path without extension."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    addTextOptions(parser);
    addNumberOptions(parser);
    if (!parser.parse(arguments))
        return UsageFault{parser.errorText()};
    if (parser.isSet(help))
        return HelpText{parser.helpText()};
    if (parser.isSet(version))
        return HelpText{QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n'};

    OptionReader reader(parser);
    Options options;
    readFiles(reader, parser, options);
    options.canvas = reader.size("size");
    options.parameters = readParameters(reader);
    if (options.parameters.durationS * options.parameters.rateHz < 1)
        reader.setFault(QStringLiteral("--duration is too short for a single sample; choose 1 / rate or more."));
    options.entries = readEntries(reader, parser, options.name);
    if (parser.isSet(QStringLiteral("truth")))
        options.truth = recording::Truth::Write;
    if (!reader.fault().isEmpty())
        return UsageFault{reader.fault()};
    return options;
}
