// SPDX-License-Identifier: GPL-3.0-or-later
// What the correction page does with outside programs.

#include "import/panel/CorrectionControl.h"
#include "ui_CorrectionControl.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/NamedPlace.h"
#include "commands/panel/OutsideProgramDialog.h"
#include "import/ilmenau/CorrectionIni.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;
using End = OutsideResult::End;

/// Writes a file of the export.
/// @return whether to go on: a disk that is full is told, and does not stop the program that reads the file.
bool writeExport(const QString &path, const QString &text)
{
    const auto problem = replaceFile(path, text.toUtf8());
    if (!problem)
        return true;
    const bool canBeMade = QFileInfo(QFileInfo(path).path()).isWritable() && !QFileInfo(path).isDir();
    if (canBeMade)
        messages::show({messages::Severity::Warning, u"Cant flush to correction file"_s,
                        u"Cant flush to correction file. Try to continue."_s, *problem});
    else
        messages::show({messages::Severity::Warning, u"Correction data export"_s,
                        u"Could not open/create file: "_s + path, *problem});
    return canBeMade;
}

int wholeSize(float size)
{
    return static_cast<int>(size);
}

MillimetreStimulus millimetreStimulus(const Examination &examination)
{
    return {.size = {.widthPx = wholeSize(examination.imageWidthPx),
                     .heightPx = wholeSize(examination.imageHeightPx),
                     .widthMm = wholeSize(examination.imageWidthMm),
                     .heightMm = wholeSize(examination.imageHeightMm)},
            .imagePath = examination.imagePath,
            .iniPath = examination.iniPath};
}

} // namespace

QList<NamedPair> CorrectionControl::selectedPairs() const
{
    QList<NamedPair> pairs;
    for (const int row : selectedRows())
        pairs << NamedPair{m_ui->ellipses_list->item(row)->text(), m_pairs[row]};
    return pairs;
}

void CorrectionControl::sltExportPoints()
{
    if (!m_model)
        return;
    const QString folder = m_questions->folder();
    if (folder.isEmpty())
        return;
    const QList<NamedPair> ellipses = selectedPairs();
    const QStringList sources = sourcesOf(ellipses);
    if (sources.isEmpty())
        tell(u"The selected ellipses have no points: \"Set points to ellipses\" gives them some"_s);
    QList<Export> exports;
    for (const QString &source : sources) {
        const std::optional<Export> each = askForExport(source, folder);
        if (!each || !writeFiles(*each, ellipses))
            continue;
        if (run(u"subsequent-gaze-correction"_s, {each->table, each->examination->iniPath, source, each->corrected}))
            exports << *each;
    }
    importCorrected(exports);
}

/// Nothing where the user cancels, and where no examination has the source any more.
std::optional<CorrectionControl::Export> CorrectionControl::askForExport(const QString &source, const QString &folder)
{
    const QString name = fileNameOf(source);
    const QString table = name + u"_correction.csv"_s;
    const QString proposal = QDir(folder).filePath(name + u"_cor.txt"_s);
    QString chosen = m_questions->saveName(u"Save file"_s, proposal);
    while (fileNameOf(chosen).compare(table, Qt::CaseInsensitive) == 0) {
        const QString text = u"This is the output File please specify a different name!!!"_s;
        messages::warning(text, text);
        chosen = m_questions->saveName(u"Save file"_s, proposal);
    }
    if (chosen.isEmpty())
        return std::nullopt;
    const QList<Examination> &examinations = m_model->examinations();
    const auto found = std::find_if(examinations.begin(), examinations.end(),
                                    [&](const Examination &each) { return each.baseName == source; });
    if (found == examinations.end()) {
        messages::warning(u"Could not find ini"_s, u"Could not find ini for "_s + source);
        return std::nullopt;
    }
    return Export{&*found, source, chosen, QDir(folder).filePath(table)};
}

bool CorrectionControl::writeFiles(const Export &exported, const QList<NamedPair> &ellipses)
{
    const CorrectionIni ini{.measuredPath = exported.source,
                            .correctedPath = exported.corrected,
                            .stimulus = millimetreStimulus(*exported.examination),
                            .ellipseLines = ellipseLines(ellipses, exported.source)};
    return writeExport(exported.corrected + u".ini"_s, correctionIniText(ini)) &&
           writeExport(exported.table, correctionTable(ellipses, exported.source));
}

/// @return whether the program has done its work; if not, the user has been told.
bool CorrectionControl::run(const QString &program, const QStringList &arguments)
{
    const OutsideCall call{.program = programIn(m_programFolder, program), .arguments = arguments};
    const OutsideResult result = runBehindDialog(call, u"Please wait for external calc ..."_s, this);
    switch (result.end) {
    case End::Done:
        return true;
    case End::Cancelled:
        tell(u"%1 goes on; its result is not loaded"_s.arg(program));
        return false;
    case End::NotStarted:
    case End::Failed:
    case End::TimedOut:
        break;
    }
    const QString text = result.end == End::NotStarted
                             ? u"%1 could not be started: %2"_s.arg(call.program, result.reason)
                             : u"%1 computed nothing: %2."_s.arg(call.program, result.reason);
    messages::show({messages::Severity::Warning, u"Correction program"_s, text, result.output});
    return false;
}

void CorrectionControl::import(const MillimetreRecording &recording)
{
    const auto &[size, imagePath, iniPath] = recording.stimulus;
    Q_EMIT sigImport(recording.path, size.widthPx, size.heightPx, size.widthMm, size.heightMm, imagePath, iniPath);
}

/// The examinations are looked at before the first import, which moves them.
void CorrectionControl::importCorrected(const QList<Export> &exports)
{
    QList<MillimetreRecording> recordings;
    QString text;
    for (const Export &each : exports) {
        recordings << MillimetreRecording{each.corrected, millimetreStimulus(*each.examination)};
        text += fileNameOf(each.source) + u":\n"_s + calibrationLines(each.examination->iniPath) +
                u"-------------------------------------\n"_s;
    }
    for (const MillimetreRecording &recording : std::as_const(recordings))
        import(recording);
    if (!text.isEmpty())
        messages::information(u"Correction values"_s, text);
}

void CorrectionControl::sltAVG2Cor()
{
    const QString first = m_questions->iniFile(u"Select ini file 1"_s);
    const QString second = first.isEmpty() ? QString() : m_questions->iniFile(u"Select ini file 2"_s);
    const QString output = second.isEmpty() ? QString() : m_questions->saveName(u"Save correction file"_s, QString());
    if (output.isEmpty())
        return;
    const std::optional<CorrectionIni> ini = openCorrectionIni(first);
    if (!ini)
        return;
    if (run(u"gaze-corr-averaging"_s, {first, second, output}))
        import({output, ini->stimulus});
}
