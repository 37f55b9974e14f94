// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiFiles.h"
#include "BatchRunTest.h"
#include "model/Canvas.h"

#include <QImage>
#include <QJsonArray>

#include <cstring>

namespace {

QStringList namesOf(const QList<AreaOfInterest> &aois)
{
    QStringList names;
    for (const AreaOfInterest &aoi : aois)
        names << aoi.name;
    return names;
}

/// A picture with a bright disc.
QImage disc()
{
    QImage image(400, 300, QImage::Format_RGB32);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x) {
            const bool isInside = (x - 300) * (x - 300) + (y - 100) * (y - 100) < 30 * 30;
            image.setPixel(x, y, isInside ? qRgb(250, 40, 30) : qRgb(90, 100, 110));
        }
    }
    return image;
}

} // namespace

/// Areas of interest on the command line: made, read, drawn, measured and written.
class TestBatchAois : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }

    void gridInEachForm_data();
    void gridInEachForm();
    void eachFormIsRead_data();
    void eachFormIsRead();
    void labelImageIsRead();
    void regionsOfEachSource_data();
    void regionsOfEachSource();
    void regionsBecomeClusters();
    void clustersBecomeAreas();
    void repeatedRunsGiveTheSameBytes();
    void reportListsTheAreas();
    void areasAreDrawn();
    void saliencyIsWritten_data();
    void saliencyIsWritten();
    void numbersOfTheSaliencyCount();
    void failures_data();
    void failures();
    void refusals_data();
    void refusals();

private:
    QList<AreaOfInterest> areasIn(const QString &name) const { return readAois(m_batch->path(name)).aois; }
    void makeDisc() const { QVERIFY(disc().save(m_batch->path(QStringLiteral("disc.png")))); }
};

void TestBatchAois::gridInEachForm_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("aoi") << QStringLiteral("grid.aoi");
    QTest::newRow("table") << QStringLiteral("grid.csv");
    QTest::newRow("json") << QStringLiteral("grid.json");
}

void TestBatchAois::gridInEachForm()
{
    QFETCH(QString, file);
    const Outcome outcome = m_batch->run(words("--quiet --generate-aois grid study/S01.data --aois-out") << file);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, QStringList{file});
    const QList<AreaOfInterest> aois = areasIn(file);
    QCOMPARE(aois.size(), 25);
    QCOMPARE(aois.first().name, QStringLiteral("GridAOI(10)")); // names in their order as texts
    QCOMPARE(aois.last().name, QStringLiteral("GridAOI(9)"));
    QCOMPARE(aois.first().polygon.boundingRect().size(), QSize(512, 320));
}

void TestBatchAois::eachFormIsRead_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("aoi") << QStringLiteral("in.aoi") << QByteArray("AOI FILE\ntype=static\nname=A\n1 2\n30 2\n30 40\n");
    QTest::newRow("table") << QStringLiteral("in.csv") << QByteArray("name,x,y\nA,1,2\nA,30,2\nA,30,40\n");
    QTest::newRow("json") << QStringLiteral("in.json")
                          << QByteArray(R"([{"name":"A","polygon":[[1,2],[30,2],[30,40]]}])");
}

void TestBatchAois::eachFormIsRead()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    m_batch->write(file, bytes);
    const Outcome outcome = m_batch->run(words("--quiet --aois-out out.csv study/S01.data --aois") << file);
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.errors.isEmpty());
    QCOMPARE(m_batch->contents(QStringLiteral("out.csv")), "name,x,y\nA,1,2\nA,30,2\nA,30,40\n");
}

void TestBatchAois::labelImageIsRead()
{
    QImage image(30, 20, QImage::Format_Grayscale8);
    image.fill(0);
    for (int y = 5; y < 9; ++y) {
        for (int x = 10; x < 16; ++x)
            image.scanLine(y)[x] = 7;
    }
    QVERIFY(image.save(m_batch->path(QStringLiteral("labels.png"))));
    m_batch->write(QStringLiteral("labels.csv"), "7,Face\n");
    QCOMPARE(m_batch->run(words("--quiet --aois labels.png --aois-out out.aoi study/S01.data")).status, 0);
    const QList<AreaOfInterest> aois = areasIn(QStringLiteral("out.aoi"));
    QCOMPARE(namesOf(aois), QStringList{QStringLiteral("Face")});
    QCOMPARE(aois.first().polygon.boundingRect(), QRect(QPoint(10, 5), QPoint(16, 9)));
    QCOMPARE(aois.first().area(), 24.0F);
}

void TestBatchAois::regionsOfEachSource_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("remarks"); // the picture of the disc is smaller than the canvas
    QTest::newRow("gaze") << QStringLiteral("gaze") << QStringLiteral("standard") << QStringLiteral("HeatmapAOI(2)")
                          << 0;
    QTest::newRow("fixations, gradient") << QStringLiteral("fixations") << QStringLiteral("gradient")
                                         << QStringLiteral("AOI 1") << 0;
    QTest::newRow("saliency") << QStringLiteral("frequency-tuned") << QStringLiteral("standard")
                              << QStringLiteral("HeatmapAOI(2)") << 1;
}

void TestBatchAois::regionsOfEachSource()
{
    QFETCH(QString, source);
    QFETCH(QString, method);
    makeDisc();
    const Outcome outcome =
        m_batch->run(words("--quiet --calculate fixations --background disc.png --generate-aois regions --aois-out "
                           "out.aoi --regions")
                     << QStringLiteral("source=") + source << QStringLiteral("--regions")
                     << QStringLiteral("method=") + method << BatchProgram::study());
    QFETCH(int, remarks);
    QCOMPARE(outcome.errors.size(), remarks);
    QCOMPARE(outcome.errors.filter(QStringLiteral("The saliency fills 2560 x 1600 cells")).size(), remarks);
    QCOMPARE(outcome.status, 0);
    const QList<AreaOfInterest> aois = areasIn(QStringLiteral("out.aoi"));
    QFETCH(QString, first);
    QVERIFY(namesOf(aois).contains(first));
    for (const AreaOfInterest &aoi : aois)
        QVERIFY(aoi.polygon.size() > 50); // the least region of the dialog
}

void TestBatchAois::regionsBecomeClusters()
{
    const QMap<QString, QByteArray> files =
        filesOf(words("--quiet --calculate fixations --generate-aois regions --regions as=cumulative-clusters "
                      "--generate-aois clusters --aois-out out.aoi --export cumulative-clusters")
                << BatchProgram::study());
    QVERIFY(files.contains(QStringLiteral("out.aoi")));
    QVERIFY(namesOf(areasIn(QStringLiteral("out.aoi"))).contains(QStringLiteral("ClusterAOI(1)")));
    QVERIFY(files.size() > 1);
}

void TestBatchAois::clustersBecomeAreas()
{
    QVERIFY(!filesOf(words("--quiet --calculate fixations,cumulative-clusters --generate-aois clusters --aois-out "
                           "out.aoi")
                     << BatchProgram::study())
                 .isEmpty());
    const QList<AreaOfInterest> aois = areasIn(QStringLiteral("out.aoi"));
    QVERIFY(namesOf(aois).contains(QStringLiteral("ClusterAOI(1)")));
    QVERIFY(aois.first().polygon.size() >= 50);
}

void TestBatchAois::repeatedRunsGiveTheSameBytes()
{
    const QStringList arguments = words("--quiet --generate-aois grid --aois-out out.aoi --report report.json --set "
                                        "Visualization/AOI/DrawMode=1 --image out.png study/S01.data");
    const QMap<QString, QByteArray> first = filesOf(arguments);
    QCOMPARE(first.size(), 3);
    QCOMPARE(filesOf(arguments), first);
}

void TestBatchAois::reportListsTheAreas()
{
    m_batch->write(QStringLiteral("in.json"),
                   R"([{"name":"b","enabled":false,"polygon":[[0,0],[10,0],[10,20],[0,20]]},)"
                   R"({"name":"a","polygon":[[0,0],[3,0],[0,4]]}])");
    QCOMPARE(m_batch->run(words("--quiet --aois in.json --report report.json study/S01.data")).status, 0);
    const QJsonArray areas = report()[QLatin1StringView("areasOfInterest")].toArray();
    QCOMPARE(areas, QJsonArray({QJsonObject{{QStringLiteral("name"), QStringLiteral("a")},
                                            {QStringLiteral("enabled"), true},
                                            {QStringLiteral("vertices"), 3},
                                            {QStringLiteral("areaPx"), 6}},
                                QJsonObject{{QStringLiteral("name"), QStringLiteral("b")},
                                            {QStringLiteral("enabled"), false},
                                            {QStringLiteral("vertices"), 4},
                                            {QStringLiteral("areaPx"), 200}}}));
}

/// Mode 1 through its key: inside the area its filling, outside the white of the background.
void TestBatchAois::areasAreDrawn()
{
    m_batch->write(QStringLiteral("in.json"), R"([{"name":"a","color":[0,0,200,255],)"
                                              R"("polygon":[[500,500],[1500,500],[1500,1000],[500,1000]]}])");
    const QStringList arguments =
        words("--quiet --aois in.json --set Visualization/Gazepoint/VisualizationMode=0 --set "
              "Visualization/AOI/FillOpacity=100 --set Visualization/AOI/BorderType=1 --set "
              "Visualization/AOI/DisplayNames=false --image out.png study/S01.data --set");
    QCOMPARE(m_batch->run(arguments + QStringList{QStringLiteral("Visualization/AOI/DrawMode=1")}).status, 0);
    const QImage outlined(m_batch->path(QStringLiteral("out.png")));
    QVERIFY(outlined.pixelColor(1000, 800).blue() > 195 && outlined.pixelColor(1000, 800).red() < 5);
    QCOMPARE(outlined.pixelColor(300, 300), QColor(Qt::white));
    QCOMPARE(m_batch->run(arguments + QStringList{QStringLiteral("Visualization/AOI/DrawMode=0")}).status, 0);
    QCOMPARE(QImage(m_batch->path(QStringLiteral("out.png"))).pixelColor(1000, 800), QColor(Qt::white));
}

void TestBatchAois::saliencyIsWritten_data()
{
    QTest::addColumn<QString>("method");
    for (const char *method : {"itti", "frequency-tuned", "integrated"})
        QTest::newRow(method) << QString::fromLatin1(method);
}

void TestBatchAois::saliencyIsWritten()
{
    QFETCH(QString, method);
    makeDisc();
    const Outcome outcome = m_batch->run(
        words("--quiet --background disc.png --saliency-out map.tiff study/S01.data --saliency") << method);
    QCOMPARE(outcome.errors, QStringList());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, QStringList{QStringLiteral("map.tiff")});
    const QByteArray bytes = m_batch->contents(QStringLiteral("map.tiff"));
    constexpr qsizetype pixels = qsizetype(canvas::width) * canvas::height;
    QVERIFY(bytes.size() > pixels * 4 && bytes.size() < pixels * 4 + 1000);
    constexpr qsizetype headerBytes = 8;
    const QByteArray cells = bytes.mid(headerBytes, pixels * 4);
    float lowest = 2;
    float highest = -1;
    for (qsizetype i = 0; i < pixels; ++i) {
        float value = 0;
        std::memcpy(&value, cells.constData() + i * 4, 4);
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    if (!bytes.startsWith("II*"))
        QFAIL("not a little-endian TIFF");
    QVERIFY(highest > 0.999F && highest <= 1.0F);
    QVERIFY(lowest > -1e-6F && lowest < 0.001F); // stretched to 0, up to rounding
}

void TestBatchAois::numbersOfTheSaliencyCount()
{
    makeDisc();
    const QStringList arguments =
        words("--quiet --background disc.png --saliency frequency-tuned --saliency-out map.tiff study/S01.data");
    const auto mapWith = [&](const QStringList &further) {
        const bool isDone = m_batch->run(arguments + further).status == 0;
        return isDone ? m_batch->contents(QStringLiteral("map.tiff")) : QByteArray();
    };
    const auto with = [&](const char *numbers) { return mapWith(words("--saliency-parameters") + words(numbers)); };
    const QByteArray initial = mapWith({});
    QVERIFY(!initial.isEmpty());
    QVERIFY(with("5,2,2,0") == initial);
    QVERIFY(with("0,0,0,0") == initial);
    QVERIFY(with("31,100,100,0") != initial);
}

void TestBatchAois::failures_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line"); // a part of it
    const auto row = [](const char *name, const char *arguments, const char *line) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(line);
    };
    row("no area to write", "--aois-out out.aoi", "There is no area of interest: out.aoi is not written.");
    row("no clusters", "--generate-aois clusters", "There are no cumulative clusters");
    row("nothing to search in", "--generate-aois regions --regions source=clusters", "nothing to search regions in");
    row("no folder", "--generate-aois grid --aois-out nowhere/out.aoi",
        "nowhere/out.aoi could not be written: No such file or directory");
}

void TestBatchAois::failures()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const Outcome outcome = m_batch->run(arguments.split(u' ') + words("--quiet study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QVERIFY(outcome.written.isEmpty());
    QVERIFY2(outcome.errors.join(u'\n').contains(line), qPrintable(outcome.errors.join(u'\n')));
    QVERIFY(!QFile::exists(m_batch->path(QStringLiteral("out.aoi"))));
}

void TestBatchAois::refusals_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const char *arguments, const char *line) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(line);
    };
    row("unknown kind", "--generate-aois gird", "--generate-aois gird: not one of grid, clusters, regions");
    row("a kind twice", "--generate-aois grid --generate-aois grid", "--generate-aois grid: given twice");
    row("regions alone", "--regions sigma=20", "--regions: only with --generate-aois regions");
    row("regions of a grid", "--generate-aois grid --regions sigma=20", "--regions: only with --generate-aois regions");
    row("unknown name", "--generate-aois regions --regions sgima=20", "--regions sgima=20: not one of source, method");
    row("out of range", "--generate-aois regions --regions sigma=9", "--regions sigma=9: ");
    row("no number", "--generate-aois regions --regions window=x", "--regions window=x: ");
    row("unknown source", "--generate-aois regions --regions source=eyes", "not one of gaze, fixations");
    row("a name twice", "--generate-aois regions --regions sigma=20 --regions sigma=30", "sigma is given twice");
    row("no assignment", "--generate-aois regions --regions sigma", "not of the form NAME=VALUE");
    row("another form", "--generate-aois grid --aois-out a.txt", "the name does not end in .aoi, .csv or .json");
    row("saliency without file", "--saliency itti", "--saliency: needs --saliency-out");
    row("file without saliency", "--saliency-out a.tiff", "--saliency-out: needs --saliency");
    row("saliency in another form", "--saliency itti --saliency-out a.png", "the name does not end in .tiff");
    row("numbers alone", "--saliency-parameters 1,2,3,4", "--saliency-parameters: only with");
    row("three numbers", "--saliency itti --saliency-out a.tiff --saliency-parameters 1,2,3", "not four whole numbers");
}

void TestBatchAois::refusals()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const Outcome outcome = m_batch->run(arguments.split(u' ') + words("study/S01.data"));
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.errors.join(u'\n').contains(line), qPrintable(outcome.errors.join(u'\n')));
    QVERIFY(m_batch->files().isEmpty());
}

QTEST_GUILESS_MAIN(TestBatchAois)
#include "TestBatchAois.moc"
