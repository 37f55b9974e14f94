// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

/// The row of a stored mode; null for one that the table does not have.
template <class Mode>
const Mode *modeAt(std::span<const Mode> modes, int number)
{
    return number >= 0 && static_cast<std::size_t>(number) < modes.size() ? &modes[static_cast<std::size_t>(number)]
                                                                          : nullptr;
}
