#include "batch/BatchOptions.h"

#include "batch/OptionTable.h"
#include "batch/Suggestion.h"

namespace {

using Complaint = std::optional<UsageError>;

QList<OptionRow> allOptions()
{
    QList<OptionRow> rows;
    for (const OptionGroup &group : optionGroups())
        rows.append(QList<OptionRow>(group.rows.begin(), group.rows.end()));
    return rows;
}

class Parser {
public:
    explicit Parser(const QStringList &arguments) : m_arguments(arguments) {}

    std::variant<BatchOptions, UsageError> run()
    {
        while (m_next < m_arguments.size()) {
            if (const Complaint complaint = takeArgument(m_arguments[m_next++]))
                return *complaint;
            if (m_options.help || m_options.version || m_options.keys)
                return m_options;
        }
        if (m_options.recordings.isEmpty() && m_options.recipeFile.isEmpty())
            return UsageError{QStringLiteral("no recording given")};
        if (m_options.velocityUnit && m_options.detector != BatchOptions::Detector::Velocity)
            return UsageError{QStringLiteral("--velocity-unit: only with --detector velocity")};
        if (const auto complaint = recipeComplaint())
            return UsageError{*complaint};
        if (const auto complaint = inputComplaint(m_options))
            return UsageError{*complaint};
        if (const auto complaint = aoiComplaint(m_options))
            return UsageError{*complaint};
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
        QStringList known;
        for (const OptionRow &row : m_rows)
            known << u"--%1"_qs.arg(row.name);
        const qsizetype place = known.indexOf(name);
        if (place < 0)
            return UsageError{QStringLiteral("unknown option %1").arg(name) + didYouMean(name, known)};
        const OptionRow &row = m_rows[place];
        if (!row.value)
            return UsageError{QStringLiteral("--%1: not available in this version").arg(row.name)};
        if (row.value->given == Given::Once && m_seen.contains(name))
            return UsageError{QStringLiteral("--%1: given twice").arg(row.name)};
        m_seen << name;
        return row.placeholder.isEmpty() ? takeFlag(row, argument) : takeValueOf(row, argument);
    }

    Complaint takeFlag(const OptionRow &row, const QString &argument)
    {
        if (argument.contains(u'='))
            return UsageError{QStringLiteral("--%1: takes no value").arg(row.name)};
        return take(row, {});
    }

    Complaint takeValueOf(const OptionRow &row, const QString &argument)
    {
        QString value = argument.section(u'=', 1);
        if (!argument.contains(u'=')) {
            const bool follows =
                m_next < m_arguments.size() && !m_arguments[m_next].startsWith(QLatin1StringView("--"));
            if (!follows)
                return UsageError{QStringLiteral("--%1: needs a value, %2").arg(row.name, row.placeholder)};
            value = m_arguments[m_next++];
        }
        if (value.isEmpty() && row.value->empty == EmptyValue::Refused)
            return UsageError{QStringLiteral("--%1: the value is empty").arg(row.name)};
        return take(row, value);
    }

    Complaint take(const OptionRow &row, const QString &value)
    {
        if (const auto wrong = row.value->read(value, m_options))
            return UsageError{QStringLiteral("--%1 %2: %3").arg(row.name, wrong->value, wrong->reason)};
        return {};
    }

    /// A recipe has its own steps: what else would decide them is no part of its run.
    std::optional<QString> recipeComplaint() const
    {
        const QStringList beside{u"--recipe"_qs,  u"--out"_qs,  u"--report"_qs,
                                 u"--methods"_qs, u"--jobs"_qs, u"--quiet"_qs};
        if (m_options.recipeFile.isEmpty())
            return std::nullopt;
        for (const QString &name : m_seen) {
            if (!beside.contains(name))
                return u"%1: a recipe has its own steps; with --recipe there are only %2"_qs.arg(
                    name, beside.mid(1).join(u", "_qs));
        }
        return std::nullopt;
    }

    const QStringList m_arguments;
    const QList<OptionRow> m_rows = allOptions();
    qsizetype m_next = 0;
    bool m_onlyRecordings = false;
    QStringList m_seen;
    BatchOptions m_options;
};

} // namespace

std::variant<BatchOptions, UsageError> parseBatchOptions(const QStringList &arguments)
{
    return Parser(arguments).run();
}
