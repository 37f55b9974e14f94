// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// What the client says to the server, byte for byte.
namespace gtl::requests {

inline const std::string heartbeat = R"({"category":"heartbeat"})";
inline const std::string protocolVersion = R"({"category":"tracker","request":"set","values":{"version":1}})";
inline const std::string fullState =
    R"({"category":"tracker","request":"get","values":["push","heartbeatinterval","version","trackerstate",)"
    R"("framerate","iscalibrated","iscalibrating","calibresult","frame","screenindex","screenresw","screenresh",)"
    R"("screenpsyw","screenpsyh"]})";
inline const std::string trackerState = R"({"category":"tracker","request":"get","values":["trackerstate"]})";
inline const std::string screenValues =
    R"({"category":"tracker","request":"get","values":["screenindex","screenresw","screenresh","screenpsyw",)"
    R"("screenpsyh"]})";
inline const std::string calibrationState =
    R"({"category":"tracker","request":"get","values":["calibresult","iscalibrated","iscalibrating"]})";
inline const std::string calibrationClear = R"({"category":"calibration","request":"clear"})";
inline const std::string calibrationPointEnd = R"({"category":"calibration","request":"pointend"})";

enum class Push { Off, On };

inline std::string pushMode(Push push)
{
    const std::string word = push == Push::On ? "true" : "false";
    return R"({"category":"tracker","request":"set","values":{"push":)" + word + "}}";
}

inline std::string calibrationStart(int pointCount)
{
    return R"({"category":"calibration","request":"start","values":{"pointcount":)" + std::to_string(pointCount) + "}}";
}

inline std::string calibrationPointStart(int x, int y)
{
    return R"({"category":"calibration","request":"pointstart","values":{"x":)" + std::to_string(x) + R"(,"y":)" +
           std::to_string(y) + "}}";
}

} // namespace gtl::requests
