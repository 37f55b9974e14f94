// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFunctionPointer>

class QString;

/// A function of one of the program's own libraries, which bring so much with them that they are loaded when they are
/// first asked for, not at each start.
///
/// @param library  its name without prefix and ending, such as "vistrum_video".
/// @return null where the library is not there, cannot be loaded, or has no such function.
QFunctionPointer ownLibraryFunction(const QString &library, const char *function);
