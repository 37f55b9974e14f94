// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

/// The client of the tracker's server. It knows no Qt: what the rest of the program wants of it are plain records.
namespace gtl {

struct Point2D {
    bool operator==(const Point2D &) const = default;

    float x = 0;
    float y = 0;
};

/// One eye in one frame.
struct Eye {
    bool operator==(const Eye &) const = default;

    Point2D raw = {};     ///< gaze, screen pixels
    Point2D avg = {};     ///< the same, smoothed by the server
    float psize = 0;      ///< pupil size, as the server measures it
    Point2D pcenter = {}; ///< centre of the pupil, 0 to 1 of the camera's image
};

/// One frame of the tracker.
struct GazeData {
    bool operator==(const GazeData &) const = default;

    std::int32_t time = 0; ///< ms of the server's clock
    bool fix = false;
    std::int32_t state = 0; ///< bits; `fullyTracked` if gaze, eyes and presence are
    Point2D raw = {};
    Point2D avg = {};
    Eye lefteye = {};
    Eye righteye = {};
};

inline constexpr std::int32_t fullyTracked = 7;

/// How well one point was calibrated.
struct CalibPoint {
    bool operator==(const CalibPoint &) const = default;

    struct Accuracy { ///< degrees
        bool operator==(const Accuracy &) const = default;
        float ad = 0, adl = 0, adr = 0;
    };
    struct MeanError { ///< pixels
        bool operator==(const MeanError &) const = default;
        float mep = 0, mepl = 0, mepr = 0;
    };
    struct Deviation { ///< pixels
        bool operator==(const Deviation &) const = default;
        float asd = 0, asdl = 0, asdr = 0;
    };

    std::int32_t state = 0;
    Point2D cp = {};   ///< where the point was shown
    Point2D mecp = {}; ///< where the gaze was estimated
    Accuracy acd = {};
    MeanError mepix = {};
    Deviation asdp = {};
};

struct CalibResult {
    bool operator==(const CalibResult &) const = default;

    bool result = false;
    float deg = 0; ///< mean error of both eyes, degrees; left and right behind it
    float degl = 0;
    float degr = 0;
    std::vector<CalibPoint> calibpoints = {};
};

/// Names of the tracker's states; the place is the server's number.
inline constexpr std::array<std::string_view, 5> trackerStateNames = {
    "TRACKER_CONNECTED", "TRACKER_NOT_CONNECTED", "TRACKER_CONNECTED_BADFW", "TRACKER_CONNECTED_NOUSB3",
    "TRACKER_CONNECTED_NOSTREAM"};

struct ServerState {
    bool operator==(const ServerState &) const = default;

    bool push = false;
    std::int32_t heartbeatinterval = 0; ///< ms
    std::int32_t version = 0;
    std::int32_t trackerstate = 1; ///< not connected until the server says otherwise
    std::int32_t framerate = 0;    ///< 1/s
    bool iscalibrated = false;
    bool iscalibrating = false;
};

struct Screen {
    bool operator==(const Screen &) const = default;

    std::int32_t screenindex = 0;
    std::int32_t screenresw = 0; ///< pixels
    std::int32_t screenresh = 0;
    float screenpsyw = 0; ///< metres
    float screenpsyh = 0;
};

} // namespace gtl
