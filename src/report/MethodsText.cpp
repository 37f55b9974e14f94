// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/MethodsText.h"

#include "detection/BridgedGap.h"
#include "report/MethodsWords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

using methodswords::counted, methodswords::eyesText, methodswords::listed, methodswords::markdownEscaped,
    methodswords::number, methodswords::spread, methodswords::wasOrWere;
using namespace Qt::StringLiterals;

/// Sentences of one part, with what they cite.
class Part {
public:
    explicit Part(const QString &heading) { m_part.heading = heading; }

    void say(const QString &sentence) { m_sentences << sentence; }

    /// "(Holm, 1979)" for the text.
    QString cite(std::initializer_list<Source> sources)
    {
        QStringList names;
        for (const Source source : sources) {
            names << citation(source);
            m_part.sources << source;
        }
        return u'(' + names.join(u"; "_s) + u')';
    }

    MethodsPart part()
    {
        m_part.text = m_sentences.join(u' ');
        return m_part;
    }
    bool isEmpty() const { return m_sentences.isEmpty(); }

private:
    MethodsPart m_part;
    QStringList m_sentences;
};

// ---- recordings

void sayLeftOut(Part &part, const MethodsRecord &record)
{
    if (!record.unchecked.isEmpty())
        part.say(u"%1 %2 left out [reason]: %3."_s.arg(counted(record.unchecked.size(), "recording"),
                                                       wasOrWere(record.unchecked.size()), listed(record.unchecked)));
    if (!record.run.failed.isEmpty())
        part.say(u"%1 could not be read: %2."_s.arg(counted(record.run.failed.size(), "recording"),
                                                    listed(record.run.failed)));
    if (record.edgesCut)
        part.say(u"Samples within 1 % of the edge of the picture, or beyond it, were removed."_s);
}

MethodsPart recordings(const MethodsRecord &record)
{
    Part part(u"Participants and recordings"_s);
    const qsizetype used = record.recordings - record.unchecked.size();
    const QString pictures = record.pictureCount > 0 ? u" of "_s + counted(record.pictureCount, "picture") : QString();
    part.say(u"The analysis rests on %1%2 by %3 [age, sex, vision, how they were recruited]."_s.arg(
        counted(used, "recording"), pictures, counted(record.participants, "participant")));
    sayLeftOut(part, record);
    part.say(u"The time from %1 to %2 ms after the start of each recording was analysed, for %3."_s.arg(
        QString::number(record.frame.startMs), QString::number(record.frame.endMs), eyesText(record.run.eyes)));
    return part.part();
}

// ---- apparatus

QString sizesText(const QList<QSize> &sizes)
{
    QStringList texts;
    for (const QSize &size : sizes)
        texts << u"%1 x %2 px"_s.arg(size.width()).arg(size.height());
    return listed(texts);
}

void sayScreen(Part &part, const MethodsRecord &record)
{
    if (!record.pictures.isEmpty())
        part.say(u"Pictures had a size of %1."_s.arg(sizesText(record.pictures)));
    if (record.run.pixelPerDistance)
        part.say(u"A degree of visual angle was %1 px wide in the middle of the view."_s.arg(
            number(std::tan(std::numbers::pi / 180) / *record.run.pixelPerDistance)));
    part.say(u"[Tracker with its software, sampling rate as set, calibration and its acceptance, accuracy, screen, "
             "viewing distance, head support, lighting.]"_s);
}

void sayQuality(Part &part, const MethodsRecord &record)
{
    if (record.rateHz)
        part.say(u"The sampling rate, measured from the time stamps, was %1."_s.arg(spread(*record.rateHz, "Hz")));
    if (record.jitterMs)
        part.say(u"The interval between samples had a standard deviation of %1."_s.arg(spread(*record.jitterMs, "ms")));
    if (record.validPercent)
        part.say(u"Valid samples made up %1."_s.arg(spread(*record.validPercent, "%")));
    if (record.lossPercent)
        part.say(u"Data loss, as a share of the samples to be expected at the measured rate, was %1 %2."_s.arg(
            spread(*record.lossPercent, "%"), part.cite({Source::Holmqvist2012})));
    if (record.precisionPx) {
        const QString degrees =
            record.precisionDegrees ? u", that is, %1"_s.arg(spread(*record.precisionDegrees, "deg")) : QString();
        part.say(u"Precision, as the RMS of sample-to-sample distances in windows of %1 ms, was %2%3 %4."_s.arg(
            QString::number(precisionWindowMs), spread(*record.precisionPx, "px"), degrees,
            part.cite({Source::Niehorster2020})));
    }
    if (record.eyeDistancePx)
        part.say(u"The places of the two eyes were %1 apart."_s.arg(spread(*record.eyeDistancePx, "px")));
}

MethodsPart apparatus(const MethodsRecord &record)
{
    Part part(u"Apparatus and data quality"_s);
    sayScreen(part, record);
    sayQuality(part, record);
    return part.part();
}

// ---- events

/// Such as " (0.9 deg)", where the geometry is known.
QString angleOf(double px, const MethodsRecord &record)
{
    if (!record.run.pixelPerDistance)
        return {};
    return u" (%1 deg)"_s.arg(number(std::atan(px * *record.run.pixelPerDistance) * 180 / std::numbers::pi));
}

void sayDetector(Part &part, const MethodsRecord &record, const StandardParameters &p)
{
    part.say(
        u"Fixations were detected by dispersion: a fixation is a run of samples of at least %1 ms of which all but "
        "%2 at most lie within %3 px%4 of their median position."_s.arg(
            QString::number(p.minimumDurationMs), QString::number(p.allowedOutliers),
            QString::number(p.maximumRadiusPx), angleOf(p.maximumRadiusPx, record)));
    part.say(
        u"Losses of at most %1 ms were bridged by linear interpolation before; the samples were not filtered. What "
        "lies between two fixations is a saccade."_s.arg(longestBridgedGapMs));
}

void sayDetector(Part &part, const MethodsRecord &, const MixtureParameters &p)
{
    part.say(
        u"Fixations were detected by a mixture of two Gaussians of the distances from sample to sample, fitted to "
        "each recording by expectation maximisation %1: runs of steps that belong to the short ones are a fixation "
        "if they last longer than %2 ms."_s.arg(part.cite({Source::Dempster1977}),
                                                QString::number(p.minimumDurationMs)));
    part.say(p.mergeSequential
                 ? u"A fixation whose centroid is nearer to that of the one before than the minor axis of that one is "
                   "long was joined to it."_s
                 : u"Fixations in a row were not joined."_s);
    part.say(u"Samples that are invalid or have a coordinate of 0 were left out before."_s);
}

/// The detector works with the whole part of the threshold.
QString thresholdText(const VelocityParameters &p)
{
    const QString value = QString::number(static_cast<int>(p.threshold));
    switch (p.unit) {
    case VelocityUnit::PixelPerMs:
        return value + u" px/ms"_s;
    case VelocityUnit::DegreePerS:
        return u"%1 deg/s (a picture of %2 px, %3 m wide, seen from %4 m)"_s.arg(
            value, number(p.imageWidthPx), number(p.imageSizeM), number(p.screenDistanceM));
    case VelocityUnit::Percentile:
        break;
    }
    return u"percentile %1 of the velocities of the recording"_s.arg(value);
}

void sayDetector(Part &part, const MethodsRecord &, const VelocityParameters &p)
{
    part.say(u"Fixations were detected by velocity, after I-VT %1: valid samples slower than %2 are a fixation if they "
             "last longer than %3 ms."_s.arg(part.cite({Source::SalvucciGoldberg2000}), thresholdText(p),
                                             QString::number(p.minimumDurationMs)));
    part.say(u"Velocity is the distance of two samples in a row over their time, without smoothing."_s);
}

MethodsPart events(const MethodsRecord &record)
{
    Part part(u"Event detection"_s);
    if (!record.run.detector)
        return part.part();
    std::visit([&](const auto &p) { sayDetector(part, record, p); }, *record.run.detector);
    if (record.fixations)
        part.say(u"The number of fixations in each recording and eye was %1."_s.arg(spread(*record.fixations)));
    if (record.fixationMs)
        part.say(u"Their mean duration was %1."_s.arg(spread(*record.fixationMs, "ms")));
    return part.part();
}

// ---- clusters

QString methodOf(Part &, const MethodsRecord &record, const StandardClusterParameters &p)
{
    return u"by growing circles: at least %1 within a radius of %2 px%3, circles overlapping by at most %4 % of the "
           "distance of their centres"_s.arg(counted(p.minimumFixations, "fixation"),
                                             QString::number(p.maximumRadiusPx), angleOf(p.maximumRadiusPx, record),
                                             QString::number(p.overlapAllowed));
}

QString methodOf(Part &part, const MethodsRecord &record, const MeanShiftClusterParameters &p)
{
    return u"by mean shift %1: a Gaussian kernel of %2 px%3, steps of %4 of the way to the mean, at most %5 steps, at least %6"_s
        .arg(part.cite({Source::ComaniciuMeer2002}), number(p.radiusPx), angleOf(p.radiusPx, record), number(p.rate),
             QString::number(p.iterations), counted(p.minimumFixations, "fixation"));
}

QString methodOf(Part &, const MethodsRecord &, const OverlapClusterParameters &p)
{
    const QString outliers = p.outliers ? u", in all recordings but %1 at most"_s.arg(*p.outliers) : QString();
    return u"by overlap: the fixation whose ellipse (one standard deviation of its samples on each principal axis) "
           u"touches "
           "most others and these others, at least %1%2"_s.arg(counted(p.minimumFixations, "fixation"), outliers);
}

QString methodOf(Part &part, const MethodsRecord &record, const ClusterParameters &parameters)
{
    return std::visit([&](const auto &p) { return methodOf(part, record, p); }, parameters);
}

void saySaccadeClusters(Part &part, const SaccadeClusterParameters &p)
{
    const QStringList linkages = QString(stagedrows::linkages).split(u',');
    const QStringList distances = QString(stagedrows::algorithms).split(u',');
    part.say(u"Movements of at least %1 px that turn by at least %2 degrees were clustered by direction, then each of "
             "these clusters by place, with agglomerative trees: directions %3 with %4 linkage, cut at %5 degrees, at "
             "least %6 in a cluster; places by %7 distance with %8 linkage, cut at %9 px, at least %10."_s
                 .arg(QString::number(p.minimumLength), QString::number(p.minimumAngleDifference),
                      p.directionDependent ? u"of the way they go"_s : u"without regard to the way they go"_s,
                      linkages.value(p.angleLinkage), QString::number(p.angleCutoff),
                      QString::number(p.minimumAngleQuantity), distances.value(p.distanceAlgorithm),
                      linkages.value(p.distanceLinkage), QString::number(p.distanceCutoff))
                 .arg(p.minimumDistanceQuantity));
}

MethodsPart clusters(const MethodsRecord &record)
{
    Part part(u"Clusters"_s);
    if (record.run.clusters) {
        part.say(u"Fixations of each recording and eye were clustered %1."_s.arg(
            methodOf(part, record, *record.run.clusters)));
        if (record.clusterNumber)
            part.say(u"The number of clusters in each was %1."_s.arg(spread(*record.clusterNumber)));
    }
    if (record.run.pooledClusters)
        part.say(u"Fixations of all recordings together were clustered %1."_s.arg(
            methodOf(part, record, *record.run.pooledClusters)));
    if (record.run.pooledClusters && record.pooledClusterNumber)
        part.say(u"This gave %1 over the eyes."_s.arg(counted(*record.pooledClusterNumber, "cluster")));
    if (record.run.saccadeClusters)
        saySaccadeClusters(part, *record.run.saccadeClusters);
    return part.part();
}

// ---- areas

MethodsPart areas(const MethodsRecord &record)
{
    Part part(u"Areas of interest"_s);
    if (record.areas.isEmpty())
        return part.part();
    QStringList names;
    for (const MethodsRecord::Area &area : record.areas)
        names << u"%1 (%2 px2)"_s.arg(area.name, number(area.sizePx2));
    part.say(u"There %1 %2 of interest: %3."_s.arg(wasOrWere(record.areas.size()), counted(record.areas.size(), "area"),
                                                   names.join(u", "_s)));
    part.say(u"[How they were chosen, and with what margin.] A fixation lies in an area if its mean position does; of "
             "the edge, the left and upper side belong to the area."_s);
    return part.part();
}

// ---- statistics

struct TableWords {
    QLatin1StringView table; ///< word of the batch program
    const char *sentence;    ///< "%1" and so on are its citations
    std::array<std::optional<Source>, 5> sources = {};
};

constexpr TableWords tableWords[] = {
    {"general-statistics"_L1,
     "Activity is the standard deviation of the gaze position on each axis, speed the distance of samples in a row, by "
     "whole pixels, over their time."},
    {"aoi-statistics"_L1,
     "Of each area were measured the time of the first sample and fixation inside, number, share and duration of "
     "stays, and number, share and duration of fixations."},
    {"aoi-measures"_L1,
     "Of each area were measured visits, time to first fixation, dwell time, number and mean duration of fixations, "
     "and saccades into and out of it %1.",
     {{Source::Holmqvist2011}}},
    {"scanpath-measures"_L1,
     "Of each scanpath were measured number and mean duration of fixations, amplitude of saccades, length, transition "
     "and stationary entropy %1, and the bivariate contour ellipse area %2.",
     {{Source::Krejtz2015, Source::CrosslandRubin2002}}},
    {"transitions"_L1,
     "Transitions are pairs of fixations in a row that lie in different clusters, or in areas; fixations in none are "
     "passed over."},
    {"anglestar"_L1, "Saccades were counted by direction, with mean duration and length."},
    {"group-comparison"_L1,
     "Groups were compared by subject with permutation tests %1, corrected over the areas of each measure %2; means "
     "have bootstrap confidence intervals of 95 % (10,000 resamples) %3, differences Cliff's delta %4.",
     {{Source::PhipsonSmyth2010, Source::Holm1979, Source::EfronTibshirani1993, Source::Cliff1993}}},
    {"scanpath-similarity"_L1,
     "Scanpaths before the same picture were compared pair by pair: by edit distance and alignment of strings %1, "
     "MultiMatch %2, ScanMatch %3, dynamic time warping %4 and cross-recurrence %5.",
     {{Source::NeedlemanWunsch1970, Source::Jarodzka2010, Source::Cristino2010, Source::SakoeChiba1978,
       Source::Anderson2013}}},
};

MethodsPart statistics(const MethodsRecord &record)
{
    Part part(u"Measures and statistics"_s);
    for (const TableWords &words : tableWords) {
        if (!record.run.statistics.contains(words.table))
            continue;
        QString sentence = QString::fromUtf8(words.sentence);
        for (const std::optional<Source> source : words.sources) {
            if (source)
                sentence = sentence.arg(part.cite({*source}));
        }
        part.say(sentence);
        if (words.table == "group-comparison"_L1 && !record.run.groupBy.isEmpty())
            part.say(u"Groups go by the entry \"%1\"."_s.arg(record.run.groupBy));
    }
    return part.part();
}

MethodsPart software(const MethodsRecord &record)
{
    Part part(u"Software"_s);
    part.say(u"All of this was done with Vistrum %1 %2."_s.arg(record.run.release, part.cite({Source::Vistrum})));
    return part.part();
}

QString heading(const QString &text, int level, MethodsFormat format)
{
    return format == MethodsFormat::Markdown ? QString(level, u'#') + u' ' + text + u"\n\n"_s : text + u"\n\n"_s;
}

} // namespace

QList<MethodsPart> methodsParts(const MethodsRecord &record)
{
    QList<MethodsPart> parts;
    for (const MethodsPart &part : {recordings(record), apparatus(record), events(record), clusters(record),
                                    areas(record), statistics(record), software(record)})
    {
        if (!part.text.isEmpty())
            parts << part;
    }
    return parts;
}

QString methodsText(const MethodsRecord &record, MethodsFormat format)
{
    QString text = heading(u"Methods"_s, 1, format);
    QList<Source> sources;
    for (const MethodsPart &part : methodsParts(record)) {
        const QString body = format == MethodsFormat::Markdown ? markdownEscaped(part.text) : part.text;
        text += heading(part.heading, 2, format) + body + u"\n\n"_s;
        sources += part.sources;
    }
    std::sort(sources.begin(), sources.end());
    sources.erase(std::unique(sources.begin(), sources.end()), sources.end());
    text += heading(u"References"_s, 2, format);
    for (const Source source : std::as_const(sources)) {
        const QString entry = reference(source, record.run.release);
        text += format == MethodsFormat::Markdown ? u"- "_s + markdownEscaped(entry) + u'\n' : entry + u'\n';
    }
    return text;
}

MethodsFormat methodsFormatOf(const QString &path)
{
    return path.endsWith(".txt"_L1, Qt::CaseInsensitive) ? MethodsFormat::Plain : MethodsFormat::Markdown;
}
