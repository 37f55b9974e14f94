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

/// When this thread has shown something last.
std::chrono::steady_clock::time_point &lastShown()
{
    static thread_local std::chrono::steady_clock::time_point shown;
    return shown;
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
    innermostProgress() = this;
    if (!m_outer || isDue())
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
    if (m_done == m_steps && m_isOpen)
        show();
    else
        showIfDue();
}

void Progress::refresh()
{
    if (innermostProgress())
        innermostProgress()->showIfDue();
}

void Progress::open()
{
    for (Progress *outer = m_outer; outer; outer = outer->m_outer)
        outer->close();
    if (display())
        display()->open(m_label, m_steps);
    m_isOpen = true;
    lastShown() = std::chrono::steady_clock::now();
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
    lastShown() = std::chrono::steady_clock::now();
}

void Progress::showIfDue()
{
    if (isDue())
        show();
}

bool Progress::isDue()
{
    return display() && std::chrono::steady_clock::now() - lastShown() >= display()->interval();
}
