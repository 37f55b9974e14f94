// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

/// For a page that may be higher than its tab, but is never cut or scrolled sideways: as wide as the page needs beside
/// the vertical scroll bar.
class PageArea final : public QScrollArea {
    Q_OBJECT

public:
    using QScrollArea::QScrollArea;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
