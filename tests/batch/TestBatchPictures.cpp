// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchRunTest.h"

#include <QImage>
#include <QTest>

/// What a run draws beyond the plain picture: charts, pictures for papers, cuts of areas.
class TestBatchPictures : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }

    void charts();
    void chartsOfAreasNeedAreas();
    void picturesForPapers();
    void aPictureForEach_data();
    void aPictureForEach();
    void aRecordingsPictureThatCannotBeDecoded();
    void aRecordingsPictureThatIsMissing();
    void saliencyOfAPictureThatCannotBeDecoded_data();
    void saliencyOfAPictureThatCannotBeDecoded();
    void namesOfPicturesStayInTheFolder();
    void cutsOfAreas();
    void video();
    void diagram();

private:
    /// The recordings have a picture of their own whose header is whole, the rest is missing.
    void cutThePictureOf(const QStringList &recordings) const
    {
        m_batch->write(QStringLiteral("study/cut.png"), m_batch->contents(QStringLiteral("study/bay.png")).first(2000));
        for (const QString &recording : recordings) {
            const QString setFile = QStringLiteral("study/%1.set").arg(recording);
            m_batch->write(setFile, m_batch->contents(setFile).replace("bay.png", "cut.png"));
        }
    }
};

void TestBatchPictures::charts()
{
    const QStringList arguments =
        words("--calculate fixations --eyes left --generate-aois grid --chart fixations=f.csv --chart fixations=f.png "
              "--chart aoi-fixations=a.svg --chart aoi-fixations=a.csv --chart saccades=s.jpg "
              "study/S01.data study/S02.data");
    const QMap<QString, QByteArray> files = filesOf(arguments);
    QCOMPARE(files.keys(), words("a.csv a.svg f.csv f.png s.jpg"));
    const QList<QByteArray> lines = files[QStringLiteral("f.csv")].split('\n');
    QCOMPARE(lines.size(), 2002);
    QCOMPARE(lines.first(), QByteArray("bin_start_ms,Fixations"));
    QCOMPARE(files[QStringLiteral("a.csv")].count('\n'), 2001);
    QVERIFY(files[QStringLiteral("a.svg")].contains("<svg"));
    const QImage picture(m_batch->path(QStringLiteral("f.png")));
    QVERIFY(picture.width() >= 2401 && picture.height() >= 1000);
    QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::white));
    QVERIFY(files == filesOf(arguments));
    QVERIFY(files != filesOf(words("--set Visualization/Fixation/Power=3") + arguments));
    QVERIFY(files[QStringLiteral("a.csv")] !=
            filesOf(words("--draw aoi-time-window=3000") + arguments)[QStringLiteral("a.csv")]);
}

void TestBatchPictures::chartsOfAreasNeedAreas()
{
    const Outcome outcome = m_batch->run(
        words("--quiet --calculate fixations --chart aoi-fixations=a.png --chart saccades=s.csv study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors, QStringList(QStringLiteral("Chart: a.png could not be written: No AOIs available")));
    QCOMPARE(outcome.written, words("s.csv"));
}

void TestBatchPictures::picturesForPapers()
{
    const QStringList arguments =
        words("--calculate fixations --background study/bay.png --image a.png study/S01.data");
    const auto pictureOf = [&](const char *options) {
        m_batch->run(words(options) + words("--quiet") + arguments);
        return QImage(m_batch->path(QStringLiteral("a.png")));
    };
    const QImage plain = pictureOf("");
    const QImage stimulus = pictureOf("--image-area picture");
    QCOMPARE(stimulus.size(), QSize(1280, 800));
    QVERIFY(plain.copy(stimulus.rect()) == stimulus);
    QCOMPARE(pictureOf("--image-area picture --image-scale 2").size(), QSize(2560, 1600));
    QCOMPARE(plain.pixelColor(2000, 1500).alpha(), 0);
    QCOMPARE(pictureOf("--image-ground white").pixelColor(2000, 1500), QColor(Qt::white));
    QVERIFY(pictureOf("--image-area picture --label-fixations") != stimulus);
    const QImage legend = pictureOf("--image-area picture --legend");
    QCOMPARE(legend.width(), 1280);
    QVERIFY(legend.height() > 800);
    QVERIFY(legend.copy(stimulus.rect()) == stimulus);
    QVERIFY(pictureOf("--append parameters").height() > plain.height());
}

void TestBatchPictures::aPictureForEach_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("recording") << "recording" << words("new/a_S01.png new/a_S02.png");
    QTest::newRow("subject") << "subject" << words("new/a_S01.png new/a_S02.png");
    QTest::newRow("image") << "image" << words("new/a_bay.png");
}

void TestBatchPictures::aPictureForEach()
{
    QFETCH(QString, what);
    const QStringList common = words("--quiet --calculate fixations --image-area picture");
    QDir().mkpath(m_batch->path(QStringLiteral("new")));
    const Outcome outcome = m_batch->run(common + words("--image-per") + QStringList{what} +
                                         words("--image new/a.png study/S01.data study/S02.data"));
    QTEST(outcome.written, "files");
    const QImage each(m_batch->path(outcome.written.first()));
    QCOMPARE(each.size(), QSize(1280, 800)); // the recording's own image stands behind it
    const QStringList alone =
        outcome.written.size() > 1 ? words("study/S01.data") : words("study/S01.data study/S02.data");
    m_batch->run(common + words("--background study/bay.png --image b.png") + alone);
    const QImage expected(m_batch->path(QStringLiteral("b.png")));
    if (outcome.written.size() == 1) // clusters and scales are those of all
        QVERIFY(each == expected);
    else
        QCOMPARE(expected.size(), each.size());
}

/// It is told once for all that have it; the others are drawn.
void TestBatchPictures::aRecordingsPictureThatCannotBeDecoded()
{
    cutThePictureOf(words("S01 S03"));
    const Outcome outcome = m_batch->run(words("--quiet --image-per recording --image a.png --report report.json "
                                               "study/S01.data study/S02.data study/S03.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, words("a_S02.png report.json"));
    const QString beginning = QStringLiteral("Image: study/cut.png: the picture cannot be decoded: ");
    QCOMPARE(outcome.errors.filter(beginning).size(), 1);
}

/// It is drawn all the same, on white; a picture that stands in for it is what was asked for.
void TestBatchPictures::aRecordingsPictureThatIsMissing()
{
    QVERIFY(QFile::remove(m_batch->path(QStringLiteral("study/bay.png"))));
    const QStringList common = words("--quiet --image-per recording --image a.png study/S01.data");
    const Outcome alone = m_batch->run(common);
    QCOMPARE(alone.status, 1);
    QCOMPARE(alone.written, words("a_S01.png"));
    QCOMPARE(alone.errors
                 .filter(QStringLiteral("Image: S01: its picture study/bay.png is missing, it is drawn on the "
                                        "white canvas."))
                 .size(),
             1);
    QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(m_batch->path(QStringLiteral("other.png"))));
    QCOMPARE(m_batch->run(common + words("--background other.png")).status, 0);
}

void TestBatchPictures::saliencyOfAPictureThatCannotBeDecoded_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("title");
    QTest::newRow("a map") << "--saliency frequency-tuned --saliency-out s.tiff"
                           << "Saliency";
    QTest::newRow("regions") << "--generate-aois regions --regions source=frequency-tuned"
                             << "Areas of interest";
}

void TestBatchPictures::saliencyOfAPictureThatCannotBeDecoded()
{
    QFETCH(QString, options);
    QFETCH(QString, title);
    cutThePictureOf(words("S01"));
    const Outcome outcome = m_batch->run(words("--quiet study/S01.data") + options.split(u' '));
    QCOMPARE(outcome.status, 1);
    const QString beginning = title + QStringLiteral(": study/cut.png: the picture cannot be decoded: ");
    QCOMPARE(outcome.errors.filter(beginning).size(), 1);
    QCOMPARE(outcome.errors.filter(QStringLiteral("There is no picture")).size(), 0);
}

void TestBatchPictures::namesOfPicturesStayInTheFolder()
{
    QFile set(m_batch->path(QStringLiteral("study/S01.set")));
    QVERIFY(set.open(QIODevice::ReadOnly));
    QByteArray text = set.readAll();
    set.close();
    text.replace("S01", "../../S01");
    QVERIFY(set.open(QIODevice::WriteOnly) && set.write(text) == text.size());
    set.close();
    const Outcome outcome =
        m_batch->run(words("--quiet --image-per subject --image a.png study/S01.data study/S02.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, words("a_S02.png"));
    QVERIFY(outcome.errors.join(u' ').contains(QStringLiteral("is no name of a file")));
}

void TestBatchPictures::cutsOfAreas()
{
    QFile areas(m_batch->path(QStringLiteral("areas.csv")));
    QVERIFY(areas.open(QIODevice::WriteOnly));
    areas.write("name,x,y\nDoor,100,100\nDoor,200,100\nDoor,200,300\n../out,0,0\n../out,9,0\n../out,9,9\n");
    areas.close();
    const Outcome outcome = m_batch->run(words("--quiet --no-border --background study/bay.png --aois areas.csv "
                                               "--aoi-images cuts study/S01.data"));
    QCOMPARE(outcome.written, words("cuts/Door.png"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors.size(), 1);
    const QImage bay = QImage(m_batch->path(QStringLiteral("study/bay.png"))).convertToFormat(QImage::Format_RGB32);
    const QImage cut = QImage(m_batch->path(QStringLiteral("cuts/Door.png"))).convertToFormat(QImage::Format_RGB32);
    QVERIFY(cut == bay.copy(100, 100, 101, 201));
}

void TestBatchPictures::video()
{
    const QStringList arguments =
        words("--quiet --calculate fixations --background study/bay.png --video a.avi --time 0:2000 study/S01.data");
    const Outcome outcome = m_batch->run(words("--video-step 500") + arguments);
    QCOMPARE(outcome.errors, QStringList());
    QCOMPARE(outcome.written, words("a.avi"));
    const QByteArray slow = m_batch->contents(QStringLiteral("a.avi"));
    QVERIFY(slow.startsWith("RIFF") && slow.mid(8, 4) == "AVI ");
    m_batch->run(words("--video-step 250") + arguments);
    QVERIFY(m_batch->contents(QStringLiteral("a.avi")).size() > slow.size() * 3 / 2); // twice as many images
    const Outcome tooShort = m_batch->run(words("--video-step 2001") + arguments);
    QCOMPARE(tooShort.status, 1);
    QCOMPARE(
        tooShort.errors,
        QStringList(QStringLiteral(
            "Video: Timespan is too short!!! a.avi could not be written: the time is shorter than that of one image")));
}

void TestBatchPictures::diagram()
{
    const QStringList arguments =
        words("--quiet --calculate fixations --generate-aois grid --diagram d.html study/S01.data study/S02.data");
    QCOMPARE(m_batch->run(arguments).written, words("d.html"));
    const QByteArray page = m_batch->contents(QStringLiteral("d.html"));
    QVERIFY(page.contains("id=\"data\"") && page.contains("GridAOI(2)") && !page.contains("src="));
    m_batch->run(words("--draw aoi-transition-type=saccades") + arguments);
    QVERIFY(m_batch->contents(QStringLiteral("d.html")) != page);
    const Outcome empty = m_batch->run(words("--quiet --diagram d.png study/S01.data"));
    QCOMPARE(empty.errors, QStringList(QStringLiteral("Diagram: d.png: No AOIs available")));
}

QTEST_GUILESS_MAIN(TestBatchPictures)
#include "TestBatchPictures.moc"
