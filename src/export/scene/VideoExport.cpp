// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/scene/VideoExport.h"

#include "base/FileReplacement.h"
#include "base/OwnLibrary.h"
#include "base/StoppableProgress.h"
#include "base/Truncation.h"
#include "export/scene/FrameQueue.h"
#include "export/video/VideoFile.h"

#include <QFile>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QPainter>
#include <QTemporaryDir>

#include <filesystem>
#include <malloc.h>

namespace {

const QString videoLibrary = QStringLiteral("vistrum_video");
constexpr qsizetype probeBytes = 64 << 10; // what is written to see whether a disk takes more

QSize sizeOf(const VideoContent &content)
{
    return {truncated(content.area.width()), truncated(content.area.height())};
}

QFunctionPointer inVideoLibrary(const char *name)
{
    return ownLibraryFunction(videoLibrary, name);
}

std::unique_ptr<IVideoFile> openVideo(const QString &path, QSize size)
{
    std::unique_ptr<IVideoFile> video;
    const auto open = reinterpret_cast<OpenVideo>(inVideoLibrary(openVideoName));
    if (open && !size.isEmpty())
        open(path, size, video);
    return video;
}

/// On a full disk it has not.
bool hasRoomForMore(const QString &path)
{
    QFile file(path);
    const qint64 size = file.size();
    const bool isWritten =
        file.open(QIODevice::Append | QIODevice::Unbuffered) && file.write(QByteArray(probeBytes, '\0')) == probeBytes;
    return file.resize(size) && isWritten;
}

/// Encoders do not tell that a disk is full. The number of images can stand in the head of a file without the rest, so
/// that the disk is asked, too.
bool isComplete(const QString &path, qsizetype frames)
{
    const auto count = reinterpret_cast<CountFrames>(inVideoLibrary(countFramesName));
    return count && count(path) == frames && hasRoomForMore(path);
}

/// The rasters of one image are as large as those of the next: while it lives, their memory is not given back in
/// between. That is a tenth of the time.
class KeptMemory {
public:
    KeptMemory()
    {
        mallopt(M_MMAP_THRESHOLD, 64 << 20);
        mallopt(M_TRIM_THRESHOLD, 512 << 20);
    }
    ~KeptMemory()
    {
        mallopt(M_TRIM_THRESHOLD, 128 << 10); // as the library has it at first
        malloc_trim(0);
    }
    KeptMemory(const KeptMemory &) = delete;
    KeptMemory &operator=(const KeptMemory &) = delete;
};

/// Returns whether nobody stopped it.
bool drawAll(const VideoContent &content, const QList<TimeFrame> &frames, IVideoFile &video,
             const std::stop_token &stop)
{
    StoppableProgress progress(QStringLiteral("Exporting Video. Please wait."), static_cast<int>(frames.size()) + 1,
                               stop);
    const KeptMemory memory;
    QGraphicsScene scene;
    FrameQueue encoder([&](const QImage &image) { video.write(image); });
    for (const TimeFrame frame : frames) {
        encoder.add(videoImage(scene, content, frame));
        if (!progress.next())
            return false;
    }
    return true;
}

bool replace(const QString &path, const QString &byFile)
{
    std::error_code problem;
    std::filesystem::rename(byFile.toStdString(), path.toStdString(), problem);
    return !problem;
}

/// Why a file of this folder does not take what the head of a video takes.
std::optional<QString> roomProblem(const QString &folder)
{
    const QTemporaryDir place(folder + QStringLiteral("/.video-XXXXXX"));
    return place.isValid() ? replaceFile(place.filePath(QStringLiteral("probe")), QByteArray(probeBytes, '\0'))
                           : std::optional(place.errorString());
}

QString reasonForNone(const QFileInfo &file)
{
    const QString ending = file.suffix().toLower();
    if (!QFileInfo(file.path()).isWritable())
        return QStringLiteral("its folder cannot be written");
    if (!inVideoLibrary(openVideoName))
        return QStringLiteral("lib%1.so, which has the encoders, is missing or cannot be loaded").arg(videoLibrary);
    if (const auto problem = roomProblem(file.path()))
        return *problem;
    if (!QStringList{QStringLiteral("avi"), QStringLiteral("mp4"), QStringLiteral("mkv")}.contains(ending))
        return (ending.isEmpty() ? QStringLiteral("the name has no ending")
                                 : QStringLiteral("\".%1\" is no ending of a video").arg(file.suffix())) +
               QStringLiteral("; let the name end in .avi, .mp4 or .mkv");
    return QStringLiteral("nothing encodes a picture of this size for \".%1\"").arg(file.suffix());
}

QString reasonOf(VideoOutcome outcome, const QFileInfo &file)
{
    switch (outcome) {
    case VideoOutcome::Written:
    case VideoOutcome::Stopped:
        break;
    case VideoOutcome::TooShort:
        return QStringLiteral("the time is shorter than that of one image");
    case VideoOutcome::CannotCreate:
        return reasonForNone(file);
    case VideoOutcome::Failed:
        return file.isDir() ? QStringLiteral("a folder has this name") : QStringLiteral("the disk may be full");
    }
    return {};
}

} // namespace

QString videoText(VideoOutcome outcome)
{
    switch (outcome) {
    case VideoOutcome::Written:
        break;
    case VideoOutcome::TooShort:
        return QStringLiteral("Timespan is too short!!!");
    case VideoOutcome::CannotCreate:
        return QStringLiteral("Can't create video!!!");
    case VideoOutcome::Stopped:
        return QStringLiteral("The video was stopped, no file was written.");
    case VideoOutcome::Failed:
        return QStringLiteral("The video is not complete and was removed; the disk may be full.");
    }
    return QStringLiteral("Writing video is done!!!");
}

QString videoFailure(VideoOutcome outcome, const QString &path)
{
    const QString reason = reasonOf(outcome, QFileInfo(path));
    return reason.isEmpty() ? QString() : writeFailure(path, reason);
}

QList<TimeFrame> videoFrames(TimeFrame whole, qint64 stepMs)
{
    QList<TimeFrame> frames;
    if (stepMs < 1)
        return frames;
    for (qint64 start = whole.startMs; stepMs <= whole.endMs - start; start += stepMs)
        frames << TimeFrame{start, start + stepMs};
    return frames;
}

QImage videoImage(QGraphicsScene &scene, const VideoContent &content, TimeFrame frame)
{
    DataModel model = content.context.model; // the pass sorts its clusters
    const DrawingContext context{.model = model,
                                 .eyeMode = content.context.eyeMode,
                                 .frame = frame,
                                 .records = content.context.records,
                                 .areas = content.context.areas};
    runDrawingPass(scene, model, context, content.layers);
    QImage image(sizeOf(content), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    scene.render(&painter, {}, content.area);
    return image;
}

VideoOutcome exportVideo(const VideoContent &content, qint64 stepMs, const QString &path, const std::stop_token &stop)
{
    const QFileInfo info(path);
    const QTemporaryDir folder(info.path() + QStringLiteral("/.video-XXXXXX")); // on the disk of the file
    const QString unfinished = folder.filePath(QStringLiteral("video.") + info.suffix());
    std::unique_ptr<IVideoFile> video = folder.isValid() ? openVideo(unfinished, sizeOf(content)) : nullptr;
    if (!video)
        return VideoOutcome::CannotCreate;
    const QList<TimeFrame> frames = videoFrames(content.context.frame, stepMs);
    if (frames.isEmpty())
        return VideoOutcome::TooShort;
    if (!drawAll(content, frames, *video, stop))
        return VideoOutcome::Stopped;
    video.reset();
    return isComplete(unfinished, frames.size()) && replace(path, unfinished) ? VideoOutcome::Written
                                                                              : VideoOutcome::Failed;
}
