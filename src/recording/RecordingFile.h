// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Records.h"

#include <QByteArray>
#include <QString>

#include <optional>

class FrameStore;

/// The two lines above the samples of a recording (.data).
QByteArray recordingHeader();

/// The line of a frame, with its end. Both eyes are valid where the tracker had everything, and the pupil's size stands
/// for its width and its height.
QByteArray recordingLine(const gtl::GazeData &frame);

/// Writes the first `count` frames as a recording, whole or not at all; frames may be added meanwhile.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> saveRecording(const QString &path, const FrameStore &frames, qsizetype count);
