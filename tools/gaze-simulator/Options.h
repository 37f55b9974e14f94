// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/RecordingWriter.h"
#include "gaze-simulator/SimulationParameters.h"
#include "import/SetFileEntries.h"

#include <QSize>
#include <QStringList>

#include <variant>

/// What the command line asks for.
struct Options {
    SimulationParameters parameters;
    SetFileEntries entries;     ///< the picture's path is filled in later
    QString name;               ///< of the recording, without extension; empty: only a stimulus is made
    QString imagePath;          ///< picture that is looked at; empty: none given
    QString stimulusPath;       ///< picture to make and look at; empty: none
    QSize canvas = {1280, 800}; ///< px, of a made stimulus or of a recording without picture
    recording::Truth truth = recording::Truth::Leave;
};

struct HelpText {
    QString text;
};

struct UsageFault {
    QString text;
};

/// @param arguments  the program's own path first.
std::variant<Options, HelpText, UsageFault> parseOptions(const QStringList &arguments);
