// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCryptographicHash>
#include <QString>

/// Tells one content from another.
struct ContentDigest {
    bool operator==(const ContentDigest &) const = default;

    qint64 bytes = 0;
    QString sha256; ///< hexadecimal
};

inline ContentDigest contentDigest(QByteArrayView content)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(content);
    return {content.size(), QString::fromLatin1(hash.result().toHex())};
}
