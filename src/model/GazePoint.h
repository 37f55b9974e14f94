// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

/// Time from one clock value to another in ms. Damaged files hold values more than 64 bits apart: there it wraps
/// around.
constexpr qint64 elapsedMs(qint64 from, qint64 to)
{
    return static_cast<qint64>(static_cast<quint64>(to) - static_cast<quint64>(from));
}

/// One sample of one eye. Coordinates are pixels of the stimulus image, which are canvas pixels.
///
/// A recording holds millions of these, so the record is kept at 48 bytes: the colour is stored as QRgb and the tool
/// tip is computed when it is asked for.
struct GazePoint {
    GazePoint() = default;
    /// @param validity  the file's own code; only exactly 1 makes the sample usable.
    GazePoint(qint64 time_, double x_, double y_, double width_, double height_, int validity)
        : time(time_)
        , x(x_)
        , y(y_)
        , width(width_)
        , height(height_)
        , validFlag(validity == 1)
    {
    }

    /// Time and position as two lines, for the tool tip of a drawn sample.
    QString toolTipText() const;

    bool operator==(const GazePoint &) const = default;

    qint64 time = 0;   ///< ms since the first sample of the file
    double x = 0;      ///< px
    double y = 0;      ///< px
    double width = 0;  ///< pupil extent in the tracker's own unit
    double height = 0; ///< pupil extent in the tracker's own unit
    QRgb color = qRgba(255, 0, 0, 255);
    bool validFlag = false;
};

/// Order in time, for sorting samples.
inline bool isEarlier(const GazePoint &a, const GazePoint &b)
{
    return a.time < b.time;
}
