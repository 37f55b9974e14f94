// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "batch/Suggestion.h"

#include <QList>

#include <functional>
#include <variant>

/// Reads a command line by the rows of its options, from left to right, until the first error. A value follows its
/// option as the next argument or after "="; "--" ends the options. A second value for an option that takes one is
/// refused.
template <class Options>
class OptionParser {
public:
    using Complaint = std::optional<UsageError>;

    struct Rules {
        QList<OptionGroupOf<Options>> groups;
        std::function<Complaint(const QString &argument, Options &options)> takeInput; ///< of what is no option
        std::function<bool(const Options &options)> isAnswered;     ///< help and the like: the rest is not read
        std::function<Complaint(const Options &options)> complaint; ///< about all of them, at the end
    };

    OptionParser(QStringList arguments, Rules rules) : m_arguments(std::move(arguments)), m_rules(std::move(rules))
    {
        for (const OptionGroupOf<Options> &group : m_rules.groups)
            m_rows.append(QList<OptionRowOf<Options>>(group.rows.begin(), group.rows.end()));
    }

    std::variant<Options, UsageError> run()
    {
        while (m_next < m_arguments.size()) {
            if (const Complaint complaint = takeArgument(m_arguments[m_next++]))
                return *complaint;
            if (m_rules.isAnswered(m_options))
                return m_options;
        }
        if (const Complaint complaint = m_rules.complaint(m_options))
            return *complaint;
        return m_options;
    }

private:
    Complaint takeArgument(const QString &argument)
    {
        const bool isInput = m_onlyInputs || argument == u'-' || !argument.startsWith(u'-');
        if (isInput)
            return m_rules.takeInput(argument, m_options);
        if (argument == QLatin1StringView("--")) {
            m_onlyInputs = true;
            return {};
        }
        return takeOption(argument);
    }

    Complaint takeOption(const QString &argument)
    {
        const QString name = argument.section(u'=', 0, 0);
        QStringList known;
        for (const OptionRowOf<Options> &row : m_rows)
            known << QStringLiteral("--%1").arg(row.name);
        const qsizetype place = known.indexOf(name);
        if (place < 0)
            return UsageError{QStringLiteral("unknown option %1").arg(name) + didYouMean(name, known)};
        const OptionRowOf<Options> &row = m_rows[place];
        if (row.value->given == Given::Once && m_seen.contains(name))
            return UsageError{QStringLiteral("--%1: given twice").arg(row.name)};
        m_seen << name;
        return row.placeholder.isEmpty() ? takeFlag(row, argument) : takeValueOf(row, argument);
    }

    Complaint takeFlag(const OptionRowOf<Options> &row, const QString &argument)
    {
        if (argument.contains(u'='))
            return UsageError{QStringLiteral("--%1: takes no value").arg(row.name)};
        return take(row, {});
    }

    Complaint takeValueOf(const OptionRowOf<Options> &row, const QString &argument)
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

    Complaint take(const OptionRowOf<Options> &row, const QString &value)
    {
        if (const auto wrong = row.value->read(value, m_options))
            return UsageError{QStringLiteral("--%1 %2: %3").arg(row.name, wrong->value, wrong->reason)};
        return {};
    }

    const QStringList m_arguments;
    const Rules m_rules;
    QList<OptionRowOf<Options>> m_rows;
    qsizetype m_next = 0;
    bool m_onlyInputs = false;
    QStringList m_seen;
    Options m_options;
};
