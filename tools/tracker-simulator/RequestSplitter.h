// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

/// Cuts what a client sends into JSON objects, as a server does that knows strings.
class RequestSplitter {
public:
    QList<QByteArray> take(QByteArrayView bytes);

private:
    void takeByte(char byte);

    QByteArray m_request;
    int m_depth = 0;
    bool m_isString = false;
    bool m_isEscaped = false;
};
