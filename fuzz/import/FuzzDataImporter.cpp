// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a recording. Run it in an empty folder: a log is written there.

#include "Check.h"
#include "import/DataImporter.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const Log file(QStringLiteral("fuzz.log"));
    const bool isLogged = size != 0 && data[0] == '#' && size % 64 == 0; // with the log it is far slower
    Examination examination;
    DataImporter importer(QString(), &examination, isLogged ? &file : nullptr);
    const bool ok = importer.readBytes(bytes);
    const qsizetype expected = ok ? importer.counts().samples : 0;
    check(examination.leftEye.gazePoints.size() == expected);
    check(examination.rightEye.gazePoints.size() == expected);
    check(examination.meanEye.gazePoints.size() == expected);
    check(!ok || examination.leftEye.gazePoints.constFirst().time == 0);
    return 0;
}
