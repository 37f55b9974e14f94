// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/AoiColors.h"

#include <cstdlib>

QColor aoicolors::next()
{
    constexpr int levels = 256;
    constexpr int alpha = 150;
    const int red = std::rand() % levels;
    const int green = std::rand() % levels;
    const int blue = std::rand() % levels;
    return {red, green, blue, alpha};
}

void aoicolors::seed(unsigned number)
{
    std::srand(number);
}
