// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/RequestSplitter.h"

#include <utility>

QList<QByteArray> RequestSplitter::take(QByteArrayView bytes)
{
    QList<QByteArray> requests;
    for (const char byte : bytes) {
        if (m_depth == 0 && byte != '{')
            continue;
        m_request += byte;
        takeByte(byte);
        if (m_depth == 0)
            requests << std::exchange(m_request, {});
    }
    return requests;
}

void RequestSplitter::takeByte(char byte)
{
    if (m_isString) {
        if (m_isEscaped)
            m_isEscaped = false;
        else if (byte == '\\')
            m_isEscaped = true;
        else if (byte == '"')
            m_isString = false;
        return;
    }
    if (byte == '"')
        m_isString = true;
    else if (byte == '{')
        ++m_depth;
    else if (byte == '}')
        --m_depth;
}
