// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <stop_token>

class QWidget;

/// While it lives, progress is shown with a button that stops the work. To be used on the main thread.
class CancellableProgress {
public:
    explicit CancellableProgress(QWidget *parent);
    ~CancellableProgress();
    CancellableProgress(const CancellableProgress &) = delete;
    CancellableProgress &operator=(const CancellableProgress &) = delete;

    /// For the work; it is asked to stop when the button is pressed.
    std::stop_token token() const { return m_stop.get_token(); }

private:
    std::stop_source m_stop;
    std::unique_ptr<Progress::IDisplay> m_before;
};
