// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The simplest correction: all positions of a recording are moved by one distance. An example for those who write
/// programs of their own; see docs/correction-programs.md.
namespace correctionexample {

/// How far the corrected points of a table lie from the original ones in the mean, in mm; nothing without a point.
struct Shift {
    bool operator==(const Shift &) const = default;

    double x = 0;
    double y = 0;
};
std::optional<Shift> meanShift(const QByteArray &table);

/// The recording with each position moved; everything else keeps its bytes. Nothing where a column of positions is
/// missing.
std::optional<QByteArray> shifted(const QByteArray &recording, const Shift &shift);

/// The first recording with the mean of both in each position. Nothing where they differ in their columns or in the
/// number of their lines.
std::optional<QByteArray> averaged(const QByteArray &first, const QByteArray &second);

/// What the programs do with the arguments behind their name.
/// @return what went wrong, for the user; empty where all is well.
QString correct(const QStringList &arguments);
QString average(const QStringList &arguments);

} // namespace correctionexample
