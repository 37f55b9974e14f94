// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/bids/BidsMetadata.h"
#include "model/EyeData.h"

/// One line of a table of events, on the clock of the samples.
struct BidsEvent {
    bool operator==(const BidsEvent &) const = default;

    double onsetMs = 0;
    double durationMs = 0;
    QString type;
    std::optional<QPoint> place; ///< px
    qsizetype samples = 0;       ///< 0: not told
};

struct BidsEventList {
    QList<BidsEvent> events;
    qsizetype unreadable = 0; ///< lines without onset or duration; they are left out
};

/// Reads the lines of a table of events.
BidsEventList bidsEvents(QByteArrayView text, const BidsEventColumns &columns);

/// The unpacked bytes of a file, gzip or not; up to 256 MB.
/// @param problem  gets the reason, in words that follow "because", where there is no result.
std::optional<QByteArray> unpackedFile(const QString &path, QString &problem);

/// How many sections were made of events.
struct BidsSections {
    bool operator==(const BidsSections &) const = default;

    qsizetype fixations = 0;
    qsizetype saccades = 0;
    qsizetype losses = 0;
    qsizetype others = 0; ///< of kinds that are no sections, or without a sample
};

/// Makes fixations, saccades and losses of the stream's samples at the times of the events, in the place of those that
/// it has. Samples of a fixation are all of its time, or the valid ones alone where the event counts so many.
/// Each section holds a copy of its samples: from events that overlap so often that the copies are many times the
/// stream, nothing is made.
///
/// @param timeZeroMs  of the samples on the clock of the events.
/// @return nothing for such events.
std::optional<BidsSections> putSections(const QList<BidsEvent> &events, qint64 timeZeroMs, EyeData &stream);
