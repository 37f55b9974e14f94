#include "batch/InputOptions.h"

#include "batch/OptionValues.h"

namespace {

using O = InputOptions;
using Text = QLatin1StringView;
using namespace optionvalues;

std::optional<WrongValue> readTime(const QString &value, BatchOptions &options)
{
    const QStringList parts = value.split(u':');
    bool startOk = false;
    bool endOk = false;
    const qint64 startMs = parts.first().toLongLong(&startOk);
    const qint64 endMs = parts.last().toLongLong(&endOk);
    if (parts.size() != 2 || !startOk || !endOk)
        return WrongValue{value, QStringLiteral("not of the form START:END in whole milliseconds")};
    if (startMs > endMs)
        return WrongValue{value, QStringLiteral("the start is after the end")};
    options.time = TimeFrame{startMs, endMs};
    return std::nullopt;
}

QString shownTime(const BatchOptions &options)
{
    return options.time ? QStringLiteral("%1:%2").arg(options.time->startMs).arg(options.time->endMs) : QString();
}

constexpr OptionValue timeFrame{.read = readTime, .show = shownTime};

constexpr OptionRow rows[] = {
    {Text("background"), Text("FILE"), Text("picture behind the drawing"), &text<&O::background>, Reported::Never},
    {Text("time"), Text("START:END"), Text("time frame in ms (default: 0 to the longest duration)"), &timeFrame},
};

} // namespace

OptionGroup inputOptions()
{
    return {Text("Input"), rows};
}
