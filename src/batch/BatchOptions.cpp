#include "batch/BatchOptions.h"

#include "batch/OptionTable.h"
#include "batch/OptionWords.h"
#include "batch/Suggestion.h"

#include <QFileInfo>

#include <algorithm>

namespace {

using optiontable::Id;
using optiontable::Row;
using optionwords::Word;
using Complaint = std::optional<UsageError>;

constexpr QLatin1StringView imageFormats[] = {QLatin1StringView("png"), QLatin1StringView("svg"),
                                              QLatin1StringView("tiff"), QLatin1StringView("jpg")};

UsageError wrongValue(const Row &row, const QString &value, const QString &reason)
{
    return {QStringLiteral("--%1 %2: %3").arg(row.name, value, reason)};
}

QString didYouMean(const QString &word, const QStringList &known)
{
    const QString nearest = suggestion(word, known);
    return nearest.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(nearest);
}

QStringList optionNames()
{
    QStringList names;
    for (const Row &row : optiontable::rows)
        names << u"--%1"_qs.arg(row.name);
    return names;
}

/// The meaning of a word in a vocabulary.
template <class T, size_t N>
std::variant<T, UsageError> meaningOf(const Row &row, const QString &word, const Word<T> (&vocabulary)[N])
{
    QStringList known;
    for (const Word<T> &each : vocabulary) {
        if (word == each.name) {
            if (!each.meaning)
                return wrongValue(row, word, QStringLiteral("not available in this version"));
            return *each.meaning;
        }
        known << each.name;
    }
    return wrongValue(row, word,
                      QStringLiteral("not one of %1").arg(known.join(QStringLiteral(", "))) + didYouMean(word, known));
}

/// The meanings of a comma-separated list, each once, in the order of the vocabulary.
template <class T, size_t N>
std::variant<QList<T>, UsageError> meaningsOf(const Row &row, const QString &list, const Word<T> (&vocabulary)[N])
{
    QList<T> wanted;
    for (const QString &word : list.split(u',')) {
        const std::variant<T, UsageError> meaning = meaningOf(row, word.trimmed(), vocabulary);
        if (const auto *error = std::get_if<UsageError>(&meaning))
            return *error;
        wanted << std::get<T>(meaning);
    }
    QList<T> ordered;
    for (const Word<T> &each : vocabulary) {
        if (each.meaning && wanted.contains(*each.meaning))
            ordered << *each.meaning;
    }
    return ordered;
}

class Parser {
public:
    explicit Parser(const QStringList &arguments) : m_arguments(arguments) {}

    std::variant<BatchOptions, UsageError> run()
    {
        while (m_next < m_arguments.size()) {
            if (const Complaint complaint = takeArgument(m_arguments[m_next++]))
                return *complaint;
            if (m_options.help || m_options.version)
                return m_options;
        }
        if (m_options.recordings.isEmpty())
            return UsageError{QStringLiteral("no recording given")};
        if (m_options.velocityUnit && m_options.detector != BatchOptions::Detector::Velocity)
            return UsageError{QStringLiteral("--velocity-unit: only with --detector velocity")};
        return m_options;
    }

private:
    Complaint takeArgument(const QString &argument)
    {
        const bool isRecording = m_onlyRecordings || argument == u'-' || !argument.startsWith(u'-');
        if (isRecording)
            return takeRecording(argument);
        if (argument == QLatin1StringView("--")) {
            m_onlyRecordings = true;
            return {};
        }
        return takeOption(argument);
    }

    Complaint takeRecording(const QString &argument)
    {
        if (argument.isEmpty())
            return UsageError{QStringLiteral("a recording has an empty name")};
        m_options.recordings << argument;
        return {};
    }

    Complaint takeOption(const QString &argument)
    {
        const QString name = argument.section(u'=', 0, 0);
        const auto row = std::find_if(optiontable::rows.begin(), optiontable::rows.end(),
                                      [&](const Row &each) { return name == u"--%1"_qs.arg(each.name); });
        if (row == optiontable::rows.end())
            return UsageError{QStringLiteral("unknown option %1").arg(name) + didYouMean(name, optionNames())};
        if (row->id == Id::NotBuilt)
            return UsageError{QStringLiteral("--%1: not available in this version").arg(row->name)};
        if (row->given == optiontable::Given::Once && m_seen.contains(row->id))
            return UsageError{QStringLiteral("--%1: given twice").arg(row->name)};
        m_seen << row->id;
        return row->value.isEmpty() ? takeFlag(*row, argument) : takeValueOf(*row, argument);
    }

    Complaint takeFlag(const Row &row, const QString &argument)
    {
        if (argument.contains(u'='))
            return UsageError{QStringLiteral("--%1: takes no value").arg(row.name)};
        m_options.quiet = m_options.quiet || row.id == Id::Quiet;
        m_options.help = row.id == Id::Help;
        m_options.version = row.id == Id::Version;
        return {};
    }

    Complaint takeValueOf(const Row &row, const QString &argument)
    {
        QString value = argument.section(u'=', 1);
        if (!argument.contains(u'=')) {
            const bool follows =
                m_next < m_arguments.size() && !m_arguments[m_next].startsWith(QLatin1StringView("--"));
            if (!follows)
                return UsageError{QStringLiteral("--%1: needs a value, %2").arg(row.name, row.value)};
            value = m_arguments[m_next++];
        }
        if (value.isEmpty() && row.id != Id::Prefix)
            return UsageError{QStringLiteral("--%1: the value is empty").arg(row.name)};
        return takeValue(row, value);
    }

    Complaint takeValue(const Row &row, const QString &value)
    {
        switch (row.id) {
        case Id::Detector:
            return keep(&BatchOptions::detector, meaningOf(row, value, optionwords::detectors));
        case Id::VelocityUnit:
            return keep(&BatchOptions::velocityUnit, meaningOf(row, value, optionwords::velocityUnits));
        case Id::Calculate:
            return keep(&BatchOptions::calculations, meaningsOf(row, value, optionwords::calculations));
        case Id::Export:
            return keep(&BatchOptions::tables, meaningsOf(row, value, optionwords::tables));
        case Id::Eyes:
            return keep(&BatchOptions::eyes, meaningOf(row, value, optionwords::eyes));
        case Id::Density:
            return takeDensity(row, value);
        case Id::DensityKind:
            return keep(&BatchOptions::densityKind, meaningOf(row, value, optionwords::densityKinds));
        case Id::Set:
            return takeSetting(row, value);
        case Id::Time:
            return takeTime(row, value);
        case Id::Image:
            return takeImage(row, value);
        case Id::OverlapFixations:
            return takeNumber(row, value, 1, &BatchOptions::overlapFixations);
        case Id::OverlapOutliers:
            return takeNumber(row, value, 0, &BatchOptions::overlapOutliers);
        case Id::SaccadeCluster:
            return takeSaccadeCluster(row, value);
        case Id::Jobs:
            return takeJobs(row, value);
        default:
            takeText(row.id, value);
            return {};
        }
    }

    void takeText(Id id, const QString &value)
    {
        if (id == Id::Settings)
            m_options.settingsFiles << value;
        else if (id == Id::Background)
            m_options.background = value;
        else if (id == Id::Aois)
            m_options.aoiFiles << value;
        else if (id == Id::Out)
            m_options.outputFolder = value;
        else if (id == Id::Prefix)
            m_options.prefix = value;
        else if (id == Id::Report)
            m_options.reportFile = value;
    }

    template <class Member, class T>
    Complaint keep(Member BatchOptions::*member, const std::variant<T, UsageError> &read)
    {
        if (const auto *error = std::get_if<UsageError>(&read))
            return *error;
        m_options.*member = std::get<T>(read);
        return {};
    }

    Complaint takeSetting(const Row &row, const QString &value)
    {
        const qsizetype equals = value.indexOf(u'=');
        if (equals < 1)
            return wrongValue(row, value, QStringLiteral("not of the form KEY=VALUE"));
        m_options.settings << BatchOptions::Setting{value.left(equals), value.mid(equals + 1)};
        return {};
    }

    Complaint takeTime(const Row &row, const QString &value)
    {
        const QStringList parts = value.split(u':');
        bool startOk = false;
        bool endOk = false;
        const qint64 startMs = parts.first().toLongLong(&startOk);
        const qint64 endMs = parts.last().toLongLong(&endOk);
        if (parts.size() != 2 || !startOk || !endOk)
            return wrongValue(row, value, QStringLiteral("not of the form START:END in whole milliseconds"));
        if (startMs > endMs)
            return wrongValue(row, value, QStringLiteral("the start is after the end"));
        m_options.time = TimeFrame{startMs, endMs};
        return {};
    }

    Complaint takeImage(const Row &row, const QString &value)
    {
        const QString format = QFileInfo(value).suffix().toLower();
        if (std::find(std::begin(imageFormats), std::end(imageFormats), format) == std::end(imageFormats))
            return wrongValue(row, value, QStringLiteral("the name does not end in .png, .svg, .tiff or .jpg"));
        m_options.images << value;
        return {};
    }

    Complaint takeDensity(const Row &row, const QString &value)
    {
        if (QFileInfo(value).suffix().toLower() != QLatin1StringView("tiff"))
            return wrongValue(row, value, QStringLiteral("the name does not end in .tiff"));
        m_options.densityFile = value;
        return {};
    }

    /// The bounds are those of the panel.
    template <class Number>
    Complaint takeNumber(const Row &row, const QString &value, int least, Number BatchOptions::*member)
    {
        constexpr int most = 500;
        bool ok = false;
        const int number = value.toInt(&ok);
        if (!ok || number < least || number > most)
            return wrongValue(row, value, QStringLiteral("not a whole number from %1 to %2").arg(least).arg(most));
        m_options.*member = number;
        return {};
    }

    Complaint takeSaccadeCluster(const Row &row, const QString &value)
    {
        const auto changed = withAssignment(m_options.saccadeClusters, value);
        if (const auto *problem = std::get_if<QString>(&changed))
            return wrongValue(row, value, *problem);
        m_options.saccadeClusters = std::get<SaccadeClusterOptions>(changed);
        return {};
    }

    Complaint takeJobs(const Row &row, const QString &value)
    {
        bool ok = false;
        const int jobs = value.toInt(&ok);
        if (!ok || jobs < 1)
            return wrongValue(row, value, QStringLiteral("not a whole number from 1 on"));
        m_options.jobs = jobs;
        return {};
    }

    const QStringList m_arguments;
    qsizetype m_next = 0;
    bool m_onlyRecordings = false;
    QList<Id> m_seen;
    BatchOptions m_options;
};

} // namespace

std::variant<BatchOptions, UsageError> parseBatchOptions(const QStringList &arguments)
{
    return Parser(arguments).run();
}
