// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as the text of a stored value, read as each type that parameters have. What a reading gives is a
// value that comes back when it is stored.

#include "base/TextDecoding.h"
#include "Check.h"
#include "settings/Parameter.h"

#include <cmath>

namespace {

void dropLine(QtMsgType, const QMessageLogContext &, const QString &) {}

template <class T>
void checkRoundTrip(const QVariant &stored)
{
    const T value = fromStored<T>(stored);
    const QVariant text = toStored(value).toString(); // a store holds text
    check(fromStored<T>(text) == value);
}

void checkNumber(const QVariant &stored)
{
    const auto value = fromStored<double>(stored);
    if (!std::isnan(value))
        checkRoundTrip<double>(stored);
}

void checkColor(const QVariant &stored)
{
    const auto color = fromStored<QColor>(stored);
    if (!color.isValid())
        return;
    check(fromStored<QColor>(toStored(color)).rgb() == color.rgb()); // names have no alpha
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(dropLine); // a line for each text that is no colour would be most of the work
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const auto *bytes = reinterpret_cast<const char *>(data);
    const QVariant stored = decodeText(QByteArray::fromRawData(bytes, static_cast<qsizetype>(size)));
    checkRoundTrip<int>(stored);
    checkRoundTrip<bool>(stored);
    checkRoundTrip<QString>(stored);
    checkNumber(stored);
    checkColor(stored);
    return 0;
}
