// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// Asks the system to back fresh memory that is about to be filled with large pages. The samples of a long recording
/// take hundreds of megabytes, and their first touch in small pages costs more time than the parsing. Only a hint:
/// small areas and systems without the notion are left as they are.
void adviseLargePages(const void *memory, qsizetype bytes);
