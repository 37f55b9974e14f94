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
    m_notice = notice;
    refresh();
}

void NoticeLine::withdraw(const Notice &notice)
{
    if (m_notice == notice)
        tell({});
}

void NoticeLine::refresh()
{
    const QStringList &warnings = m_notice.warnings;
    QString text = m_notice.text;
    if (m_notice.kind && m_isDrawn && !m_isDrawn(*m_notice.kind))
        text += QStringLiteral("; not drawn: mode none");
    if (warnings.size() == 1)
        text += QStringLiteral("; 1 warning");
    else if (!warnings.isEmpty())
        text += QStringLiteral("; %1 warnings").arg(warnings.size());
    setText(text.replace(u'&', QStringLiteral("&&")));
    setCursor(warnings.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    setToolTip(warnings.isEmpty() ? QString() : QStringLiteral("Click to read the warnings"));
}

void NoticeLine::showWarnings() const
{
    if (!m_notice.warnings.isEmpty())
        messages::warning(QStringLiteral("Warnings"), m_notice.warnings.join(u'\n'));
}
