// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>

/// A picture to look at, made by the program and therefore free of anybody's rights: a bay at sunset with a lighthouse,
/// balloons, a boat, a cottage and poppies. Distinct objects stand apart, so that a scanpath over it can be read.
///
/// @param size  px; the composition is for about 16:10 and is stretched to other forms.
/// @param seed  shapes of hills, clouds and flowers.
QImage makeStimulus(const QSize &size, quint64 seed);
