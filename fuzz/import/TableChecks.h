// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Check.h"
#include "import/tables/RecordingSamples.h"
#include "import/tables/TableFile.h"

#include <QBuffer>

#include <cmath>

/// A piece that holds an input of the fuzzer whole. The reader's own size would be a megabyte of fresh memory each
/// time.
constexpr qsizetype wholePiece = 4096;

/// Reads the bytes by a layout at once and in small pieces: both give the same, and what must hold for any table.
inline void checkTable(QByteArray bytes, const TableLayout &layout, qsizetype pieceBytes)
{
    const auto readAll = [&](qsizetype piece) {
        QBuffer buffer(&bytes);
        check(buffer.open(QIODevice::ReadOnly));
        return readTable(buffer, QStringLiteral("table.csv"), layout, {.pieceBytes = piece});
    };
    auto whole = readAll(wholePiece);
    const auto cut = readAll(pieceBytes);
    check(whole.index() == cut.index());
    if (const auto *problem = std::get_if<TableProblem>(&whole)) {
        check(!problem->found.isEmpty());
        return;
    }
    auto &content = std::get<TableContent>(whole);
    const auto &inPieces = std::get<TableContent>(cut);
    check(content.recordings.size() == inPieces.recordings.size());
    for (qsizetype i = 0; i < content.recordings.size(); ++i) {
        TableRecording &recording = content.recordings[i];
        check(recording.samples == inPieces.recordings[i].samples);
        check(recording.samples.size() == recording.facts.samples);
        for (const TableSample &sample : std::as_const(recording.samples)) {
            check(std::isfinite(sample.timeMs));
            check(!sample.leftValid || !std::isnan(sample.left.x + sample.left.y - sample.left.x));
        }
        Examination examination;
        const bool isFilled = putSamples(recording, examination);
        check(isFilled == !examination.leftEye.gazePoints.isEmpty());
    }
}
