// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/scene/DrawingPass.h"

#include <QRectF>

#include <functional>
#include <optional>
#include <stop_token>

/// What a video shows, frame by frame. What the context refers to must outlive the work; the model is a copy.
struct VideoContent {
    DrawingContext context; ///< its frame is the whole time
    SceneLayers layers;
    QRectF area; ///< of the scene, px
};

enum class VideoOutcome {
    Written,
    TooShort,     ///< not even one image fits into the time
    CannotCreate, ///< no such encoder, or no such place
    Stopped,      ///< on demand; there is no file
    Failed,       ///< the file is not complete, and was removed
};

/// What the user is told of an outcome.
QString videoText(VideoOutcome outcome);

/// The path, and why there is no video; empty where it was written or stopped.
QString videoFailure(VideoOutcome outcome, const QString &path);

/// The time frames of the images: steps of this length, one behind the other, as far as they fit.
QList<TimeFrame> videoFrames(TimeFrame whole, qint64 stepMs);

/// One image of the video, on white.
QImage videoImage(QGraphicsScene &scene, const VideoContent &content, TimeFrame frame);

/// Draws and encodes all images, with progress; the ending of the path chooses the container: .avi (Motion JPEG), .mp4
/// or .mkv. Nothing of it goes through a window. The file takes its name at the end, so that an older one stays until
/// then, and after anything but `Written`.
VideoOutcome exportVideo(const VideoContent &content, qint64 stepMs, const QString &path,
                         const std::stop_token &stop = {});
