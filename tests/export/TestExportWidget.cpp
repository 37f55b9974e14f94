// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportCommands.h"
#include "export/panel/ExportWidget.h"
#include "ExportSamples.h"
#include "model/DataModel.h"
#include "settings/SettingsStore.h"
#include "TestMessages.h"
#include "TestPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

class TestExportWidget : public PanelTest<ExportWidget> {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void startsWithTheStoredFolderAndNothingToExport();
    void buttonFollowsTheCheckBoxes();
    void clusterKindsAreEnabledOnTheirOwn();
    void tidyTablesFollowTheirBoxes();
    void exportsEachCheckedKindInOrder();
    void tablesHaveTheWordsOfTheBatchProgram();
    void eyeSelection_data();
    void eyeSelection();
    void undoLeavesTheFilesAndRedoWritesThemAnew();
    void emptyFolderIsAskedFor();
    void browsingStoresTheFolder();
    void cancelledBrowsingChangesNothing();
    void typedFolderIsStored();
    void withoutModelNothingHappens();
    void appendedInformationIsStored();

private:
    /// Clicks at the left end, where the box is: the rest of the widget's width does not react.
    void tick(const char *name) { QTest::mouseClick(child<QCheckBox>(name), Qt::LeftButton, {}, {8, 8}); }
    void type(const char *name, const QString &text)
    {
        auto *line = child<QLineEdit>(name);
        line->clear();
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Return);
    }
    QStringList exportedNames() const
    {
        return QDir(m_folder->path()).entryList({QStringLiteral("*.csv")}, QDir::Files);
    }
    QStringList newCommands() const
    {
        QStringList texts;
        for (int i = m_commandsBefore; i < stack().count(); ++i)
            texts << stack().text(i);
        return texts;
    }
    static QString storedFolder()
    {
        return SettingsStore().value(QStringLiteral("Visualization/Export/pathdata")).toString();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DataModel> m_model;
    int m_commandsBefore = 0;
};

void TestExportWidget::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    openSettings();
    SettingsStore().setValue(QStringLiteral("Visualization/Export/pathdata"), m_folder->path());
    m_model = std::make_unique<DataModel>();
    m_model->examinations() << samples::examination(QStringLiteral("A"), QString());
    m_model->examinations()[0].leftEye.gazePoints << samples::valid(0);
    m_model->examinations()[0].leftEye.scanpath << samples::fixation({0}, {1, 2});
    openPanel();
    m_panel->setModel(m_model.get());
    showPanel();
    m_commandsBefore = stack().count();
}

void TestExportWidget::cleanup()
{
    closePanel();
}

void TestExportWidget::startsWithTheStoredFolderAndNothingToExport()
{
    QCOMPARE(child<QLineEdit>("dataFolderLineEdit")->text(), m_folder->path());
    QVERIFY(!child<QCheckBox>("fixationCheckBox")->isEnabled());
    QVERIFY(!child<QCheckBox>("eventCheckBox")->isEnabled());
    QVERIFY(!child<QPushButton>("dataExportButton")->isEnabled());
    tick("fixationCheckBox");
    click("dataExportButton");
    QCOMPARE(exportedNames(), QStringList());
}

void TestExportWidget::buttonFollowsTheCheckBoxes()
{
    auto *button = child<QPushButton>("dataExportButton");
    m_panel->sltEnableFixationExport();
    QVERIFY(child<QCheckBox>("fixationCheckBox")->isEnabled());
    QVERIFY(!child<QCheckBox>("eventCheckBox")->isEnabled());
    QVERIFY(!button->isEnabled());
    m_panel->sltEnableEventExport();
    QVERIFY(child<QCheckBox>("eventCheckBox")->isEnabled());
    tick("fixationCheckBox");
    QVERIFY(button->isEnabled());
    tick("eventCheckBox");
    tick("fixationCheckBox");
    QVERIFY(button->isEnabled()); // the other one is still on
    tick("eventCheckBox");
    QVERIFY(!button->isEnabled());
}

void TestExportWidget::clusterKindsAreEnabledOnTheirOwn()
{
    auto *button = child<QPushButton>("dataExportButton");
    m_panel->sltEnableFixationClusterExport();
    QVERIFY(child<QCheckBox>("clusterCheckBox")->isEnabled());
    QVERIFY(!child<QCheckBox>("cumulativeClusterCheckBox")->isEnabled());
    m_panel->sltEnableCumulativeClusterExport();
    QVERIFY(child<QCheckBox>("cumulativeClusterCheckBox")->isEnabled());
    QVERIFY(!child<QCheckBox>("fixationCheckBox")->isEnabled());
    QVERIFY(!button->isEnabled());
    tick("cumulativeClusterCheckBox");
    QVERIFY(button->isEnabled());
    tick("clusterCheckBox");
    tick("cumulativeClusterCheckBox");
    QVERIFY(button->isEnabled());
    tick("clusterCheckBox");
    QVERIFY(!button->isEnabled());
}

/// Samples can be written once there are any, the other tables once there are fixations.
void TestExportWidget::tidyTablesFollowTheirBoxes()
{
    const RecordedMessages messages;
    QVERIFY(!child<QCheckBox>("tidySamplesCheckBox")->isEnabled());
    m_panel->sltEnableSampleExport();
    QVERIFY(child<QCheckBox>("tidySamplesCheckBox")->isEnabled());
    QVERIFY(!child<QCheckBox>("tidyCheckBox")->isEnabled());
    tick("tidySamplesCheckBox");
    click("dataExportButton");
    QCOMPARE(exportedNames(), QStringList(QStringLiteral("vistrum_tidy_samples.csv")));
    m_panel->sltEnableFixationExport();
    tick("tidySamplesCheckBox");
    tick("tidyCheckBox");
    QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("vistrum_tidy_samples.csv"))));
    click("dataExportButton");
    QCOMPARE(exportedNames(),
             QStringList({QStringLiteral("vistrum_tidy_aois.csv"), QStringLiteral("vistrum_tidy_clusters.csv"),
                          QStringLiteral("vistrum_tidy_fixations.csv"), QStringLiteral("vistrum_tidy_losses.csv"),
                          QStringLiteral("vistrum_tidy_saccades.csv")}));
    const QString where = QStringLiteral(" [exportdir=%1, prefix=vistrum]").arg(m_folder->path());
    QCOMPARE(newCommands(), QStringList({QStringLiteral("Export tidy samples") + where,
                                         QStringLiteral("Export tidy tables") + where}));
}

void TestExportWidget::exportsEachCheckedKindInOrder()
{
    const RecordedMessages messages;
    m_panel->sltEnableFixationExport();
    m_panel->sltEnableFixationClusterExport();
    m_panel->sltEnableEventExport();
    m_panel->sltEnableCumulativeClusterExport();
    for (const char *kind : {"cumulativeClusterCheckBox", "eventCheckBox", "fixationCheckBox", "clusterCheckBox"})
        tick(kind);
    type("dataPrefixLineEdit", QStringLiteral("study"));
    child<QComboBox>("dataEyeComboBox")->setCurrentText(QStringLiteral("left only"));
    click("dataExportButton");
    const QString where = QStringLiteral("[exportdir=%1, prefix=study]").arg(m_folder->path());
    QCOMPARE(
        newCommands(),
        QStringList({QStringLiteral("Export fixations ") + where, QStringLiteral("Export clusters ") + where,
                     QStringLiteral("Export events ") + where, QStringLiteral("Export cumulative clusters ") + where}));
    QCOMPARE(exportedNames(), QStringList({QStringLiteral("study_cumulative_left_cumclusters_left.csv"),
                                           QStringLiteral("study_events_left.csv"),
                                           QStringLiteral("study_fixationclusters__clusters_left.csv"),
                                           QStringLiteral("study_fixations__fixations_left.csv")}));
    QStringList titles;
    for (const QString &text : messages.texts())
        titles << text.section(u'|', 0, 0);
    QCOMPARE(titles, QStringList({QStringLiteral("Fixation Export"), QStringLiteral("Fixation cluster Export"),
                                  QStringLiteral("Event Export"), QStringLiteral("Cumulative clusters Export")}));
    for (int i = 0; i < 4; ++i)
        stack().undo();
    QCOMPARE(exportedNames().size(), 4);
    QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("study_fixationclusters__clusters_left.csv"))));
    for (int i = 0; i < 4; ++i)
        stack().redo();
    QCOMPARE(exportedNames().size(), 4);
}

/// Recipes have these words.
void TestExportWidget::tablesHaveTheWordsOfTheBatchProgram()
{
    const RecordedMessages messages;
    m_panel->sltEnableFixationExport();
    m_panel->sltEnableFixationClusterExport();
    m_panel->sltEnableEventExport();
    m_panel->sltEnableCumulativeClusterExport();
    for (const char *kind : {"fixationCheckBox", "clusterCheckBox", "eventCheckBox", "cumulativeClusterCheckBox",
                             "tidyCheckBox", "tidySamplesCheckBox", "bidsCheckBox"})
        tick(kind);
    click("dataExportButton");
    QStringList words;
    for (int i = m_commandsBefore; i < stack().count(); ++i) {
        const auto *table = dynamic_cast<const ExportCommand *>(stack().command(i));
        QVERIFY(table);
        words << table->word();
    }
    QCOMPARE(words.join(u','), QStringLiteral("fixations,clusters,events,cumulative-clusters,tidy,tidy-samples,bids"));
}

void TestExportWidget::eyeSelection_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    QTest::newRow("left and right") << "for all eyes"
                                    << "left right";
    QTest::newRow("dominant") << "dominant only"
                              << "dominant";
    QTest::newRow("left") << "left only"
                          << "left";
    QTest::newRow("right") << "right only"
                           << "right";
    QTest::newRow("mean") << "mean only"
                          << "mean";
    QTest::newRow("any other text is all eyes") << "both"
                                                << "left right";
}

void TestExportWidget::eyeSelection()
{
    QFETCH(QString, text);
    QFETCH(QString, words);
    auto *eyes = child<QComboBox>("dataEyeComboBox");
    if (eyes->findText(text) < 0)
        eyes->addItem(text);
    eyes->setCurrentText(text);
    m_panel->sltEnableEventExport();
    tick("eventCheckBox");
    click("dataExportButton");
    QStringList names;
    for (const QString &word : words.split(u' '))
        names << QStringLiteral("vistrum_events_%1.csv").arg(word);
    QCOMPARE(exportedNames(), names);
}

void TestExportWidget::undoLeavesTheFilesAndRedoWritesThemAnew()
{
    child<QComboBox>("dataEyeComboBox")->setCurrentText(QStringLiteral("left only"));
    m_panel->sltEnableFixationExport();
    tick("fixationCheckBox");
    click("dataExportButton");
    const QString path = m_folder->filePath(QStringLiteral("vistrum_fixations__fixations_left.csv"));
    const QByteArray written = samples::bytesOf(path);
    QVERIFY(written.size() > 2);
    stack().undo();
    QCOMPARE(samples::bytesOf(path), written);
    QVERIFY(QFile::remove(path));
    stack().redo();
    QCOMPARE(samples::bytesOf(path), written);
}

void TestExportWidget::emptyFolderIsAskedFor()
{
    m_panel->sltEnableFixationExport();
    tick("fixationCheckBox");
    child<QLineEdit>("dataFolderLineEdit")->clear();
    QString text;
    QTimer::singleShot(0, this, [&text] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        text = box->text();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    click("dataExportButton");
    QCOMPARE(text, QStringLiteral("Please specifie a folder!!!"));
    QCOMPARE(newCommands(), QStringList());
    QCOMPARE(exportedNames(), QStringList());
}

void TestExportWidget::browsingStoresTheFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("chosen")));
    const QString chosen = m_folder->filePath(QStringLiteral("chosen"));
    QString title;
    QString start;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        title = dialog->windowTitle();
        start = dialog->directory().path();
        dialog->selectFile(chosen);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    click("dataBrowseButton");
    QCOMPARE(title, QStringLiteral("Select export folder"));
    QCOMPARE(start, m_folder->path());
    QCOMPARE(child<QLineEdit>("dataFolderLineEdit")->text(), chosen);
    QCOMPARE(storedFolder(), chosen);
}

void TestExportWidget::cancelledBrowsingChangesNothing()
{
    QTimer::singleShot(0, this, [] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        dialog->reject();
    });
    click("dataBrowseButton");
    QCOMPARE(child<QLineEdit>("dataFolderLineEdit")->text(), m_folder->path());
    QCOMPARE(storedFolder(), m_folder->path());
}

void TestExportWidget::typedFolderIsStored()
{
    type("dataFolderLineEdit", QStringLiteral("/typed"));
    QCOMPARE(storedFolder(), QStringLiteral("/typed"));
}

void TestExportWidget::withoutModelNothingHappens()
{
    m_panel->setModel(nullptr);
    m_panel->sltEnableFixationExport();
    tick("fixationCheckBox");
    click("dataExportButton");
    QCOMPARE(newCommands(), QStringList());
}

void TestExportWidget::appendedInformationIsStored()
{
    m_panel->sltExportAppendInfo(Qt::Checked);
    QCOMPARE(SettingsStore().value(QStringLiteral("Export/Data/AppendInfo")).toInt(), 2);
}

QTEST_MAIN(TestExportWidget)
#include "TestExportWidget.moc"
