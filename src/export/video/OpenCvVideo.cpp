// SPDX-License-Identifier: GPL-3.0-or-later
// The library of video encoders; see VideoFile.h.

#include "export/video/VideoFile.h"

#include <opencv2/imgproc.hpp>
#include <opencv2/videoio.hpp>

namespace {

/// Motion JPEG is what every player of AVI knows; in the other containers it is not.
int encoderFor(const QString &path)
{
    const bool isAvi = path.endsWith(QLatin1StringView(".avi"), Qt::CaseInsensitive);
    return isAvi ? cv::VideoWriter::fourcc('M', 'J', 'P', 'G') : cv::VideoWriter::fourcc('m', 'p', '4', 'v');
}

class OpenCvVideo : public IVideoFile {
public:
    OpenCvVideo(const QString &path, QSize size)
        : m_writer(path.toStdString(), encoderFor(path), framesPerSecond, cv::Size(size.width(), size.height()), true)
    {
    }

    bool isOpen() const { return m_writer.isOpened(); }

    void write(const QImage &frame) override
    {
        const QImage image = frame.convertToFormat(QImage::Format_RGB32); // blue first in memory
        const cv::Mat pixels(image.height(), image.width(), CV_8UC4, const_cast<uchar *>(image.constBits()),
                             static_cast<size_t>(image.bytesPerLine()));
        cv::cvtColor(pixels, m_frame, cv::COLOR_BGRA2BGR);
        m_writer.write(m_frame);
    }

private:
    static constexpr double framesPerSecond = 30.0;

    cv::VideoWriter m_writer;
    cv::Mat m_frame;
};

} // namespace

extern "C" {

Q_DECL_EXPORT void vistrumOpenVideo(const QString &path, QSize size, std::unique_ptr<IVideoFile> &video)
{
    auto opened = std::make_unique<OpenCvVideo>(path, size);
    if (opened->isOpen())
        video = std::move(opened);
}

Q_DECL_EXPORT qint64 vistrumCountFrames(const QString &path)
{
    const cv::VideoCapture video(path.toStdString());
    return video.isOpened() ? static_cast<qint64>(video.get(cv::CAP_PROP_FRAME_COUNT)) : -1;
}
}
