// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/GazePointRaster.h"

#include "density/DrawingWorker.h"
#include "model/Canvas.h"
#include "visualization/selection/DataSelection.h"
#include "visualization/shapes/ShapeStyle.h"

#include <algorithm>
#include <span>

namespace {

constexpr QRgb transparentWhite = qRgba(255, 255, 255, 0);

/// A contiguous part of the canvas as linear indices y * width + x, `end` not included.
struct Stripe {
    qint64 begin;
    qint64 end;
};

/// The steps j of a square that are written, both included.
struct Steps {
    qint64 first;
    qint64 last;
};

qint64 floorQuotient(qint64 dividend, qint64 divisor)
{
    const qint64 quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

/// Of the pixels of a step, (x-n, y+j) or (x+j, y-n) has the lowest index, (x+n, y+j) or (x+j, y+n) the highest; all
/// four grow with j, so that the steps inside the canvas are one interval. Index 0 counts as outside.
Steps stepsInsideCanvas(const GazePointRecord &record, qint64 n)
{
    constexpr qint64 lowest = 1;
    constexpr qint64 highest = canvas::pixels - 1;
    const qint64 x = record.x;
    const qint64 y = record.y;
    return {
        std::max({-n, -floorQuotient(x - n - lowest, canvas::width) - y, lowest - x - (y - n) * canvas::width}),
        std::min({n - 1, floorQuotient(highest - x - n, canvas::width) - y, highest - x - (y + n) * canvas::width})};
}

void fillRun(QRgb *pixels, Stripe stripe, Stripe run, QRgb color)
{
    const qint64 begin = std::max(run.begin, stripe.begin);
    const qint64 end = std::min(run.end, stripe.end);
    if (begin < end)
        std::fill(pixels + begin, pixels + end, color);
}

/// Writes a square of which all pixels lie in the canvas and in the stripe. The rows of the upper and lower edge take
/// the ends of the columns along.
void drawWholeSquare(QRgb *center, QRgb color, qint64 n)
{
    for (const qint64 row : {-n, 1 - n, n - 1})
        std::fill_n(center + row * canvas::width - n, 2 * n + 1, color);
    std::fill_n(center + n * canvas::width - n, 2 * n, color);
    for (qint64 row = 2 - n; row < n - 1; ++row) {
        QRgb *middle = center + row * canvas::width;
        middle[-n] = middle[1 - n] = middle[n - 1] = middle[n] = color;
    }
}

/// Writes of any square the part that lies in the canvas and in the stripe.
void drawPartOfSquare(QRgb *pixels, Stripe stripe, const GazePointRecord &record, qint64 n)
{
    const qint64 center = qint64(record.y) * canvas::width + record.x;
    const Steps steps = stepsInsideCanvas(record, n);
    for (const qint64 row : {-n, 1 - n, n - 1, n}) {
        const qint64 middle = center + row * canvas::width;
        fillRun(pixels, stripe, {middle + steps.first, middle + steps.last + 1}, record.color);
    }
    const qint64 firstRow = std::max(steps.first, floorQuotient(stripe.begin - center - n, canvas::width));
    const qint64 lastRow = std::min(steps.last, floorQuotient(stripe.end - center + n, canvas::width));
    for (qint64 row = firstRow; row <= lastRow; ++row) {
        const qint64 middle = center + row * canvas::width;
        fillRun(pixels, stripe, {middle - n, middle - n + 2}, record.color);
        fillRun(pixels, stripe, {middle + n - 1, middle + n + 1}, record.color);
    }
}

void drawSquare(QRgb *pixels, Stripe stripe, const GazePointRecord &record, qint64 n)
{
    const qint64 center = qint64(record.y) * canvas::width + record.x;
    const qint64 reach = n * canvas::width + n;
    if (center + reach < stripe.begin || center - reach >= stripe.end)
        return;
    if (center - reach >= std::max(qint64(1), stripe.begin) && center + reach < stripe.end)
        drawWholeSquare(pixels + center, record.color, n);
    else
        drawPartOfSquare(pixels, stripe, record, n);
}

/// Draws all squares into one stripe of the canvas, in their order. No other worker touches the stripe, so that the
/// picture does not depend on who comes first.
class worker_gazepoints : public DrawingWorker { // NOLINT(readability-identifier-naming): named like its fellow workers
public:
    worker_gazepoints(std::span<const GazePointRecord> records, int halfSize, QRgb *pixels, Stripe stripe)
        : m_records(records)
        , m_halfSize(halfSize)
        , m_pixels(pixels)
        , m_stripe(stripe)
    {
    }

protected:
    void work() override
    {
        std::fill(m_pixels + m_stripe.begin, m_pixels + m_stripe.end, transparentWhite);
        for (const GazePointRecord &record : m_records)
            drawSquare(m_pixels, m_stripe, record, m_halfSize);
    }

private:
    std::span<const GazePointRecord> m_records;
    int m_halfSize;
    QRgb *m_pixels; ///< of the whole canvas
    Stripe m_stripe;
};

bool isOnCanvas(const GazePoint &sample)
{
    return sample.x >= 1 && sample.x < canvas::width && sample.y >= 1 && sample.y < canvas::height;
}

/// Where squares stand already.
class TakenPositions {
public:
    /// Takes the position; false if it was taken before.
    bool take(int x, int y)
    {
        const auto index = static_cast<std::size_t>(y) * canvas::width + static_cast<std::size_t>(x);
        if (m_taken[index])
            return false;
        m_taken[index] = true;
        return true;
    }

private:
    std::vector<bool> m_taken = std::vector<bool>(canvas::pixels);
};

/// Samples that are drawn in one colour.
struct Stream {
    const QList<GazePoint> &samples;
    QRgb color;
};

std::vector<Stream> streamsToDraw(const DrawingContext &context)
{
    std::vector<Stream> streams;
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const Eye eye : eyesOf(context.eyeMode))
            streams.push_back(
                {examination->stream(eye).gazePoints, fillColorOf(context.of(DataKind::GazePoints), eye).rgba()});
    }
    return streams;
}

constexpr std::size_t collectorCount = 4;

/// Collects the records of some streams, the last one first. Of all squares at one position only the last one is seen,
/// and eyes rest: most samples have a later one on their own pixel.
class RecordCollector : public DrawingWorker {
public:
    RecordCollector(std::span<const Stream> streams, TimeFrame frame, int stepSize)
        : m_streams(streams)
        , m_frame(frame)
        , m_stride(std::max(1, stepSize))
    {
    }

    const std::vector<GazePointRecord> &records() const { return m_records; }

protected:
    void work() override
    {
        TakenPositions taken;
        for (auto stream = m_streams.rbegin(); stream != m_streams.rend(); ++stream)
            collect(*stream, taken);
    }

private:
    void collect(const Stream &stream, TakenPositions &taken)
    {
        const qsizetype count = (stream.samples.size() + m_stride - 1) / m_stride;
        for (qsizetype i = (count - 1) * m_stride; i >= 0; i -= m_stride) {
            const GazePoint &sample = stream.samples[i];
            if (!isDrawn(sample, m_frame) || !isOnCanvas(sample))
                continue;
            const GazePointRecord record{static_cast<int>(sample.x), static_cast<int>(sample.y), stream.color};
            if (taken.take(record.x, record.y))
                m_records.push_back(record);
        }
    }

    std::span<const Stream> m_streams;
    TimeFrame m_frame;
    qsizetype m_stride;
    std::vector<GazePointRecord> m_records;
};

/// The records of all collectors, the first one first.
std::vector<GazePointRecord> joined(const std::vector<std::unique_ptr<RecordCollector>> &collectors)
{
    TakenPositions taken;
    std::vector<GazePointRecord> records;
    for (auto collector = collectors.rbegin(); collector != collectors.rend(); ++collector) {
        for (const GazePointRecord &record : (*collector)->records()) {
            if (taken.take(record.x, record.y))
                records.push_back(record);
        }
    }
    std::reverse(records.begin(), records.end());
    return records;
}

} // namespace

std::vector<GazePointRecord> gazePointRecords(const DrawingContext &context)
{
    const std::vector<Stream> streams = streamsToDraw(context);
    const int stepSize = context.of(DataKind::GazePoints).stepSize;
    std::vector<std::unique_ptr<RecordCollector>> collectors;
    for (std::size_t i = 0; i < collectorCount; ++i) {
        const std::size_t begin = streams.size() * i / collectorCount;
        const std::size_t end = streams.size() * (i + 1) / collectorCount;
        collectors.push_back(
            std::make_unique<RecordCollector>(std::span(streams).subspan(begin, end - begin), context.frame, stepSize));
    }
    DrawingWorker::runAll(collectors);
    return joined(collectors);
}

QImage gazePointImage(const std::vector<GazePointRecord> &records, int halfSize, int workers)
{
    QImage image(canvas::width, canvas::height, QImage::Format_ARGB32);
    auto *pixels = reinterpret_cast<QRgb *>(image.bits());
    std::vector<std::unique_ptr<worker_gazepoints>> stripes;
    for (qint64 i = 0; i < workers; ++i) {
        const Stripe stripe{canvas::pixels * i / workers, canvas::pixels * (i + 1) / workers};
        stripes.push_back(std::make_unique<worker_gazepoints>(records, halfSize, pixels, stripe));
    }
    DrawingWorker::runAll(stripes);
    return image;
}

Drawing gazePointSquares(const DrawingContext &context)
{
    constexpr int defaultHalfSize = 10;
    const std::vector<GazePointRecord> records = gazePointRecords(context);
    if (records.empty())
        return {};
    const int size = context.of(DataKind::GazePoints).size;
    const int halfSize = size < 1 ? defaultHalfSize : size;
    return {RasterShape{gazePointImage(records, halfSize)}};
}
