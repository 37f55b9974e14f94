// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportCommands.h"
#include "export/panel/StatisticsExportBox.h"
#include "ExportSamples.h"
#include "model/DataModel.h"
#include "settings/StoredKeys.h"
#include "TestMessages.h"
#include "TestPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>

using Kind = StatisticsExportBox::Kind;

namespace {

const QString folderKey = QStringLiteral("Visualization/Export/pathstat");

/// The check boxes that can be ticked once there is something to write of a kind.
const QMap<Kind, QStringList> boxes{
    {Kind::General, {QStringLiteral("generalCheckBox")}},
    {Kind::Areas, {QStringLiteral("aoiCheckBox")}},
    {Kind::AreaTransitions, {QStringLiteral("aoiMeasuresCheckBox"), QStringLiteral("aoiTransitionCheckBox")}},
    {Kind::Clusters,
     {QStringLiteral("absoluteCheckBox"), QStringLiteral("clusterStatisticsCheckBox"),
      QStringLiteral("measuresCheckBox"), QStringLiteral("relativeCheckBox")}},
    {Kind::CumulativeClusters,
     {QStringLiteral("absoluteCheckBox"), QStringLiteral("cumulativeStatisticsCheckBox"),
      QStringLiteral("measuresCheckBox"), QStringLiteral("relativeCheckBox")}},
    {Kind::AngleStar,
     {QStringLiteral("angleStarCheckBox"), QStringLiteral("groupComparisonCheckBox"),
      QStringLiteral("scanpathMeasuresCheckBox")}},
    {Kind::Recordings, {QStringLiteral("qualityCheckBox")}},
};

} // namespace

class TestStatisticsExportBox : public PanelTest<StatisticsExportBox> {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void kindsAreEnabledOneByOne();
    void bothFlavoursNeedBothCalculations();
    void buttonNeedsATickedBox();
    void emptyFolderIsAskedFor();
    void folderIsKept();
    void tablesAreCommands();
    void tablesHaveTheWordsOfTheBatchProgram();
    void columnsAreThoseOfTheStore();
    void eyes_data();
    void eyes();
    void transitionsAndAngleStarAreAskedFor();

private:
    QStringList enabledBoxes() const
    {
        QStringList names;
        for (const QCheckBox *box : m_panel->findChildren<QCheckBox *>()) {
            if (box->isEnabled())
                names << box->objectName();
        }
        names.sort();
        return names;
    }
    void enableAll() const
    {
        for (const Kind kind : boxes.keys())
            m_panel->enable(kind);
    }
    void tick(const char *name) const { QTest::mouseClick(child<QCheckBox>(name), Qt::LeftButton, {}, {8, 8}); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<RecordedMessages> m_messages;
    DataModel m_model;
};

void TestStatisticsExportBox::init()
{
    openSettings();
    m_folder = std::make_unique<QTemporaryDir>();
    SettingsStore().setValue(folderKey, m_folder->path());
    m_messages = std::make_unique<RecordedMessages>();
    openPanel();
    m_model = DataModel();
    m_model.examinations() << samples::examination(QStringLiteral("A"), QString());
    m_panel->setModel(&m_model);
    showPanel();
}

void TestStatisticsExportBox::cleanup()
{
    closePanel();
    m_messages.reset();
}

void TestStatisticsExportBox::kindsAreEnabledOneByOne()
{
    QCOMPARE(enabledBoxes(), QStringList());
    for (const Kind kind : boxes.keys()) {
        m_panel = std::make_unique<StatisticsExportBox>();
        m_panel->enable(kind);
        QCOMPARE(enabledBoxes(), boxes[kind]);
    }
}

void TestStatisticsExportBox::bothFlavoursNeedBothCalculations()
{
    m_panel->enable(Kind::Clusters);
    QVERIFY(!child<QCheckBox>("bothStatisticsCheckBox")->isEnabled());
    m_panel->enable(Kind::CumulativeClusters);
    QVERIFY(child<QCheckBox>("bothStatisticsCheckBox")->isEnabled());
}

void TestStatisticsExportBox::buttonNeedsATickedBox()
{
    const auto *button = child<QAbstractButton>("statisticsExportButton");
    QVERIFY(!button->isEnabled());
    m_panel->enable(Kind::General);
    QVERIFY(!button->isEnabled());
    tick("generalCheckBox");
    QVERIFY(button->isEnabled());
    tick("generalCheckBox");
    QVERIFY(!button->isEnabled());
}

void TestStatisticsExportBox::emptyFolderIsAskedFor()
{
    enableAll();
    tick("generalCheckBox");
    child<QLineEdit>("statisticsFolderLineEdit")->clear();
    QString text;
    QTimer::singleShot(0, m_panel.get(), [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        text = box ? box->text() : QString();
        if (box)
            box->accept();
    });
    click("statisticsExportButton");
    QCOMPARE(text, QStringLiteral("Please specifie a folder!!!"));
    QCOMPARE(stack().count(), 0);
}

void TestStatisticsExportBox::folderIsKept()
{
    QCOMPARE(child<QLineEdit>("statisticsFolderLineEdit")->text(), m_folder->path());
    child<QLineEdit>("statisticsFolderLineEdit")->clear();
    QTest::keyClicks(child<QLineEdit>("statisticsFolderLineEdit"), QStringLiteral("/elsewhere"));
    QTest::keyClick(child<QLineEdit>("statisticsFolderLineEdit"), Qt::Key_Return);
    QCOMPARE(SettingsStore().value(folderKey).toString(), QStringLiteral("/elsewhere"));
}

void TestStatisticsExportBox::tablesAreCommands()
{
    enableAll();
    for (const char *box :
         {"generalCheckBox", "aoiCheckBox", "aoiMeasuresCheckBox", "scanpathMeasuresCheckBox", "qualityCheckBox"})
        tick(box);
    click("statisticsExportButton");
    QCOMPARE(stack().count(), 5);
    const QStringList expected{QStringLiteral("vistrum_AOIArea_.csv"),
                               QStringLiteral("vistrum_AOIstatistics_left.csv"),
                               QStringLiteral("vistrum_AOIstatistics_right.csv"),
                               QStringLiteral("vistrum_aoi_measures.csv"),
                               QStringLiteral("vistrum_generalstatistics_left.csv"),
                               QStringLiteral("vistrum_generalstatistics_right.csv"),
                               QStringLiteral("vistrum_quality.csv"),
                               QStringLiteral("vistrum_scanpath_measures.csv")};
    QStringList found = files();
    found.removeAll(QStringLiteral("settings.ini"));
    QCOMPARE(found, expected);
    stack().undo();
    QCOMPARE(files(), expected); // what is written stays
}

/// Recipes have these words.
void TestStatisticsExportBox::tablesHaveTheWordsOfTheBatchProgram()
{
    enableAll();
    for (const char *box : {"generalCheckBox", "aoiCheckBox", "aoiMeasuresCheckBox", "scanpathMeasuresCheckBox",
                            "groupComparisonCheckBox", "qualityCheckBox"})
        tick(box);
    click("statisticsExportButton");
    QStringList words;
    for (int i = 0; i < stack().count(); ++i) {
        const auto *table = dynamic_cast<const ExportCommand *>(stack().command(i));
        QVERIFY(table);
        words << table->word();
    }
    QCOMPARE(words.join(u','), QStringLiteral("general-statistics,aoi-statistics,aoi-measures,scanpath-measures,"
                                              "group-comparison,quality"));
}

void TestStatisticsExportBox::columnsAreThoseOfTheStore()
{
    writeStored(keys::verticalActivity, true);
    writeStored(keys::numberOfFixations, true);
    enableAll();
    tick("generalCheckBox");
    tick("aoiCheckBox");
    click("statisticsExportButton");
    const auto head = [&](const char *name) {
        return samples::bytesOf(m_folder->filePath(QLatin1StringView(name))).split('\n').constFirst();
    };
    QCOMPARE(head("vistrum_generalstatistics_left.csv"), QByteArray("subjectID;subjectINFO;eye;VGA;"));
    QCOMPARE(head("vistrum_AOIstatistics_left.csv"), QByteArray("subjectID;subjectINFO;AOI_name;amount_of_fixis;"));
    writeStored(keys::verticalActivity, false); // a redo writes anew
    stack().undo();
    stack().undo();
    stack().redo();
    QCOMPARE(head("vistrum_generalstatistics_left.csv"), QByteArray("subjectID;subjectINFO;eye;"));
}

void TestStatisticsExportBox::eyes_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("all") << QStringLiteral("for all eyes")
                         << QStringList{QStringLiteral("left"), QStringLiteral("right")};
    QTest::newRow("dominant") << QStringLiteral("dominant only") << QStringList{QStringLiteral("dominant")};
    QTest::newRow("left") << QStringLiteral("left only") << QStringList{QStringLiteral("left")};
    QTest::newRow("right") << QStringLiteral("right only") << QStringList{QStringLiteral("right")};
    QTest::newRow("mean") << QStringLiteral("mean only") << QStringList{QStringLiteral("mean")};
}

void TestStatisticsExportBox::eyes()
{
    QFETCH(QString, choice);
    QFETCH(QStringList, words);
    enableAll();
    tick("generalCheckBox");
    child<QComboBox>("statisticsEyeComboBox")->setCurrentText(choice);
    child<QLineEdit>("statisticsPrefixLineEdit")->setText(QStringLiteral("p"));
    click("statisticsExportButton");
    QStringList expected;
    for (const QString &word : words)
        expected << QStringLiteral("p_generalstatistics_%1.csv").arg(word);
    QCOMPARE(files(), expected);
}

void TestStatisticsExportBox::transitionsAndAngleStarAreAskedFor()
{
    const QSignalSpy transitions(m_panel.get(), &StatisticsExportBox::transitionsWanted);
    const QSignalSpy angleStar(m_panel.get(), &StatisticsExportBox::angleStarWanted);
    enableAll();
    tick("cumulativeStatisticsCheckBox");
    tick("relativeCheckBox");
    click("statisticsExportButton");
    const QVariantList stem{m_folder->path() + QStringLiteral("/vistrum")};
    QCOMPARE(transitions.size(), 1);
    QCOMPARE(transitions[0], stem);
    QCOMPARE(angleStar.size(), 0);
    QCOMPARE(m_panel->transitionChoice(),
             (TransitionChoice{.flavours = {TransitionFlavour::Pooled}, .relative = false}));
    tick("cumulativeStatisticsCheckBox");
    tick("angleStarCheckBox");
    click("statisticsExportButton");
    QCOMPARE(transitions.size(), 1);
    QCOMPARE(angleStar.size(), 1);
    QCOMPARE(angleStar[0], stem);
    QCOMPARE(stack().count(), 0);
}

QTEST_MAIN(TestStatisticsExportBox)
#include "TestStatisticsExportBox.moc"
