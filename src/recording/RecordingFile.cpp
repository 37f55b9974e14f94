// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/RecordingFile.h"

#include "base/FileReplacement.h"
#include "base/Progress.h"
#include "base/TextFormat.h"
#include "import/tables/RecordingSamples.h"
#include "recording/FrameStore.h"

#include <algorithm>

namespace {

constexpr qsizetype framesPerStep = 16384;

QByteArray fieldText(float value)
{
    return text::general6(static_cast<double>(value)).toLatin1();
}

QByteArray eyeFields(const gtl::Eye &eye, const QByteArray &validity)
{
    const QByteArray pupil = fieldText(eye.psize);
    return fieldText(eye.raw.x) + '\t' + fieldText(eye.raw.y) + '\t' + pupil + '\t' + pupil + '\t' + validity;
}

} // namespace

QByteArray recordingHeader()
{
    return dataHeader();
}

QByteArray recordingLine(const gtl::GazeData &frame)
{
    const QByteArray validity = frame.state == gtl::fullyTracked ? "1" : "0";
    return QByteArray::number(frame.time) + '\t' + eyeFields(frame.lefteye, validity) + '\t' +
           eyeFields(frame.righteye, validity) + '\n';
}

std::optional<QString> saveRecording(const QString &path, const FrameStore &frames, qsizetype count)
{
    Progress progress(QStringLiteral("Saving the recording, please wait."),
                      static_cast<int>((count + framesPerStep - 1) / framesPerStep));
    FileReplacement file(path);
    file.write(recordingHeader());
    for (qsizetype first = 0; first < count; first += framesPerStep) {
        QByteArray lines;
        for (const gtl::GazeData &frame : frames.frames(first, std::min(framesPerStep, count - first)))
            lines += recordingLine(frame);
        if (!file.write(lines))
            break;
        progress.advance();
    }
    return file.commit();
}
