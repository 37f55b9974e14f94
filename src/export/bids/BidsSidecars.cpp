// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/bids/BidsSidecars.h"

#include "base/Release.h"
#include "model/Canvas.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QSize>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr double msPerSecond = 1000;

struct ColumnText {
    QLatin1StringView name;
    QLatin1StringView description;
    QLatin1StringView unit; ///< empty: none
};

constexpr ColumnText sampleColumnTexts[] = {
    {"timestamp"_L1, "Time since the first sample of the recording"_L1, "ms"_L1},
    {"x_coordinate"_L1, "Horizontal place of the gaze in the picture, from its left edge to the right"_L1, "pixel"_L1},
    {"y_coordinate"_L1, "Vertical place of the gaze in the picture, from its upper edge downwards"_L1, "pixel"_L1},
    {"pupil_size"_L1, "Width of the pupil as the tracker gives it"_L1, "arbitrary"_L1},
    {"pupil_height"_L1, "Height of the pupil as the tracker gives it"_L1, "arbitrary"_L1},
    {"lost_x"_L1, "What was recorded for x of a sample that the tracker calls not valid"_L1, "pixel"_L1},
    {"lost_y"_L1, "What was recorded for y of a sample that the tracker calls not valid"_L1, "pixel"_L1},
    {"lost_pupil_size"_L1, "What was recorded for the pupil of such a sample"_L1, "arbitrary"_L1},
    {"lost_pupil_height"_L1, "What was recorded for the pupil of such a sample"_L1, "arbitrary"_L1},
};

constexpr ColumnText eventColumns[] = {
    {"onset"_L1, "First sample of a fixation or loss; of a saccade the last sample of the fixation before it"_L1,
     "ms"_L1},
    {"duration"_L1,
     "To the last sample of a fixation, to the next fixation, or from the first lost sample to the next valid one"_L1,
     "ms"_L1},
    {"trial_type"_L1, "Kind of event"_L1, {}},
    {"x_coordinate"_L1, "Centroid of the fixation, or where the saccade begins"_L1, "pixel"_L1},
    {"y_coordinate"_L1, "Centroid of the fixation, or where the saccade begins"_L1, "pixel"_L1},
    {"end_x_coordinate"_L1, "Where the saccade ends"_L1, "pixel"_L1},
    {"end_y_coordinate"_L1, "Where the saccade ends"_L1, "pixel"_L1},
    {"samples"_L1, "Number of samples of the event"_L1, {}},
};

template <size_t N>
void describe(QJsonObject &sidecar, const ColumnText (&known)[N], const QStringList &columns)
{
    sidecar[u"Columns"_s] = QJsonArray::fromStringList(columns);
    for (const ColumnText &column : known) {
        if (!columns.contains(column.name))
            continue;
        QJsonObject description{{u"Description"_s, QString(column.description)}};
        if (!column.unit.isEmpty())
            description[u"Units"_s] = QString(column.unit);
        sidecar[column.name] = description;
    }
}

/// The lines of the set file that do not tell where something lies on the machine that wrote it.
QJsonArray setFileLines(const Examination &examination)
{
    QJsonArray lines;
    for (const QString &line : examination.setFileText.split(u'\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith("picturepath"_L1))
            lines << line;
    }
    return lines;
}

/// A text as a field of a table with tabs.
QString tableField(QString text)
{
    for (const QChar character : {u'\t', u'\n', u'\r'})
        text.replace(character, u' ');
    return text.isEmpty() ? u"n/a"_s : text;
}

/// @param keys  with commas in between, a text for each.
QJsonObject textsOf(const QString &keys, const QStringList &texts)
{
    QJsonObject object;
    for (qsizetype i = 0; i < texts.size(); ++i)
        object[keys.section(u',', i, i)] = texts[i];
    return object;
}

/// The text on the fixations, or a list of the texts where recordings differ, in their order. Recordings without a text
/// do not count beside such with one.
QJsonValue fixationTexts(const QList<const Examination *> &examinations)
{
    QStringList texts;
    for (const Examination *examination : examinations)
        texts << examination->calculationInfo.fixationParameters().trimmed();
    texts.removeDuplicates();
    if (texts.size() > 1)
        texts.removeAll(QString());
    return texts.size() == 1 ? QJsonValue(texts.constFirst()) : QJsonArray::fromStringList(texts);
}

using Entries = QMap<QString, QString>;

Entries entriesOf(const Examination &examination)
{
    Entries entries;
    for (auto entry = examination.properties.cbegin(); entry != examination.properties.cend(); ++entry)
        entries[tableField(entry.key())] = tableField(entry.value());
    entries.remove(u"image"_s); // of the recording, not of the person
    entries.remove(u"participant_id"_s);
    return entries;
}

} // namespace

QJsonObject samplesSidecar(const Examination &examination, const BidsName &name, const BidsStream &stream)
{
    QJsonObject sidecar{{u"PhysioType"_s, u"eyetrack"_s},
                        {u"RecordedEye"_s, stream.eye},
                        {u"SampleCoordinateSystem"_s, u"gaze-on-screen"_s},
                        {u"SamplingFrequency"_s, stream.rateHz},
                        {u"StartTime"_s, static_cast<double>(stream.startMs) / msPerSecond},
                        {u"TaskName"_s, name.task},
                        {u"RecordingName"_s, examination.baseName},
                        {u"SetFile"_s, setFileLines(examination)}};
    describe(sidecar, sampleColumnTexts, stream.columns);
    return sidecar;
}

QJsonObject eventsSidecar(const QStringList &columns)
{
    QJsonObject sidecar{{u"Description"_s, u"Events that were found in the samples"_s},
                        {u"OnsetSource"_s, u"timestamp"_s},
                        {u"ForeignIndexColumn"_s, u"timestamp"_s}};
    describe(sidecar, eventColumns, columns);
    QJsonObject type = sidecar[u"trial_type"_s].toObject();
    type[u"Levels"_s] = QJsonObject{{u"fixation"_s, u"The eye rests"_s},
                                    {u"saccade"_s, u"The way from one fixation to the next"_s},
                                    {u"loss"_s, u"Samples that are not valid; a blink, as a rule"_s}};
    sidecar[u"trial_type"_s] = type;
    return sidecar;
}

QJsonObject stimulusSidecar(QSize picturePx, const std::optional<ViewingGeometry> &geometry)
{
    const QSize screen = picturePx.isEmpty() ? QSize(canvas::width, canvas::height) : picturePx;
    QJsonObject presentation{{u"ScreenOrigin"_s, QJsonArray{u"top"_s, u"left"_s}},
                             {u"ScreenResolution"_s, QJsonArray{screen.width(), screen.height()}},
                             {u"ScreenSize"_s, u"n/a"_s},
                             {u"ScreenDistance"_s, u"n/a"_s}};
    if (geometry) {
        const double pixelM = geometry->imageSizeM / geometry->imageWidthPx;
        presentation[u"ScreenSize"_s] = QJsonArray{pixelM * screen.width(), pixelM * screen.height()};
        presentation[u"ScreenDistance"_s] = geometry->screenDistanceM;
    }
    const auto described = [](const char *text) { return QJsonObject{{u"Description"_s, QString::fromLatin1(text)}}; };
    QJsonObject onset = described("Start of the picture since the first sample");
    QJsonObject duration = described("Time for which the picture was shown, as far as samples go");
    onset[u"Units"_s] = duration[u"Units"_s] = u"s"_s;
    QJsonObject type = described("Kind of event");
    type[u"Levels"_s] = QJsonObject{{u"picture"_s, u"A picture is shown"_s}};
    return {{u"StimulusPresentation"_s, presentation},
            {u"onset"_s, onset},
            {u"duration"_s, duration},
            {u"trial_type"_s, type},
            {u"picture"_s, described("File name of the picture; its upper left corner is the origin of the gaze")}};
}

QJsonObject datasetDescription(const QList<const Examination *> &examinations, TimeFrame frame, EyeMode eyes)
{
    QJsonObject parameters{{u"Eyes"_s, QString(eyeModeWord(eyes))},
                           {u"TimeFrameMs"_s, QJsonArray{frame.startMs, frame.endMs}}};
    if (!examinations.isEmpty())
        parameters[u"Fixations"_s] = fixationTexts(examinations);
    QJsonObject generator =
        textsOf(u"Name,Version,Description"_s,
                {u"Vistrum"_s, releaseText(), u"Gaze samples with the fixations, saccades and losses in them"_s});
    generator[u"Parameters"_s] = parameters;
    return {{u"Name"_s, u"Gaze recordings"_s},
            {u"BIDSVersion"_s, u"1.11.0"_s},
            {u"DatasetType"_s, u"derivative"_s},
            {u"GeneratedBy"_s, QJsonArray{generator}}};
}

BidsParticipants participantsOf(const QList<const Examination *> &examinations, const QList<BidsName> &names)
{
    QMap<QString, Entries> subjects;
    QSet<QString> varying;
    QMap<QString, int> columns;
    QStringList order;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const Entries entries = entriesOf(*examinations[i]);
        const bool isNew = !subjects.contains(names[i].subject);
        Entries &known = subjects[names[i].subject];
        if (isNew) {
            order << names[i].subject;
            known = entries;
        }
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
            ++columns[entry.key()];
            if (known.value(entry.key()) != entry.value())
                varying << entry.key();
        }
        for (const QString &key : known.keys()) {
            if (!entries.contains(key))
                varying << key;
        }
    }
    QStringList header{u"participant_id"_s};
    QJsonObject sidecar{{u"participant_id"_s, QJsonObject{{u"Description"_s, u"Label of the person"_s}}}};
    for (const QString &key : columns.keys()) {
        if (varying.contains(key))
            continue;
        header << key;
        sidecar[key] = QJsonObject{{u"Description"_s, u"Entry \"%1\" of the set files"_s.arg(key)}};
    }
    QString table = header.join(u'\t') + u'\n';
    for (const QString &subject : std::as_const(order)) {
        QStringList fields{u"sub-"_s + subject};
        for (const QString &key : header.mid(1))
            fields << subjects[subject].value(key, u"n/a"_s);
        table += fields.join(u'\t') + u'\n';
    }
    return {table.toUtf8(), sidecar};
}

QByteArray sidecarBytes(const QJsonObject &sidecar)
{
    return QJsonDocument(sidecar).toJson();
}
