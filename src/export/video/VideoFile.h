// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <memory>

/// A video that is being written. The encoders and what they rest on are large, so that they are in a library of their
/// own, which is loaded when the first video is written.
class IVideoFile {
public:
    /// The file is complete afterwards.
    virtual ~IVideoFile() = default;
    /// @param frame  of the size with which the file was opened, any format.
    virtual void write(const QImage &frame) = 0;
};

/// What the library has under the name `openVideoName`: opens a video of 30 frames per second, whose encoder the ending
/// of the path chooses. The pointer is null where that cannot be.
using OpenVideo = void (*)(const QString &path, QSize size, std::unique_ptr<IVideoFile> &video);
/// How many frames a file has; -1 where it cannot be read.
using CountFrames = qint64 (*)(const QString &path);

inline constexpr char openVideoName[] = "vistrumOpenVideo";
inline constexpr char countFramesName[] = "vistrumCountFrames";
