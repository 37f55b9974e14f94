// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a log of samples and events. The first byte chooses whether it is split, the second the size of
// the pieces.

#include "TableChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    if (size < 2)
        return 0;
    TableLayout layout;
    layout.kind = TableKind::EventLog;
    if (data[0] & 1)
        layout.beginMessage = QStringLiteral("TRIALID");
    if (data[0] & 2)
        layout.endMessage = QStringLiteral("TRIAL_RESULT");
    checkTable(QByteArray(reinterpret_cast<const char *>(data + 2), static_cast<qsizetype>(size) - 2), layout,
               data[1] % 64 + 1);
    return 0;
}
