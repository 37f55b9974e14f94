// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TextDecoding.h"

#include <QStringDecoder>

QString decodeText(QByteArrayView bytes)
{
    // Stateless: a character that the end cuts off is an error, not one to be continued.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}
