#include "batch/RecordingInput.h"

#include "base/Messages.h"
#include "batch/BatchOptions.h"
#include "batch/RunJournal.h"
#include "import/ilmenau/CorrectionIni.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;

bool hasExtension(const QString &path, QLatin1StringView extension)
{
    return path.endsWith(extension, Qt::CaseInsensitive);
}

QList<RecordingInput> recordingsOfIni(const QString &path, RunJournal &journal)
{
    journal.beginInput();
    QString problem;
    const std::optional<CorrectionIni> ini = readCorrectionIni(path, problem);
    if (ini && !ini->isComplete())
        problem = u"it lacks %1"_s.arg(missingEntries(*ini));
    if (!problem.isEmpty()) {
        messages::critical(QFileInfo(path).fileName(), u"%1: no recording was loaded: %2"_s.arg(path, problem));
        journal.fail();
    }
    journal.addInputWithMessages(path, u"correction ini"_s, problem.isEmpty(), {});
    QList<RecordingInput> inputs;
    if (problem.isEmpty()) {
        for (const MillimetreRecording &recording : ini->recordings())
            inputs << RecordingInput{recording.path, recording.stimulus};
    }
    return inputs;
}

} // namespace

bool isMillimetreText(const QString &path)
{
    return hasExtension(path, ".txt"_L1);
}

QList<RecordingInput> recordingInputs(const QStringList &recordings, const BatchOptions &options, RunJournal &journal)
{
    QList<RecordingInput> inputs;
    for (const QString &path : recordings) {
        if (hasExtension(path, ".ini"_L1))
            inputs += recordingsOfIni(path, journal);
        else if (isMillimetreText(path) && options.millimetres.size.isComplete())
            inputs << RecordingInput{path, options.millimetres};
        else
            inputs << RecordingInput{path, {}};
    }
    return inputs;
}

ImportedFile readInput(const RecordingInput &input, const Log *log)
{
    if (!input.stimulus)
        return readRecording(input.path, log);
    ImportedFile file = readMillimetreRecording({input.path, *input.stimulus});
    if (!file.examination.importOk && file.messages.isEmpty())
        file.messages << corruptRecording(input.path, u"there is no such file"_s);
    return file;
}
