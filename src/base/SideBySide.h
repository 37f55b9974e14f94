// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <functional>

/// How many threads can work at a time on this machine, at least 1.
int coreCount();

/// Does pieces of work, such as one for each recording, in threads beside each other.
///
/// Meanwhile the calling thread refreshes its progress; that of the threads is hidden. One piece, or one thread, is
/// work of the calling thread itself. Errors: what `work` throws is thrown here, in the place of `taken` of that piece.
///
/// @param threads  at least 1; no more than pieces are started.
/// @param work     called once for each index below `count`, in any order; may only write what its index owns.
/// @param taken    called in the calling thread in the order of the indices, each after its work.
void sideBySide(qsizetype count, int threads, const std::function<void(qsizetype)> &work,
                const std::function<void(qsizetype)> &taken);
