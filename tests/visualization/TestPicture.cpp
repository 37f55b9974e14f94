// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/modes/Picture.h"

#include <QTest>

class TestPicture : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingChecked();
    void cumulativeShapesAreDrawnOnce();
    void sharedNamesOfGroupsAreDrawnOnce();
    void ownShapesAreDrawnForEachRecording();
    void pooledTransitionsAreDrawnOnce();
    void toolTipsNameRecordingAndEye_data();
    void toolTipsNameRecordingAndEye();
};

namespace {

Examination recording(const QString &name)
{
    Examination examination;
    examination.baseName = name;
    examination.leftEye.scanpath = {toy::stay({100, 100}, 0), toy::stay({300, 100}, 100)};
    for (const Fixation &fixation : examination.leftEye.scanpath)
        examination.leftEye.fixationClusters << toy::clusterOf(fixation);
    examination.rightEye = examination.leftEye;
    return examination;
}

/// Two recordings with the same two clusters, which are those of the pool as well.
toy::Scenery twoRecordings(int clusterMode, EyeMode eyes = EyeMode::showLeft)
{
    toy::Scenery scenery;
    scenery.model.examinations() = {recording(QStringLiteral("S01")), recording(QStringLiteral("S02"))};
    scenery.model.pooled(Eye::Left) = scenery.model.examinations()[0].leftEye;
    scenery.model.pooled(Eye::Right) = scenery.model.examinations()[0].rightEye;
    scenery.clusters.visualizationMode = clusterMode;
    scenery.eyeMode = eyes;
    return scenery;
}

template <class Kind>
qsizetype countOf(const Picture &picture)
{
    return std::count_if(picture.drawing.cbegin(), picture.drawing.cend(),
                         [](const Shape &shape) { return std::holds_alternative<Kind>(shape); });
}

constexpr int circular = 2;
constexpr int cumulativeEllipses = 5;
constexpr int cumulativeCircles = 6;
constexpr int transitions = 7;
constexpr int cumulativeTransitions = 8;
constexpr int bothTransitions = 9;

} // namespace

void TestPicture::nothingChecked()
{
    toy::Scenery scenery = twoRecordings(circular);
    for (Examination &examination : scenery.model.examinations())
        examination.checked = false;
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
}

void TestPicture::cumulativeShapesAreDrawnOnce()
{
    QCOMPARE(pictureOf(twoRecordings(cumulativeCircles).context()).drawing.size(), qsizetype(2));
    QCOMPARE(pictureOf(twoRecordings(cumulativeEllipses).context()).drawing.size(), qsizetype(2));
    // The colours of the eyes differ.
    QCOMPARE(pictureOf(twoRecordings(cumulativeCircles, EyeMode::showAll).context()).drawing.size(), qsizetype(4));
}

void TestPicture::sharedNamesOfGroupsAreDrawnOnce()
{
    toy::Scenery scenery = twoRecordings(cumulativeCircles);
    scenery.clusters.showOriginalSize = true; // reads "Show names"
    Group group;
    group.name = QStringLiteral("Readers");
    group.colorsLeft[QStringLiteral("FixationclusterVisualization")] = Qt::yellow;
    scenery.model.setGroups({group});
    scenery.model.examinations()[1].groupName = group.name;
    const Picture picture = pictureOf(scenery.context());
    QCOMPARE(countOf<OvalShape>(picture), qsizetype(4)); // in the colours of both
    QCOMPARE(countOf<TextShape>(picture), qsizetype(2));
}

void TestPicture::ownShapesAreDrawnForEachRecording()
{
    QCOMPARE(pictureOf(twoRecordings(circular).context()).drawing.size(), qsizetype(4));
    toy::Scenery twice = twoRecordings(circular);
    twice.model.examinations()[1].baseName = twice.model.examinations()[0].baseName;
    QCOMPARE(pictureOf(twice.context()).drawing.size(), qsizetype(4)); // the same recording, loaded twice
}

void TestPicture::pooledTransitionsAreDrawnOnce()
{
    const Picture picture = pictureOf(twoRecordings(cumulativeTransitions).context());
    QCOMPARE(countOf<OvalShape>(picture), qsizetype(2));
    QCOMPARE(countOf<LineShape>(picture), qsizetype(1));
    QCOMPARE(countOf<LineShape>(pictureOf(twoRecordings(transitions).context())), qsizetype(2));
}

void TestPicture::toolTipsNameRecordingAndEye_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("expected");
    const QString eye = QStringLiteral("\r\nEye: right");
    QTest::newRow("own clusters") << circular << QStringLiteral("\r\nRecording: S01") + eye;
    QTest::newRow("clusters of all") << cumulativeCircles << QStringLiteral("\r\nRecording: cumulative") + eye;
    QTest::newRow("transitions") << transitions << QStringLiteral("\r\nRecording: S01") + eye;
    QTest::newRow("transitions of both") << bothTransitions
                                         << QStringLiteral("\r\nRecording: S01 and cumulative") + eye;
}

void TestPicture::toolTipsNameRecordingAndEye()
{
    QFETCH(int, mode);
    QFETCH(QString, expected);
    toy::Scenery scenery = twoRecordings(mode, EyeMode::showRight);
    const QString toolTip = std::get<OvalShape>(pictureOf(scenery.context()).drawing.first()).toolTip;
    QVERIFY2(toolTip.endsWith(expected), qPrintable(toolTip));

    scenery.clusters.visualizationMode = 0;
    scenery.fixations.visualizationMode = circular;
    scenery.saccades.visualizationMode = 1;
    const Drawing drawing = pictureOf(scenery.context()).drawing;
    const QString own = QStringLiteral("\r\nRecording: S01\r\nEye: right");
    QVERIFY(std::get<OvalShape>(drawing.first()).toolTip.endsWith(own));
    QVERIFY(std::get<ArrowShape>(drawing[4]).toolTip.endsWith(own)); // after two fixations of each recording
}

QTEST_GUILESS_MAIN(TestPicture)
#include "TestPicture.moc"
