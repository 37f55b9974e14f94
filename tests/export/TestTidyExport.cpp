// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TidyExport.h"
#include "export/TidyRows.h"
#include "export/TidyTable.h"
#include "ExportSamples.h"
#include "TestMessages.h"
#include "visualization/ToyData.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>

using samples::bytesOf;
using samples::lines;

namespace {

GazePoint pupil(qint64 timeMs, double x, double y, double width, double height, int validity = 1)
{
    return {timeMs, x, y, width, height, validity};
}

/// One recording. The left eye rests at (50, 50) from 0 to 10 ms, is lost, and rests at (350, 450) from 40 to 50 ms;
/// 500 px lie between. The right eye sees nothing. The second fixation is the only one of the second cluster.
DataModel model()
{
    Examination examination = samples::examination(QStringLiteral("P, 1"), QString());
    examination.baseName = QStringLiteral("r1");
    examination.imageName = QStringLiteral("bay.png");
    examination.properties.insert(QStringLiteral("group"), QStringLiteral("a"));
    examination.properties.insert(QStringLiteral("sex"), QStringLiteral("f"));
    EyeData &eye = examination.leftEye;
    eye.gazePoints = {pupil(0, 49, 50, 3, 4),    pupil(10, 52, 54, 5, 4),       pupil(20, 0, 0, 0, 0, 0),
                      pupil(30, 90, 90.5, 3, 3), pupil(40, 350, 450, 3.5, 3.5), pupil(50, 350, 450.25, 3.5, 3.5),
                      pupil(60, 7, 7, 1, 1, 0)};
    eye.scanpath = {toy::fixation({50, 50}, {3, 4}, {0, 2}, eye.gazePoints.mid(0, 2)),
                    toy::fixation({350, 450}, {1, 0}, {0, 0}, eye.gazePoints.mid(4, 2))};
    for (int number = 0; Fixation & fixation : eye.scanpath)
        fixation.number = ++number;
    eye.fixationClusters = {toy::clusterOf(eye.scanpath[1]),
                            toy::clusterOf(eye.scanpath[0])}; // as a redraw orders them
    eye.fixationClusters[0].number = 1;
    eye.fixationClusters[1].number = 0;
    DataModel model;
    model.examinations() << examination << examination;
    model.examinations()[1].checked = false;
    model.insertAoi(AreaOfInterest(QStringLiteral("in"), QPolygon({{0, 0}, {100, 0}, {100, 100}, {0, 100}})));
    model.insertAoi(AreaOfInterest(QStringLiteral("all"), QPolygon({{0, 0}, {500, 0}, {500, 500}, {0, 500}})));
    model.setTimeFrame({0, 1000});
    return model;
}

} // namespace

class TestTidyExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void fixations();
    void saccades();
    void losses();
    void clusters();
    void visits();
    void sampleTable();
    void anglesWithGeometry();
    void groupsByAnotherEntry();
    void nothingToWriteLeavesHeaders();
    void frameCuts();
    void numbersLikeTheOtherTables();
    void failureIsTold();

private:
    QString table(const char *kind, const DataModel &data, EyeMode eyes = EyeMode::showAll,
                  const MeasureForm &form = {}) const
    {
        const ExportTarget target{m_folder->path(), QStringLiteral("p"), eyes};
        if (QLatin1StringView(kind) == QLatin1StringView("samples"))
            exportTidySamples(data, target, form);
        else
            exportTidy(data, target, form);
        return QString::fromUtf8(
            bytesOf(m_folder->filePath(QStringLiteral("p_tidy_%1.csv").arg(QLatin1StringView(kind)))));
    }
    static QString lead() { return QStringLiteral("recording,subject,group,image,eye,"); }
    static QString left() { return QStringLiteral("r1,\"P, 1\",a,bay.png,left,"); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestTidyExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

/// Extent 3 + 4 px; axes of 5 and 2 px, so that the area is 10 pi; 5 px in 10 ms. The second one: 0.25 px in 10 ms.
void TestTidyExport::fixations()
{
    QCOMPARE(table("fixations", model()),
             lines({lead() + QStringLiteral(
                                 "fixation,onset_ms,duration_ms,samples,x_px,y_px,mean_x_px,mean_y_px,dispersion_px,"
                                 "dispersion_deg,major_axis_px,minor_axis_px,area_px2,"
                                 "mean_velocity_px_per_s,peak_velocity_px_per_s,mean_velocity_deg_per_s,"
                                 "peak_velocity_deg_per_s,pupil_width,pupil_height,aois,cluster"),
                    left() + QStringLiteral("1,0,10,2,50,50,50.5,52,7,,5,2,31.41592653589793,500,500,,,4,4,all;in,1"),
                    left() + QStringLiteral("2,40,10,2,350,450,350,450.125,0.25,,1,0,0,25,25,,,3.5,3.5,all,2")}));
}

/// Four samples from 10 to 40 ms, one of them lost. The only pair: from (90, 90.5) to (350, 450) in 10 ms.
void TestTidyExport::saccades()
{
    const QString speed = TidyTable::number(std::hypot(260.0, 359.5) / 0.01);
    const QString direction = TidyTable::number(360 - std::atan2(400.0, 300.0) * 180 / std::acos(-1.0)); // downwards
    QCOMPARE(table("saccades", model()),
             lines({lead() + QStringLiteral("saccade,from_fixation,to_fixation,onset_ms,duration_ms,samples,"
                                            "invalid_samples,x_px,y_px,end_x_px,end_y_px,amplitude_px,amplitude_deg,"
                                            "direction_deg,mean_velocity_px_per_s,peak_velocity_px_per_s,"
                                            "mean_velocity_deg_per_s,peak_velocity_deg_per_s,aois,end_aois,cluster,"
                                            "end_cluster"),
                    left() + QStringLiteral("1,1,2,10,30,4,1,50,50,350,450,500,,%1,%2,%2,,,all;in,all,1,2")
                                 .arg(direction, speed)}));
}

void TestTidyExport::losses()
{
    QCOMPARE(table("losses", model()),
             lines({lead() + QStringLiteral("loss,onset_ms,duration_ms,samples,until_end"),
                    left() + QStringLiteral("1,20,10,1,0"), left() + QStringLiteral("2,60,0,1,1")}));
}

void TestTidyExport::clusters()
{
    QCOMPARE(table("clusters", model()),
             lines({lead() + QStringLiteral("cluster,onset_ms,duration_ms,dwell_ms,fixations,samples,x_px,y_px,"
                                            "dispersion_px,dispersion_deg,major_axis_px,minor_axis_px,area_px2,aois"),
                    left() + QStringLiteral("1,0,10,10,1,2,50,50,7,,5,2,31.41592653589793,all;in"),
                    left() + QStringLiteral("2,40,10,10,1,2,350,450,0.25,,1,0,0,all")}));
}

void TestTidyExport::visits()
{
    QCOMPARE(table("aois", model()),
             lines({lead() + QStringLiteral("aoi,visit,onset_ms,duration_ms,dwell_ms,fixations,x_px,y_px,area_px2"),
                    left() + QStringLiteral("all,1,0,50,20,2,250,250,250000"),
                    left() + QStringLiteral("in,1,0,10,10,1,50,50,10000")}));
}

void TestTidyExport::sampleTable()
{
    const QString speed = TidyTable::number(std::hypot(260.0, 359.5) / 0.01);
    QCOMPARE(table("samples", model(), EyeMode::showLeft),
             lines({lead() + QStringLiteral("onset_ms,x_px,y_px,pupil_width,pupil_height,valid,velocity_px_per_s,"
                                            "velocity_deg_per_s,event,fixation,aois,cluster"),
                    left() + QStringLiteral("0,49,50,3,4,1,,,fixation,1,all;in,1"),
                    left() + QStringLiteral("10,52,54,5,4,1,500,,fixation,1,all;in,1"),
                    left() + QStringLiteral("20,,,,,0,,,loss,0,,0"),
                    left() + QStringLiteral("30,90,90.5,3,3,1,,,saccade,0,all;in,0"),
                    left() + QStringLiteral("40,350,450,3.5,3.5,1,%1,,fixation,2,all,2").arg(speed),
                    left() + QStringLiteral("50,350,450.25,3.5,3.5,1,25,,fixation,2,all,2"),
                    left() + QStringLiteral("60,,,,,0,,,loss,0,,0")}));
}

/// A pixel is a thousandth of the distance: 500 px are seen at arctan 0.5.
void TestTidyExport::anglesWithGeometry()
{
    const QStringList fields = table("saccades", model(), EyeMode::showLeft, {.pixelPerDistance = 0.001})
                                   .section(u'\n', 1, 1)
                                   .remove(QStringLiteral("\"P, 1\""))
                                   .split(u',');
    const auto degrees = [](double px) { return std::atan(px / 1000) * 180 / std::acos(-1.0); };
    QCOMPARE(fields[17].toDouble(), degrees(500));
    QCOMPARE(fields[21].toDouble(), degrees(std::hypot(260.0, 359.5)) / 0.01);
    QCOMPARE(fields[22], fields[21]);
}

void TestTidyExport::groupsByAnotherEntry()
{
    DataModel data = model();
    data.comparedBy = QStringLiteral("sex");
    QVERIFY(table("losses", data).contains(QStringLiteral("r1,\"P, 1\",f,bay.png,left,1")));
    data.examinations()[0].properties[QStringLiteral("sex")] = QStringLiteral("None");
    QVERIFY(table("losses", data).contains(QStringLiteral("r1,\"P, 1\",,bay.png,left,1")));
}

void TestTidyExport::nothingToWriteLeavesHeaders()
{
    const RecordedMessages messages;
    for (const char *kind : {"fixations", "saccades", "losses", "clusters", "aois", "samples"}) {
        const QString text = table(kind, model(), EyeMode::showRight);
        QCOMPARE(text.count(u'\n'), qsizetype(1));
        QVERIFY(text.startsWith(lead()));
    }
    QCOMPARE(messages.texts().size(), qsizetype(6));
    QVERIFY(messages.texts().constLast().startsWith(QStringLiteral("Tidy samples Export|Tidy samples exported to: ")));
}

/// Samples by their time, fixations and clusters whole, saccades between what is left.
void TestTidyExport::frameCuts()
{
    DataModel data = model();
    data.setTimeFrame({5, 55});
    QCOMPARE(table("fixations", data).count(u'\n'), qsizetype(2));
    QCOMPARE(table("saccades", data).count(u'\n'), qsizetype(1));
    QCOMPARE(table("clusters", data).count(u'\n'), qsizetype(2));
    QCOMPARE(table("losses", data).count(u'\n'), qsizetype(2));
    const QStringList rows = table("samples", data).split(u'\n');
    QCOMPARE(rows.size(), qsizetype(1 + 5 + 1));
    QVERIFY(rows[1].endsWith(QStringLiteral("10,52,54,5,4,1,500,,,0,all;in,0"))); // its fixation is not in the frame
}

/// Two ways to write a number: their digits must not differ.
void TestTidyExport::numbersLikeTheOtherTables()
{
    QRandomGenerator64 random(5);
    QList<double> numbers{0,    -0.0, 0.1,   1e5,  123456, 1e15,   9007199254740991, 9007199254740992,
                          1e16, 1e22, 1e300, 1e-5, 0.0001, 5e-324, qInf(),           qQNaN()};
    for (int i = 0; i < 20000; ++i) {
        const quint64 bits = random.generate();
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        numbers << number << static_cast<double>(bits % 1000000) / 1000 << static_cast<double>(bits >> 12);
    }
    for (const double number : std::as_const(numbers)) {
        TidyRows rows({});
        rows.beginRow();
        rows.addNumber(number);
        rows.endRow();
        QCOMPARE(QString::fromLatin1(rows.bytes()), TidyTable::number(number) + u'\n');
    }
}

void TestTidyExport::failureIsTold()
{
    const RecordedMessages messages;
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("p_tidy_losses.csv")));
    const ExportResult result = exportTidy(model(), {m_folder->path(), QStringLiteral("p"), EyeMode::showAll}, {});
    QCOMPARE(result.written.size(), qsizetype(4));
    QCOMPARE(result.failed, QStringList(m_folder->filePath(QStringLiteral("p_tidy_losses.csv"))));
    QVERIFY(messages.texts().constFirst().startsWith(QStringLiteral("Tidy tables Export|")));
    QVERIFY(messages.texts().constFirst().contains(QStringLiteral("could not be written")));
    QVERIFY(messages.texts().constFirst().endsWith(QStringLiteral("\n(the other 4 files of this export are new)")));
}

QTEST_GUILESS_MAIN(TestTidyExport)
#include "TestTidyExport.moc"
