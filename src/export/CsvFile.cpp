// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/CsvFile.h"

#include <QStringEncoder>

namespace {

QString withPlatformLineEnds(QString block)
{
#ifdef Q_OS_WIN
    block.replace(u'\n', QLatin1StringView("\r\n"));
#endif
    return block;
}

QByteArray utf16(const QString &block)
{
    if (block.isEmpty())
        return {}; // no mark alone
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    return encoder(withPlatformLineEnds(block));
}

} // namespace

bool CsvFile::append(const QString &block)
{
    const bool taken = m_file.write(utf16(block));
    m_state = taken && m_state != State::Failed ? State::Open : State::Failed;
    return taken;
}

CsvFile::State CsvFile::commit()
{
    if (m_state == State::Untouched)
        return m_state;
    const std::optional<QString> problem = m_file.commit();
    m_problem = problem.value_or(QString());
    m_state = problem ? State::Failed : State::Written;
    return m_state;
}
