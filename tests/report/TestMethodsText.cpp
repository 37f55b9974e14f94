// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/MethodsText.h"
#include "report/MethodsWords.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <numbers>

namespace {

using namespace Qt::StringLiterals;

/// Two recordings of two people, nothing calculated.
MethodsRecord bare()
{
    MethodsRecord record;
    record.run.release = u"9.8"_s;
    record.recordings = 2;
    record.participants = 2;
    record.frame = {0, 5000};
    return record;
}

/// The text of a part; null if there is none.
QString part(const MethodsRecord &record, const QString &heading)
{
    for (const MethodsPart &each : methodsParts(record)) {
        if (each.heading == heading)
            return each.text;
    }
    return {};
}

QString events(const FixationCalculationParameters &detector, std::optional<double> pixelPerDistance = {})
{
    MethodsRecord record = bare();
    record.run.detector = detector;
    record.run.pixelPerDistance = pixelPerDistance;
    return part(record, u"Event detection"_s);
}

GazePoint sample(qint64 timeMs, double x, int validity = 1)
{
    return {timeMs, x, 10, 0, 0, validity};
}

Fixation fixation(qint64 startMs, qint64 endMs)
{
    Fixation made;
    made.samples = {sample(startMs, 10), sample(endMs, 10)};
    return made;
}

} // namespace

class TestMethodsText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wholeText();
    void plainText();
    void recordings_data();
    void recordings();
    void quality_data();
    void quality();
    void detectors_data();
    void detectors();
    void results();
    void clusters_data();
    void clusters();
    void areas();
    void statistics_data();
    void statistics();
    void referencesAreThoseCited();
    void citationOfTheProgram();
    void recordOfAModel();
    void asData();
    void numbersAndLists();
    void formatOfAFile();
};

void TestMethodsText::wholeText()
{
    MethodsRecord record = bare();
    record.run.detector = MixtureParameters{.minimumDurationMs = 100, .mergeSequential = true};
    QCOMPARE(methodsText(record, MethodsFormat::Markdown), uR"(# Methods

## Participants and recordings

The analysis rests on 2 recordings by 2 participants [age, sex, vision, how they were recruited]. The time from 0 to 5000 ms after the start of each recording was analysed, for the left and the right eye, each by itself.

## Apparatus and data quality

[Tracker with its software, sampling rate as set, calibration and its acceptance, accuracy, screen, viewing distance, head support, lighting.]

## Event detection

Fixations were detected by a mixture of two Gaussians of the distances from sample to sample, fitted to each recording by expectation maximisation (Dempster et al., 1977): runs of steps that belong to the short ones are a fixation if they last longer than 100 ms. A fixation whose centroid is nearer to that of the one before than the minor axis of that one is long was joined to it. Samples that are invalid or have a coordinate of 0 were left out before.

## Software

All of this was done with Vistrum 9.8 (The Vistrum developers, 2026).

## References

- Dempster, A. P., Laird, N. M., & Rubin, D. B. (1977). Maximum likelihood from incomplete data via the EM algorithm. Journal of the Royal Statistical Society B, 39(1), 1-38.
- The Vistrum developers (2026). Vistrum: analysis of gaze recordings (Version 9.8) [Computer software].
)"_s);
}

void TestMethodsText::plainText()
{
    MethodsRecord record = bare();
    record.unchecked = {u"a_b"_s};
    const QString plain = methodsText(record, MethodsFormat::Plain);
    QVERIFY(plain.startsWith(u"Methods\n\nParticipants and recordings\n\nThe analysis"_s));
    QVERIFY(plain.contains(u"[reason]: a_b."_s));
    QVERIFY(!plain.contains(u'#') && !plain.contains(u'\\'));
    QVERIFY(
        plain.endsWith(u"References\n\nThe Vistrum developers (2026). Vistrum: analysis of gaze recordings (Version "
                       "9.8) [Computer software].\n"_s));
    QVERIFY(methodsText(record, MethodsFormat::Markdown).contains(u"[reason]: a\\_b."_s));
}

void TestMethodsText::recordings_data()
{
    QTest::addColumn<QStringList>("unchecked");
    QTest::addColumn<QStringList>("failed");
    QTest::addColumn<int>("pictures");
    QTest::addColumn<bool>("cut");
    QTest::addColumn<int>("eyes");
    QTest::addColumn<QString>("expected");
    const QString time = u" The time from 0 to 5000 ms after the start of each recording was analysed, for "_s;
    const QString people = u" by 2 participants [age, sex, vision, how they were recruited]."_s;
    QTest::newRow("one is left out") << QStringList{u"r1"_s} << QStringList() << 1 << false << 2
                                     << u"The analysis rests on 1 recording of 1 picture"_s + people +
                                            u" 1 recording was left out [reason]: r1."_s + time + u"the left eye."_s;
    QTest::newRow("two could not be read")
        << QStringList() << QStringList{u"x"_s, u"y"_s} << 3 << false << 1
        << u"The analysis rests on 2 recordings of 3 pictures"_s + people +
               u" 2 recordings could not be read: x and y."_s + time + u"the dominant eye."_s;
    QTest::newRow("edges are cut")
        << QStringList() << QStringList() << 0 << true << 4
        << u"The analysis rests on 2 recordings"_s + people +
               u" Samples within 1 % of the edge of the picture, or beyond it, were removed."_s + time +
               u"the mean of both eyes."_s;
    QTest::newRow("the right eye") << QStringList() << QStringList() << 0 << false << 3
                                   << u"The analysis rests on 2 recordings"_s + people + time + u"the right eye."_s;
}

void TestMethodsText::recordings()
{
    QFETCH(QStringList, unchecked);
    QFETCH(QStringList, failed);
    QFETCH(int, pictures);
    QFETCH(bool, cut);
    QFETCH(int, eyes);
    QFETCH(QString, expected);
    MethodsRecord record = bare();
    record.unchecked = unchecked;
    record.run.failed = failed;
    record.pictureCount = pictures;
    record.edgesCut = cut;
    record.run.eyes = static_cast<EyeMode>(eyes);
    QCOMPARE(part(record, u"Participants and recordings"_s), expected);
}

void TestMethodsText::quality_data()
{
    QTest::addColumn<MethodsRecord>("record");
    QTest::addColumn<QString>("expected"); // among the sentences
    MethodsRecord record = bare();
    const MethodsRange range{.least = 249.9, .median = 250, .most = 250.1};
    const MethodsRange equal{.least = 3, .median = 3, .most = 3};
    record.rateHz = range;
    QTest::newRow("rate")
        << record << u"The sampling rate, measured from the time stamps, was 250 Hz (median; 249.9 to 250.1 Hz)."_s;
    record = bare();
    record.jitterMs = equal;
    QTest::newRow("jitter") << record << u"The interval between samples had a standard deviation of 3 ms."_s;
    record = bare();
    record.validPercent = equal;
    QTest::newRow("valid samples") << record << u"Valid samples made up 3 %."_s;
    record = bare();
    record.lossPercent = equal;
    QTest::newRow("loss") << record
                          << u"Data loss, as a share of the samples to be expected at the measured rate, was 3 % "
                             "(Holmqvist et al., 2012)."_s;
    record = bare();
    record.precisionPx = equal;
    QTest::newRow("precision") << record
                               << u"Precision, as the RMS of sample-to-sample distances in windows of 200 ms, "
                                  "was 3 px (Niehorster et al., 2020)."_s;
    record.precisionDegrees = MethodsRange{.least = 0.1, .median = 0.2, .most = 0.3};
    QTest::newRow("precision in degrees")
        << record << u"was 3 px, that is, 0.2 deg (median; 0.1 to 0.3 deg) (Niehorster et al., 2020)."_s;
    record = bare();
    record.eyeDistancePx = equal;
    QTest::newRow("agreement") << record << u"The places of the two eyes were 3 px apart."_s;
    record = bare();
    record.pictures = {{1280, 1024}, {800, 600}};
    QTest::newRow("pictures") << record << u"Pictures had a size of 1280 x 1024 px and 800 x 600 px."_s;
    record = bare();
    record.run.pixelPerDistance = std::tan(std::numbers::pi / 180) / 35;
    QTest::newRow("screen") << record << u"A degree of visual angle was 35 px wide in the middle of the view."_s;
}

void TestMethodsText::quality()
{
    QFETCH(MethodsRecord, record);
    QFETCH(QString, expected);
    const QString text = part(record, u"Apparatus and data quality"_s);
    QVERIFY2(text.contains(expected), qPrintable(text));
    QVERIFY(!part(bare(), u"Apparatus and data quality"_s).contains(expected));
}

void TestMethodsText::detectors_data()
{
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("expected");
    const StandardParameters standard{.minimumDurationMs = 80, .maximumRadiusPx = 40, .allowedOutliers = 2};
    const QString after = u" Losses of at most 20 ms were bridged by linear interpolation before; the samples were not "
                          "filtered. What lies between two fixations is a saccade."_s;
    QTest::newRow("standard")
        << events(standard)
        << u"Fixations were detected by dispersion: a fixation is a run of samples of at least 80 "
           "ms of which all but 2 at most lie within 40 px of their median position."_s +
               after;
    QTest::newRow("standard, geometry known") << events(standard, std::tan(std::numbers::pi / 180) / 40)
                                              << u"Fixations were detected by dispersion: a fixation is a run of "
                                                 u"samples of at least 80 ms of which all but 2 "
                                                 "at most lie within 40 px (1 deg) of their median position."_s +
                                                     after;
    const QString mixture =
        u"Fixations were detected by a mixture of two Gaussians of the distances from sample to "
        "sample, fitted to each recording by expectation maximisation (Dempster et al., 1977): runs "
        "of steps that belong to the short ones are a fixation if they last longer than 120 ms. %1 "
        "Samples that are invalid or have a coordinate of 0 were left out before."_s;
    QTest::newRow("mixture") << events(MixtureParameters{.minimumDurationMs = 120, .mergeSequential = false})
                             << mixture.arg(u"Fixations in a row were not joined."_s);
    QTest::newRow("mixture, joined") << events(MixtureParameters{.minimumDurationMs = 120, .mergeSequential = true})
                                     << mixture.arg(
                                            u"A fixation whose centroid is nearer to that of the one before than "
                                            "the minor axis of that one is long was joined to it."_s);
    const QString velocity =
        u"Fixations were detected by velocity, after I-VT (Salvucci & Goldberg, 2000): valid samples "
        "slower than %1 are a fixation if they last longer than 100 ms. Velocity is the distance of "
        "two samples in a row over their time, without smoothing."_s;
    VelocityParameters p{.minimumDurationMs = 100, .threshold = 85.9, .unit = VelocityUnit::PixelPerMs};
    QTest::newRow("velocity in pixels") << events(p) << velocity.arg(u"85 px/ms"_s);
    p.unit = VelocityUnit::Percentile;
    QTest::newRow("velocity by percentile")
        << events(p) << velocity.arg(u"percentile 85 of the velocities of the recording"_s);
    p.unit = VelocityUnit::DegreePerS;
    p.screenDistanceM = 0.6;
    p.imageSizeM = 0.52;
    p.imageWidthPx = 1920;
    QTest::newRow("velocity in degrees") << events(p)
                                         << velocity.arg(
                                                u"85 deg/s (a picture of 1920 px, 0.52 m wide, seen from 0.6 m)"_s);
}

void TestMethodsText::detectors()
{
    QFETCH(QString, found);
    QFETCH(QString, expected);
    QCOMPARE(found, expected);
}

void TestMethodsText::results()
{
    QVERIFY(part(bare(), u"Event detection"_s).isNull());
    MethodsRecord record = bare();
    record.run.detector = StandardParameters{};
    record.fixations = MethodsRange{.least = 4, .median = 10.5, .most = 30};
    record.fixationMs = MethodsRange{.least = 200, .median = 200, .most = 200};
    QVERIFY(part(record, u"Event detection"_s)
                .endsWith(u" The number of fixations in each recording and eye was 10.5 (median; 4 to 30). Their mean "
                          "duration was 200 ms."_s));
    record.fixations = MethodsRange{.least = 1, .median = 1, .most = 1};
    QVERIFY(part(record, u"Event detection"_s)
                .contains(u" The number of fixations in each recording and eye was 1. Their mean"_s));
}

void TestMethodsText::clusters_data()
{
    QTest::addColumn<MethodsRecord>("record");
    QTest::addColumn<QString>("expected");
    MethodsRecord record = bare();
    record.run.clusters =
        StandardClusterParameters{.minimumFixations = 3, .overlapAllowed = 10, .maximumRadiusPx = 100};
    record.clusterNumber = MethodsRange{.least = 2, .median = 2, .most = 2};
    QTest::newRow("standard")
        << record
        << u"Fixations of each recording and eye were clustered by growing circles: at least 3 "
           "fixations within a radius of 100 px, circles overlapping by at most 10 % of the distance "
           "of their centres. The number of clusters in each was 2."_s;
    record = bare();
    record.run.clusters =
        MeanShiftClusterParameters{.radiusPx = 80, .rate = 0.25, .iterations = 50, .minimumFixations = 1};
    QTest::newRow("mean shift")
        << record
        << u"Fixations of each recording and eye were clustered by mean shift (Comaniciu & Meer, "
           "2002): a Gaussian kernel of 80 px, steps of 0.25 of the way to the mean, at most 50 steps, at "
           "least 1 fixation."_s;
    record = bare();
    record.run.pooledClusters = OverlapClusterParameters{.minimumFixations = 2, .outliers = 1};
    record.pooledClusterNumber = 1;
    QTest::newRow("overlap, pooled") << record
                                     << u"Fixations of all recordings together were clustered by overlap: the fixation "
                                        "whose ellipse (one standard deviation of its samples on each principal axis) "
                                        "touches most others and these others, at least 2 fixations, in all recordings "
                                        "but 1 at most. This gave 1 cluster over the eyes."_s;
    record = bare();
    record.run.saccadeClusters = SaccadeClusterParameters{};
    QTest::newRow("saccades")
        << record
        << u"Movements of at least 0 px that turn by at least 0 degrees were clustered by "
           "direction, then each of these clusters by place, with agglomerative trees: directions of "
           "the way they go with maximum linkage, cut at 10 degrees, at least 10 in a cluster; places "
           "by euclidean distance with minimum linkage, cut at 25 px, at least 1."_s;
}

void TestMethodsText::clusters()
{
    QFETCH(MethodsRecord, record);
    QFETCH(QString, expected);
    QCOMPARE(part(record, u"Clusters"_s), expected);
    QVERIFY(part(bare(), u"Clusters"_s).isNull());
}

void TestMethodsText::areas()
{
    QVERIFY(part(bare(), u"Areas of interest"_s).isNull());
    MethodsRecord record = bare();
    record.areas = {{u"face %1"_s, 1234.0}, {u"sky"_s, 5.5}};
    QVERIFY(part(record, u"Areas of interest"_s)
                .startsWith(u"There were 2 areas of interest: face %1 (1234 px2), sky (5.5 px2). [How they were"_s));
    record.areas = {{u"sky"_s, 5.5}};
    QVERIFY(part(record, u"Areas of interest"_s).startsWith(u"There was 1 area of interest: sky (5.5 px2). [How"_s));
}

void TestMethodsText::statistics_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("begins");
    QTest::addColumn<QList<int>>("cited");
    const auto row = [](const char *table, const char *begins, const QList<Source> &cited) {
        QList<int> places;
        for (const Source source : cited)
            places << static_cast<int>(source);
        QTest::newRow(table) << QString::fromUtf8(table) << QString::fromUtf8(begins) << places;
    };
    row("general-statistics", "Activity is the standard deviation", {});
    row("aoi-statistics", "Of each area were measured the time of the first", {});
    row("aoi-measures", "Of each area were measured visits,", {Source::Holmqvist2011});
    row("scanpath-measures", "Of each scanpath", {Source::Krejtz2015, Source::CrosslandRubin2002});
    row("transitions", "Transitions are pairs", {});
    row("anglestar", "Saccades were counted", {});
    row("group-comparison", "Groups were compared",
        {Source::PhipsonSmyth2010, Source::Holm1979, Source::EfronTibshirani1993, Source::Cliff1993});
    row("scanpath-similarity", "Scanpaths before the same picture",
        {Source::NeedlemanWunsch1970, Source::Jarodzka2010, Source::Cristino2010, Source::SakoeChiba1978,
         Source::Anderson2013});
}

void TestMethodsText::statistics()
{
    QFETCH(QString, table);
    QFETCH(QString, begins);
    QFETCH(QList<int>, cited);
    MethodsRecord record = bare();
    record.run.statistics = {u"fixations"_s, table};
    record.run.groupBy = u"age"_s;
    for (const MethodsPart &each : methodsParts(record)) {
        if (each.heading != u"Measures and statistics"_s)
            continue;
        QVERIFY2(each.text.startsWith(begins), qPrintable(each.text));
        QVERIFY2(!each.text.contains(u'%') || table == u"group-comparison"_s, qPrintable(each.text)); // "95 %"
        QCOMPARE(each.text.endsWith(u"Groups go by the entry \"age\"."_s), table == u"group-comparison"_s);
        QList<int> places;
        for (const Source source : each.sources) {
            places << static_cast<int>(source);
            QVERIFY(each.text.contains(u'(' + citation(source) + u')'));
        }
        QCOMPARE(places, cited);
        return;
    }
    QFAIL("no such part");
}

/// Each once, by the alphabet; all that are cited and no others.
void TestMethodsText::referencesAreThoseCited()
{
    MethodsRecord record = bare();
    record.run.statistics = {u"scanpath-similarity"_s, u"aoi-measures"_s, u"group-comparison"_s};
    record.run.clusters = MeanShiftClusterParameters{};
    record.run.pooledClusters = MeanShiftClusterParameters{};
    const QString text = methodsText(record, MethodsFormat::Plain);
    const QStringList list = text.section(u"References\n\n"_s, 1).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(list.size(), 12);
    QStringList sorted = list;
    sorted.sort();
    QCOMPARE(list, sorted);
    for (int i = 0; i <= static_cast<int>(Source::Vistrum); ++i) {
        const auto source = static_cast<Source>(i);
        QCOMPARE(list.contains(reference(source, u"9.8"_s)), text.contains(citation(source)));
        const QString year = citation(source).right(4);
        QVERIFY(reference(source, {}).contains(u'(' + year + u')'));
        QVERIFY(reference(source, {}).startsWith(citation(source).section(QRegularExpression(u"[ ,]"_s), 0, 0)));
    }
}

void TestMethodsText::citationOfTheProgram()
{
    QFile file(QStringLiteral(VISTRUM_SOURCE_DIR "/CITATION.cff"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString cff = QString::fromUtf8(file.readAll());
    const auto entry = [&](const QString &key) {
        return QRegularExpression(u"^\\s*(?:- )?%1: \"?([^\"\\n]*)"_s.arg(key), QRegularExpression::MultilineOption)
            .match(cff)
            .captured(1);
    };
    QCOMPARE(reference(Source::Vistrum, entry(u"version"_s) + u" (1a2b3c)"_s),
             u"%1 (%2). %3 (Version %4) [Computer software]."_s.arg(entry(u"name"_s), entry(u"date-released"_s).left(4),
                                                                    entry(u"title"_s), entry(u"version"_s)));
}

void TestMethodsText::recordOfAModel()
{
    DataModel model;
    for (int i = 0; i < 4; ++i) {
        Examination examination;
        examination.baseName = u"r%1"_s.arg(i);
        examination.subjectId = i < 2 ? u"s"_s : QString(); // two recordings of one person, two without a name
        examination.checked = i != 3;
        for (qint64 time = 0; time <= 1000; time += 10) {
            examination.leftEye.gazePoints << sample(time, 10, i == 0 && time < 500 ? 0 : 1);
            examination.rightEye.gazePoints << sample(time, 14, 0);
        }
        examination.leftEye.scanpath = {fixation(0, 100 * (i + 1)), fixation(2000, 2500)};
        model.examinations() << examination;
    }
    model.setTimeFrame({0, 1000});
    model.insertAoi(AreaOfInterest(u"a"_s, QPolygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}})));
    AreaOfInterest off(u"off"_s, QPolygon({{0, 0}, {10, 0}, {10, 10}}));
    off.enabled = false;
    model.insertAoi(off);
    MethodsRun run{.release = u"9"_s};
    run.detector = StandardParameters{};
    run.eyes = EyeMode::showLeft;
    const MethodsRecord record =
        methodsRecord(model, run, studyQuality(model, {.eyes = EyeMode::showAll, .pixelPerDistance = {}}));
    QCOMPARE(record.recordings, 4);
    QCOMPARE(record.unchecked, QStringList{u"r3"_s});
    QCOMPARE(record.participants, 2);
    QCOMPARE(record.areas.size(), 1);
    QCOMPARE(record.areas[0].sizePx2, 100.0);
    QCOMPARE(record.rateHz, (MethodsRange{100, 100, 100}));
    // 51 of 101 samples and all of them; the right eye was not recorded.
    QCOMPARE(record.validPercent, (MethodsRange{100 * 51.0 / 101, 100, 100}));
    QVERIFY(!record.eyeDistancePx);
    QCOMPARE(record.fixations, (MethodsRange{1, 1, 1}));
    QCOMPARE(record.fixationMs, (MethodsRange{100, 200, 300}));
    QVERIFY(!record.clusterNumber && !record.pooledClusterNumber);

    run.eyes = EyeMode::showAll; // the eye that was not recorded is none with 0 fixations
    run.clusters = ClusterParameters{};
    const MethodsRecord both = methodsRecord(model, run, {});
    QCOMPARE(both.fixations, (MethodsRange{1, 1, 1}));
    QCOMPARE(both.clusterNumber, (MethodsRange{0, 0, 0}));
}

void TestMethodsText::asData()
{
    MethodsRecord record = bare();
    record.run.detector =
        VelocityParameters{.minimumDurationMs = 100, .threshold = 85.9, .unit = VelocityUnit::Percentile};
    record.run.clusters = OverlapClusterParameters{.minimumFixations = 2, .outliers = {}};
    record.run.saccadeClusters = SaccadeClusterParameters{};
    record.rateHz = MethodsRange{1, 2, 3};
    record.pictures = {{4, 5}};
    const QJsonObject json = toJson(record);
    QCOMPARE(QJsonDocument(json[u"fixationDetection"_s].toObject()).toJson(QJsonDocument::Compact),
             QByteArray(R"({"detector":"velocity","minimumDurationMs":100,"threshold":85.9,"unit":"percentile"})"));
    QCOMPARE(QJsonDocument(json[u"clusters"_s].toObject()).toJson(QJsonDocument::Compact),
             QByteArray(R"({"method":"overlap","minimumFixations":2})"));
    QCOMPARE(json[u"saccadeClusters"_s][u"angle-linkage"_s].toString(), u"maximum"_s);
    QCOMPARE(json[u"saccadeClusters"_s][u"distance-cutoff"_s].toInt(), 25);
    QCOMPARE(json[u"quality"_s][u"rateHz"_s][u"median"_s].toDouble(), 2.0);
    QVERIFY(json[u"quality"_s][u"eyeDistancePx"_s].isNull());
    QVERIFY(json[u"pooledClusters"_s].isNull());
    QCOMPARE(json[u"pictureSizesPx"_s].toArray(), (QJsonArray{QJsonArray{4, 5}}));
    QCOMPARE(json[u"timeFrameMs"_s].toArray(), (QJsonArray{0, 5000}));
}

void TestMethodsText::numbersAndLists()
{
    using namespace methodswords;
    QCOMPARE(number(0), u"0"_s);
    QCOMPARE(number(0.123456), u"0.1235"_s);
    QCOMPARE(number(249.96), u"250"_s);
    QCOMPARE(number(123456.7), u"123457"_s);
    QCOMPARE(listed({}), QString());
    QCOMPARE(listed({u"a"_s}), u"a"_s);
    QCOMPARE(listed({u"a"_s, u"b"_s}), u"a and b"_s);
    QCOMPARE(listed({u"a"_s, u"b"_s, u"c"_s}), u"a, b and c"_s);
    QCOMPARE(counted(1, "area"), u"1 area"_s);
    QCOMPARE(counted(0, "area"), u"0 areas"_s);
    QCOMPARE(markdownEscaped(u"a_b *c* <d> [e] #"_s), u"a\\_b \\*c\\* \\<d\\> [e] \\#"_s);
}

void TestMethodsText::formatOfAFile()
{
    QCOMPARE(methodsFormatOf(u"a.txt"_s), MethodsFormat::Plain);
    QCOMPARE(methodsFormatOf(u"a.TXT"_s), MethodsFormat::Plain);
    QCOMPARE(methodsFormatOf(u"a.md"_s), MethodsFormat::Markdown);
}

QTEST_GUILESS_MAIN(TestMethodsText)
#include "TestMethodsText.moc"
