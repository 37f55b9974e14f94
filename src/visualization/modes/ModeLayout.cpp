#include "visualization/modes/ModeLayout.h"

#include "visualization/modes/VisualizationKinds.h"
#include "visualization/parameters/VisualizationParameters.h"

namespace {

using Option = DrawingOption;
using Layout = QList<ShownOption>;

enum Kind { GazePoints, Fixations, Clusters, Saccades };

constexpr int customColormap = 5;

// The names and ranges of options in the state that every mode starts from.
const QHash<Option, ShownOption> &plainOptions()
{
    static const QHash<Option, ShownOption> options = [] {
        QHash<Option, ShownOption> table;
        const Layout rows{
            {Option::Size, QStringLiteral("Sizefactor")},
            {Option::StepSize, QStringLiteral("Step size"), QString(), OptionRange{1, 1000}},
            {Option::ColorLeft, QStringLiteral("left")},
            {Option::ColorRight, QStringLiteral("right")},
            {Option::Colors, QStringLiteral("dominant")},
            {Option::GazePoints, QStringLiteral("Show Gazepoints")},
            {Option::OriginalSize, QStringLiteral("Original size")},
            {Option::TransitionsOnly, QStringLiteral("Transitions only")},
            {Option::LineSizeAbsolute, QStringLiteral("Line size absolute")},
            {Option::Power, QStringLiteral("Shadow power"), QStringLiteral(" /100 -> exponent"), OptionRange{10, 100}},
            {Option::Threshold, QStringLiteral("Threshold"), QString(), OptionRange{0, 10'000'000}},
            {Option::AngleStar, QStringLiteral("Anglestar")},
            {Option::LengthArcs, QStringLiteral("Length")},
        };
        for (const ShownOption &row : rows)
            table[row.option] = row;
        return table;
    }();
    return options;
}

ShownOption named(Option option, const char *text, const char *suffix = "")
{
    return {option, QString::fromLatin1(text), QString::fromLatin1(suffix)};
}

Layout plain(std::initializer_list<Option> options)
{
    Layout layout;
    for (const Option option : options)
        layout << plainOption(option);
    return layout;
}

ShownOption threshold(const char *suffix)
{
    ShownOption option = plainOption(Option::Threshold);
    option.suffix = QString::fromLatin1(suffix);
    return option;
}

Layout allColors()
{
    return plain({Option::Colors, Option::ColorLeft, Option::ColorRight});
}

Layout colorsNamed(const char *dominant, const char *left = nullptr, const char *right = nullptr)
{
    Layout colors{named(Option::Colors, dominant)};
    if (left)
        colors << named(Option::ColorLeft, left);
    if (right)
        colors << named(Option::ColorRight, right);
    return colors;
}

/// A heatmap whose maximum and threshold are counts of the data.
Layout countHeatmap(const char *maximumSuffix, const char *thresholdSuffix)
{
    constexpr OptionRange counts{0, 1'000'000};
    return plain({Option::Colormap, Option::KernelWidth, Option::KernelSigma}) +
           Layout{
               {Option::Power, QStringLiteral("Absolut maxima"), QString::fromLatin1(maximumSuffix), counts}} + // sic
           plain({Option::HeatmapScale}) +
           Layout{threshold(thresholdSuffix)};
}

/// A heatmap of fixations or clusters. Counts and percentages are so different that both numbers start anew at 0.
Layout shareHeatmap(const QString &countSuffix, bool percent)
{
    const OptionRange range{0, percent ? 100 : 1'000'000};
    const QString suffix = percent ? QStringLiteral(" %") : countSuffix;
    return plain({Option::Colormap, Option::KernelWidth, Option::KernelSigma}) +
           Layout{named(Option::AngleStar, "Selection"),
                  named(Option::DurationArcs, "Duration"),
                  named(Option::LengthArcs, "only Fixations in AOIs"),
                  {Option::Power, QStringLiteral("Absolut maxima"), suffix, range, 0}, // sic
                  {Option::Threshold, QStringLiteral("Threshold"), suffix, range, 0}} +
           plain({Option::PercentMode});
}

Layout shadowMap()
{
    return plain({Option::Power, Option::ShadowTransparency, Option::KernelWidth, Option::KernelSigma}) +
           Layout{threshold(" %")};
}

ShownOption timeWindow()
{
    return {Option::Power, QStringLiteral("Time window"), QStringLiteral(" ms"), OptionRange{10, 1'000'000'000}, 1000};
}

Layout chart()
{
    return {timeWindow(), named(Option::OriginalSize, "Use curves"), named(Option::GazePoints, "Use splines"),
            named(Option::TransitionsOnly, "Lines only")};
}

ShownOption chartGroups()
{
    return named(Option::LineSizeAbsolute, "Use groupes"); // sic
}

Layout shapes()
{
    return plain({Option::BorderWidth, Option::FillOpacity, Option::BorderType}) + allColors() +
           Layout{named(Option::GazePoints, "Show Cluster points")};
}

Layout circles()
{
    return plain({Option::Size, Option::DurationDependent});
}

Layout transitions()
{
    return Layout{
               named(Option::Size, "Cluster size"),
               {Option::StepSize, QStringLiteral("Maximal line size"), QStringLiteral(" px"), OptionRange{1, 1000}}} +
           colorsNamed("cluster", "to left", "to right") +
           Layout{named(Option::GazePoints, "Draw cluster elliptical"), named(Option::OriginalSize, "Show names"),
                  threshold(" trans/min")};
}

Layout gazePointLayout(int mode)
{
    switch (mode) {
    case 1:
        return allColors() + plain({Option::Size, Option::StepSize});
    case 2:
        return countHeatmap(" GP", " GP/min");
    case 3:
        return shadowMap();
    default:
        return {};
    }
}

Layout fixationLayout(int mode, bool percent)
{
    const Layout ellipses = shapes() + plain({Option::OriginalSize});
    switch (mode) {
    case 1:
        return ellipses;
    case 2:
        return ellipses + circles();
    case 3:
        return shareHeatmap(QStringLiteral(" Fixations/min"), percent) + plain({Option::FixationClasses});
    case 4:
        return shadowMap();
    case 5:
        return chart() + colorsNamed("Color");
    case 6:
        return chart() + Layout{chartGroups()};
    default:
        return {};
    }
}

Layout clusterLayout(int mode, bool percent)
{
    const Layout ellipses =
        shapes() + Layout{named(Option::OriginalSize, "Show names")} + plain({Option::NameColor, Option::ClusterShare});
    switch (mode) {
    case 1:
    case 5:
        return ellipses;
    case 2:
    case 6:
        return ellipses + circles();
    case 3:
        return shareHeatmap(QStringLiteral(" Clusters/min"), percent) + plain({Option::HeatmapScale});
    case 4:
        return shadowMap();
    case 7:
        return transitions() + plain({Option::TransitionsOnly, Option::LineSizeAbsolute, Option::TransitionType});
    case 8:
    case 9:
        return transitions();
    default:
        return {};
    }
}

Layout saccadeLayout(int mode)
{
    const Layout charts = chart() + plain({Option::LengthDependent});
    switch (mode) {
    case 1:
        return plain({Option::Size, Option::ArrowTip, Option::StepSize}) + allColors();
    case 2:
        return plain({Option::BorderWidth, Option::FillOpacity, Option::BorderType, Option::AngleStar, Option::StarBins,
                      Option::QuantityArcs, Option::DurationArcs, Option::LengthArcs, Option::SolidArcs}) +
               allColors();
    case 3:
        return countHeatmap(" Saccades", " Saccades") + plain({Option::GaussianSaccades, Option::LengthDependent});
    case 4:
        return shadowMap().mid(0, shadowMap().size() - 1) +
               Layout{{Option::Threshold, QStringLiteral("Length threshold"), QStringLiteral(" px"),
                       OptionRange{0, 10'000'000}}};
    case 5:
        return charts + colorsNamed("Color");
    case 6:
        return charts + Layout{chartGroups()};
    case 7:
        return charts + colorsNamed("Saccade", "Fixation");
    default:
        return {};
    }
}

} // namespace

ShownOption plainOption(DrawingOption option)
{
    return plainOptions().value(option, ShownOption{option});
}

QList<ShownOption> modeLayout(const VisualizationParameters &parameters)
{
    const int mode = parameters.visualizationMode;
    Layout layout;
    switch (visualizationKindOf(parameters.settingsName)) {
    case GazePoints:
        layout = gazePointLayout(mode);
        break;
    case Fixations:
        layout = fixationLayout(mode, parameters.percentMode);
        break;
    case Clusters:
        layout = clusterLayout(mode, parameters.percentMode);
        break;
    case Saccades:
        layout = saccadeLayout(mode);
        break;
    }
    const bool hasColormap = std::any_of(layout.cbegin(), layout.cend(),
                                         [](const ShownOption &shown) { return shown.option == Option::Colormap; });
    if (hasColormap && parameters.heatmapColormap == customColormap)
        layout << plainOption(Option::AdjustableColormap);
    return layout;
}

bool isShadowMode(const VisualizationParameters &parameters)
{
    const QList<ShownOption> layout = modeLayout(parameters);
    return std::any_of(layout.cbegin(), layout.cend(),
                       [](const ShownOption &shown) { return shown.option == Option::ShadowTransparency; });
}
