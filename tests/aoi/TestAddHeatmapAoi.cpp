// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/CancellableProgress.h"
#include "commands/IMainWindow.h"
#include "model/DataModel.h"
#include "TestMessages.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGraphicsView>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace {

/// A window that shows a bright disc, if anything.
class DiscWindow : public IMainWindow {
public:
    void addTableRow(const Examination &) override {}
    void removeTableRows(const QList<int> &) override {}
    void refreshPlainBackground() override {}
    void showImported() override {}
    int stimulusWidthPx() const override { return 0; }
    QPixmap stimulus() const override
    {
        QImage image(400, 300, QImage::Format_RGB32);
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x) {
                const bool isInside = (x - 300) * (x - 300) + (y - 100) * (y - 100) < 30 * 30;
                image.setPixel(x, y, isInside ? qRgb(250, 40, 30) : qRgb(90, 100, 110));
            }
        }
        return QPixmap::fromImage(image);
    }
    bool hasStimulus() const override { return showsPicture; }
    void redraw() override {}
    void updateAndRedraw() override {}

    bool showsPicture = true;
};

Fixation stay(QPoint mean, qint64 startMs)
{
    Fixation fixation;
    fixation.mean = mean;
    fixation.majorAxis = {20, 0};
    fixation.minorAxis = {0, 20};
    fixation.samples = {GazePoint(startMs, mean.x(), mean.y(), 0, 0, 1),
                        GazePoint(startMs + 90, mean.x(), mean.y(), 0, 0, 1)};
    return fixation;
}

/// Gaze that stays at two places for a minute each.
Examination twoPlaces()
{
    Examination examination;
    for (int i = 0; i < 1200; ++i) {
        const QPoint place = i < 600 ? QPoint(600, 500) : QPoint(1700, 900);
        examination.leftEye.gazePoints << GazePoint(i * 100, place.x() + i % 7, place.y() + i % 5, 0, 0, 1);
    }
    examination.rightEye.gazePoints = examination.leftEye.gazePoints;
    examination.leftEye.scanpath = {stay({600, 500}, 0), stay({1700, 900}, 60000)};
    return examination;
}

} // namespace

/// The window of the regions, with its real buttons.
class TestAddHeatmapAoi : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_dialog.reset(); }
    void formAtConstruction();
    void numbers_data();
    void numbers();
    void suffixFollowsTheSource_data();
    void suffixFollowsTheSource();
    void methodEnablesItsNumbers();
    void exportWithoutSearchMakesNoArea();
    void searchWithoutDensityTellsSo();
    void gazeBecomesAreas();
    void exportNeedsANewSearch();
    void gradientAreas();
    void regionsBecomeClusters();
    void readOuts();
    void saliencyOfThePicture();
    void saliencyWithoutPicture();
    void nothingInTheFrameChangesNothing();
    void withoutModelNothingHappens();
    void cancelledWorkChangesNothing();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_dialog->findChild<Widget *>(QLatin1StringView(name));
        Q_ASSERT(widget);
        return widget;
    }
    void click(const char *button) const { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    void choose(const char *box, int index) const { find<QComboBox>(box)->setCurrentIndex(index); }

    DataModel m_model;
    DiscWindow m_window;
    std::unique_ptr<add_heatmap_aoi> m_dialog;
    QStringList m_inserted;
};

void TestAddHeatmapAoi::init()
{
    m_model = DataModel();
    m_model.examinations() << twoPlaces();
    m_model.setTimeFrame({0, 120000});
    m_window.showsPicture = true;
    m_inserted.clear();
    m_dialog = std::make_unique<add_heatmap_aoi>();
    m_dialog->setModel(&m_model);
    m_dialog->setMainWindow(&m_window);
    m_dialog->setInsert([this](const QList<AreaOfInterest> &aois) {
        for (const AreaOfInterest &aoi : aois)
            m_inserted << aoi.name;
    });
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

void TestAddHeatmapAoi::formAtConstruction()
{
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Generate AOIs from heatmap"));
    QCOMPARE(m_dialog->objectName(), QStringLiteral("addaoiheatmap"));
    QCOMPARE(find<QGraphicsView>("graphicsView")->transform().m11(), 0.25);
    const auto texts = [this](const char *box) {
        QStringList found;
        for (int i = 0; i < find<QComboBox>(box)->count(); ++i)
            found << find<QComboBox>(box)->itemText(i);
        return found.join(u'|');
    };
    QCOMPARE(texts("comboBox_heatmap"), QStringLiteral("GazePoints|Fixations|Cluster|CumulativeCluster|Saliency Itti|"
                                                       "Saliency Frequency-tuned|Saliency IntegratedFeatures"));
    QCOMPARE(texts("method_comboBox"), QStringLiteral("STANDARD|GRADIENT"));
    QCOMPARE(texts("comboBox_expsel"), QStringLiteral("AOI|CumCluster"));
    QCOMPARE(find<QPushButton>("gen_heat")->text(), QStringLiteral("Generate Heatmap"));
    QCOMPARE(find<QPushButton>("genaoiclose")->text(), QStringLiteral("Generate AOIs/CumCluster"));
    QCOMPARE(find<QPushButton>("export_and_close")->text(), QStringLiteral("Export and Close"));
}

void TestAddHeatmapAoi::numbers_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    QTest::addColumn<int>("step");
    const auto row = [](const char *box, const char *text, int lowest, int highest, int step) {
        QTest::newRow(box) << QByteArray(box) << QString::fromLatin1(text) << lowest << highest << step;
    };
    row("inten", "50", 10, 100, 1);
    row("dm", "100", 50, 200, 1);
    row("preth", "10 %", 1, 95, 1);
    row("window", "250", 50, 500, 10);
    row("th", "50 %", 10, 100, 1);
    row("th_size", "50", 10, 1000, 10);
    row("max_th_size", "100000px", 100, 100000, 1);
}

void TestAddHeatmapAoi::numbers()
{
    QFETCH(QByteArray, box);
    const auto *number = find<QSpinBox>(box.constData());
    QTEST(number->text(), "text");
    QTEST(number->minimum(), "lowest");
    QTEST(number->maximum(), "highest");
    QTEST(number->singleStep(), "step");
}

void TestAddHeatmapAoi::suffixFollowsTheSource_data()
{
    QTest::addColumn<QString>("suffix");
    int row = 0;
    for (const char *suffix : {" gp/min", " fix/min", " clu/min", " cumclu/min", " saliency", " saliency", " saliency"})
        QTest::addRow("%d", row++) << QString::fromLatin1(suffix);
}

void TestAddHeatmapAoi::suffixFollowsTheSource()
{
    choose("comboBox_heatmap", 6);
    choose("comboBox_heatmap", QByteArray(QTest::currentDataTag()).toInt());
    QTEST(find<QDoubleSpinBox>("pre_gpmin")->suffix(), "suffix");
}

void TestAddHeatmapAoi::methodEnablesItsNumbers()
{
    for (const int method : {1, 0}) {
        choose("method_comboBox", method);
        for (const char *box : {"window", "th", "max_th_size"})
            QCOMPARE(find<QSpinBox>(box)->isEnabled(), method == 0);
        for (const char *box : {"preth", "th_size", "inten", "dm"})
            QVERIFY(find<QSpinBox>(box)->isEnabled());
        QCOMPARE(static_cast<int>(m_dialog->parameters().method), method);
    }
}

void TestAddHeatmapAoi::exportWithoutSearchMakesNoArea()
{
    QSignalSpy made(m_dialog.get(), &add_heatmap_aoi::sigGenAOIs);
    click("gen_heat");
    click("export_and_close");
    QVERIFY(m_inserted.isEmpty());
    QCOMPARE(made.count(), 1);
    QVERIFY(!m_dialog->isVisible());
}

void TestAddHeatmapAoi::searchWithoutDensityTellsSo()
{
    click("genaoiclose");
    QVERIFY(!m_dialog->search());
    QVERIFY(!find<QLabel>("statusLabel")->text().isEmpty());
}

void TestAddHeatmapAoi::gazeBecomesAreas()
{
    click("gen_heat");
    QVERIFY(m_dialog->density());
    const qsizetype layers = find<QGraphicsView>("graphicsView")->scene()->items().size();
    click("genaoiclose");
    QCOMPARE(find<QLabel>("statusLabel")->text(), QStringLiteral("Regions: 2."));
    // A layer of regions, two contours and two seeds.
    QCOMPARE(find<QGraphicsView>("graphicsView")->scene()->items().size(), layers + 5);
    click("export_and_close");
    QCOMPARE(m_inserted, QStringList({QStringLiteral("HeatmapAOI(2)"), QStringLiteral("HeatmapAOI(3)")}));
}

void TestAddHeatmapAoi::exportNeedsANewSearch()
{
    click("gen_heat");
    click("genaoiclose");
    m_dialog->sltExport();
    m_inserted.clear();
    m_dialog->show();
    m_dialog->sltExport();
    QVERIFY(m_inserted.isEmpty());
    m_dialog->sltGenAOIs();
    m_dialog->sltExport();
    QCOMPARE(m_inserted.size(), 2); // the density is still there
}

void TestAddHeatmapAoi::gradientAreas()
{
    choose("method_comboBox", 1);
    click("gen_heat");
    click("genaoiclose");
    click("export_and_close");
    QVERIFY(m_inserted.size() >= 2);
    QCOMPARE(m_inserted.first(), QStringLiteral("AOI 1"));
}

void TestAddHeatmapAoi::regionsBecomeClusters()
{
    choose("comboBox_expsel", 1);
    click("gen_heat");
    click("genaoiclose");
    click("export_and_close");
    QVERIFY(m_inserted.isEmpty());
    QCOMPARE(std::as_const(m_model).pooled(Eye::Left).fixationClusters.size(), 2);
    QCOMPARE(std::as_const(m_model).pooled(Eye::Left).fixationClusters.first().fixations.size(), 1);
    QVERIFY(std::as_const(m_model).pooled(Eye::Right).fixationClusters.isEmpty());
}

void TestAddHeatmapAoi::readOuts()
{
    click("gen_heat");
    QCOMPARE(find<QLabel>("gpmin1")->text(), QStringLiteral("0 gp/min"));
    const double half = find<QLabel>("gpmin2")->text().section(u' ', 0, 0).toDouble();
    const double whole = find<QLabel>("gpmin3")->text().section(u' ', 0, 0).toDouble();
    // 600 points of each eye within a few pixels, in two minutes: the sum of peaks that lie so near to each other.
    QVERIFY2(whole > 580 && whole <= 600, qPrintable(QString::number(whole)));
    QVERIFY(std::abs(whole - 2 * half) < 0.01);
    const auto *read = find<QDoubleSpinBox>("pre_gpmin");
    QVERIFY(std::abs(read->value() - whole * 0.1) < 0.01);
    find<QSpinBox>("preth")->setValue(40);
    QVERIFY(std::abs(read->value() - whole * 0.4) < 0.01);
    QVERIFY(read->isReadOnly());
}

void TestAddHeatmapAoi::saliencyOfThePicture()
{
    choose("comboBox_heatmap", 5);
    click("gen_heat");
    QVERIFY(m_dialog->density());
    QCOMPARE(find<QLabel>("gpmin1")->text(), QStringLiteral("0 "));
    QCOMPARE(find<QLabel>("gpmin2")->text(), QStringLiteral("0.5 "));
    QCOMPARE(find<QLabel>("gpmin3")->text(), QStringLiteral("1.0 "));
    QCOMPARE(find<QDoubleSpinBox>("pre_gpmin")->value(), 0.1);
    // The disc at (300, 100) of 400 x 300 stands out.
    QVERIFY(m_dialog->density()->cells.at(1920, 533) > 0.9);
    QVERIFY(m_dialog->density()->cells.at(400, 1300) < 0.1);
}

void TestAddHeatmapAoi::saliencyWithoutPicture()
{
    m_window.showsPicture = false;
    const RecordedMessages messages;
    choose("comboBox_heatmap", 4);
    click("gen_heat");
    QVERIFY(!m_dialog->density());
    QCOMPARE(messages.texts().size(), 1);
}

void TestAddHeatmapAoi::nothingInTheFrameChangesNothing()
{
    click("gen_heat");
    const double before = m_dialog->density()->highest;
    choose("comboBox_heatmap", 2); // there are no clusters
    click("gen_heat");
    QCOMPARE(m_dialog->density()->highest, before);
    QCOMPARE(m_dialog->density()->unit, QStringLiteral(" gp/min"));
}

void TestAddHeatmapAoi::withoutModelNothingHappens()
{
    m_dialog->setModel(nullptr);
    QSignalSpy made(m_dialog.get(), &add_heatmap_aoi::sigGenAOIs);
    click("gen_heat");
    click("genaoiclose");
    click("export_and_close");
    QVERIFY(!m_dialog->density());
    QCOMPARE(made.count(), 0);
}

/// Presses the button of the progress as soon as it shows.
void TestAddHeatmapAoi::cancelledWorkChangesNothing()
{
    click("gen_heat");
    int presses = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, [&] {
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        auto *button = progress ? progress->findChild<QPushButton *>() : nullptr;
        if (!button)
            return;
        ++presses;
        button->click();
    });
    timer.start(0);
    click("genaoiclose");
    timer.stop();
    QVERIFY(presses > 0);
    QVERIFY(!m_dialog->search());
    QCOMPARE(find<QLabel>("statusLabel")->text(), QStringLiteral("Cancelled."));
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestAddHeatmapAoi)
#include "TestAddHeatmapAoi.moc"
