// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>

/// What must hold for any input; the fuzzer keeps the input for which it does not.
inline void check(bool holds)
{
    if (!holds)
        std::abort();
}
