#include "commands/ParameterCommand.h"

#include "base/TextFormat.h"

QString commandValueText(const QVariant &stored)
{
    if (stored.typeId() == QMetaType::Double)
        return text::general6(stored.toDouble());
    if (stored.typeId() == QMetaType::Bool)
        return QString::number(stored.toInt());
    return stored.toString();
}

QString commandText(QLatin1StringView format, const QVariant &stored)
{
    const QString text(format);
    if (text.contains(QLatin1StringView("%1")))
        return text.arg(commandValueText(stored));
    return stored.typeId() == QMetaType::QString ? text + stored.toString() : text;
}
