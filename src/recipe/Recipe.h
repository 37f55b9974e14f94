// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "detection/FixationCalculationParameters.h"
#include "model/AreaOfInterest.h"
#include "model/Eye.h"
#include "model/TimeFrame.h"

#include <QMap>
#include <QSize>
#include <QStringList>

#include <optional>
#include <variant>

/// The steps of a piece of work, as a lab archives them beside its paper. Recordings are told apart by their names,
/// which are file names without folder and extension, so that a recipe serves other recordings, too.
namespace recipe {

struct Import {
    bool operator==(const Import &) const = default;
    QStringList recordings; ///< paths
};

/// Unchecks what differs.
struct Filter {
    bool operator==(const Filter &) const = default;
    QMap<QString, QString> where;
};

/// From here on these take no part, and all others do.
struct LeaveOut {
    bool operator==(const LeaveOut &) const = default;
    QStringList recordings; ///< names
};

/// From here on these are in groups, and all others in none.
struct Groups {
    bool operator==(const Groups &) const = default;
    QMap<QString, QString> groups; ///< by the name of the recording
};

/// The entry that names the groups that are compared.
struct CompareBy {
    bool operator==(const CompareBy &) const = default;
    QString entry;
};

/// The part of the time that counts; nothing: all of it.
struct Time {
    bool operator==(const Time &) const = default;
    std::optional<TimeFrame> frame;
};

/// Samples at the edge of a picture of this size and beyond are removed; nothing: all are back.
struct CutEdges {
    bool operator==(const CutEdges &) const = default;
    std::optional<QSize> picturePx;
};

/// From here on these are the areas of interest.
struct Areas {
    struct Area {
        bool operator==(const Area &) const = default;
        QString name;
        QPolygon polygon;
        bool enabled = true;
    };
    bool operator==(const Areas &) const = default;
    QList<Area> areas;
};

/// A parameter has another value.
struct Set {
    bool operator==(const Set &) const = default;
    QString key;
    QString value;
};

struct Fixations {
    FixationCalculationParameters parameters;
};

struct Clusters {
    ClusterParameters parameters;
    bool pooled = false; ///< over all recordings
};

/// General statistics or those of areas.
struct Statistics {
    bool operator==(const Statistics &) const = default;
    QString of; ///< word of the batch program
};

/// Tables of transitions that a choice has beyond its eyes.
struct Transitions {
    bool operator==(const Transitions &) const = default;
    QStringList of;     ///< words of the batch program
    QStringList values; ///< the same
};

struct Export {
    bool operator==(const Export &) const = default;
    QString table; ///< word of the batch program
    EyeMode eyes = EyeMode::showAll;
    QString prefix;
    QString folder;                         ///< below the folder of the run; empty: that folder itself
    std::optional<Transitions> transitions; ///< of the table of transitions
};

using Step = std::variant<Import, Filter, LeaveOut, Groups, CompareBy, Time, CutEdges, Areas, Set, Fixations, Clusters,
                          Statistics, Export>;

struct Recipe {
    QString release;                 ///< of the program that wrote it
    QMap<QString, QString> settings; ///< of the parameters, those that are not as delivered when the steps begin
    QList<Step> steps;
    QStringList notReplayed; ///< what was done beside it, in words for people
};

/// The version of the form that is written and read.
inline constexpr int version = 1;

/// As readable JSON, one step after the other.
QByteArray toBytes(const Recipe &recipe);

/// Reads a recipe; or tells why not, for the user: the step, what was expected and what was found.
std::variant<Recipe, QString> read(const QByteArray &bytes);

/// The word of a step, as the file has it.
QString wordOf(const Step &step);

} // namespace recipe
