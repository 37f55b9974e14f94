#include "export/CsvFile.h"

#include <QFile>
#include <QTextStream>

CsvFile::CsvFile(QString path) : m_path(std::move(path)) {}

bool CsvFile::append(const QString &block)
{
    const bool written = write(block);
    if (!written)
        m_state = State::Failed;
    else if (m_state == State::Untouched)
        m_state = State::Written;
    return written;
}

bool CsvFile::write(const QString &block)
{
    QFile file(m_path);
    QIODevice::OpenMode mode = QIODevice::WriteOnly | QIODevice::Text;
    if (m_replaced) {
        mode |= QIODevice::Append;
    } else {
        file.remove();
        mode |= QIODevice::Truncate; // an old file that cannot be removed but written must not show through
    }
    if (!file.open(mode))
        return false;
    m_replaced = true;
    QTextStream stream(&file);
    stream.setEncoding(QStringConverter::Utf16LE);
    stream.setGenerateByteOrderMark(true);
    stream << block;
    stream.flush();
    return stream.status() == QTextStream::Ok;
}
