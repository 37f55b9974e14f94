// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/EventExport.h"
#include "ExportSamples.h"
#include "model/ImageCache.h"

#include <QTest>

#include <cmath>
#include <numbers>

using samples::fixation;
using samples::lines;
using samples::lost;
using samples::valid;

class TestEventExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void walk_data();
    void walk();
    void samplesOutOfOrder();
    void damagedClock();
    void saccadeWithoutWayHasNoAngle();
    void sums();
    void angle_data();
    void angle();
    void farApartFixations();
    void header();
    void block();
    void pictureColumn_data();
    void pictureColumn();
    void fieldsTakeADecimalComma();
    void longRecording();
};

namespace {

constexpr qint64 stepMs = 10;

/// A recording as one character a sample, 10 ms apart, from 0 on: '.' a valid sample outside of fixations, 'x' a lost
/// one, letters a fixation for each run of a letter, a small letter a lost sample in it.
EyeData recording(const QString &pattern)
{
    EyeData stream;
    QChar former;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar mark = pattern[i];
        const bool isLost = mark.isLower();
        stream.gazePoints << (isLost ? lost(i * stepMs) : valid(i * stepMs));
        const bool inFixation = mark.isLetter() && mark != u'x';
        if (inFixation && mark.toUpper() != former)
            stream.scanpath << fixation({}, {static_cast<int>(i), 0});
        if (inFixation)
            stream.scanpath.last().samples << stream.gazePoints.last();
        former = mark.toUpper();
    }
    return stream;
}

/// Kind, onset, duration and number of samples of each row.
QStringList shortRows(const EventList &events)
{
    QStringList texts;
    for (const EventRow &row : events.rows)
        texts << QStringList{row.event, row.onset, row.duration, row.gazePoints}.join(u' ');
    return texts;
}

EventList allEvents(const EyeData &stream)
{
    return eventsOf(stream, {0, 1000000});
}

} // namespace

void TestEventExport::walk_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<TimeFrame>("span");
    QTest::addColumn<QString>("expected"); // kind onset duration samples, for each row

    const TimeFrame all{0, 1000};
    QTest::newRow("no samples") << "" << all << "";
    QTest::newRow("valid samples alone are no event") << "....." << all << "";
    QTest::newRow("one fixation") << "AAA" << all << "fixation 0 20 3";
    QTest::newRow("no saccade before the first fixation or after the last") << "..AAA.." << all << "fixation 20 20 3";
    QTest::newRow("a saccade is the valid samples between two fixations")
        << "AA...BB" << all << "fixation 0 10 2|saccade 20 30 3|fixation 50 10 2";
    QTest::newRow("adjacent fixations have a saccade without samples")
        << "AABB" << all << "fixation 0 10 2|saccade 20 0 0|fixation 20 10 2";
    QTest::newRow("a loss ends with the next valid sample") << ".xx." << all << "error 10 20 2";
    QTest::newRow("a loss of one sample") << ".x." << all << "error 10 10 1";
    QTest::newRow("two losses") << "x.xx." << all << "error 0 10 1|error 20 20 2";
    QTest::newRow("a loss at the end is not told") << ".xxx" << all << "";
    QTest::newRow("nothing but loss") << "xxxx" << all << "";
    QTest::newRow("a loss inside a fixation follows it") << "AAaaA" << all << "fixation 0 40 5|error 20 20 2";
    QTest::newRow("lost samples do not count for the saccade, which begins with the first valid one")
        << "AAx..xxBB" << all << "fixation 0 10 2|error 20 10 1|error 50 20 2|saccade 30 40 2|fixation 70 10 2";
    QTest::newRow("between fixations lies only loss")
        << "AAxxBB" << all << "fixation 0 10 2|error 20 20 2|saccade 40 0 0|fixation 40 10 2";
    QTest::newRow("a fixation that begins with a lost sample keeps its own onset")
        << "AA..bBB" << all << "fixation 0 10 2|error 40 10 1|saccade 20 20 2|fixation 40 20 3";
    QTest::newRow("the saccade to an adjacent one that begins lost ends before its first valid sample")
        << "AAbBB" << all << "fixation 0 10 2|error 20 10 1|saccade 30 -10 0|fixation 20 20 3";
    QTest::newRow("a fixation of lost samples alone is no event")
        << "AA.bb.CC" << all << "fixation 0 10 2|error 30 20 2|saccade 20 40 2|fixation 60 10 2";
    QTest::newRow("three fixations")
        << "A.B..C" << all << "fixation 0 0 1|saccade 10 10 1|fixation 20 0 1|saccade 30 20 2|fixation 50 0 1";

    QTest::newRow("the span takes part with both ends") << "AAA" << TimeFrame{0, 20} << "fixation 0 20 3";
    QTest::newRow("a fixation that begins before the span is left out")
        << "AAAAAA.BB" << TimeFrame{10, 1000} << "fixation 70 10 2";
    QTest::newRow("a fixation that ends after the span is left out")
        << "AA.BBBBBB" << TimeFrame{0, 70} << "fixation 0 10 2";
    QTest::newRow("losses outside the span are not told") << "xx..xx" << TimeFrame{20, 30} << "";
    QTest::newRow("a loss that reaches into the span begins with it")
        << "xxx." << TimeFrame{10, 1000} << "error 10 20 2";
    QTest::newRow("a span beyond the recording") << "AA.BB" << TimeFrame{500, 1000} << "";
    QTest::newRow("a span that ends before it begins") << "AA.BB" << TimeFrame{1000, 0} << "";
}

void TestEventExport::walk()
{
    QFETCH(QString, pattern);
    QFETCH(TimeFrame, span);
    QFETCH(QString, expected);
    QCOMPARE(shortRows(eventsOf(recording(pattern), span)).join(u'|'), expected);
}

void TestEventExport::samplesOutOfOrder()
{
    EyeData stream;
    stream.scanpath << fixation({0, 10}, {0, 0}) << fixation({30, 40}, {1, 0});
    for (const qint64 time : {0, 10, 20, 5, 30, 40, 15, 50})
        stream.gazePoints << valid(time);
    // 20 and 5 lie between the fixations, and the second fixation is awaited from 20 on.
    QCOMPARE(shortRows(allEvents(stream)),
             QStringList({QStringLiteral("fixation 0 10 2"), QStringLiteral("saccade 20 10 2"),
                          QStringLiteral("fixation 30 10 2")}));
}

void TestEventExport::damagedClock()
{
    constexpr qint64 least = std::numeric_limits<qint64>::min();
    constexpr qint64 greatest = std::numeric_limits<qint64>::max();
    EyeData stream;
    stream.scanpath << fixation({least}, {0, 0}) << fixation({greatest}, {1, 0});
    stream.gazePoints << valid(least) << lost(least) << valid(least + 1) << valid(greatest);
    // greatest - least = 2^64 - 1 is -1 in 64 bits; from least + 1 it is -2
    const EventList events = eventsOf(stream, {least, greatest});
    QCOMPARE(shortRows(events),
             QStringList({QStringLiteral("fixation %1 0 1").arg(least), QStringLiteral("error %1 1 1").arg(least),
                          QStringLiteral("saccade %1 -2 1").arg(least + 1),
                          QStringLiteral("fixation %1 0 1").arg(greatest)}));
}

void TestEventExport::saccadeWithoutWayHasNoAngle()
{
    EyeData stream = recording(QStringLiteral("A.B.C"));
    stream.scanpath[0].mean = stream.scanpath[1].mean = {7, 7};
    stream.scanpath[2].mean = {7, 17}; // 10 downwards: 90 degrees
    const EventList events = allEvents(stream);
    QCOMPARE(events.rows[1].saccadeLength, QStringLiteral("0"));
    QCOMPARE(events.rows[1].saccadeAngle, QString());
    QCOMPARE(events.rows[3].saccadeLength, QStringLiteral("10"));
    QCOMPARE(events.rows[3].saccadeAngle, QStringLiteral("90"));
    const QString block = eventBlock(Examination(), events);
    QVERIFY(block.contains(QStringLiteral("Saccade mean length:5,0000000000\n"))); // (0 + 10) / 2
    QVERIFY(block.contains(QStringLiteral("Saccade mean angle:90,00003"))); // 90.00003, alone: 57.2958 is rounded
}

void TestEventExport::sums()
{
    EyeData stream = recording(QStringLiteral("AAA..BB.C"));
    stream.scanpath[0].mean = {0, 0};
    stream.scanpath[0].majorAxis = {3, 4}; // length 5
    stream.scanpath[0].minorAxis = {0, 2}; // length 2, area 10 pi
    stream.scanpath[1].mean = {30, 40};
    stream.scanpath[2].mean = {36, 32};
    const EventSums sums = allEvents(stream).sums;
    QCOMPARE(sums.fixations, 3);
    QCOMPARE(sums.fixationDurationMs, 20 + 10 + 0);
    QCOMPARE(sums.fixationAreaPx2, 10 * std::numbers::pi); // the others have no minor axis
    QCOMPARE(sums.saccades, 2);
    QCOMPARE(sums.saccadeDurationMs, 20.0 + 10.0); // 30 to 50 ms, 70 to 80 ms
    QCOMPARE(sums.saccadeLengthPx, 50.0 + 10.0);
    QCOMPARE(sums.directedSaccades, 2);
}

void TestEventExport::angle_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QString>("text");
    QTest::newRow("right") << QPoint(10, 0) << "0";
    QTest::newRow("right and down") << QPoint(10, 10) << "45";
    QTest::newRow("down") << QPoint(0, 10) << "90";
    QTest::newRow("left and down") << QPoint(-10, 10) << "135";
    QTest::newRow("left") << QPoint(-10, 0) << "180";
    QTest::newRow("left and up") << QPoint(-10, -10) << "225";
    QTest::newRow("up") << QPoint(0, -10) << "270";
    QTest::newRow("right and up") << QPoint(10, -10) << "315";
    QTest::newRow("a little down") << QPoint(1000, 1) << "0,0572958"; // atan 0.001 = 0.000999999667
    QTest::newRow("a little up") << QPoint(1000, -1) << "359,943";
    QTest::newRow("flat, left and down") << QPoint(-3, 4) << "126,87"; // 180 - 53.1301
    QTest::newRow("flat, left and up") << QPoint(-3, -4) << "233,13";
}

void TestEventExport::angle()
{
    QFETCH(QPoint, to);
    QFETCH(QString, text);
    const QPoint start(-5, 70);
    const double turn = std::atan2(to.y(), to.x()); // the screen's y grows downwards, and so does the angle
    const double radian = turn < 0 ? turn + 2 * std::numbers::pi : turn;
    QVERIFY(std::abs(saccadeAngleDegree(start, start + to) - radian * 57.2958) < 1e-9);

    EyeData stream = recording(QStringLiteral("A.B"));
    stream.scanpath[0].mean = start;
    stream.scanpath[1].mean = start + to;
    QCOMPARE(allEvents(stream).rows[1].saccadeAngle, text);
}

void TestEventExport::farApartFixations()
{
    constexpr int far = std::numeric_limits<int>::max();
    QVERIFY(std::abs(saccadeAngleDegree({-far, 0}, {far, 0})) < 1e-9);
    QVERIFY(std::abs(saccadeAngleDegree({-far, 0}, {far, 1}) - 1 / (2.0 * far) * 57.2958) < 1e-6);
    QVERIFY(std::isnan(saccadeAngleDegree({3, 4}, {3, 4})));
}

void TestEventExport::header()
{
    QCOMPARE(eventHeader(),
             QStringLiteral("subjectID;subjectINFO;picture;event;eventcode;gazepoints;cluster;onset(ms);duration(ms);"
                            "mean_x(px);mean_y(px);radius(px);saccade_length(px);saccade_angle(") +
                 QChar(0xb0) + QStringLiteral(")\n"));
}

void TestEventExport::block()
{
    EyeData stream = recording(QStringLiteral("AAAA..xx.BBBx"));
    stream.scanpath[0].mean = {100, 200};
    stream.scanpath[0].majorAxis = {3, 4}; // length 5
    stream.scanpath[0].minorAxis = {0, 2};
    stream.scanpath[0].cluster = 1;
    stream.scanpath[1].mean = {130, 160}; // 30 to the right, 40 up: length 50
    Examination examination = samples::examination(QStringLiteral("S1"), QStringLiteral("age=30, "));
    examination.image = std::make_shared<ImageRecord>(QStringLiteral("/pictures/cat.png"));
    examination.imageName = QStringLiteral("cat.png");
    examination.calculationInfo.fixationCalculationInfo = QStringLiteral("is not told here");
    // angle: (2 pi - acos 0.6) * 57.2958 = 306.870007371523; area: (pi * 5 * 2 + pi * 1 * 0) / 2 = 15.707963267949
    const QString expected = lines({
        QStringLiteral("\"S1\";\"age=30, \";cat.png;fixation;0;4;1;0;30;100;200;5;;"),
        QStringLiteral("\"S1\";\"age=30, \";cat.png;error;2;2;;60;20;;;;;"),
        QStringLiteral("\"S1\";\"age=30, \";cat.png;saccade;1;3;;40;50;;;;50;306,87"),
        QStringLiteral("\"S1\";\"age=30, \";cat.png;fixation;0;3;0;90;20;130;160;1;;"),
        QString(),
        QString(),
        QString(),
        QString(),
        QStringLiteral("Fixation mean duration:25,0000000000"),
        QStringLiteral("Fixation mean area:15,7079632679"),
        QStringLiteral("Saccade mean time:50,0000000000"),
        QStringLiteral("Saccade mean length:50,0000000000"),
        QStringLiteral("Saccade mean angle:306,8700073715"),
        QStringLiteral("Subject information:"),
        QStringLiteral("age=30, "),
    });
    QCOMPARE(eventBlock(examination, allEvents(stream)), expected);
}

void TestEventExport::pictureColumn_data()
{
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the picture was found") << true << "cat.png"
                                           << "cat.png";
    QTest::newRow("the picture is missing") << false << "cat.png"
                                            << "no image";
    QTest::newRow("no picture was named") << false << ""
                                          << "no image";
}

void TestEventExport::pictureColumn()
{
    QFETCH(bool, found);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    Examination examination;
    examination.imageName = name;
    if (found)
        examination.image = std::make_shared<ImageRecord>(name);
    const QString block = eventBlock(examination, allEvents(recording(QStringLiteral("A"))));
    QCOMPARE(block.section(u';', 2, 2), expected);
}

void TestEventExport::fieldsTakeADecimalComma()
{
    EyeData stream = recording(QStringLiteral("A.B"));
    stream.scanpath[0].mean = {0, 0};
    stream.scanpath[0].majorAxis = {2.5F, 0};
    stream.scanpath[1].mean = {1, 1};
    stream.scanpath[1].majorAxis = {1e6F, 0};
    const QString block = eventBlock(Examination(), allEvents(stream));
    QCOMPARE(block.section(u'\n', 0, 2), QStringLiteral("\"\";\"\";no image;fixation;0;1;0;0;0;0;0;2,5;;\n"
                                                        "\"\";\"\";no image;saccade;1;1;;10;10;;;;1,41421;45\n"
                                                        "\"\";\"\";no image;fixation;0;1;0;20;0;1;1;1e+06;;"));
    QVERIFY(eventBlock(Examination(), EventList()) == QStringLiteral("\n\n\n\n"
                                                                     "Fixation mean duration:nan\n"
                                                                     "Fixation mean area:nan\n"
                                                                     "Saccade mean time:nan\n"
                                                                     "Saccade mean length:nan\n"
                                                                     "Saccade mean angle:nan\n"
                                                                     "Subject information:\n\n"));
}

void TestEventExport::longRecording()
{
    // A fixation every second sample: a walk that searched the fixations anew at each sample would take minutes.
    constexpr qint64 count = 400000;
    EyeData stream;
    for (qint64 i = 0; i < count; ++i) {
        stream.gazePoints << valid(i);
        if (i % 2 == 0)
            stream.scanpath << fixation({i}, {static_cast<int>(i), 0});
    }
    const EventList events = eventsOf(stream, {0, count});
    QCOMPARE(events.rows.size(), count - 1); // as many fixations as saccades and one more
    QCOMPARE(events.sums.saccadeDurationMs, static_cast<double>(count / 2 - 1));
}

QTEST_GUILESS_MAIN(TestEventExport)
#include "TestEventExport.moc"
