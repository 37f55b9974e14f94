// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Eye.h"

QList<Eye> eyesOf(EyeMode mode)
{
    switch (mode) {
    case EyeMode::showDominant:
        return {Eye::Dominant};
    case EyeMode::showLeft:
        return {Eye::Left};
    case EyeMode::showRight:
        return {Eye::Right};
    case EyeMode::showMean:
        return {Eye::Mean};
    case EyeMode::showAll:
        break;
    }
    return {Eye::Left, Eye::Right};
}

QLatin1StringView eyeWord(Eye eye)
{
    constexpr QLatin1StringView words[] = {QLatin1StringView("left"), QLatin1StringView("right"),
                                           QLatin1StringView("dominant"), QLatin1StringView("mean")};
    return words[static_cast<std::size_t>(eye)];
}

QLatin1StringView eyeModeWord(EyeMode mode)
{
    return mode == EyeMode::showAll ? QLatin1StringView("all") : eyeWord(eyesOf(mode).constFirst());
}
