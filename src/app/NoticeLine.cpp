// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NoticeLine.h"

#include "base/Messages.h"

NoticeLine::NoticeLine(QWidget *parent) : QPushButton(parent)
{
    setFlat(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long line must not widen the window
    setStyleSheet(QStringLiteral("text-align: left; padding: 2px;"));
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QPushButton::clicked, this, &NoticeLine::showWarnings);
}

void NoticeLine::tell(const Notice &notice)
{
    m_warnings = notice.warnings;
    QString text = notice.text;
    if (m_warnings.size() == 1)
        text += QStringLiteral("; 1 warning");
    else if (!m_warnings.isEmpty())
        text += QStringLiteral("; %1 warnings").arg(m_warnings.size());
    setText(text.replace(u'&', QStringLiteral("&&")));
    setCursor(m_warnings.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    setToolTip(m_warnings.isEmpty() ? QString() : QStringLiteral("Click to read the warnings"));
}

void NoticeLine::showWarnings() const
{
    if (!m_warnings.isEmpty())
        messages::warning(QStringLiteral("Warnings"), m_warnings.join(u'\n'));
}
