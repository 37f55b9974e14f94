// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DataModel.h"

#include <QPalette>
#include <QTest>

Q_DECLARE_METATYPE(Group::Shade)

class TestRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void validity_data();
    void validity();
    void toolTip_data();
    void toolTip();
    void calculationInfoReport();
    void imageRecord_data();
    void imageRecord();
    void imagesAreShared();
    void eyeDataCopiesAreIndependent();
    void dominantEye_data();
    void dominantEye();
    void durationIsThatOfTheLongerEye();
    void selectionOfEyes_data();
    void selectionOfEyes();
    void wordsOfTheSelections();
    void pooledStreams();
    void checkedExaminations();
    void groupColours();
    void shades_data();
    void shades();
};

void TestRecords::validity_data()
{
    QTest::addColumn<int>("validity");
    QTest::addColumn<bool>("valid");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("2") << 2 << false;
    QTest::newRow("-1") << -1 << false;
}

void TestRecords::validity()
{
    QFETCH(int, validity);
    const GazePoint point(1, 2, 3, 4, 5, validity);
    QTEST(point.validFlag, "valid");
    QCOMPARE(QColor::fromRgba(point.color), QColor(255, 0, 0, 255));
}

void TestRecords::toolTip_data()
{
    QTest::addColumn<GazePoint>("point");
    QTest::addColumn<QString>("text");
    QTest::newRow("hours, minutes, seconds, ms twice") // 1 h 2 min 3 s 123 ms: "zzz", then "z"
        << GazePoint(3723123, 12.5, 100, 0, 0, 1)
        << QStringLiteral("Time: 01:02:03.123123\r\nCoordenates (x,y): (12.5, 100)");
    QTest::newRow("six significant digits")
        << GazePoint(0, 1234.56789, 1e7, 0, 0, 1)
        << QStringLiteral("Time: 00:00:00.0000\r\nCoordenates (x,y): (1234.57, 1e+07)");
}

void TestRecords::toolTip()
{
    QFETCH(GazePoint, point);
    QTEST(point.toolTipText(), "text");
}

void TestRecords::calculationInfoReport()
{
    CalculationInfo info;
    info.fixationCalculationInfo = QStringLiteral("Algorithm:STANDARD\n");
    const QString rule = QStringLiteral("---------------------------------------------\n"); // 45 characters
    const QString expected = QStringLiteral("GazepointsVisualizationInfo:\nNot set\n") + rule +
                             QStringLiteral("FixationCalculationInfo:\nAlgorithm:STANDARD\n") + rule +
                             QStringLiteral("FixationVisualizationInfo:\nNot set\n") + rule +
                             QStringLiteral("ClusterCalculationInfo:\nNot set\n") + rule +
                             QStringLiteral("ClusterVisualizationInfo:\nNot set\n") + rule +
                             QStringLiteral("CumulativeClusterCalculationInfo:\nNot set\n") + rule +
                             QStringLiteral("CumulativeClusterVisualizationInfo:\nNot set\n") + rule;
    QCOMPARE(info.report(), expected);
}

void TestRecords::imageRecord_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("folder");
    const QString photo = QStringLiteral("photo");
    const QString png = QStringLiteral("png");
    QTest::newRow("slashes") << QStringLiteral("/data/study/photo.png") << photo << png
                             << QStringLiteral("\\data\\study\\");
    QTest::newRow("backslashes") << QStringLiteral("C:\\data\\photo.png") << photo << png
                                 << QStringLiteral("C:\\data\\");
    QTest::newRow("both kinds") << QStringLiteral("C:\\data/photo.png") << photo << png << QStringLiteral("C:\\data\\");
    QTest::newRow("no folder") << QStringLiteral("photo.png") << photo << png << QString();
    QTest::newRow("two dots: name up to the first, extension from the last")
        << QStringLiteral("/d/photo.small.png") << photo << png << QStringLiteral("\\d\\");
    QTest::newRow("a dot in the folder cuts the name")
        << QStringLiteral("/study.1/photo.png") << QStringLiteral("study") << png << QStringLiteral("\\study.1\\");
}

void TestRecords::imageRecord()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    QFETCH(QString, extension);
    const ImageRecord record(path);
    QCOMPARE(record.path, path);
    QCOMPARE(record.name, name);
    QCOMPARE(record.extension, extension);
    QTEST(record.folder, "folder");
    QCOMPARE(record.fileName, name + u'.' + extension);
}

void TestRecords::imagesAreShared()
{
    ImageCache cache;
    const auto first = cache.image(QStringLiteral("/d/b.png"));
    const auto other = cache.image(QStringLiteral("/d/a.png"));
    QCOMPARE(cache.image(QStringLiteral("/d/b.png")), first);
    QVERIFY(other != first);
    QCOMPARE(cache.names(), QStringList({QStringLiteral("b"), QStringLiteral("a")}));
    cache.remove(QStringLiteral("/d/b.png"));
    QCOMPARE(cache.paths(), QStringList(QStringLiteral("/d/a.png")));
    QCOMPARE(first->path, QStringLiteral("/d/b.png")); // who holds it keeps it
}

void TestRecords::eyeDataCopiesAreIndependent()
{
    EyeData original;
    original.gazePoints << GazePoint(0, 1, 1, 0, 0, 1);
    original.scanpath << Fixation(original.gazePoints, QStringLiteral("fixation"), {1, 1}, 0);
    EyeData copy = original;
    QCOMPARE(copy, original);
    copy.gazePoints[0].x = 99;
    copy.scanpath[0].samples.own()[0].x = 99;
    QCOMPARE(original.gazePoints[0].x, 1.0);
    QCOMPARE(original.scanpath[0].samples[0].x, 1.0);
}

void TestRecords::dominantEye_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("left");
    QTest::newRow("left") << QStringLiteral("left") << true;
    QTest::newRow("right") << QStringLiteral("right") << false;
    QTest::newRow("no entry is right") << QString() << false;
    QTest::newRow("unknown entry is right") << QStringLiteral("x") << false;
    QTest::newRow("other case is right") << QStringLiteral("Left") << false;
}

void TestRecords::dominantEye()
{
    QFETCH(QString, entry);
    QFETCH(bool, left);
    Examination examination;
    examination.dominantEye = entry;
    QCOMPARE(examination.isLeftDominant(), left);
    QCOMPARE(&examination.stream(Eye::Dominant), left ? &examination.leftEye : &examination.rightEye);
}

void TestRecords::durationIsThatOfTheLongerEye()
{
    Examination examination;
    QCOMPARE(examination.duration(), 0);
    examination.leftEye.gazePoints << GazePoint(5, 0, 0, 0, 0, 1) << GazePoint(25, 0, 0, 0, 0, 0);
    QCOMPARE(examination.duration(), 20);
    examination.rightEye.gazePoints << GazePoint(0, 0, 0, 0, 0, 1) << GazePoint(40, 0, 0, 0, 0, 0);
    QCOMPARE(examination.duration(), 40);
}

void TestRecords::selectionOfEyes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("eyes");
    const QString left = QStringLiteral("left");
    const QString right = QStringLiteral("right");
    QTest::newRow("all: left, then right") << 0 << QStringList({left, right});
    QTest::newRow("dominant") << 1 << QStringList(right);
    QTest::newRow("left") << 2 << QStringList(left);
    QTest::newRow("right") << 3 << QStringList(right);
    QTest::newRow("mean") << 4 << QStringList(QStringLiteral("mean"));
}

void TestRecords::selectionOfEyes()
{
    QFETCH(int, mode);
    Examination examination;
    examination.leftEye.calculationInfo = QStringLiteral("left");
    examination.rightEye.calculationInfo = QStringLiteral("right");
    examination.meanEye.calculationInfo = QStringLiteral("mean");
    QStringList eyes;
    for (const Eye eye : eyesOf(static_cast<EyeMode>(mode)))
        eyes << std::as_const(examination).stream(eye).calculationInfo;
    QTEST(eyes, "eyes");
}

void TestRecords::wordsOfTheSelections()
{
    QStringList words;
    for (std::size_t i = 0; i < allEyeModes.size(); ++i) {
        QCOMPARE(static_cast<std::size_t>(allEyeModes[i]), i);
        words << eyeModeWord(allEyeModes[i]);
    }
    QCOMPARE(words, QStringLiteral("all dominant left right mean").split(u' '));
}

void TestRecords::pooledStreams()
{
    DataModel model;
    for (const Eye eye : allEyes)
        model.pooled(eye).calculationInfo = eyeWord(eye);
    for (const Eye eye : allEyes)
        QCOMPARE(std::as_const(model).pooled(eye).calculationInfo, QString(eyeWord(eye)));
}

void TestRecords::checkedExaminations()
{
    DataModel model;
    QVERIFY(model.checkedExaminations().isEmpty());
    QCOMPARE(model.longestCheckedDuration(), 0);
    for (const qint64 durationMs : {30, 90, 60}) {
        Examination examination;
        QVERIFY(examination.checked);
        examination.leftEye.gazePoints << GazePoint(0, 0, 0, 0, 0, 1) << GazePoint(durationMs, 0, 0, 0, 0, 1);
        model.examinations() << examination;
    }
    model.examinations()[1].checked = false;
    const QList<const Examination *> checked = model.checkedExaminations();
    QCOMPARE(checked.size(), 2);
    QCOMPARE(checked[0]->duration(), 30);
    QCOMPARE(checked[1]->duration(), 60);
    QCOMPARE(model.longestCheckedDuration(), 60);
}

void TestRecords::groupColours()
{
    const Group group(QStringLiteral("readers"), {{QStringLiteral("gazepointsLeft"), QColor(Qt::red)},
                                                  {QStringLiteral("fixationsRight"), QColor(Qt::green)},
                                                  {QStringLiteral("saccadesDominant"), QColor(Qt::blue)},
                                                  {QStringLiteral("fixationClustersLeft"), QColor(Qt::cyan)}});
    QCOMPARE(group.name, QStringLiteral("readers"));
    QCOMPARE(group.colorsLeft[QStringLiteral("GazepointVisualization")], QColor(Qt::red));
    QCOMPARE(group.colorsRight[QStringLiteral("FixationVisualization")], QColor(Qt::green));
    QCOMPARE(group.colorsDominant[QStringLiteral("SaccadeVisualization")], QColor(Qt::blue));
    QCOMPARE(group.colorsLeft[QStringLiteral("FixationclusterVisualization")], QColor(Qt::cyan));
    QCOMPARE(group.colorsRight.keys(),
             QStringList({QStringLiteral("FixationVisualization"), QStringLiteral("FixationclusterVisualization"),
                          QStringLiteral("GazepointVisualization"), QStringLiteral("SaccadeVisualization")}));
    QVERIFY(!group.colorsRight[QStringLiteral("GazepointVisualization")].isValid());
}

void TestRecords::shades_data()
{
    QTest::addColumn<Group::Shade>("shade");
    QTest::addColumn<QPalette::ColorRole>("role");
    QTest::newRow("light") << Group::Shade::Light << QPalette::Light;
    QTest::newRow("midlight") << Group::Shade::Midlight << QPalette::Midlight;
    QTest::newRow("dark") << Group::Shade::Dark << QPalette::Dark;
}

void TestRecords::shades()
{
    QFETCH(Group::Shade, shade);
    QFETCH(QPalette::ColorRole, role);
    const QColor fill(40, 120, 200);
    QCOMPARE(shaded(fill, shade), QPalette(fill).color(role));
    QVERIFY(!shaded({}, shade).isValid());
}

QTEST_GUILESS_MAIN(TestRecords)
#include "TestRecords.moc"
