// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/InputOptions.h"

#include "batch/BatchOptions.h"
#include "batch/OptionValues.h"

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::WholeNumber, optionvalues::text, optionvalues::wholeNumber;

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

std::optional<WrongValue> readSize(const QString &value, BatchOptions &options)
{
    const QStringList parts = value.split(u',');
    StimulusSize size;
    int *const sizes[] = {&size.widthPx, &size.heightPx, &size.widthMm, &size.heightMm};
    if (parts.size() != std::ssize(sizes))
        return WrongValue{value, QStringLiteral("not of the form WPX,HPX,WMM,HMM: width and height in pixels, then in "
                                                "millimetres")};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        constexpr int most = 5'000'000;
        const WholeNumber number = wholeNumber(parts[i], 1, most);
        if (number.problem)
            return number.problem;
        *sizes[i] = number.number;
    }
    options.millimetres.size = size;
    return std::nullopt;
}

QString shownSize(const BatchOptions &options)
{
    const StimulusSize &size = options.millimetres.size;
    return QStringLiteral("%1,%2,%3,%4").arg(size.widthPx).arg(size.heightPx).arg(size.widthMm).arg(size.heightMm);
}

std::optional<WrongValue> readMillimetreImage(const QString &value, BatchOptions &options)
{
    options.millimetres.imagePath = value;
    return std::nullopt;
}

constexpr OptionValue millimetreSize{.read = readSize, .show = shownSize};
constexpr OptionValue millimetreImage{
    .read = readMillimetreImage, .show = [](const BatchOptions &options) { return options.millimetres.imagePath; }};
constexpr OptionValue timeFrame{.read = readTime, .show = shownTime};

constexpr OptionRow inputOptionRows[] = {
    {Text("recipe"), Text("FILE"),
     Text("does the steps that the window saved, with its recordings or with those given here"), &text<&O::recipeFile>},
    {Text("background"), Text("FILE"), Text("picture behind the drawing"), &text<&O::background>, Reported::Never},
    {Text("time"), Text("START:END"), Text("time frame in ms (default: 0 to the longest duration)"), &timeFrame},
    {Text("millimetre-image"), Text("FILE"),
     Text("picture of the recordings in millimetres, which are those that end in .txt"), &millimetreImage},
    {Text("millimetre-size"), Text("WPX,HPX,WMM,HMM"), Text("its width and height in pixels, then in millimetres"),
     &millimetreSize},
    {Text("layout"), Text("FILE|NAME|auto"),
     Text("read recordings that do not end in .data as tables of this layout, see vistrum-import"), &text<&O::layout>},
};

} // namespace

OptionGroup inputOptions()
{
    return {Text("Input"), inputOptionRows};
}

std::optional<QString> inputComplaint(const InputOptions &options)
{
    const bool hasImage = !options.millimetres.imagePath.isEmpty();
    const bool hasSize = options.millimetres.size.isComplete();
    if (hasImage == hasSize)
        return std::nullopt;
    return hasImage ? QStringLiteral("--millimetre-image: needs --millimetre-size, too")
                    : QStringLiteral("--millimetre-size: needs --millimetre-image, too");
}
