// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"

namespace {

std::unique_ptr<Progress::IDisplay> &installedDisplay()
{
    static std::unique_ptr<Progress::IDisplay> installed;
    return installed;
}

int &hiddenDepth()
{
    static thread_local int depth = 0;
    return depth;
}

/// Null where nothing is to be shown.
Progress::IDisplay *display()
{
    return hiddenDepth() > 0 ? nullptr : installedDisplay().get();
}

Progress *&innermostProgress()
{
    static thread_local Progress *current = nullptr;
    return current;
}

} // namespace

std::unique_ptr<Progress::IDisplay> Progress::install(std::unique_ptr<IDisplay> next)
{
    return std::exchange(installedDisplay(), std::move(next));
}

Progress::Hidden::Hidden()
{
    ++hiddenDepth();
}

Progress::Hidden::~Hidden()
{
    --hiddenDepth();
}

Progress::Progress(const QString &label, int steps) : m_label(label), m_steps(steps), m_outer(innermostProgress())
{
    if (m_outer)
        m_outer->close();
    innermostProgress() = this;
    open();
}

Progress::~Progress()
{
    close();
    innermostProgress() = m_outer;
}

void Progress::advance()
{
    ++m_done;
    show();
}

void Progress::tick()
{
    ++m_done;
    showIfDue();
}

void Progress::refresh()
{
    if (innermostProgress())
        innermostProgress()->showIfDue();
}

void Progress::open()
{
    if (display())
        display()->open(m_label, m_steps);
    m_isOpen = true;
    m_shown = std::chrono::steady_clock::now();
}

void Progress::close()
{
    if (display() && m_isOpen)
        display()->close();
    m_isOpen = false;
}

void Progress::show()
{
    if (!m_isOpen)
        open();
    if (display())
        display()->show(m_done);
    m_shown = std::chrono::steady_clock::now();
}

void Progress::showIfDue()
{
    constexpr std::chrono::milliseconds interval(50); // twenty pictures a second look like one movement
    if (std::chrono::steady_clock::now() - m_shown >= interval)
        show();
}
