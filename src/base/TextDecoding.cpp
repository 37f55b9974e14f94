#include "base/TextDecoding.h"

#include <QStringDecoder>

QString decodeText(QByteArrayView bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}
