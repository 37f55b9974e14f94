// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/TrackerOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace {

constexpr const char *description =
    R"(Plays an eye tracker's server on the loopback address: recording without hardware.

It answers the requests of one client at a time, pushes frames, calibrates, and closes a connection that has missed three
heartbeats. Frames come from a recording, over and over, or from a simulated subject. It ends with Ctrl+C.

Examples:
  tracker-simulator
      A subject at 60 frames a second on port 6555.
  tracker-simulator --recording p01.data --rate 250
      Replays a recording.
  tracker-simulator --rate 1000 --hostile torn,merged,wrong-json --at 5000=close
      A server that behaves badly, and closes after 5000 frames.

Exit status: 0 ended, 1 a file cannot be read or the port is taken, 2 wrong options.)";

struct EventWord {
    const char *word;
    PlannedEvent::Kind kind;
    int greatest; ///< value, from 0; below 0: the word takes none
};

constexpr EventWord eventWords[] = {
    {"state", PlannedEvent::Kind::State, 4},           {"screen", PlannedEvent::Kind::Screen, 100},
    {"silence", PlannedEvent::Kind::Silence, -1},      {"close", PlannedEvent::Kind::Close, -1},
    {"restart", PlannedEvent::Kind::Restart, 600'000}, {"stop", PlannedEvent::Kind::Stop, -1}};

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

/// Reads the values in turn and keeps the first fault.
class ValueReader {
public:
    explicit ValueReader(const QCommandLineParser &parser) : m_parser(parser) {}

    const QString &fault() const { return m_fault; }
    QString text(const char *name) const { return m_parser.value(latin1(name)); }

    qint64 whole(const char *name, qint64 least, qint64 greatest)
    {
        bool ok = false;
        const qint64 value = text(name).toLongLong(&ok);
        if (!ok || value < least || value > greatest)
            refuse(name, text(name), QStringLiteral("a whole number from %1 to %2").arg(least).arg(greatest));
        return std::clamp(value, least, greatest);
    }

    double rate(const char *name)
    {
        constexpr double greatest = 1000;
        bool ok = false;
        const double value = text(name).toDouble(&ok);
        if (ok && value >= 1 && value <= greatest)
            return value;
        refuse(name, text(name), QStringLiteral("a number from 1 to 1000"));
        return greatest;
    }

    CalibrationOutcome outcome(const char *name)
    {
        const QString word = text(name);
        if (word != QLatin1StringView("good") && word != QLatin1StringView("failed"))
            refuse(name, word, QStringLiteral("good or failed"));
        return word == QLatin1StringView("failed") ? CalibrationOutcome::Failed : CalibrationOutcome::Good;
    }

    Hostilities hostilities(const char *name)
    {
        Hostilities set = 0;
        for (const QString &word : text(name).split(u',', Qt::SkipEmptyParts)) {
            const qsizetype bit = hostilityNames().indexOf(word);
            if (bit < 0)
                refuse(name, word, QStringLiteral("some of ") + hostilityNames().join(u','));
            else
                set |= 1U << bit;
        }
        return set;
    }

    QList<PlannedEvent> events(const char *name)
    {
        QList<PlannedEvent> events;
        for (const QString &value : m_parser.values(latin1(name))) {
            if (const auto event = eventOf(value))
                events << *event;
            else
                refuse(name, value, QStringLiteral("FRAME=EVENT, such as 500=close"));
        }
        std::ranges::stable_sort(events, {}, &PlannedEvent::frame);
        return events;
    }

private:
    static std::optional<PlannedEvent> eventOf(const QString &text)
    {
        bool isNumber = false;
        const qint64 frame = text.section(u'=', 0, 0).toLongLong(&isNumber);
        const QString word = text.section(u'=', 1).section(u':', 0, 0);
        const auto *const known = std::ranges::find_if(
            eventWords, [&word](const EventWord &it) { return word == QLatin1StringView(it.word); });
        if (!isNumber || frame < 0 || known == std::end(eventWords))
            return {};
        const QString value = text.section(u':', 1);
        bool hasValue = false;
        const int number = value.toInt(&hasValue);
        const bool isRight =
            known->greatest < 0 ? value.isEmpty() : hasValue && number >= 0 && number <= known->greatest;
        if (!isRight)
            return {};
        return PlannedEvent{.frame = frame, .kind = known->kind, .value = number};
    }

    void refuse(const char *name, const QString &value, const QString &wanted)
    {
        if (m_fault.isEmpty())
            m_fault = QStringLiteral("--%1 needs %2, not \"%3\".").arg(latin1(name), wanted, value);
    }

    const QCommandLineParser &m_parser;
    QString m_fault;
};

void addOptions(QCommandLineParser &parser)
{
    const auto add = [&parser](const char *name, const char *help, const char *value, const char *initial) {
        parser.addOption({latin1(name), latin1(help), latin1(value), latin1(initial)});
    };
    add("port", "Port of the loopback address; 0 takes any free one, which is told. Default: 6555.", "N", "6555");
    add("rate", "Frames per second, 1 to 1000. Default: 60.", "HZ", "60");
    add("recording", "Recording to replay; without one a subject is simulated.", "FILE.data", "");
    add("seed", "Number that determines the subject and all that is random. Default: 1.", "N", "1");
    add("state", "Tracker state, 0 to 4: connected, not connected, bad firmware, no USB 3, no stream. Default: 0.", "N",
        "0");
    add("calibration", "What calibrations come to: good or failed. Default: good.", "OUTCOME", "good");
    add("heartbeat", "Interval that clients have to keep. Default: 3000.", "MS", "3000");
    add("hostile",
        "Ways to behave badly, with commas: torn, merged, delayed, wrong-json, unknown-codes, braces, noise, flood.",
        "LIST", "");
    parser.addOption(
        {QStringLiteral("at"),
         QStringLiteral("What happens after so many frames: state:N, screen:N, silence, close, restart:MS or stop; "
                        "repeatable. Frames count anew on each connection."),
         QStringLiteral("FRAME=EVENT")});
}

} // namespace

std::variant<TrackerOptions, TrackerHelp, TrackerUsageFault> parseTrackerOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(latin1(description));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    addOptions(parser);
    if (!parser.parse(arguments))
        return TrackerUsageFault{parser.errorText()};
    if (parser.isSet(help))
        return TrackerHelp{parser.helpText()};
    if (parser.isSet(version))
        return TrackerHelp{QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n'};
    if (!parser.positionalArguments().isEmpty())
        return TrackerUsageFault{
            QStringLiteral("\"%1\" belongs to no option.").arg(parser.positionalArguments().constFirst())};

    ValueReader reader(parser);
    TrackerOptions options;
    options.port = static_cast<quint16>(reader.whole("port", 0, 65535));
    options.rateHz = reader.rate("rate");
    options.recordingPath = reader.text("recording");
    options.seed = static_cast<quint64>(reader.whole("seed", 0, std::numeric_limits<qint64>::max()));
    options.state.trackerState = static_cast<int>(reader.whole("state", 0, 4));
    options.state.frameRate = static_cast<int>(options.rateHz);
    options.state.heartbeatIntervalMs = static_cast<int>(reader.whole("heartbeat", 10, 3'600'000));
    options.state.outcome = reader.outcome("calibration");
    options.hostilities = reader.hostilities("hostile");
    options.events = reader.events("at");
    if (!reader.fault().isEmpty())
        return TrackerUsageFault{reader.fault()};
    return options;
}
