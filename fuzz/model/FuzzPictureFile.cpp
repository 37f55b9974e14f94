// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a picture that may be cut short. What stands behind a whole one is no matter.

#include "Check.h"
#include "model/PictureFile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    constexpr qsizetype longestSignature = 4;
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (isWholePicture(bytes) && bytes.size() >= longestSignature)
        check(isWholePicture(bytes + QByteArray(3, '\xFF')));
    return 0;
}
