// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SessionControl.h"
#include "app/Vistrum.h"
#include "BatchProgram.h"
#include "commands/CommandStack.h"
#include "import/panel/DataWidget.h"
#include "settings/FirstStart.h"
#include "settings/SettingsStore.h"
#include "table/panel/ExaminationTable.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

/// People work in the real window, save the recipe, and the real program replays it: the same files, byte for byte.
class TestRecipeReplay : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void wholeSession();
    void undoneStepsAreNotReplayed();
    void laterSettingsComeLater();
    void otherRecordings();
    void whatIsLeftOutIsTold();
    void refused_data();
    void refused();
    void optionsBeside();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_window->findChild<Widget *>(QLatin1StringView(name));
        if (!widget)
            qFatal("The window has no %s", name);
        return widget;
    }
    void import() const
    {
        find<QAbstractButton>("SM_addButton")->click();
        find<QAbstractButton>("SM_importButton")->click();
    }
    void calculateFixations() const
    {
        find<QWidget>("fixationsPage")->findChild<QToolButton *>(u"toolButton"_s)->click();
    }
    void setRadius(int px) const { find<QSpinBox>("s_spinBox_rad")->setValue(px); }
    void setTime(double startMs, double endMs) const
    {
        find<QDoubleSpinBox>("doubleSpinBox_end")->setValue(endMs);
        find<QDoubleSpinBox>("doubleSpinBox_start")->setValue(startMs);
        QTest::keyClick(find<QDoubleSpinBox>("doubleSpinBox_start"), Qt::Key_Return);
    }
    /// Ticks the boxes, exports, and unticks them again.
    void exportData(const QString &prefix, std::initializer_list<const char *> boxes,
                    const QString &folder = u"window"_s) const
    {
        QVERIFY(QDir().mkpath(folder));
        find<QLineEdit>("dataFolderLineEdit")->setText(folder);
        find<QLineEdit>("dataPrefixLineEdit")->setText(prefix);
        for (const char *box : boxes)
            find<QCheckBox>(box)->click();
        find<QPushButton>("dataExportButton")->click();
        for (const char *box : boxes)
            find<QCheckBox>(box)->click();
    }
    void exportStatistics(const QString &prefix, std::initializer_list<const char *> boxes) const
    {
        QVERIFY(QDir().mkpath(u"window"_s));
        find<QLineEdit>("statisticsFolderLineEdit")->setText(u"window"_s);
        find<QLineEdit>("statisticsPrefixLineEdit")->setText(prefix);
        for (const char *box : boxes)
            find<QCheckBox>(box)->click();
        find<QPushButton>("statisticsExportButton")->click();
        for (const char *box : boxes)
            find<QCheckBox>(box)->click();
    }
    QJsonObject saved() const
    {
        m_window->session().saveRecipe(u"r.recipe.json"_s);
        return QJsonDocument::fromJson(m_batch->contents(u"r.recipe.json"_s)).object();
    }
    auto replay(const QStringList &further = {}) const
    {
        return m_batch->run(QStringList{u"--quiet"_s, u"--recipe"_s, u"r.recipe.json"_s, u"--out=batch"_s} + further);
    }
    void compareFiles(qsizetype least, const QString &below = {}) const
    {
        const auto fromWindow = BatchProgram::filesIn(m_batch->path(u"window"_s + below));
        const auto fromBatch = BatchProgram::filesIn(m_batch->path(u"batch"_s + below));
        QVERIFY2(fromWindow.size() >= least, qPrintable(QString::number(fromWindow.size())));
        QCOMPARE(fromBatch.keys(), fromWindow.keys());
        for (auto file = fromBatch.cbegin(); file != fromBatch.cend(); ++file)
            QVERIFY2(file.value() == fromWindow[file.key()], qPrintable(file.key()));
    }

    std::unique_ptr<BatchProgram> m_batch;
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<Vistrum> m_window;
};

void TestRecipeReplay::init()
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

void TestRecipeReplay::cleanup()
{
    CommandStack::instance().clear(); // its commands refer to the window
    m_window.reset();
    m_messages.reset();
    QDir::setCurrent(QDir::rootPath());
    m_settings.reset();
}

/// Everything that a recipe can hold, with changes between two exports.
void TestRecipeReplay::wholeSession()
{
    import();
    setRadius(33);
    calculateFixations();
    auto *clusters = find<QWidget>("clusterCalc_widget");
    clusters->findChild<QToolButton *>(u"calculateClusters_button"_s)->click();
    clusters->findChild<QToolButton *>(u"toolButton"_s)->click();
    exportData(u"all"_s, {"fixationCheckBox", "eventCheckBox", "clusterCheckBox", "cumulativeClusterCheckBox",
                          "tidyCheckBox", "tidySamplesCheckBox"});
    find<ExaminationTable>("tableWidget")->setChecked(2, false);
    find<QComboBox>("groupByComboBox")->setCurrentText(u"expertise"_s);
    find<QPushButton>("addAOI_grid")->click();
    setTime(500, 7000);
    find<QPushButton>("generalButton")->click();
    find<QPushButton>("aoiButton")->click();
    exportStatistics(u"part"_s,
                     {"generalCheckBox", "aoiCheckBox", "aoiTransitionCheckBox", "clusterStatisticsCheckBox",
                      "cumulativeStatisticsCheckBox", "bothStatisticsCheckBox", "angleStarCheckBox",
                      "aoiMeasuresCheckBox", "scanpathMeasuresCheckBox", "groupComparisonCheckBox", "qualityCheckBox"});
    exportData(u"part"_s, {"fixationCheckBox", "clusterCheckBox"});
    find<QComboBox>("image_comboBox")->setCurrentIndex(1);
    find<QCheckBox>("remove_outlier")->setChecked(true);
    calculateFixations();
    exportData(u"cut"_s, {"fixationCheckBox", "tidySamplesCheckBox"});
    find<QCheckBox>("remove_outlier")->setChecked(false);
    exportStatistics(u"whole"_s, {"qualityCheckBox"});
    QCOMPARE(saved()[u"notReplayed"_s].toArray(), QJsonArray());
    const auto outcome = replay();
    QVERIFY2(outcome.status == 0, qPrintable(outcome.errors.join(u"; "_s)));
    compareFiles(40);
}

/// What was undone leaves no step; what followed is done as it was.
void TestRecipeReplay::undoneStepsAreNotReplayed()
{
    import();
    calculateFixations();
    exportData(u"a"_s, {"fixationCheckBox"});
    const int kept = CommandStack::instance().index();
    setRadius(77);
    find<ExaminationTable>("tableWidget")->setChecked(0, false);
    CommandStack::instance().setIndex(kept);
    exportData(u"b"_s, {"fixationCheckBox"});
    QStringList words;
    for (const QJsonValue &step : saved()[u"steps"_s].toArray())
        words << step[u"step"_s].toString();
    QCOMPARE(words, (QStringList{u"import"_s, u"fixations"_s, u"export"_s, u"export"_s}));
    QCOMPARE(replay().status, 0);
    compareFiles(4);
}

void TestRecipeReplay::laterSettingsComeLater()
{
    import();
    calculateFixations();
    exportData(u"before"_s, {"fixationCheckBox"});
    setRadius(60);
    calculateFixations();
    exportData(u"after"_s, {"fixationCheckBox"}, u"window/below"_s);
    const QJsonObject recipe = saved();
    QVERIFY(!recipe[u"settings"_s].toObject().contains(u"Calculation/Fixation/Standard/MaximumRadius"_s));
    QCOMPARE(replay().status, 0);
    compareFiles(2);
    compareFiles(2, u"/below"_s);
    QVERIFY(m_batch->contents(u"batch/before_fixations__fixations_left.csv"_s) !=
            m_batch->contents(u"batch/below/after_fixations__fixations_left.csv"_s));

    QVERIFY(QDir(m_batch->path(u"batch/below"_s)).removeRecursively());
    m_batch->write(u"batch/below"_s, "a file in the place of the folder");
    const auto outcome = replay();
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.errors.join(u"; "_s).contains(u"the folder cannot be made: Not a directory"_s),
             qPrintable(outcome.errors.join(u"; "_s)));
}

/// The same steps for others: those given take the place of those that the recipe names.
void TestRecipeReplay::otherRecordings()
{
    import();
    find<ExaminationTable>("tableWidget")->setChecked(1, false); // S02
    calculateFixations();
    exportData(u"p"_s, {"fixationCheckBox"});
    saved();
    const auto outcome = replay({u"study/S03.data"_s, u"study/S04.data"_s});
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.errors.join(u"; "_s).contains(u"leave-out: there is no recording S02"_s),
             qPrintable(outcome.errors.join(u"; "_s)));
    const auto plain = m_batch->run({u"--quiet"_s, u"--calculate"_s, u"fixations"_s, u"--export"_s, u"fixations"_s,
                                     u"--prefix=p"_s, u"--out=plain"_s, u"study/S03.data"_s, u"study/S04.data"_s});
    QCOMPARE(plain.status, 0);
    QCOMPARE(BatchProgram::filesIn(m_batch->path(u"batch"_s)), BatchProgram::filesIn(m_batch->path(u"plain"_s)));
}

void TestRecipeReplay::whatIsLeftOutIsTold()
{
    import();
    calculateFixations();
    CommandStack::instance().undo();
    calculateFixations();
    exportData(u"p/q"_s, {"fixationCheckBox"});
    const QJsonArray left = saved()[u"notReplayed"_s].toArray();
    QCOMPARE(left.size(), 2);
    const QString told = m_messages->texts().last();
    QVERIFY(told.contains(u"r.recipe.json"_s));
    for (const QJsonValue &each : left)
        QVERIFY2(told.contains(each.toString()), qPrintable(told));
    QVERIFY(left[0].toString().contains(u"its prefix \"p/q\" leads to another folder"_s));
    QVERIFY(left[1].toString().contains(u"a calculation of fixations that was undone"_s));
    QVERIFY(told.contains(u"Pictures, charts, videos"_s));
}

void TestRecipeReplay::refused_data()
{
    QTest::addColumn<QByteArray>("step");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char *name, const char *step, const char *reason) {
        QTest::newRow(name) << QByteArray(step) << QByteArray(reason);
    };
    row("unknown step", R"({"step":"dance"})", "step 2: step: expected one of import, ");
    row("unknown table", R"({"step":"export","table":"x","eyes":"all","prefix":"","folder":""})",
        "step 2: export: table: x is none of fixations, ");
    row("folder that leads out", R"({"step":"export","table":"events","eyes":"all","prefix":"","folder":"../x"})",
        "step 2: export: folder: \"../x\" is no folder below that of the run");
    row("prefix that leads out", R"({"step":"export","table":"events","eyes":"all","prefix":"../x","folder":""})",
        "step 2: export: prefix: \"../x\" is no beginning of a file name");
    row("unknown parameter", R"({"step":"set","key":"No/Such","value":"1"})",
        "step 2: set: No/Such is no parameter of this program");
    row("value that is none", R"({"step":"set","key":"Calculation/Fixation/Standard/MaximumRadius","value":"far"})",
        "step 2: set: Calculation/Fixation/Standard/MaximumRadius=far: not a whole number from 10 to 1000");
    row("unknown statistics", R"({"step":"statistics","of":"magic"})",
        "step 2: statistics: of: magic is none of general-statistics, aoi-statistics");
}

/// Before anything is done: no folder is made.
void TestRecipeReplay::refused()
{
    QFETCH(QByteArray, step);
    QFETCH(QByteArray, reason);
    QFile file(u"r.recipe.json"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"recipe":"vistrum","version":1,"release":"1","settings":{},"notReplayed":[],"steps":[
        {"step":"import","recordings":["study/S01.data"]},)" +
               step + "]}");
    file.close();
    const auto outcome = replay();
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.errors.join(u"; "_s).contains(u"--recipe r.recipe.json: "_s + QString::fromUtf8(reason)),
             qPrintable(outcome.errors.join(u"; "_s)));
    QVERIFY(!QFileInfo::exists(u"batch"_s));
}

void TestRecipeReplay::optionsBeside()
{
    import();
    calculateFixations();
    exportData(u"p"_s, {"fixationCheckBox"});
    saved();
    const auto refusal = replay({u"--calculate"_s, u"clusters"_s});
    QCOMPARE(refusal.status, 2);
    QVERIFY2(refusal.errors.join(u"; "_s).contains(
                 u"--calculate: a recipe has its own steps; with --recipe there are only --out, "
                 "--report, --methods, --jobs, --quiet"_s),
             qPrintable(refusal.errors.join(u"; "_s)));
    QCOMPARE(m_batch->run({u"--recipe"_s, u"none.json"_s}).status, 2);
    QCOMPARE(replay({u"--report=r.json"_s, u"--methods=m.md"_s, u"--jobs=1"_s}).status, 0);
    const QJsonObject report = QJsonDocument::fromJson(m_batch->contents(u"r.json"_s)).object();
    QCOMPARE(report[u"inputs"_s][0][u"kind"_s].toString(), u"recipe"_s);
    QCOMPARE(report[u"methods"_s][u"fixationDetection"_s][u"detector"_s].toString(), u"standard"_s);
    QCOMPARE(report[u"options"_s][u"recipe"_s].toString(), u"r.recipe.json"_s);
    QVERIFY(m_batch->contents(u"m.md"_s).contains("Fixations were detected by dispersion"));
}

QTEST_MAIN(TestRecipeReplay)
#include "TestRecipeReplay.moc"
