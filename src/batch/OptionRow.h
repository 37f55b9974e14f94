// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <span>

struct BatchOptions;

/// How a terminal program ends.
enum class ExitCode {
    AllDone = 0,
    SomethingFailed = 1, ///< the rest is done
    Usage = 2            ///< nothing was started
};

/// What is wrong with a command line, in one line for the user.
struct UsageError {
    QString text;
};

enum class Given { Once, Repeatedly };
enum class EmptyValue { Refused, Allowed };

/// Whether the report of a run states an option.
enum class Reported {
    Never,   ///< it shapes no result, or the report has it in another place
    IfGiven, ///< where it differs from the default
    Always
};

/// A value that an option cannot take, and why.
struct WrongValue {
    QString value;
    QString reason;
};

/// How an option reads its value and tells it again. `OptionValues.h` has those for the usual kinds of members.
template <class Options>
struct OptionValueOf {
    std::optional<WrongValue> (*read)(const QString &value, Options &options); ///< a flag gets an empty value
    QString (*show)(const Options &options); ///< as the report has it; null where there is nothing to tell
    QStringList (*words)() = nullptr;        ///< that the option takes: they stand in place of "%1" in its help
    Given given = Given::Once;
    EmptyValue empty = EmptyValue::Refused;
};

/// One option of the command line: all that the parser, the help and the report know of it.
template <class Options>
struct OptionRowOf {
    QLatin1StringView name;              ///< without the dashes
    QLatin1StringView placeholder;       ///< of the value; empty where the option takes none
    QLatin1StringView help = {};         ///< one line
    const OptionValueOf<Options> *value; ///< how it is read and told again; each row has one
    Reported reported = Reported::IfGiven;
    /// What uses it: names of options, or of an option and one of its words as in "export transitions", with commas in
    /// between. Without any of them the option has no effect; empty where it always has.
    QLatin1StringView neededBy = {};
};

/// The options of one subject, as the help groups them.
template <class Options>
struct OptionGroupOf {
    QLatin1StringView subject;
    std::span<const OptionRowOf<Options>> rows;
};

/// The options that the report of a run states, by name.
template <class Options>
QMap<QString, QString> reportedOptionsOf(const QList<OptionGroupOf<Options>> &groups, const Options &options)
{
    const Options defaults;
    QMap<QString, QString> reported;
    for (const OptionGroupOf<Options> &group : groups) {
        for (const OptionRowOf<Options> &row : group.rows) {
            if (row.reported == Reported::Never)
                continue;
            const QString text = row.value->show(options);
            const bool stated = row.reported == Reported::Always || text != row.value->show(defaults);
            if (stated && !text.isNull())
                reported.insert(row.name, text);
        }
    }
    return reported;
}

// Of vistrum-batch, which has most of them.
using OptionValue = OptionValueOf<BatchOptions>;
using OptionRow = OptionRowOf<BatchOptions>;
using OptionGroup = OptionGroupOf<BatchOptions>;
