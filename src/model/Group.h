// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataKind.h"

#include <QColor>
#include <QHash>
#include <QLatin1StringView>
#include <QMap>
#include <QString>

/// A named colouring of examinations. Each map goes from the name of a kind of data to a colour.
struct Group {
    using ColorTable = QHash<QString, QColor>;

    /// Name of the group of those that are in none.
    static constexpr QLatin1StringView none{"None"};

    /// Names of the kinds in the maps, and in the parameters of their drawing.
    static constexpr ByDataKind<QLatin1StringView> kindNames{
        {QLatin1StringView("GazepointVisualization"), QLatin1StringView("FixationVisualization"),
         QLatin1StringView("FixationclusterVisualization"), QLatin1StringView("SaccadeVisualization")}};
    /// Names of the kinds in a table of colours; that of the eye follows.
    static constexpr ByDataKind<QLatin1StringView> tableNames{
        {QLatin1StringView("gazepoints"), QLatin1StringView("fixations"), QLatin1StringView("fixationClusters"),
         QLatin1StringView("saccades")}};

    Group() = default;
    /// @param colors  keyed by kind and eye: "gazepointsDominant", "fixationsLeft", "saccadesRight" and so on. A colour
    ///                without an entry is invalid.
    Group(QString name, const ColorTable &colors);

    /// Tones of the border of a filled shape; the values are those that are stored.
    enum class Shade { Light, Midlight, Dark };

    bool operator==(const Group &) const = default;

    QString name;
    QMap<QString, QColor> colorsDominant;
    QMap<QString, QColor> colorsLeft;
    QMap<QString, QColor> colorsRight;
};

/// The border colour that goes with a fill colour: the light, midlight or dark tone of a palette built from it. An
/// invalid colour stays invalid.
QColor shaded(const QColor &fill, Group::Shade shade);
