// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/MethodsRecord.h"

/// Numbers, counts and lists as a paper writes them.
namespace methodswords {

/// Four digits that count, without exponent.
QString number(double value);

/// "1 recording", "12 recordings".
QString counted(qsizetype count, const char *noun);

QString wasOrWere(qsizetype count);

/// "a", "a and b", "a, b and c".
QString listed(const QStringList &items);

/// "250 Hz", or "250 Hz (median; 249 to 251 Hz)" where the ends differ as they are written.
QString spread(const MethodsRange &range, const char *unit = "");

/// "both eyes, each by itself", "the left eye" and so on.
QString eyesText(EyeMode eyes);

/// The text with a backslash before what Markdown would take for its own signs; brackets stay, since the text asks for
/// what is to be filled in by them, and are no links without an address behind them.
QString markdownEscaped(const QString &text);

} // namespace methodswords
