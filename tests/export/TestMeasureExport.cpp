// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/MeasureExport.h"
#include "export/QualityExport.h"
#include "export/TidyTable.h"
#include "ExportSamples.h"
#include "TestMessages.h"
#include "visualization/ToyData.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using samples::bytesOf;
using samples::lines;

namespace {

/// Subjects of groups "x" and "y", two each; the left eye has one fixation after the other in and beside area "in, 1":
/// as many inside as the number of the subject.
DataModel modelOfFour()
{
    DataModel model;
    for (int number = 1; number <= 4; ++number) {
        Examination examination = samples::examination(QStringLiteral("s%1").arg(number), QString());
        examination.baseName = QStringLiteral("r%1").arg(number);
        examination.properties.insert(QStringLiteral("group"), number < 3 ? QStringLiteral("x") : QStringLiteral("y"));
        examination.properties.insert(QStringLiteral("sex"), number % 2 ? QStringLiteral("f") : QStringLiteral("m"));
        for (int i = 0; i < 2 * number; ++i)
            examination.leftEye.scanpath << toy::stay({i % 2 ? 500 : 50, 50}, 100 * i);
        examination.leftEye.gazePoints << toy::sample(0, 50, 50) << toy::sample(10, 500, 50);
        model.examinations() << examination;
    }
    model.insertAoi(AreaOfInterest(QStringLiteral("in, 1"), QPolygon({{0, 0}, {100, 0}, {100, 100}, {0, 100}})));
    model.setTimeFrame({0, 10000});
    return model;
}

QStringList rowOf(const QList<QStringList> &rows, const char *measure, const char *area, const char *group)
{
    for (const QStringList &row : rows) {
        if (row[1] == QLatin1StringView(measure) && row[2] == QLatin1StringView(area) &&
            row[3] == QLatin1StringView(group))
            return row;
    }
    return {};
}

} // namespace

class TestMeasureExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void tidyText();
    void aoiMeasures();
    void scanpathMeasures();
    void quality();
    void comparison();
    void comparisonByAnotherEntry();
    void groupsOfTheWindow();
    void withoutGroups();
};

void TestMeasureExport::tidyText()
{
    TidyTable table({QStringLiteral("a"), QStringLiteral("b,c")});
    table.addRow({QStringLiteral("say \"x\""), QStringLiteral("two\nlines")});
    QCOMPARE(table.text(), QStringLiteral("a,\"b,c\"\n\"say \"\"x\"\"\",\"two\nlines\"\n"));
    QCOMPARE(TidyTable::number(0.1), QStringLiteral("0.1"));
    QCOMPARE(TidyTable::number(1.0 / 3), QStringLiteral("0.3333333333333333"));
    QCOMPARE(TidyTable::number(-0.0), QStringLiteral("0"));
    QCOMPARE(TidyTable::number({}), QString());
    QCOMPARE(TidyTable::number(qQNaN()), QString());
}

void TestMeasureExport::aoiMeasures()
{
    const QTemporaryDir folder;
    DataModel model = modelOfFour();
    for (qsizetype i = 2; i < 4; ++i)
        model.examinations()[i].checked = false;
    const ExportResult result = exportAoiMeasures(model, {folder.path(), QStringLiteral("p"), EyeMode::showLeft});
    QCOMPARE(result.written, QStringList(folder.filePath(QStringLiteral("p_aoi_measures.csv"))));
    QCOMPARE(QString::fromUtf8(bytesOf(result.written[0])),
             lines({QStringLiteral("recording,subject,eye,aoi,visits,revisits,time_to_first_fixation_ms,"
                                   "first_fixation_duration_ms,dwell_time_ms,dwell_time_share,fixations,"
                                   "mean_fixation_duration_ms,mean_visit_duration_ms,hit_samples,hit_sample_share,"
                                   "saccades_into,saccades_out_of"),
                    QStringLiteral("r1,s1,left,\"in, 1\",1,0,0,80,80,0.5,1,80,80,1,0.5,0,1"),
                    QStringLiteral("r2,s2,left,\"in, 1\",2,1,0,80,160,0.5,2,80,80,1,0.5,1,2")}));
}

void TestMeasureExport::scanpathMeasures()
{
    const QTemporaryDir folder;
    DataModel model = modelOfFour();
    for (qsizetype i = 1; i < 4; ++i)
        model.examinations()[i].checked = false;
    const ExportResult result =
        exportScanpathMeasures(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll}, {});
    // Two fixations 450 px apart, one of them in the area; the right eye saw nothing.
    QCOMPARE(
        QString::fromUtf8(bytesOf(folder.filePath(QStringLiteral("p_scanpath_measures.csv")))),
        lines({QStringLiteral("recording,subject,eye,fixations,saccades,mean_fixation_duration_ms,"
                              "mean_saccade_duration_ms,mean_saccade_amplitude_px,mean_saccade_amplitude_deg,"
                              "scanpath_length_px,transition_entropy_bit,stationary_entropy_bit,"
                              "gaze_entropy_bit,convex_hull_area_px2,bcea_px2,valid_sample_share"),
               QStringLiteral("r1,s1,left,2,1,80,20,450,,450,,,0,,,1"), QStringLiteral("r1,s1,right,0,0,,,,,,,,,,,")}));
}

void TestMeasureExport::quality()
{
    const QTemporaryDir folder;
    DataModel model = modelOfFour();
    for (qsizetype i = 1; i < 4; ++i)
        model.examinations()[i].checked = false;
    model.examinations()[0].imageName = QStringLiteral("map.png");
    // Two samples 10 ms and 450 px apart; a fixation of two samples is too short to be measured.
    const ExportResult result = exportQuality(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll}, {});
    QCOMPARE(result.written, QStringList(folder.filePath(QStringLiteral("p_quality.csv"))));
    QCOMPARE(QString::fromUtf8(bytesOf(result.written[0])),
             lines({QStringLiteral(
                        "recording,subject,group,image,eye,samples,duration_ms,rate_hz,interval_jitter_ms,"
                        "repeated_times,backward_times,gaps,gap_time_ms,gap_time_share,longest_gap_ms,"
                        "valid_sample_share,data_loss_share,losses,losses_below_75_ms,losses_75_to_500_ms,"
                        "losses_above_500_ms,longest_loss_ms,outside_share,rms_s2s_px,rms_s2s_deg,window_rms_s2s_px,"
                        "window_rms_s2s_deg,measured_fixations,fixation_rms_s2s_px,fixation_rms_s2s_deg,"
                        "fixation_sd_px,fixation_sd_deg,fixation_bcea_px2,fixation_bcea_deg2,binocular_share,"
                        "eye_distance_px,eye_distance_deg,eye_offset_x_px,eye_offset_y_px"),
                    QStringLiteral("r1,s1,x,map.png,left,2,10,100,0,0,0,0,0,0,,1,0,0,0,0,0,,0,450,,,,0,,,,,,,,,,,"),
                    QStringLiteral("r1,s1,x,map.png,right,0,,,,0,0,0,,,,,,0,0,0,0,,,,,,,0,,,,,,,,,,,")}));
}

void TestMeasureExport::comparison()
{
    const QList<QStringList> rows = groupComparisonRows(modelOfFour(), EyeMode::showLeft, {});
    // Fixations inside: 1 and 2 against 3 and 4. Of six splits this one and its mirror image are as far apart.
    const QString third = TidyTable::number(1.0 / 3);
    QCOMPARE(
        rowOf(rows, "fixations", "in, 1", "x"),
        (QStringList{QStringLiteral("left"), QStringLiteral("fixations"), QStringLiteral("in, 1"), QStringLiteral("x"),
                     QStringLiteral("2"), QStringLiteral("1.5"), QStringLiteral("1.5"),
                     TidyTable::number(std::sqrt(0.5)), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("y"),
                     QStringLiteral("independent"), QStringLiteral("-2"), third, third, QStringLiteral("-1")}));
    QCOMPARE(rowOf(rows, "fixations", "in, 1", "y").mid(10),
             (QStringList{QStringLiteral("x"), QStringLiteral("independent"), QStringLiteral("2"), third, third,
                          QStringLiteral("1")}));
    QCOMPARE(rowOf(rows, "fixations", "", "y")[5], QStringLiteral("7"));   // of the scanpath: 6 and 8
    QVERIFY(rowOf(rows, "mean_saccade_amplitude_deg", "", "x").isEmpty()); // no subject has it
}

void TestMeasureExport::comparisonByAnotherEntry()
{
    DataModel model = modelOfFour();
    model.comparedBy = QStringLiteral("sex");
    const QList<QStringList> rows = groupComparisonRows(model, EyeMode::showLeft, {});
    QCOMPARE(rowOf(rows, "fixations", "in, 1", "f")[5], QStringLiteral("2")); // 1 and 3
    QCOMPARE(rowOf(rows, "fixations", "in, 1", "m")[5], QStringLiteral("3"));
}

void TestMeasureExport::groupsOfTheWindow()
{
    DataModel model = modelOfFour();
    model.examinations()[0].groupName = QStringLiteral("z"); // given by hand
    const QList<QStringList> rows = groupComparisonRows(model, EyeMode::showLeft, {});
    QCOMPARE(rowOf(rows, "fixations", "in, 1", "z")[5], QStringLiteral("1"));
    QCOMPARE(rowOf(rows, "fixations", "in, 1", "z")[10], QString()); // three groups
}

void TestMeasureExport::withoutGroups()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    DataModel model = modelOfFour();
    model.comparedBy = QStringLiteral("age");
    const ExportResult result =
        exportGroupComparison(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll}, {});
    QVERIFY(result.written.isEmpty() && QDir(folder.path()).isEmpty());
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("Group comparison Export|No checked examination has an entry "
                                                          "\"age\": there are no groups to compare.")));
}

QTEST_GUILESS_MAIN(TestMeasureExport)
#include "TestMeasureExport.moc"
