// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/ModeOptions.h"

namespace modeoptions {

using Option = DrawingOption;

Options plain(std::initializer_list<Option> options)
{
    Options shown;
    for (const Option option : options)
        shown << plainOption(option);
    return shown;
}

ShownOption named(Option option, const char *text, const char *suffix)
{
    return {option, QString::fromLatin1(text), QString::fromLatin1(suffix)};
}

ShownOption threshold(const char *suffix)
{
    ShownOption option = plainOption(Option::Threshold);
    option.suffix = QString::fromLatin1(suffix);
    return option;
}

ShownOption thresholdFrom0(const char *suffix)
{
    ShownOption option = threshold(suffix);
    option.start = 0;
    return option;
}

Options allColors()
{
    return plain({Option::Colors, Option::ColorLeft, Option::ColorRight});
}

Options colorsNamed(const char *dominant, const char *left, const char *right)
{
    Options colors{named(Option::Colors, dominant)};
    if (left)
        colors << named(Option::ColorLeft, left);
    if (right)
        colors << named(Option::ColorRight, right);
    return colors;
}

Options shapes()
{
    return plain({Option::BorderWidth, Option::FillOpacity, Option::BorderType}) + allColors() +
           Options{named(Option::GazePoints, "Show Cluster points")};
}

Options circles()
{
    return plain({Option::Size, Option::DurationDependent});
}

Options clusterShapes()
{
    return shapes() + Options{named(Option::OriginalSize, "Show names")} +
           plain({Option::NameColor, Option::ClusterShare});
}

Options transitions()
{
    return Options{
               named(Option::Size, "Cluster size"),
               {Option::StepSize, QStringLiteral("Maximal line size"), QStringLiteral(" px"), OptionRange{1, 1000}}} +
           colorsNamed("cluster", "to left", "to right") +
           Options{named(Option::GazePoints, "Draw cluster elliptical"), named(Option::OriginalSize, "Show names"),
                   threshold(" trans/min")};
}

Options countHeatmap(const char *maximumSuffix, const char *thresholdSuffix)
{
    constexpr OptionRange counts{0, 1'000'000};
    return plain({Option::Colormap, Option::KernelWidth, Option::KernelSigma}) +
           Options{{Option::Power, QStringLiteral("Absolut maxima"), QString::fromLatin1(maximumSuffix), counts,
                    0}} + // sic
           plain({Option::HeatmapScale}) +
           Options{thresholdFrom0(thresholdSuffix)};
}

Options shareHeatmap(const char *countSuffix, bool percent)
{
    const OptionRange range{0, percent ? 100 : 1'000'000};
    const QString suffix = QString::fromLatin1(percent ? " %" : countSuffix);
    return plain({Option::Colormap, Option::KernelWidth, Option::KernelSigma}) +
           Options{named(Option::AngleStar, "Selection"),
                   named(Option::DurationArcs, "Duration"),
                   named(Option::LengthArcs, "only Fixations in AOIs"),
                   {Option::Power, QStringLiteral("Absolut maxima"), suffix, range, 0}, // sic
                   {Option::Threshold, QStringLiteral("Threshold"), suffix, range, 0}} +
           plain({Option::PercentMode});
}

Options shadowMap()
{
    return plain({Option::Power, Option::ShadowTransparency, Option::KernelWidth, Option::KernelSigma});
}

Options chart()
{
    constexpr OptionRange window{10, 1'000'000'000};
    return {{Option::Power, QStringLiteral("Time window"), QStringLiteral(" ms"), window, 1000},
            named(Option::OriginalSize, "Use curves"),
            named(Option::GazePoints, "Use splines"),
            named(Option::TransitionsOnly, "Lines only")};
}

ShownOption chartGroups()
{
    return named(Option::LineSizeAbsolute, "Use groupes"); // sic
}

} // namespace modeoptions
