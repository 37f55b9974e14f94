// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/OutsideComparison.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"

#include <QMap>

namespace {

using namespace Qt::StringLiterals;

constexpr auto folder = "temp"_L1;

/// One of the two kinds of temporary files could not be written.
void tellUnwritable(const QString &kind, const QString &reason)
{
    messages::show(
        {messages::Severity::Warning, u"Unable to write temporary file!"_s,
         u"An Error occurred while trying to write a temporary file (%1) required for iComp. Please check if "
         "you have writing privileges in the current folder."_s.arg(kind),
         reason});
}

QString setFile()
{
    return folder + u"/setfile.txt"_s;
}

} // namespace

int outsidecomparison::idOf(const Examination &examination)
{
    return examination.subjectId.toInt();
}

QString outsidecomparison::eyeFile(int id)
{
    return u"%1/S%2-R%3-FXD.txt"_s.arg(folder).arg(id).arg(1);
}

QString outsidecomparison::eyeFileText(const Examination &examination)
{
    QString text = u"Data properties:\n\n"
                   "Recording date: 6/30/2009\nRecording time : 11:14:51:000 (corresponds to time 0)\n"
                   "Study: TMT\n"
                   "Subject: R%1\n"
                   "Recording: R01\n"
                   "Screen resolution: 2000 x 1000\n"
                   "Coordinate unit: Pixels\n\n"
                   "Timestamp\tFound\tGazepointX\tGazepointY\n\n"_s.arg(idOf(examination));
    qsizetype number = 0;
    for (const Fixation &fixation : examination.stream(Eye::Dominant).scanpath) {
        ++number;
        text += u"%1\t%1\t%2\t%3\t%4\n"_s.arg(number)
                    .arg(fixation.samples.size())
                    .arg(fixation.mean.x())
                    .arg(fixation.mean.y());
    }
    return text;
}

QStringList outsidecomparison::sharedFiles(const QList<const Examination *> &examinations)
{
    QMap<int, QStringList> names;
    QMap<int, bool> isNumber;
    for (const Examination *examination : examinations) {
        const int id = idOf(*examination);
        bool isWhole = false;
        examination->subjectId.toInt(&isWhole);
        names[id] << u"%1 (id \"%2\")"_s.arg(examination->baseName, examination->subjectId);
        isNumber[id] = isNumber.value(id, true) && isWhole;
    }
    QStringList lines;
    for (auto each = names.cbegin(); each != names.cend(); ++each) {
        if (each->size() > 1)
            lines << u"%1: only the last of %2 is compared."_s.arg(eyeFile(each.key()), each->join(u", "_s));
        else if (!isNumber[each.key()])
            lines << u"%1: %2 is no number and counts as 0."_s.arg(eyeFile(each.key()), each->constFirst());
    }
    return lines;
}

bool outsidecomparison::writeFiles(const QList<const Examination *> &examinations)
{
    const auto noFolder = makeFolder(folder);
    QString paths;
    {
        const messages::Run told;
        for (const Examination *examination : examinations) {
            const QString path = eyeFile(idOf(*examination));
            const auto problem = replaceFile(path, eyeFileText(*examination).toUtf8());
            if (problem)
                tellUnwritable(u"eyefile"_s, noFolder.value_or(*problem));
            paths += (problem ? QString() : path) + u'\n';
        }
    }
    const auto problem = replaceFile(setFile(), paths.toUtf8());
    if (problem)
        tellUnwritable(u"setfile"_s, noFolder.value_or(*problem));
    return !problem;
}

OutsideCall outsidecomparison::call()
{
    constexpr int halfAMinuteMs = 30'000;
    return {.program = programIn(u"external/afvis"_s, u"iComp"_s),
            .arguments = {setFile()},
            .outputFile = folder + u"/comparison.txt"_s,
            .startTimeoutMs = halfAMinuteMs,
            .endTimeoutMs = halfAMinuteMs};
}
