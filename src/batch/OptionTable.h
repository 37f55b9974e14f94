#pragma once

#include <QLatin1StringView>

#include <array>

/// Names of the options, written down once for the parser and the help text.
namespace optiontable {

enum class Id {
    Settings,
    Set,
    Detector,
    VelocityUnit,
    Background,
    Aois,
    Time,
    Calculate,
    OverlapFixations,
    OverlapOutliers,
    SaccadeCluster,
    Export,
    Eyes,
    Out,
    Prefix,
    Image,
    Density,
    DensityKind,
    Report,
    Jobs,
    Quiet,
    Help,
    Version,
    NotBuilt ///< known, but this version cannot do it
};

enum class Given { Once, Repeatedly };

struct Row {
    Id id;
    QLatin1StringView name;  ///< without the dashes
    QLatin1StringView value; ///< placeholder; empty where the option takes no value
    QLatin1StringView help;  ///< empty where the option is not built
    Given given = Given::Once;
};

using Text = QLatin1StringView;

inline constexpr std::array rows{
    Row{Id::Settings, Text("settings"), Text("FILE"),
        Text("parameters as the window saves them; repeatable, later wins"), Given::Repeatedly},
    Row{Id::Set, Text("set"), Text("KEY=VALUE"), Text("one key of the settings; repeatable, after --settings"),
        Given::Repeatedly},
    Row{Id::Detector, Text("detector"), Text("NAME"),
        Text("standard, gaussian or velocity (default: as the settings say)")},
    Row{Id::VelocityUnit, Text("velocity-unit"), Text("U"),
        Text("pixel-per-ms, degree-per-s or percentile (default: percentile)")},
    Row{Id::Background, Text("background"), Text("FILE"), Text("picture behind the drawing")},
    Row{Id::Aois, Text("aois"), Text("FILE.aoi"), Text("areas of interest; repeatable"), Given::Repeatedly},
    Row{Id::Time, Text("time"), Text("START:END"), Text("time frame in ms (default: 0 to the longest duration)")},
    Row{Id::Calculate, Text("calculate"), Text("LIST"),
        Text("of fixations, clusters, cumulative-clusters, saccade-clusters")},
    Row{Id::OverlapFixations, Text("overlap-fixations"), Text("N"),
        Text("minimum of the overlap method of clusters (default: 1)")},
    Row{Id::OverlapOutliers, Text("overlap-outliers"), Text("N"),
        Text("cumulative overlap clusters are those of all recordings but N")},
    Row{Id::SaccadeCluster, Text("saccade-cluster"), Text("NAME=VALUE"),
        Text("how saccades are clustered and drawn, such as mode=lines; repeatable"), Given::Repeatedly},
    Row{Id::Export, Text("export"), Text("LIST"), Text("of fixations, clusters, events, cumulative-clusters")},
    Row{Id::Eyes, Text("eyes"), Text("E"), Text("all, dominant, left, right or mean (default: all)")},
    Row{Id::Out, Text("out"), Text("DIR"), Text("where files go; made if missing (default: .)")},
    Row{Id::Prefix, Text("prefix"), Text("TEXT"), Text("beginning of the names of tables (default: vistrum)")},
    Row{Id::Image, Text("image"), Text("FILE"), Text("the drawing as .png, .svg, .tiff or .jpg; repeatable"),
        Given::Repeatedly},
    Row{Id::Density, Text("density"), Text("FILE.tiff"), Text("density of a heatmap as 32-bit floating point numbers")},
    Row{Id::DensityKind, Text("density-kind"), Text("KIND"),
        Text("gaze, fixations, clusters or saccades (default: gaze)")},
    Row{Id::NotBuilt, Text("video"), Text("FILE"), Text()},
    Row{Id::NotBuilt, Text("video-step"), Text("MS"), Text()},
    Row{Id::Report, Text("report"), Text("FILE.json"),
        Text("record of the run: version, parameters, inputs, messages, files written")},
    Row{Id::Jobs, Text("jobs"), Text("N"), Text("recordings read side by side (default: number of cores)")},
    Row{Id::Quiet, Text("quiet"), Text(), Text("no progress bar, and of the messages only warnings and errors"),
        Given::Repeatedly},
    Row{Id::Help, Text("help"), Text(), Text("this text")},
    Row{Id::Version, Text("version"), Text(), Text("the version")},
};

} // namespace optiontable
