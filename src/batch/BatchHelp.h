// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// What `--help` prints: the call, the options of this version, the exit codes.
QString batchHelp();

/// What `--keys` prints: every key of the store with its value and what it takes, one a line.
QString keyList();
