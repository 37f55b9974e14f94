// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RecordingInput.h"

#include "base/Messages.h"
#include "batch/BatchOptions.h"
#include "batch/RunJournal.h"
#include "import/bids/BidsFiles.h"
#include "import/bids/BidsRecording.h"
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
            inputs << RecordingInput{recording.path, recording.stimulus, false};
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
    for (const QString &path : withoutRepeatedRuns(recordings)) {
        if (hasExtension(path, ".ini"_L1))
            inputs += recordingsOfIni(path, journal);
        else if (isMillimetreText(path) && options.millimetres.size.isComplete())
            inputs << RecordingInput{path, options.millimetres, false};
        else if (const QStringList runs = bidsRunsIn(path); QFileInfo(path).isDir() && !runs.isEmpty())
            for (const QString &run : runs)
                inputs << RecordingInput{run, {}, false};
        else
            inputs << RecordingInput{path, {}, isTable(path, options)};
    }
    return inputs;
}

bool isTable(const QString &path, const BatchOptions &options)
{
    const bool isMillimetres = isMillimetreText(path) && options.millimetres.size.isComplete();
    return !options.layout.isEmpty() && !hasExtension(path, ".data"_L1) && !hasExtension(path, ".ini"_L1) &&
           !isMillimetres && !isBidsSamples(path);
}

ReadInput readInput(const RecordingInput &input, const LayoutRequest *layout)
{
    if (input.isTable && layout)
        return importTable(input.path, *layout);
    if (!input.stimulus)
        return readRecordingOrBids(input.path, nullptr);
    ImportedFile file = readMillimetreRecording({input.path, *input.stimulus});
    if (!file.examination.importOk && file.messages.isEmpty())
        file.messages << corruptRecording(input.path, u"there is no such file"_s);
    return file;
}
