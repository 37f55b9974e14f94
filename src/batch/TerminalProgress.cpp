// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TerminalProgress.h"

#include <algorithm>

void TerminalProgress::open(const QString &label, int steps)
{
    m_label = label;
    m_steps = steps;
    show(0);
}

void TerminalProgress::show(int stepsDone)
{
    m_terminal.setStatus(progressBar(m_label, stepsDone, m_steps));
}

void TerminalProgress::close()
{
    m_terminal.setStatus(QString());
}

QString progressBar(const QString &label, int stepsDone, int steps)
{
    constexpr qsizetype labelWidth = 50;
    constexpr int barWidth = 20;
    const int done = std::clamp(stepsDone, 0, std::max(steps, 0));
    const qint64 percent = steps > 0 ? qint64(100) * done / steps : 100;
    const qint64 filled = barWidth * percent / 100;
    const QString shortLabel =
        label.size() > labelWidth ? label.left(labelWidth - 3) + QLatin1StringView("...") : label;
    return QStringLiteral("%1 [%2%3] %4%")
        .arg(shortLabel, QString(filled, u'#'), QString(barWidth - filled, u'.'), QString::number(percent));
}
