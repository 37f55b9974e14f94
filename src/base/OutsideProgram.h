// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// A call of a program that is not ours. Arguments reach it as they are: no shell reads them.
struct OutsideCall {
    QString program;
    QStringList arguments;
    QString outputFile = {}; ///< gets its standard output; empty: that is kept for messages
    int startTimeoutMs = 30'000;
    std::optional<int> endTimeoutMs = {}; ///< nothing: it may take its time
};

struct OutsideResult {
    enum class End {
        Done,       ///< with exit code 0
        NotStarted, ///< it could not be started, or not in time
        Failed,     ///< it ended with an error, or crashed
        TimedOut,   ///< it has not ended in time, and goes on
        Cancelled   ///< nobody waits any more; it goes on
    };

    End end = End::Done;
    QString reason; ///< what went wrong, in words for the user
    QString output; ///< what it said, without standard output where that has a file; the end of it, if it is long
};

/// Runs a program and waits for it. One that has not ended when the waiting does goes on, even beyond the end of ours.
///
/// @param goOn  asked several times a second; false ends the waiting.
OutsideResult runOutside(const OutsideCall &call, const std::function<bool()> &goOn);

/// The program of this name in the folder: with ".exe" or, on systems other than Windows, first without.
/// @return its path; that with ".exe" where neither is there.
QString programIn(const QString &folder, const QString &name);
