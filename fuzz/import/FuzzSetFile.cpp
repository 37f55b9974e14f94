// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as the set file of a recording.

#include "Check.h"
#include "import/SetFile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const DescribedExamination described = parseSetFile(bytes, RecordingPath(QStringLiteral("recording.data")));
    const Examination &examination = described.examination;
    check(examination.leftEye.setFileText == examination.setFileText);
    check(examination.rightEye.subjectText == examination.subjectText);
    check(examination.dominantEye.isEmpty() || examination.dominantEye == QLatin1StringView("left") ||
          examination.dominantEye == QLatin1StringView("right"));
    check(examination.properties.contains(QStringLiteral("group")));
    return 0;
}
