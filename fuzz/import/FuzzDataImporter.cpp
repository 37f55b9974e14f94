// Bytes of any kind as a recording and as a set file. Run it in an empty folder: a log of the recordings is written
// there.

#include "import/DataImporter.h"
#include "import/SetFile.h"

#include <cstdlib>

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

void readRecording(QByteArrayView bytes)
{
    Examination examination;
    DataImporter importer(QString(), &examination, nullptr);
    const bool ok = importer.readBytes(bytes);
    const qsizetype expected = ok ? importer.counts().samples : 0;
    check(examination.leftEye.gazePoints.size() == expected);
    check(examination.rightEye.gazePoints.size() == expected);
    check(examination.meanEye.gazePoints.size() == expected);
    check(!ok || examination.leftEye.gazePoints.constFirst().time == 0);
}

void readSetText(QByteArrayView bytes)
{
    const DescribedExamination described = parseSetFile(bytes, RecordingPath(QStringLiteral("recording.data")));
    const Examination &examination = described.examination;
    check(examination.leftEye.setFileText == examination.setFileText);
    check(examination.dominantEye.isEmpty() || examination.dominantEye == QLatin1StringView("left") ||
          examination.dominantEye == QLatin1StringView("right"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    readRecording(bytes);
    readSetText(bytes);
    const Log log(QStringLiteral("fuzz.log"));
    Examination examination;
    if (size != 0 && data[0] == '#') // with the log the fuzzer is far slower
        DataImporter(QString(), &examination, &log).readBytes(bytes);
    return 0;
}
