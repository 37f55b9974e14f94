// SPDX-License-Identifier: GPL-3.0-or-later
// The import of recordings in millimetres, on the panel of the files.

#include "import/panel/DataWidget.h"

#include "base/Messages.h"
#include "import/ilmenau/CorrectionIni.h"
#include "model/PictureFile.h"
#include "settings/StoredKeys.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;

MillimetreStimulus storedStimulus()
{
    return {.size = {.widthPx = readStored(keys::correctionWidthPx),
                     .heightPx = readStored(keys::correctionHeightPx),
                     .widthMm = readStored(keys::correctionWidthMm),
                     .heightMm = readStored(keys::correctionHeightMm)},
            .imagePath = readStored(keys::correctionImagePath),
            .iniPath = readStored(keys::correctionIniPath)};
}

void storeFolderOf(const QString &path)
{
    writeStored(keys::correctionFolder, QFileInfo(path).path());
}

} // namespace

void DataWidget::sltImportIlmenau()
{
    if (!m_model || !m_window)
        return;
    if (!m_questions->useLastSettings() && !askForStimulus())
        return;
    const MillimetreStimulus stimulus = storedStimulus();
    if (!stimulus.size.isComplete()) {
        messages::warning(u"Invalid values"_s, u"Invalid values"_s);
        return;
    }
    const QStringList paths = m_questions->recordings(readStored(keys::correctionFolder));
    if (paths.isEmpty())
        return;
    storeFolderOf(paths.constFirst());
    QList<MillimetreRecording> recordings;
    for (const QString &path : paths)
        recordings << MillimetreRecording{path, stimulus};
    importMillimetres(recordings);
}

/// Asks for the picture, its size on the screen and the calibration, and stores them.
/// @return false where the user or a useless answer ends the import.
bool DataWidget::askForStimulus()
{
    if (!askForImage())
        return false;
    for (const auto &[label, key] : {std::pair(u"Input Width in mm"_s, keys::correctionWidthMm),
                                     std::pair(u"Input Height in mm"_s, keys::correctionHeightMm)})
    {
        const std::optional<int> length = m_questions->length(label, readStored(key));
        if (!length)
            return false;
        writeStored(key, *length);
    }
    return storedStimulus().size.isComplete() && askForCalibration();
}

bool DataWidget::askForImage()
{
    const QString path = m_questions->image(readStored(keys::correctionFolder));
    if (path.isEmpty())
        return false;
    QString problem;
    const QImage image = readPicture(path, &problem);
    writeStored(keys::correctionImagePath, path);
    writeStored(keys::correctionWidthPx, image.width());
    writeStored(keys::correctionHeightPx, image.height());
    storeFolderOf(path);
    if (image.isNull())
        m_window->tell({u"The picture cannot be read: %1"_s.arg(QFileInfo(path).fileName()),
                        {u"%1: %2. Its size in pixels is needed: save it anew, as PNG or JPEG."_s.arg(path, problem)},
                        {}});
    return true;
}

bool DataWidget::askForCalibration()
{
    const QString path = m_questions->calibration(readStored(keys::correctionFolder));
    if (path.isEmpty() || !QFileInfo::exists(path))
        return false;
    writeStored(keys::correctionIniPath, path);
    storeFolderOf(path);
    return true;
}

void DataWidget::sltImportIlmenau_internal(QString filepath, int width, int hight, int width_mm, int hight_mm,
                                           QString img_path, QString ini_path)
{
    if (!m_model || !m_window)
        return;
    importMillimetres({{filepath, {{width, hight, width_mm, hight_mm}, img_path, ini_path}}});
}

void DataWidget::sltImportIlmenauINI()
{
    if (!m_model || !m_window)
        return;
    const QString path = m_questions->correctionIni(readStored(keys::correctionFolder));
    if (path.isEmpty())
        return;
    const std::optional<CorrectionIni> ini = openCorrectionIni(path);
    if (!ini)
        return;
    if (ini->isComplete()) {
        const messages::Run told; // what is doubtful in both stands in one box
        for (const auto &[recording, stimulus] : ini->recordings()) {
            const StimulusSize &size = stimulus.size;
            sltImportIlmenau_internal(recording, size.widthPx, size.heightPx, size.widthMm, size.heightMm,
                                      stimulus.imagePath, stimulus.iniPath);
        }
    } else {
        m_window->tell({u"No recording was loaded: %1 lacks entries"_s.arg(QFileInfo(path).fileName()),
                        {u"%1 lacks %2."_s.arg(path, missingEntries(*ini))},
                        {}});
    }
    Q_EMIT sigAddEllipses(ini->ellipseLines);
}

/// A file that is not there is no box, but it shows.
void DataWidget::importMillimetres(const QList<MillimetreRecording> &recordings)
{
    const messages::Run told; // as `import` does
    const QList<int> numbers = importMillimetreRecordings(
        recordings, *m_model, [this](const Examination &examination) { m_window->addTableRow(examination); });
    if (!numbers.isEmpty())
        m_window->refreshPlainBackground();
    for (const MillimetreRecording &recording : recordings) {
        if (!QFileInfo::exists(recording.path))
            m_window->tell({u"No such file: %1"_s.arg(QFileInfo(recording.path).fileName()), {recording.path}, {}});
    }
    Q_EMIT sigLoadTimeline();
}
