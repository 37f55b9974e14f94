// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/CorrectionIni.h"

#include "base/Messages.h"
#include "base/TextDecoding.h"
#include "import/RecordingText.h"

#include <functional>

namespace {

using namespace Qt::StringLiterals;
using Text = QLatin1StringView;

constexpr Text ellipsesBegin = "#ALL-ELLIPSES-START"_L1;
constexpr Text ellipsesEnd = "#ALL-ELLIPSES-END"_L1;

/// One value: its marker, how it is read, and how it is written.
struct Entry {
    Text marker;
    Text word; ///< for the user
    void (*read)(const QString &value, CorrectionIni &ini);
    QString (*write)(const CorrectionIni &ini);
};

QString slashed(QString path)
{
    return path.replace(u'\\', u'/');
}

template <int StimulusSize::*Size>
constexpr Entry sizeEntry(Text marker, Text word)
{
    return {marker, word, [](const QString &value, CorrectionIni &ini) { ini.stimulus.size.*Size = value.toInt(); },
            [](const CorrectionIni &ini) {
                return ini.stimulus.size.*Size < 1 ? QString() : QString::number(ini.stimulus.size.*Size);
            }};
}

/// In the order in which they are written.
constexpr Entry entries[] = {
    {"#EXAMINATION:"_L1, "the measured recording"_L1,
     [](const QString &value, CorrectionIni &ini) { ini.measuredPath = slashed(value); },
     [](const CorrectionIni &ini) { return ini.measuredPath; }},
    {"#EXAMINATION_CORRECTION:"_L1, "the corrected recording"_L1,
     [](const QString &value, CorrectionIni &ini) { ini.correctedPath = slashed(value); },
     [](const CorrectionIni &ini) { return ini.correctedPath; }},
    {"#EXAMINATION_INI:"_L1, "the calibration ini"_L1,
     [](const QString &value, CorrectionIni &ini) { ini.stimulus.iniPath = value; },
     [](const CorrectionIni &ini) { return ini.stimulus.iniPath; }},
    {"#EXAMINATION_IMG:"_L1, "the image"_L1,
     [](const QString &value, CorrectionIni &ini) { ini.stimulus.imagePath = value; },
     [](const CorrectionIni &ini) { return ini.stimulus.imagePath; }},
    sizeEntry<&StimulusSize::widthPx>("#EXAMINATION_IMG_WDT_PX:"_L1, "the width in pixels"_L1),
    sizeEntry<&StimulusSize::heightPx>("#EXAMINATION_IMG_HDT_PX:"_L1, "the height in pixels"_L1),
    sizeEntry<&StimulusSize::widthMm>("#EXAMINATION_IMG_WDT_MM:"_L1, "the width in millimetres"_L1),
    sizeEntry<&StimulusSize::heightMm>("#EXAMINATION_IMG_HDT_MM:"_L1, "the height in millimetres"_L1),
};

void readEntry(const QString &line, CorrectionIni &ini)
{
    for (const Entry &entry : entries) {
        if (line.contains(entry.marker)) {
            entry.read(QString(line).remove(entry.marker).trimmed(), ini);
            return;
        }
    }
}

} // namespace

bool CorrectionIni::isComplete() const
{
    return !measuredPath.isEmpty() && !correctedPath.isEmpty() && !stimulus.imagePath.isEmpty() &&
           !stimulus.iniPath.isEmpty() && stimulus.size.isComplete();
}

QList<MillimetreRecording> CorrectionIni::recordings() const
{
    return {{measuredPath, stimulus}, {correctedPath, stimulus}};
}

CorrectionIni parseCorrectionIni(QByteArrayView bytes)
{
    const std::optional<QByteArray> wide = utf8OfWideText(bytes);
    const QString text = decodeText(wide ? QByteArrayView(*wide) : bytes);
    CorrectionIni ini;
    bool isEllipse = false;
    for (const QStringView part : QStringTokenizer(text, u'\n')) {
        const QString line = (part.endsWith(u'\r') ? part.chopped(1) : part).toString();
        if (line.contains(ellipsesEnd))
            isEllipse = false;
        else if (isEllipse)
            ini.ellipseLines << line;
        else if (line.contains(ellipsesBegin))
            isEllipse = true;
        else
            readEntry(line, ini);
    }
    return ini;
}

std::optional<CorrectionIni> readCorrectionIni(const QString &path, QString &problem)
{
    const auto bytes = readWholeRecording(path, problem);
    return bytes ? std::optional(parseCorrectionIni(*bytes)) : std::nullopt;
}

std::optional<CorrectionIni> openCorrectionIni(const QString &path)
{
    QString problem;
    std::optional<CorrectionIni> ini = readCorrectionIni(path, problem);
    if (!ini)
        messages::show({messages::Severity::Warning, u"Can not open file"_s, u"File could not be opened:"_s + path,
                        u"Reason: %1."_s.arg(problem)});
    return ini;
}

QString missingEntries(const CorrectionIni &ini)
{
    QStringList missing;
    for (const Entry &entry : entries) {
        if (entry.write(ini).isEmpty())
            missing << u"%1 (%2)"_s.arg(entry.word, entry.marker);
    }
    return missing.join(u", "_s);
}

QString correctionIniText(const CorrectionIni &ini)
{
    QString text;
    for (const Entry &entry : entries)
        text += entry.marker + entry.write(ini) + u'\n';
    text += ellipsesBegin + u"\n"_s;
    for (const QString &line : ini.ellipseLines)
        text += line + u'\n';
    return text + ellipsesEnd + u'\n';
}

QString ellipseHeader()
{
    return u"#NAME;PX;PX_COR;PY;PY_COR;RAD_X;RAD_X_COR;RAD_Y;RAD_Y_COR;ROT;ROT_COR"_s;
}
