// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/ParameterCommand.h"

#include "base/TextFormat.h"

namespace {

QString written(bool value)
{
    return QString::number(value ? 1 : 0);
}

QString written(int value)
{
    return QString::number(value);
}

QString written(double value)
{
    return text::general6(value);
}

QString written(const QString &value)
{
    return value;
}

QString written(const QColor &value)
{
    return value.name();
}

} // namespace

QString commandValueText(const ParameterValue &value)
{
    return std::visit([](const auto &plain) { return written(plain); }, value);
}

QString commandText(QLatin1StringView format, const ParameterValue &value)
{
    const QString text(format);
    if (text.contains(QLatin1StringView("%1")))
        return text.arg(commandValueText(value));
    return std::holds_alternative<QColor>(value) ? text + commandValueText(value) : text;
}
