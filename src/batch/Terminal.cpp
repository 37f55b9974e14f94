// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/Terminal.h"

#include <QIODevice>

#include <unistd.h>

bool Terminal::writeLine(const QString &text)
{
    const std::lock_guard lock(m_mutex);
    const QString status = m_status;
    eraseStatus();
    const bool written = write(text + u'\n');
    write(status);
    m_status = status;
    return written;
}

void Terminal::setStatus(const QString &text)
{
    const std::lock_guard lock(m_mutex);
    if (m_kind == Kind::Stream || text == m_status)
        return;
    eraseStatus();
    write(text);
    m_status = text;
}

Terminal::Kind Terminal::kindOfStandardError()
{
    return isatty(STDERR_FILENO) == 1 ? Kind::Screen : Kind::Stream;
}

bool Terminal::write(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    return m_device.write(bytes) == bytes.size();
}

/// With blanks rather than a control sequence, which not every terminal knows.
void Terminal::eraseStatus()
{
    if (m_status.isEmpty())
        return;
    write(u'\r' + QString(m_status.size(), u' ') + u'\r');
    m_status.clear();
}
