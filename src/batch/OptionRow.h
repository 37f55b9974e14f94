#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <optional>
#include <span>

struct BatchOptions;

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
struct OptionValue {
    std::optional<WrongValue> (*read)(const QString &value, BatchOptions &options); ///< a flag gets an empty value
    QString (*show)(const BatchOptions &options); ///< as the report has it; null where there is nothing to tell
    QStringList (*words)() = nullptr;             ///< that the option takes: they stand in place of "%1" in its help
    Given given = Given::Once;
    EmptyValue empty = EmptyValue::Refused;
};

/// One option of the command line: all that the parser, the help and the report know of it.
struct OptionRow {
    QLatin1StringView name;             ///< without the dashes
    QLatin1StringView placeholder;      ///< of the value; empty where the option takes none
    QLatin1StringView help = {};        ///< one line
    const OptionValue *value = nullptr; ///< null: known, but this version cannot do it
    Reported reported = Reported::IfGiven;
};

/// The options of one subject, as the help groups them.
struct OptionGroup {
    QLatin1StringView subject;
    std::span<const OptionRow> rows;
};
