// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/scene/VideoExport.h"
#include "FullDisk.h"
#include "visualization/ToyData.h"

#include <opencv2/videoio.hpp>

#include <QDir>
#include <QGraphicsScene>
#include <QTemporaryDir>
#include <QTest>

class TestVideoExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void stepsOfTheTime_data();
    void stepsOfTheTime();
    void framesAreTheImagesOfTheirSpans_data();
    void framesAreTheImagesOfTheirSpans();
    void oneImageForTheWholeSpan();
    void failures_data();
    void failures();
    void stoppedVideoLeavesTheOlderFile();
    void fullDiskLeavesTheOlderFile();
    void fullDiskIsTheReason();
    void aFolderOfItsNameStays();
    void theModelStaysAsItIs();

private:
    VideoContent content() const
    {
        QPixmap background(320, 240);
        background.fill(Qt::yellow);
        return {m_toy.context(), {background}, QRectF(0, 0, 320, 240)};
    }
    QByteArray contentOf(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString path(const char *name) const { return m_folder->filePath(QLatin1StringView(name)); }
    QStringList left() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    toy::Scenery m_toy;
    std::unique_ptr<QTemporaryDir> m_folder;
};

/// A large circle in each fifth of a second, at another place.
void TestVideoExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_toy = toy::Scenery();
    m_toy.eyeMode = EyeMode::showLeft;
    m_toy.fixations.visualizationMode = 2;
    m_toy.fixations.fillOpacity = 100;
    m_toy.fixations.fillColorLeft = Qt::blue;
    Examination examination;
    for (int i = 0; i < 5; ++i)
        examination.leftEye.scanpath << toy::stay({40 + 50 * i, 60 + 25 * i}, 200 * i + 50);
    m_toy.model.examinations() = {examination};
}

void TestVideoExport::stepsOfTheTime_data()
{
    QTest::addColumn<TimeFrame>("whole");
    QTest::addColumn<qint64>("stepMs");
    QTest::addColumn<QString>("frames");
    QTest::newRow("fits") << TimeFrame{0, 300} << qint64(100) << "0-100 100-200 200-300";
    QTest::newRow("a rest is left out") << TimeFrame{0, 299} << qint64(100) << "0-100 100-200";
    QTest::newRow("from a later start") << TimeFrame{1000, 1200} << qint64(100) << "1000-1100 1100-1200";
    QTest::newRow("equal") << TimeFrame{0, 100} << qint64(100) << "0-100";
    QTest::newRow("shorter") << TimeFrame{0, 99} << qint64(100) << "";
    QTest::newRow("no time") << TimeFrame{0, 0} << qint64(100) << "";
    QTest::newRow("no step") << TimeFrame{0, 100} << qint64(0) << "";
}

void TestVideoExport::stepsOfTheTime()
{
    QFETCH(TimeFrame, whole);
    QFETCH(qint64, stepMs);
    QStringList texts;
    for (const TimeFrame frame : videoFrames(whole, stepMs))
        texts << QStringLiteral("%1-%2").arg(frame.startMs).arg(frame.endMs);
    QTEST(texts.join(u' '), "frames");
}

namespace {

/// Mean difference of the channels; the encoders lose a little.
double difference(const QImage &image, const cv::Mat &frame)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const cv::Vec3b blueGreenRed = frame.at<cv::Vec3b>(y, x);
            sum += std::abs(qBlue(pixel) - blueGreenRed[0]) + std::abs(qGreen(pixel) - blueGreenRed[1]) +
                   std::abs(qRed(pixel) - blueGreenRed[2]);
        }
    }
    return sum / (3.0 * image.width() * image.height());
}

} // namespace

void TestVideoExport::framesAreTheImagesOfTheirSpans_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("motion jpeg") << "a.avi";
    QTest::newRow("mp4") << "a.mp4";
    QTest::newRow("matroska") << "a.mkv";
}

void TestVideoExport::framesAreTheImagesOfTheirSpans()
{
    QFETCH(QString, name);
    const QString file = m_folder->filePath(name);
    QCOMPARE(exportVideo(content(), 200, file), VideoOutcome::Written);
    QCOMPARE(left(), QStringList(name));
    cv::VideoCapture video(file.toStdString());
    QVERIFY(video.isOpened());
    QCOMPARE(video.get(cv::CAP_PROP_FPS), 30.0);
    QGraphicsScene scene;
    cv::Mat frame;
    QList<QImage> images;
    for (const TimeFrame span : videoFrames(m_toy.frame, 200)) {
        images << videoImage(scene, content(), span);
        QVERIFY(video.read(frame));
        QCOMPARE(QSize(frame.cols, frame.rows), QSize(320, 240));
        QVERIFY2(difference(images.last(), frame) < 6, qPrintable(QString::number(difference(images.last(), frame))));
        if (images.size() > 1) // and nearer to its own image than to the one before
            QVERIFY(difference(images.last(), frame) < difference(images[images.size() - 2], frame) / 2);
    }
    QCOMPARE(images.size(), 5);
    QVERIFY(!video.read(frame));
}

void TestVideoExport::oneImageForTheWholeSpan()
{
    QCOMPARE(exportVideo(content(), 1000, path("a.avi")), VideoOutcome::Written);
    cv::VideoCapture video(path("a.avi").toStdString());
    cv::Mat frame;
    QVERIFY(video.read(frame) && !video.read(frame));
}

void TestVideoExport::failures_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("stepMs");
    QTest::addColumn<VideoOutcome>("outcome");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("too short") << "a.avi" << qint64(1001) << VideoOutcome::TooShort << "Timespan is too short!!!"
                               << "the time is shorter than that of one image";
    QTest::newRow("no such folder") << "no/a.avi" << qint64(100) << VideoOutcome::CannotCreate
                                    << "Can't create video!!!"
                                    << "its folder cannot be written";
    QTest::newRow("no such container") << "a.xyz" << qint64(100) << VideoOutcome::CannotCreate
                                       << "Can't create video!!!"
                                       << "\".xyz\" is no ending of a video; let the name end in .avi, .mp4 or .mkv";
    QTest::newRow("no ending") << "a" << qint64(100) << VideoOutcome::CannotCreate << "Can't create video!!!"
                               << "the name has no ending; let the name end in .avi, .mp4 or .mkv";
}

void TestVideoExport::failures()
{
    QFETCH(QString, name);
    QFETCH(qint64, stepMs);
    QFETCH(QString, reason);
    const QString file = m_folder->filePath(name);
    const VideoOutcome outcome = exportVideo(content(), stepMs, file);
    QTEST(outcome, "outcome");
    QTEST(videoText(outcome), "text");
    QCOMPARE(videoFailure(outcome, file), QStringLiteral("%1 could not be written: %2").arg(file, reason));
    QCOMPARE(left(), QStringList());
}

void TestVideoExport::stoppedVideoLeavesTheOlderFile()
{
    QFile older(path("a.avi"));
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write("older") == 5);
    older.close();
    std::stop_source stop;
    stop.request_stop();
    const std::stop_token token = stop.get_token();
    QCOMPARE(exportVideo(content(), 200, path("a.avi"), token), VideoOutcome::Stopped);
    QCOMPARE(left(), QStringList(QStringLiteral("a.avi")));
    QVERIFY(older.open(QIODevice::ReadOnly));
    QCOMPARE(older.readAll(), QByteArray("older"));
    older.close();
    QCOMPARE(exportVideo(content(), 200, path("a.avi")), VideoOutcome::Written);
    QVERIFY(older.size() > 1000);
    QCOMPARE(videoFailure(VideoOutcome::Stopped, path("a.avi")), QString());
    QCOMPARE(videoFailure(VideoOutcome::Written, path("a.avi")), QString());
}

/// The encoder itself does not notice; its head and half of the images are there.
void TestVideoExport::fullDiskLeavesTheOlderFile()
{
    constexpr qint64 stepMs = 20;
    QCOMPARE(exportVideo(content(), stepMs, path("a.avi")), VideoOutcome::Written);
    const QByteArray older = contentOf("a.avi");
    {
        const FullDisk disk(static_cast<unsigned long>(older.size() / 2));
        QCOMPARE(exportVideo(content(), stepMs, path("a.avi")), VideoOutcome::Failed);
    }
    QCOMPARE(left(), QStringList(QStringLiteral("a.avi")));
    QVERIFY(contentOf("a.avi") == older);
    QCOMPARE(videoFailure(VideoOutcome::Failed, path("a.avi")),
             path("a.avi") + QStringLiteral(" could not be written: the disk may be full"));
}

/// Where not even the head of a video has room, the encoder gives no reason.
void TestVideoExport::fullDiskIsTheReason()
{
    const FullDisk disk(0);
    QCOMPARE(videoFailure(VideoOutcome::CannotCreate, path("a.avi")),
             path("a.avi") + QStringLiteral(" could not be written: File too large"));
    QCOMPARE(left(), QStringList());
}

void TestVideoExport::aFolderOfItsNameStays()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("a.avi")));
    QCOMPARE(exportVideo(content(), 200, path("a.avi")), VideoOutcome::Failed);
    QVERIFY(QFileInfo(path("a.avi")).isDir());
    QCOMPARE(left(), QStringList(QStringLiteral("a.avi")));
    QCOMPARE(videoFailure(VideoOutcome::Failed, path("a.avi")),
             path("a.avi") + QStringLiteral(" could not be written: a folder has this name"));
}

void TestVideoExport::theModelStaysAsItIs()
{
    const CalculationInfo before = m_toy.model.examinations()[0].calculationInfo;
    QCOMPARE(exportVideo(content(), 200, path("a.avi")), VideoOutcome::Written);
    QVERIFY(m_toy.model.examinations()[0].calculationInfo == before);
}

QTEST_MAIN(TestVideoExport)
#include "TestVideoExport.moc"
