// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"

namespace optionhelp {

constexpr qsizetype column = 28; ///< of the help behind the option
constexpr qsizetype lineEnd = 98;

/// The text from the help column on, broken between words.
QString wrapped(const QString &text);

/// A name that reaches into the help column has a line of its own.
QString line(const QString &call, const QString &help);

/// The options of a subject, a line or more each.
template <class Options>
QString ofGroup(const OptionGroupOf<Options> &group)
{
    QString lines;
    for (const OptionRowOf<Options> &row : group.rows) {
        const QString help(row.help);
        const bool hasWords = row.value->words;
        lines += line(QStringLiteral("  --%1 %2").arg(row.name, row.placeholder),
                      hasWords ? help.arg(row.value->words().join(QLatin1StringView(", "))) : help);
    }
    return u'\n' + group.subject + QLatin1StringView(":\n") + lines;
}

} // namespace optionhelp
