#pragma once

#include "batch/SaccadeClusterOptions.h"
#include "model/Eye.h"
#include "model/TimeFrame.h"
#include "visualization/heatmap/HeatmapFigures.h"

#include <QList>
#include <QStringList>

#include <optional>
#include <variant>

/// How the batch tool ends.
enum class ExitCode {
    AllDone = 0,
    SomethingFailed = 1, ///< the rest is done
    Usage = 2            ///< nothing was started
};

/// The command line of the batch tool, checked as far as it can be without opening a file.
struct BatchOptions {
    enum class Detector { Standard = 0, Gaussian = 1, Velocity = 2 };           ///< as the stored calculation type
    enum class VelocityUnit { PixelPerMs = 0, DegreePerS = 1, Percentile = 2 }; ///< as the stored unit
    enum class Calculation { Fixations, Clusters, CumulativeClusters, SaccadeClusters };
    enum class Table { Fixations, Clusters, Events, CumulativeClusters };

    /// One key of the settings store and the text that it gets.
    struct Setting {
        QString key;
        QString value;
        bool operator==(const Setting &) const = default;
    };
    bool operator==(const BatchOptions &) const = default;

    QStringList recordings; ///< never empty unless help or version is asked for
    QStringList settingsFiles;
    QList<Setting> settings;                  ///< to be set after the files, in this order
    std::optional<Detector> detector;         ///< else as the settings say
    std::optional<VelocityUnit> velocityUnit; ///< only for the velocity detector; else what the settings give
    QString background;
    QStringList aoiFiles;               ///< of areas with the same name, those of later files count
    std::optional<TimeFrame> time;      ///< else from 0 to the longest duration
    QList<Calculation> calculations;    ///< each once, in the order in which they run
    QList<Table> tables;                ///< each once, in the order in which they are written
    int overlapFixations = 1;           ///< minimum of the overlap method of clusters, 1 to 500
    std::optional<int> overlapOutliers; ///< 0 to 500; else the pooled recordings are not told apart
    SaccadeClusterOptions saccadeClusters;
    EyeMode eyes = EyeMode::showAll;
    QString outputFolder = QStringLiteral(".");
    QString prefix = QStringLiteral("vistrum");
    QStringList images;
    QString densityFile; ///< empty: none
    HeatmapKind densityKind = HeatmapKind::GazePoints;
    QString reportFile;
    std::optional<int> jobs; ///< at least 1; else as many as there are cores
    bool quiet = false;
    bool help = false;    ///< to be answered before anything else; what follows it was not read
    bool version = false; ///< the same
};

/// What is wrong with a command line, in one line for the user.
struct UsageError {
    QString text;
};

/// Reads the arguments behind the program's name, from left to right, until the first error. A value follows its option
/// as the next argument or after "="; "--" ends the options. Options and list entries of what this version cannot do
/// are refused by name, and so is a second value for an option that takes one.
std::variant<BatchOptions, UsageError> parseBatchOptions(const QStringList &arguments);
