// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "settings/FirstStart.h"
#include "TestSettings.h"
#include "ToyData.h"
#include "visualization/modes/AoiModes.h"
#include "visualization/modes/DrawingModes.h"
#include "visualization/scene/DrawingPass.h"

#include <QDir>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <numbers>

/// The modes of samples and events, but for charts, and the outlines of an area: each over the same gaze, with factory
/// settings, beside the picture of it that somebody looked at. A change that is meant is taken over by UPDATE_GOLDEN=1,
/// and then looked at.
class TestGoldenImages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void pictures_data();
    void pictures();
    void aMissingShapeIsSeen();

private:
    static constexpr QSize size{640, 400}; ///< a quarter of the canvas

    static Examination recording(double phase);
    static DataModel study();
    static QImage picture(const DataModel &model, ByDataKind<int> modes, int areaMode);
    static bool isEqual(const QImage &picture, const QImage &golden, const QRect &mask);

    TemporarySettings m_settings;
};

void TestGoldenImages::initTestCase()
{
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
}

/// Six stays on an oval, each twice, and the way between them.
Examination TestGoldenImages::recording(double phase)
{
    constexpr int stays = 12;
    constexpr int samplesAStay = 20;
    constexpr qint64 stepMs = 4;
    Examination examination;
    EyeData &eye = examination.leftEye;
    qint64 timeMs = 0;
    for (int i = 0; i < stays; ++i) {
        const double turn = phase + i * 2 * std::numbers::pi / 6;
        const QPoint mean(qRound(1280 + 900 * std::cos(turn)), qRound(800 + 500 * std::sin(turn)));
        QList<GazePoint> samples;
        for (int k = 0; k < samplesAStay; ++k, timeMs += stepMs)
            samples << toy::sample(timeMs, mean.x() + 3.0 * (k % 7) * (i + 3), mean.y() + 4.0 * (k % 5) * (i + 2));
        eye.gazePoints << samples << toy::sample(timeMs, mean.x() - 90, mean.y() - 60);
        timeMs += stepMs;
        eye.scanpath << toy::fixation(mean, QVector2D(60.0F + 4 * static_cast<float>(i), 20), {-8, 24}, samples);
    }
    for (int i = 0; i < stays / 2; ++i) {
        const Fixation &first = eye.scanpath[i];
        const Fixation &second = eye.scanpath[i + stays / 2];
        FixationCluster cluster = toy::cluster(first.mean, {first, second}, {110, 40}, {-20, 55});
        cluster.samples = first.samples;
        cluster.samples.append(second.samples);
        eye.fixationClusters << cluster;
    }
    return examination;
}

DataModel TestGoldenImages::study()
{
    DataModel model;
    model.examinations() << recording(0.2) << recording(0.9);
    model.allExaminations() = model.examinations();
    model.pooled(Eye::Left).fixationClusters = {
        toy::cluster({700, 500}, model.examinations()[0].leftEye.scanpath, {240, 60}, {-30, 120}),
        toy::cluster({1800, 1000}, model.examinations()[1].leftEye.scanpath, {90, 160}, {-60, 34})};
    return model;
}

QImage TestGoldenImages::picture(const DataModel &data, ByDataKind<int> modes, int areaMode)
{
    ByDataKind<VisualizationParameters> records{
        {gazePointParameters(), fixationParameters(), clusterParameters(), saccadeParameters()}};
    for (const DataKind kind : allDataKinds)
        records[kind].visualizationMode = modes[kind];
    AoiVisualizationParameters areas = storedAoiVisualization();
    areas.drawMode = areaMode;
    DataModel model = data;
    const DrawingContext context{model,
                                 EyeMode::showLeft,
                                 {0, 100'000},
                                 {{&records[DataKind::GazePoints], &records[DataKind::Fixations],
                                   &records[DataKind::Clusters], &records[DataKind::Saccades]}},
                                 areas};
    QGraphicsScene scene;
    runDrawingPass(scene, model, context, {});
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    scene.render(&painter, {}, QRectF(0, 0, canvas::width, canvas::height));
    return image;
}

/// Edges may be smoothed a little differently from one version of the toolkit to the next.
bool TestGoldenImages::isEqual(const QImage &picture, const QImage &golden, const QRect &mask)
{
    constexpr int shade = 40;
    constexpr int fewPixels = 60; // of 256,000
    if (picture.size() != golden.size())
        return false;
    int different = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb a = picture.pixel(x, y);
            const QRgb b = golden.pixel(x, y);
            different +=
                !mask.contains(x, y) && (qAbs(qRed(a) - qRed(b)) > shade || qAbs(qGreen(a) - qGreen(b)) > shade ||
                                         qAbs(qBlue(a) - qBlue(b)) > shade);
        }
    }
    return different <= fewPixels;
}

void TestGoldenImages::pictures_data()
{
    QTest::addColumn<ByDataKind<int>>("modes");
    QTest::addColumn<int>("areaMode");
    const char *const kinds[] = {"gaze-points", "fixations", "clusters", "saccades"};
    for (const DataKind kind : allDataKinds) {
        const auto rows = drawingModes(kind);
        for (int mode = 1; mode < static_cast<int>(rows.size()); ++mode) {
            if (rows[static_cast<std::size_t>(mode)].name.startsWith(QLatin1StringView("histogram")))
                continue; // stand beside the canvas, and are mostly text
            ByDataKind<int> modes;
            modes[kind] = mode;
            QTest::addRow("%s-%d", kinds[static_cast<std::size_t>(kind)], mode) << modes << 0;
        }
    }
    QTest::addRow("areas-outlined") << ByDataKind<int>{} << 1;
}

void TestGoldenImages::pictures()
{
    QFETCH(ByDataKind<int>, modes);
    QFETCH(int, areaMode);
    DataModel model = study();
    if (areaMode != 0)
        model.insertAoi({QStringLiteral("Area"), QPolygon({{300, 300}, {1200, 200}, {1500, 900}, {700, 1300}})});
    const QImage image = picture(model, modes, areaMode);
    const QString path = QStringLiteral(VISTRUM_SOURCE_DIR "/tests/visualization/golden/") +
                         QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".png");
    if (qEnvironmentVariableIsSet("UPDATE_GOLDEN"))
        QVERIFY(image.save(path));
    const QRect nameOfTheArea(180, 150, 120, 50); // its letters depend on the fonts there are
    const bool isSame = isEqual(image, QImage(path), areaMode != 0 ? nameOfTheArea : QRect());
    if (!isSame)
        image.save(QDir::temp().filePath(QFileInfo(path).fileName()));
    QVERIFY2(isSame, qPrintable(QStringLiteral("not as %1; see %2").arg(path, QDir::tempPath())));
}

/// One circle of 24 less is a difference.
void TestGoldenImages::aMissingShapeIsSeen()
{
    ByDataKind<int> modes;
    modes[DataKind::Fixations] = 2;
    DataModel model = study();
    const QImage whole = picture(model, modes, 0);
    model.examinations()[1].leftEye.scanpath.removeLast();
    QVERIFY(isEqual(picture(study(), modes, 0), whole, {}));
    QVERIFY(!isEqual(picture(model, modes, 0), whole, {}));
    QVERIFY(isEqual(picture(model, modes, 0), whole, QRect(QPoint(), size)));
}

QTEST_MAIN(TestGoldenImages)
#include "TestGoldenImages.moc"
