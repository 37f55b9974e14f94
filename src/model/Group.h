#pragma once

#include <QColor>
#include <QHash>
#include <QMap>
#include <QString>

/// A named colouring of examinations. Each map goes from a kind of drawing ("GazepointVisualization",
/// "FixationVisualization", "FixationclusterVisualization", "SaccadeVisualization") to a colour.
struct Group {
    using ColorTable = QHash<QString, QColor>;

    Group() = default;
    /// @param colors  keyed "gazepointsDominant", "fixationsLeft", "saccadesRight" and so on: kind and eye. An entry
    /// that
    ///                is missing becomes an invalid colour.
    Group(QString name, const ColorTable &colors);

    /// 0 light, 1 midlight, 2 dark: the shade of a border around a filled shape.
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
