// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Log.h"

#include <QFile>
#include <QStringList>
#include <QTextStream>

Log::Log(QString fileName) : m_fileName(std::move(fileName)) {}

void Log::clear() const
{
    QFile::remove(m_fileName);
    QFile file(m_fileName);
    (void)file.open(QIODevice::WriteOnly | QIODevice::Text);
}

void Log::write(const QString &text) const
{
    write(QStringList{text});
}

void Log::write(const QStringList &lines) const
{
    if (m_lines)
        *m_lines << lines;
    if (m_fileName.isEmpty() || lines.isEmpty())
        return;
    QFile file(m_fileName);
    if (!file.open(QIODevice::Append | QIODevice::Text))
        return;
    QTextStream stream(&file);
    for (const QString &line : lines)
        stream << line << '\n';
}
