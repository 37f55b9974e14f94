// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/PageArea.h"

#include <QScrollBar>

#include <algorithm>

QSize PageArea::minimumSizeHint() const
{
    const QSize least = QScrollArea::minimumSizeHint();
    if (!widget())
        return least;
    const int page = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return {std::max(least.width(), page), least.height()};
}
