// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/bids/BidsEvents.h"

#include "import/RecordingText.h"
#include "import/tables/TableBytes.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype largestEvents = qsizetype(256) << 20;

/// The field with this number; empty where the line ends before it.
QByteArrayView fieldOf(QByteArrayView line, int number)
{
    for (; number > 1; --number) {
        const qsizetype tab = line.indexOf('\t');
        if (tab < 0)
            return {};
        line = line.sliced(tab + 1);
    }
    const qsizetype end = line.indexOf('\t');
    return end < 0 ? line : line.first(end);
}

std::optional<double> numberInColumn(QByteArrayView line, int column)
{
    bool isNumber = false;
    const double number = column > 0 ? fieldOf(line, column).toDouble(&isNumber) : 0;
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<QPoint> placeOf(QByteArrayView line, const BidsEventColumns &columns)
{
    constexpr double largest = 1e6;
    const std::optional<double> x = numberInColumn(line, columns.x);
    const std::optional<double> y = numberInColumn(line, columns.y);
    if (!x || !y || std::abs(*x) > largest || std::abs(*y) > largest)
        return std::nullopt;
    return QPoint(static_cast<int>(*x), static_cast<int>(*y));
}

/// As the times of samples are rounded: halves upwards, before zero as well.
double nearestMs(double timeMs)
{
    return std::floor(timeMs + 0.5);
}

/// The samples of a time, both ends included. Their times ascend, or the search finds some of them.
QList<GazePoint> samplesBetween(const QList<GazePoint> &samples, double startMs, double endMs)
{
    const auto time = [](const GazePoint &sample) { return static_cast<double>(sample.time); };
    const auto begin = std::ranges::lower_bound(samples, startMs, {}, time);
    const auto end = std::ranges::upper_bound(begin, samples.cend(), endMs, {}, time);
    return {begin, end};
}

QList<GazePoint> withValidity(const QList<GazePoint> &samples, bool isValid)
{
    QList<GazePoint> chosen;
    std::ranges::copy_if(samples, std::back_inserter(chosen),
                         [&](const GazePoint &sample) { return sample.validFlag == isValid; });
    return chosen;
}

bool isSection(const QString &type)
{
    return type == "fixation"_L1 || type == "saccade"_L1 || type == "loss"_L1;
}

/// @param all  the samples of its time.
void putSection(const BidsEvent &event, const QList<GazePoint> &all, EyeData &stream, BidsSections &made)
{
    const QList<GazePoint> valid = withValidity(all, true);
    if (event.type == "fixation"_L1 && !valid.isEmpty()) {
        const int number = static_cast<int>(++made.fixations);
        const bool countsValid = event.samples == valid.size();
        stream.scanpath << Fixation(countsValid ? valid : all, u"fixation"_s, event.place.value_or(meanOf(valid)),
                                    number);
    } else if (event.type == "saccade"_L1 && !valid.isEmpty()) {
        stream.saccades << Saccade(valid, u"saccade"_s, static_cast<int>(++made.saccades), nullptr);
    } else if (event.type == "loss"_L1 && valid.size() < all.size()) {
        stream.invalids << Invalid(withValidity(all, false), u"invalid"_s, static_cast<int>(++made.losses), nullptr);
    } else {
        ++made.others;
    }
}

} // namespace

BidsEventList bidsEvents(QByteArrayView text, const BidsEventColumns &columns)
{
    BidsEventList list;
    LineWalk walk(text);
    while (const auto line = walk.next()) {
        const std::optional<double> onset = numberInColumn(*line, columns.onset);
        const std::optional<double> duration = numberInColumn(*line, columns.duration);
        const QString type = QString::fromUtf8(fieldOf(*line, columns.type)).trimmed().toLower();
        if (!onset || !duration || *duration < 0) {
            list.unreadable += isSection(type) ? 1 : 0; // messages have no duration
            continue;
        }
        constexpr double most = 1e9;
        const double samples = numberInColumn(*line, columns.samples).value_or(0);
        list.events << BidsEvent{*onset * columns.onsetMs, *duration * columns.durationMs, type,
                                 placeOf(*line, columns),
                                 samples > 0 && samples < most ? static_cast<qsizetype>(samples) : 0};
    }
    return list;
}

std::optional<QByteArray> unpackedFile(const QString &path, QString &problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = file.errorString();
        return std::nullopt;
    }
    TableBytes pieces(file, TableEncoding::Utf8, 0);
    QByteArray bytes;
    while (pieces.appendPiece(bytes)) {
        if (bytes.size() > largestEvents) {
            problem = u"it has more than 256 MB of events"_s;
            return std::nullopt;
        }
    }
    if (pieces.problem()) {
        problem = u"it is "_s + pieces.problem()->found;
        return std::nullopt;
    }
    return bytes;
}

std::optional<BidsSections> putSections(const QList<BidsEvent> &events, qint64 timeZeroMs, EyeData &stream)
{
    stream.scanpath.clear();
    stream.saccades.clear();
    stream.invalids.clear();
    const qsizetype mostCopies = 8 * stream.gazePoints.size() + 10000;
    qsizetype copies = 0;
    BidsSections made;
    for (const BidsEvent &event : events) {
        if (!isSection(event.type)) {
            ++made.others;
            continue;
        }
        const double startMs = nearestMs(event.onsetMs) - static_cast<double>(timeZeroMs);
        const double endMs = nearestMs(event.onsetMs + event.durationMs) - static_cast<double>(timeZeroMs);
        const QList<GazePoint> samples = samplesBetween(stream.gazePoints, startMs, endMs);
        copies += samples.size();
        if (copies > mostCopies) {
            stream.scanpath.clear();
            stream.saccades.clear();
            stream.invalids.clear();
            return std::nullopt;
        }
        putSection(event, samples, stream, made);
    }
    return made;
}
