// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/PageArea.h"

#include <QEvent>
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

/// A page that comes to need more room tells the area only, not the layout around it.
bool PageArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}
