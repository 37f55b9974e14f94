// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Vistrum.h"
#include "BatchProgram.h"
#include "commands/CommandStack.h"
#include "export/panel/VisualizationExportBox.h"
#include "import/panel/DataWidget.h"
#include "settings/FirstStart.h"
#include "settings/SettingsStore.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

/// The window and the batch tool run the same functions; here they prove it on the example study.
class TestBatchLikeWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void sameTables_data();
    void sameTables();
    void sameTablesOfEachDetector_data();
    void sameTablesOfEachDetector();
    void sameTablesOfClusters_data();
    void sameTablesOfClusters();
    void sameStatistics_data();
    void sameStatistics();
    void sameTidyTables_data();
    void sameTidyTables();
    void sameBids();
    void samePictures();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_window->findChild<Widget *>(QLatin1StringView(name));
        if (!widget)
            qFatal("The window has no %s", name);
        return widget;
    }
    /// What is chosen in the window, beyond what it starts with; indices.
    struct Choice {
        int detector = 0;
        int velocityUnit = 2;
        int picture = 0;
    };
    void exportFromWindow(const QString &eyes, const QString &folder, const Choice &choice) const;
    void compareTables(qsizetype tables) const;

    std::unique_ptr<BatchProgram> m_batch;
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<Vistrum> m_window;
};

void TestBatchLikeWindow::init()
{
    m_batch = std::make_unique<BatchProgram>();
    QDir::setCurrent(m_batch->path(QString()));
    m_settings = std::make_unique<TemporarySettings>();
    m_messages = std::make_unique<RecordedMessages>();
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
    CommandStack::instance().clear();
    m_window = std::make_unique<Vistrum>();
    find<DataWidget>("Data_Widget")->setRecordingChooser([](const QString &) { return BatchProgram::study(); });
}

void TestBatchLikeWindow::cleanup()
{
    CommandStack::instance().clear(); // its commands refer to the window
    m_window.reset();
    m_messages.reset();
    QDir::setCurrent(QDir::rootPath());
    m_settings.reset();
}

void TestBatchLikeWindow::exportFromWindow(const QString &eyes, const QString &folder, const Choice &choice) const
{
    find<QAbstractButton>("SM_addButton")->click();
    find<QAbstractButton>("SM_importButton")->click();
    find<QComboBox>("Fix_comboBox")->setCurrentIndex(choice.detector);
    find<QComboBox>("comboVelocityUnit")->setCurrentIndex(choice.velocityUnit);
    find<QComboBox>("image_comboBox")->setCurrentIndex(choice.picture);
    find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    QVERIFY(QDir().mkpath(folder));
    find<QLineEdit>("dataFolderLineEdit")->setText(folder);
    find<QLineEdit>("dataPrefixLineEdit")->setText(QStringLiteral("same"));
    find<QComboBox>("dataEyeComboBox")->setCurrentText(eyes);
    find<QCheckBox>("fixationCheckBox")->click();
    find<QCheckBox>("eventCheckBox")->click();
    find<QPushButton>("dataExportButton")->click();
}

void TestBatchLikeWindow::sameTables_data()
{
    QTest::addColumn<QString>("inWindow");
    QTest::addColumn<QString>("inBatch");
    QTest::addColumn<qsizetype>("tables");
    QTest::newRow("all eyes") << "for all eyes"
                              << "all" << qsizetype(4);
    QTest::newRow("dominant eye") << "dominant only"
                                  << "dominant" << qsizetype(2);
    QTest::newRow("left eye") << "left only"
                              << "left" << qsizetype(2);
    QTest::newRow("right eye") << "right only"
                               << "right" << qsizetype(2);
    QTest::newRow("mean eye") << "mean only"
                              << "mean" << qsizetype(2);
}

void TestBatchLikeWindow::sameTables()
{
    QFETCH(QString, inWindow);
    QFETCH(QString, inBatch);
    QFETCH(qsizetype, tables);
    exportFromWindow(inWindow, QStringLiteral("window"), {});
    QStringList arguments{
        QStringLiteral("--quiet"),       QStringLiteral("--calculate"),      QStringLiteral("fixations"),
        QStringLiteral("--export"),      QStringLiteral("fixations,events"), QStringLiteral("--out=batch"),
        QStringLiteral("--prefix=same"), QStringLiteral("--eyes"),           inBatch};
    QCOMPARE(m_batch->run(arguments + BatchProgram::study()).status, 0);
    compareTables(tables);
}

void TestBatchLikeWindow::compareTables(qsizetype tables) const
{
    const auto fromWindow = BatchProgram::filesIn(m_batch->path(QStringLiteral("window")));
    const auto fromBatch = BatchProgram::filesIn(m_batch->path(QStringLiteral("batch")));
    QCOMPARE(fromWindow.size(), tables);
    QCOMPARE(fromBatch.keys(), fromWindow.keys());
    for (auto file = fromBatch.cbegin(); file != fromBatch.cend(); ++file) {
        QVERIFY2(file.value().count('\n') > 6, qPrintable(file.key())); // more than a line for each subject
        QVERIFY2(file.value() == fromWindow[file.key()], qPrintable(file.key()));
    }
}

void TestBatchLikeWindow::sameTablesOfEachDetector_data()
{
    QTest::addColumn<int>("detector");
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("picture");
    QTest::addColumn<QString>("inBatch");
    QTest::newRow("mixture") << 1 << 2 << 0 << "--detector gaussian";
    QTest::newRow("percentile") << 2 << 2 << 0 << "--detector velocity";
    QTest::newRow("pixels") << 2 << 0 << 0 << "--detector velocity --velocity-unit pixel-per-ms";
    QTest::newRow("degrees on the canvas") << 2 << 1 << 0 << "--detector velocity --velocity-unit degree-per-s";
    QTest::newRow("degrees on the picture")
        << 2 << 1 << 1 << "--detector velocity --velocity-unit degree-per-s --background study/bay.png";
}

void TestBatchLikeWindow::sameTablesOfEachDetector()
{
    QFETCH(int, detector);
    QFETCH(int, unit);
    QFETCH(int, picture);
    QFETCH(QString, inBatch);
    exportFromWindow(QStringLiteral("for all eyes"), QStringLiteral("window"), {detector, unit, picture});
    const QString calls = QStringLiteral("--quiet --calculate fixations --export fixations,events --out=batch "
                                         "--prefix=same ") +
                          inBatch;
    QCOMPARE(m_batch->run(calls.split(u' ') + BatchProgram::study()).status, 0);
    compareTables(4);
}

/// The frame orders the clusters by what it shows of them, in both programs alike.
void TestBatchLikeWindow::sameTablesOfClusters_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<bool>("narrowed");
    QTest::newRow("standard") << 0 << false;
    QTest::newRow("standard in a part of the time") << 0 << true;
    QTest::newRow("mean-shift in a part of the time") << 1 << true;
    QTest::newRow("overlap") << 2 << false;
    QTest::newRow("overlap in a part of the time") << 2 << true;
}

void TestBatchLikeWindow::sameTablesOfClusters()
{
    QFETCH(int, method);
    QFETCH(bool, narrowed);
    find<QAbstractButton>("SM_addButton")->click();
    find<QAbstractButton>("SM_importButton")->click();
    find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    find<QComboBox>("calcType_comboBox")->setCurrentIndex(method);
    find<QToolButton>("calculateClusters_button")->click();
    if (narrowed) {
        find<QDoubleSpinBox>("doubleSpinBox_end")->setValue(7000);
        find<QDoubleSpinBox>("doubleSpinBox_start")->setValue(2500);
        QTest::keyClick(find<QDoubleSpinBox>("doubleSpinBox_start"), Qt::Key_Return);
    }
    QVERIFY(QDir().mkpath(QStringLiteral("window")));
    find<QLineEdit>("dataFolderLineEdit")->setText(QStringLiteral("window"));
    find<QLineEdit>("dataPrefixLineEdit")->setText(QStringLiteral("same"));
    find<QCheckBox>("clusterCheckBox")->click();
    find<QPushButton>("dataExportButton")->click();
    const QString calls =
        QStringLiteral("--quiet --calculate fixations,clusters --export clusters --out=batch --prefix=same%1 --set "
                       "Calculation/Cluster/CalculationType=%2")
            .arg(narrowed ? QStringLiteral(" --time 2500:7000") : QString())
            .arg(method);
    QCOMPARE(m_batch->run(calls.split(u' ') + BatchProgram::study()).status, 0);
    compareTables(12); // of two eyes of six recordings
}

void TestBatchLikeWindow::sameStatistics_data()
{
    QTest::addColumn<int>("eyeMode");
    QTest::addColumn<QString>("inWindow");
    QTest::addColumn<QString>("inBatch");
    QTest::newRow("all eyes") << 0 << "for all eyes"
                              << "all";
    QTest::newRow("mean eye") << 4 << "mean only"
                              << "mean";
}

void TestBatchLikeWindow::sameStatistics()
{
    QFETCH(int, eyeMode);
    QFETCH(QString, inWindow);
    QFETCH(QString, inBatch);
    exportFromWindow(inWindow, QStringLiteral("unused"), {});
    find<QComboBox>("comboBox_eyemode")->setCurrentIndex(eyeMode);
    auto *clusters = find<QWidget>("clusterCalc_widget");
    clusters->findChild<QToolButton *>(QStringLiteral("calculateClusters_button"))->click();
    clusters->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    find<QPushButton>("addAOI_grid")->click();
    find<QPushButton>("generalButton")->click();
    find<QPushButton>("aoiButton")->click();
    m_window->show(); // the page lists the entries when it is seen
    find<QTabWidget>("tabWidget")->setCurrentWidget(find<QWidget>("tab_2"));
    const auto columns = find<QComboBox>("groupColumnComboBox");
    columns->setCurrentText(QStringLiteral("expertise"));
    Q_EMIT columns->textActivated(columns->currentText());
    QVERIFY(QDir().mkpath(QStringLiteral("window")));
    find<QLineEdit>("statisticsFolderLineEdit")->setText(QStringLiteral("window"));
    find<QLineEdit>("statisticsPrefixLineEdit")->setText(QStringLiteral("same"));
    find<QComboBox>("statisticsEyeComboBox")->setCurrentText(inWindow);
    for (const char *box : {"generalCheckBox", "clusterStatisticsCheckBox", "cumulativeStatisticsCheckBox",
                            "bothStatisticsCheckBox", "angleStarCheckBox", "scanpathMeasuresCheckBox", "aoiCheckBox",
                            "aoiTransitionCheckBox", "aoiMeasuresCheckBox", "groupComparisonCheckBox"})
        find<QCheckBox>(box)->click();
    find<QPushButton>("statisticsExportButton")->click();
    const QString calls =
        QStringLiteral("--quiet --out=batch --prefix=same --generate-aois grid --group-by expertise --export "
                       "general-statistics,aoi-statistics,transitions,anglestar,aoi-measures,scanpath-measures,"
                       "group-comparison --calculate "
                       "fixations,clusters,cumulative-clusters,general-statistics,aoi-statistics --eyes ") +
        inBatch;
    QCOMPARE(m_batch->run(calls.split(u' ') + BatchProgram::study()).status, 0);
    const auto fromWindow = BatchProgram::filesIn(m_batch->path(QStringLiteral("window")));
    // general, areas with their sizes, of one flavour, of areas, anglestar, tidy
    QVERIFY(fromWindow.size() >= 1 + 2 + 4 + 1 + 4 + 3);
    const auto fromBatch = BatchProgram::filesIn(m_batch->path(QStringLiteral("batch")));
    QCOMPARE(fromBatch.keys(), fromWindow.keys());
    for (auto file = fromBatch.cbegin(); file != fromBatch.cend(); ++file)
        QVERIFY2(file.value() == fromWindow[file.key()], qPrintable(file.key()));
}

void TestBatchLikeWindow::sameTidyTables_data()
{
    QTest::addColumn<QString>("inWindow");
    QTest::addColumn<QString>("inBatch");
    QTest::newRow("all eyes") << "for all eyes"
                              << "all";
    QTest::newRow("dominant eye") << "dominant only"
                                  << "dominant";
    QTest::newRow("mean eye") << "mean only"
                              << "mean";
}

/// In a part of the time, with areas, clusters, groups, and degrees.
void TestBatchLikeWindow::sameTidyTables()
{
    QFETCH(QString, inWindow);
    QFETCH(QString, inBatch);
    exportFromWindow(inWindow, QStringLiteral("unused"), {.detector = 2, .velocityUnit = 1, .picture = 1});
    find<QToolButton>("calculateClusters_button")->click();
    find<QPushButton>("addAOI_grid")->click();
    find<QDoubleSpinBox>("doubleSpinBox_end")->setValue(7500);
    find<QDoubleSpinBox>("doubleSpinBox_start")->setValue(300);
    QTest::keyClick(find<QDoubleSpinBox>("doubleSpinBox_start"), Qt::Key_Return);
    QVERIFY(QDir().mkpath(QStringLiteral("window")));
    find<QLineEdit>("dataFolderLineEdit")->setText(QStringLiteral("window"));
    for (const char *box : {"fixationCheckBox", "eventCheckBox", "tidyCheckBox", "tidySamplesCheckBox"})
        find<QCheckBox>(box)->click(); // the first two off again
    find<QPushButton>("dataExportButton")->click();
    const QString calls =
        QStringLiteral("--quiet --out=batch --prefix=same --time 300:7500 --detector velocity --velocity-unit "
                       "degree-per-s --background study/bay.png --calculate fixations,clusters --generate-aois grid "
                       "--export tidy,tidy-samples --eyes ") +
        inBatch;
    QCOMPARE(m_batch->run(calls.split(u' ') + BatchProgram::study()).status, 0);
    compareTables(6);
}

/// With degrees, which tell the size of the screen; and what the window reads of it again can be exported at once.
void TestBatchLikeWindow::sameBids()
{
    exportFromWindow(QStringLiteral("for all eyes"), QStringLiteral("unused"),
                     {.detector = 2, .velocityUnit = 1, .picture = 1});
    QVERIFY(QDir().mkpath(QStringLiteral("window")));
    find<QLineEdit>("dataFolderLineEdit")->setText(QStringLiteral("window"));
    for (const char *box : {"fixationCheckBox", "eventCheckBox", "bidsCheckBox"})
        find<QCheckBox>(box)->click(); // the first two off again
    find<QPushButton>("dataExportButton")->click();
    const QString calls =
        QStringLiteral("--quiet --out=batch --prefix=same --detector velocity --velocity-unit degree-per-s "
                       "--background study/bay.png --calculate fixations --export bids");
    QCOMPARE(m_batch->run(calls.split(u' ') + BatchProgram::study()).status, 0);
    const auto fromWindow = BatchProgram::filesIn(m_batch->path(QStringLiteral("window")));
    QCOMPARE(fromWindow.size(), qsizetype(4 + 6 * (3 * 4 + 2)));
    QCOMPARE(BatchProgram::filesIn(m_batch->path(QStringLiteral("batch"))), fromWindow);

    CommandStack::instance().clear();
    m_window = std::make_unique<Vistrum>();
    QVERIFY(!find<QCheckBox>("fixationCheckBox")->isEnabled());
    m_window->importFiles({m_batch->path(QStringLiteral("window/same_bids"))});
    for (const char *box : {"fixationCheckBox", "eventCheckBox", "tidyCheckBox", "bidsCheckBox"})
        QVERIFY2(find<QCheckBox>(box)->isEnabled(), box);
    QVERIFY(m_messages->texts().last().contains(QStringLiteral("the calculation replaces them")));
}

/// The pictures that the window saves of what it shows, and its charts, are those of a run.
void TestBatchLikeWindow::samePictures()
{
    find<QAbstractButton>("SM_addButton")->click();
    find<QAbstractButton>("SM_importButton")->click();
    find<QComboBox>("image_comboBox")->setCurrentIndex(1);
    find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    QVERIFY(QDir().mkpath(QStringLiteral("window")) && QDir().mkpath(QStringLiteral("batch")));
    QString name;
    find<VisualizationExportBox>("visualizationBox")
        ->setFileChooser([&](const QString &, const QString &, const QString &) { return name; });
    for (const char *each : {"window/a.png", "window/a.svg", "window/a.jpg"}) {
        name = QLatin1StringView(each);
        find<QPushButton>("visualizationExportButton")->click();
    }
    for (const char *box :
         {"appendColormapCheckBox", "appendParametersCheckBox", "legendCheckBox", "numbersCheckBox", "cropCheckBox"})
        find<QCheckBox>(box)->click();
    name = QStringLiteral("window/b.png");
    find<QPushButton>("visualizationExportButton")->click();
    name = QStringLiteral("window/c.csv");
    find<QComboBox>("chartComboBox")->setCurrentIndex(3);
    find<QPushButton>("chartExportButton")->click();
    QCOMPARE(m_messages->texts().filter(QStringLiteral("exported")),
             QStringList(QStringLiteral("Fixation histogram export|Fixation histogram exported to: window/c.csv")));

    const QStringList common{QStringLiteral("--quiet"), QStringLiteral("--calculate"), QStringLiteral("fixations"),
                             QStringLiteral("--background"), QStringLiteral("study/bay.png")};
    const QStringList plain = QStringLiteral("--image batch/a.png --image batch/a.svg --image batch/a.jpg "
                                             "--chart fixations=batch/c.csv")
                                  .split(u' ');
    const QStringList appended = QStringLiteral("--append legends,parameters --legend --label-fixations "
                                                "--image-area picture --image batch/b.png")
                                     .split(u' ');
    QCOMPARE(m_batch->run(common + plain + BatchProgram::study()).status, 0);
    QCOMPARE(m_batch->run(common + appended + BatchProgram::study()).status, 0);
    const auto fromWindow = BatchProgram::filesIn(m_batch->path(QStringLiteral("window")));
    const auto fromBatch = BatchProgram::filesIn(m_batch->path(QStringLiteral("batch")));
    QCOMPARE(fromBatch.keys().join(u' '), QStringLiteral("a.jpg a.png a.svg b.png c.csv"));
    QCOMPARE(fromBatch.keys(), fromWindow.keys());
    for (auto file = fromBatch.cbegin(); file != fromBatch.cend(); ++file)
        QVERIFY2(file.value() == fromWindow[file.key()], qPrintable(file.key()));
}

QTEST_MAIN(TestBatchLikeWindow)
#include "TestBatchLikeWindow.moc"
