// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a correction ini: what is written from it reads as the same.

#include "Check.h"
#include "import/ilmenau/CorrectionIni.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const CorrectionIni ini = parseCorrectionIni(QByteArrayView(data, static_cast<qsizetype>(size)));
    check(ini.isComplete() == missingEntries(ini).isEmpty());
    check(!ini.measuredPath.contains(u'\\') && !ini.correctedPath.contains(u'\\'));
    for (const QString &line : ini.ellipseLines)
        check(!line.contains(u'\n') && !line.contains(QLatin1StringView("#ALL-ELLIPSES-END")));
    return 0;
}
