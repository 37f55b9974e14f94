// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/StatisticsExport.h"
#include "ExportSamples.h"
#include "settings/StoredKeys.h"
#include "statistics/StatisticsCalculation.h"
#include "TestMessages.h"

#include <QTemporaryDir>
#include <QTest>

using samples::bytesOf;
using samples::lines;

namespace {

/// Two recordings of three samples, the second unchecked, and one area.
DataModel modelOfTwo()
{
    DataModel model;
    for (int number : {1, 2}) {
        Examination examination = samples::examination(QStringLiteral("s.%1").arg(number), QStringLiteral("age=2.5, "));
        examination.checked = number == 1;
        for (EyeData *stream : examination.streams()) {
            // (0,0), (3,4) and (3,4): 5 px in 10 ms, then none.
            stream->gazePoints << GazePoint(0, 0, 0, 0, 0, 1) << GazePoint(10, 3, 4, 0, 0, 1)
                               << GazePoint(20, 3, 4, 0, 0, 0);
        }
        examination.rightEye.gazePoints.removeLast();
        model.examinations() << examination;
    }
    model.insertAoi(AreaOfInterest(QStringLiteral("v.1"), QPolygon({{2, 2}, {9, 2}, {9, 9}, {2, 9}})));
    model.setTimeFrame({0, 20});
    return model;
}

} // namespace

class TestStatisticsExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void general();
    void generalOfSomeColumns();
    void areas();
    void aColumnSwitchedOff();
    void withoutAreas();
    void notMeasured();
    void eyes();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    ExportTarget m_target;
    StatisticsColumns m_columns;
};

void TestStatisticsExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_columns = {};
    for (const auto &key :
         {keys::horizontalActivity, keys::verticalActivity, keys::averageSpeed, keys::maximumSpeed, keys::minimumSpeed,
          keys::glanceFrequency, keys::glanceProportion, keys::maximumGlanceDuration, keys::meanGlanceDuration,
          keys::minimumGlanceDuration, keys::numberOfFixations, keys::numberOfGlances, keys::timeOfFirstGlance,
          keys::totalGlanceTime})
        m_columns << key.key;
    m_target = {m_folder->path(), QStringLiteral("p"), EyeMode::showAll};
}

void TestStatisticsExport::general()
{
    DataModel model = modelOfTwo();
    calculateGeneralStatistics(model, nullptr);
    const ExportResult result = exportGeneralStatistics(model, m_target, m_columns);
    const QString left = m_folder->filePath(QStringLiteral("p_generalstatistics_left.csv"));
    const QString right = m_folder->filePath(QStringLiteral("p_generalstatistics_right.csv"));
    QCOMPARE(result.written, (QStringList{left, right}));
    // x: 0, 3, 3: mean 2, variance 2, deviation 1.41; y: 0, 4, 4: 8/3, variance 32/9, deviation 1.89.
    QCOMPARE(QString::fromUtf8(bytesOf(left)),
             lines({QStringLiteral("subjectID;subjectINFO;eye;HGA;VGA;min_speed;max_speed;mean_speed;"),
                    QStringLiteral("\"s.1\";\"age=2.5, \";left;\"1,41\";\"1,89\";\"0 px/ms\";\"500 px/ms\";"
                                   "\"250 px/ms\";")}));
    // Two samples: deviations 1.5 and 2.
    QCOMPARE(QString::fromUtf8(bytesOf(right)),
             lines({QStringLiteral("subjectID;subjectINFO;eye;HGA;VGA;min_speed;max_speed;mean_speed;"),
                    QStringLiteral("\"s.1\";\"age=2.5, \";right;\"1,5\";\"2\";\"500 px/ms\";\"500 px/ms\";"
                                   "\"500 px/ms\";")}));
}

void TestStatisticsExport::generalOfSomeColumns()
{
    DataModel model = modelOfTwo();
    model.setTimeFrame({15, 15}); // no pair
    calculateGeneralStatistics(model, nullptr);
    for (const auto &key : {keys::horizontalActivity, keys::verticalActivity, keys::maximumSpeed})
        m_columns.remove(key.key);
    m_target.eyes = EyeMode::showDominant;
    exportGeneralStatistics(model, m_target, m_columns);
    QCOMPARE(QString::fromUtf8(bytesOf(m_folder->filePath(QStringLiteral("p_generalstatistics_dominant.csv")))),
             lines({QStringLiteral("subjectID;subjectINFO;eye;min_speed;mean_speed;"),
                    QStringLiteral("\"s.1\";\"age=2.5, \";dominant;\"1e+06 px/ms\";\"nan px/ms\";")}));
}

void TestStatisticsExport::areas()
{
    DataModel model = modelOfTwo();
    model.examinations()[0].leftEye.scanpath << samples::fixation({1, 4}, {3, 3}) << samples::fixation({5, 9}, {30, 3})
                                             << samples::fixation({18, 24}, {3, 3});
    calculateAoiStatistics(model, nullptr);
    m_target.eyes = EyeMode::showLeft;
    exportAoiStatistics(model, m_target, m_columns);
    // Samples: 2 of 3, from 10 ms on, 10 ms long; 2/20 * 60000/20 a minute. Fixations: 1 of 2 in the frame.
    const QStringList values{
        QStringLiteral("10"), QStringLiteral("2"),  QStringLiteral("300"), QStringLiteral("0,666667"),
        QStringLiteral("10"), QStringLiteral("10"), QStringLiteral("10"),  QStringLiteral("10"),
        QStringLiteral("1"),  QStringLiteral("1"),  QStringLiteral("150"), QStringLiteral("0,5"),
        QStringLiteral("3"),  QStringLiteral("3"),  QStringLiteral("3"),   QStringLiteral("3")};
    QCOMPARE(QString::fromUtf8(bytesOf(m_folder->filePath(QStringLiteral("p_AOIstatistics_left.csv")))),
             lines({QStringLiteral("subjectID;subjectINFO;AOI_name;time_of_first_gp(ms);amount_of_gps;gps_per_min;"
                                   "share_of_gps;gps_total_time_in_aoi(ms);gps_min_time_in_aoi(ms);"
                                   "gps_max_time_in_aoi(ms);gps_avg_time_in_aoi(ms);time_of_first_fix(ms);"
                                   "amount_of_fixis;fixis_per_min;share_of_fixis;fixis_total_time_in_aoi(ms);"
                                   "fixi_min_duration_in_aoi(ms);fixi_max_duration_in_aoi(ms);"
                                   "fixis_avg_duration_in_aoi(ms);"),
                    QStringLiteral("\"s.1\";\"age=2.5, \";\"v,1\";\"") + values.join(QStringLiteral("\";\"")) +
                        QStringLiteral("\";")}));
    QCOMPARE(QString::fromUtf8(bytesOf(m_folder->filePath(QStringLiteral("p_AOIArea_.csv")))),
             lines({QStringLiteral("AOI;Area(pixel)"), QStringLiteral("v.1;49")}));
}

void TestStatisticsExport::aColumnSwitchedOff()
{
    DataModel model = modelOfTwo();
    calculateAoiStatistics(model, nullptr);
    for (const auto &key :
         {keys::glanceFrequency, keys::glanceProportion, keys::maximumGlanceDuration, keys::meanGlanceDuration,
          keys::minimumGlanceDuration, keys::numberOfGlances, keys::totalGlanceTime})
        m_columns.remove(key.key);
    exportAoiStatistics(model, m_target, m_columns);
    QCOMPARE(QString::fromUtf8(bytesOf(m_folder->filePath(QStringLiteral("p_AOIstatistics_right.csv")))),
             lines({QStringLiteral("subjectID;subjectINFO;AOI_name;time_of_first_gp(ms);time_of_first_fix(ms);"
                                   "amount_of_fixis;"),
                    QStringLiteral("\"s.1\";\"age=2.5, \";\"v,1\";\"10\";\"0\";\"0\";")}));
}

void TestStatisticsExport::withoutAreas()
{
    DataModel model = modelOfTwo();
    model.removeAoi(QStringLiteral("v.1"));
    exportAoiStatistics(model, m_target, m_columns);
    const QString path = m_folder->filePath(QStringLiteral("p_AOIArea_.csv"));
    QVERIFY(QFile::exists(path));
    QVERIFY(bytesOf(path).isEmpty());
}

void TestStatisticsExport::notMeasured()
{
    const RecordedMessages messages;
    const DataModel model = modelOfTwo();
    exportGeneralStatistics(model, m_target, m_columns);
    exportAoiStatistics(model, m_target, m_columns);
    QCOMPARE(QString::fromUtf8(bytesOf(m_folder->filePath(QStringLiteral("p_generalstatistics_left.csv")))),
             QStringLiteral("subjectID;subjectINFO;eye;HGA;VGA;min_speed;max_speed;mean_speed;\n"));
    QCOMPARE(bytesOf(m_folder->filePath(QStringLiteral("p_AOIstatistics_left.csv"))).count('\n'), 1);
    const QString folder = m_folder->path();
    QCOMPARE(messages.texts(),
             (QStringList{QStringLiteral("General statistics Export|General statistics exported to: ") + folder +
                              QStringLiteral("_filename_generalstatistics_left/right.csv"),
                          QStringLiteral("AOI statistics Export|AOI statistics exported to: ") + folder +
                              QStringLiteral("_filename_AOIstatistics_left/right.csv")}));
}

void TestStatisticsExport::eyes()
{
    DataModel model = modelOfTwo();
    calculateGeneralStatistics(model, nullptr);
    m_target.eyes = EyeMode::showMean;
    QCOMPARE(exportGeneralStatistics(model, m_target, m_columns).written,
             QStringList(m_folder->filePath(QStringLiteral("p_generalstatistics_mean.csv"))));
    m_target.folder = QStringLiteral("/nowhere");
    QCOMPARE(exportGeneralStatistics(model, m_target, m_columns).failed.size(), 1);
}

QTEST_GUILESS_MAIN(TestStatisticsExport)
#include "TestStatisticsExport.moc"
