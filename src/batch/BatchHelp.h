#pragma once

#include <QString>

/// What `--help` prints: the call, the options of this version, the exit codes.
QString batchHelp();
