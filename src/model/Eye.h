// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>
#include <QList>

#include <array>

/// A stream of an examination, or the pool of that stream over the checked examinations. Which eye is the dominant one
/// differs from one examination to the next.
enum class Eye { Left = 0, Right = 1, Dominant = 2, Mean = 3 };
inline constexpr std::array allEyes{Eye::Left, Eye::Right, Eye::Dominant, Eye::Mean};

/// The user's choice of eyes for drawing and exports; the values are stored and shown in this order.
enum class EyeMode { showAll = 0, showDominant = 1, showLeft = 2, showRight = 3, showMean = 4 };

inline constexpr std::array allEyeModes{EyeMode::showAll, EyeMode::showDominant, EyeMode::showLeft, EyeMode::showRight,
                                        EyeMode::showMean};

/// The eyes that the choice stands for, in the order in which they are drawn and written: left before right for
/// `showAll`.
QList<Eye> eyesOf(EyeMode mode);

/// "left", "right", "dominant" or "mean", as file names have it.
QLatin1StringView eyeWord(Eye eye);

/// "all", or the word of the one eye.
QLatin1StringView eyeModeWord(EyeMode mode);
