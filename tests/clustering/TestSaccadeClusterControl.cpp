// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/panel/SaccadeClusterControl.h"
#include "commands/CommandStack.h"
#include "model/DataModel.h"
#include "SaccadeSamples.h"
#include "TestMessages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class TestSaccadeClusterControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void formOfNumbers_data();
    void formOfNumbers();
    void formOfLists_data();
    void formOfLists();
    void nothingIsCalculatedAtFirst();
    void clickCalculates();
    void changeMarksWhatFollows_data();
    void changeMarksWhatFollows();
    void changesAreNoCommands();
    void directionByMouse();
    void numberByKeyboard();
    void changeBeforeAnyRunMarksAll();
    void onlyWhatRunsIsDone();
    void newDataSetBackEverything();
    void anotherTimeFrameMarksAll();
    void clickNoticesAnotherTimeFrame();
    void changedDataMarkAll_data();
    void changedDataMarkAll();
    void changedDataBeforeAnyRunMarkNothing();
    void tooManyMovementsLeaveNoOldDone();
    void withoutExaminationsOnlyTheSignalGoesOut();
    void modelOutlivesThePanel();
    void statusIsReadableInADarkTheme_data();
    void statusIsReadableInADarkTheme();

private:
    template <class Widget>
    Widget *child(const QString &name) const
    {
        auto *found = m_panel->findChild<Widget *>(name);
        if (!found)
            qFatal("The form has no %s", qPrintable(name));
        return found;
    }
    void click() const { QTest::mouseClick(child<QPushButton>(QStringLiteral("clusterButton")), Qt::LeftButton); }
    /// A letter for each stage: n none, c changed, d done; ? where text and colour do not belong together.
    QString states() const;

    std::unique_ptr<SaccadeClusterControl> m_panel;
    DataModel m_model;
};

namespace {

using DataChange = void (*)(DataModel &);

const QStringList labels{QStringLiteral("preProcessingStatusLabel"),  QStringLiteral("angleMatrixStatus"),
                         QStringLiteral("angleTreeStatus"),           QStringLiteral("angleClusterStatusLabel"),
                         QStringLiteral("distanceMatrixStatusLabel"), QStringLiteral("distanceTreeStatusLabel"),
                         QStringLiteral("distanceClusterStatusLabel")};

} // namespace

QString TestSaccadeClusterControl::states() const
{
    const QHash<QString, QChar> letters{{QStringLiteral("Not Calculated|background-color: red;"), u'n'},
                                        {QStringLiteral("Values changed|background-color: yellow;"), u'c'},
                                        {QStringLiteral("Done|background-color: green;"), u'd'}};
    QString states;
    for (const QString &name : labels) {
        const auto *label = child<QLabel>(name);
        states += letters.value(label->text() + u'|' + label->styleSheet(), u'?');
    }
    return states;
}

void TestSaccadeClusterControl::init()
{
    m_model = DataModel();
    m_model.setTimeFrame({0, 1'000'000});
    m_model.examinations() << samples::examinationAt({{100, 100}, {500, 100}, {100, 140}, {500, 140}, {100, 180}});
    m_panel = std::make_unique<SaccadeClusterControl>();
    m_panel->setModel(&m_model);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestSaccadeClusterControl::cleanup()
{
    m_panel.reset();
}

void TestSaccadeClusterControl::formOfNumbers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::newRow("minimum length") << QStringLiteral("minimumLenghtSpinbox") << 0 << 10000 << 0;
    QTest::newRow("angle difference") << QStringLiteral("minimumAngleDifferenceSpinbox") << 0 << 90 << 0;
    QTest::newRow("distance cutoff") << QStringLiteral("distanceCutoffSpinbox") << 0 << 1000 << 25;
    QTest::newRow("angle cutoff") << QStringLiteral("angleCutoffSpinbox") << 0 << 180 << 10;
    QTest::newRow("angle quantity") << QStringLiteral("minAngleQuantitySpinbox") << 1 << 1000000 << 10;
    QTest::newRow("distance quantity") << QStringLiteral("minDistanceQuantitySpinbox") << 1 << 100 << 1;
}

void TestSaccadeClusterControl::formOfNumbers()
{
    QFETCH(QString, name);
    const auto *box = child<QSpinBox>(name);
    QTEST(box->minimum(), "minimum");
    QTEST(box->maximum(), "maximum");
    QTEST(box->value(), "value"); // the model's, not the form's
}

void TestSaccadeClusterControl::formOfLists_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("items");
    QTest::addColumn<int>("current");
    const QString linkages = QStringLiteral("Average,Maximum,Minimum");
    QTest::newRow("angle linkage") << QStringLiteral("angleLinkageComboBox") << linkages << 1;
    QTest::newRow("distance linkage") << QStringLiteral("distLinkageComboBox") << linkages << 2;
    QTest::newRow("distance") << QStringLiteral("distanceAlgorithmComboBox") << QStringLiteral("Euclidean,Manhattan")
                              << 0;
}

void TestSaccadeClusterControl::formOfLists()
{
    QFETCH(QString, name);
    const auto *box = child<QComboBox>(name);
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items << box->itemText(i);
    QTEST(items.join(u','), "items");
    QTEST(box->currentIndex(), "current");
}

void TestSaccadeClusterControl::nothingIsCalculatedAtFirst()
{
    QCOMPARE(states(), QStringLiteral("nnnnnnn"));
    QVERIFY(child<QCheckBox>(QStringLiteral("directionDependentCheckBox"))->isChecked());
    QCOMPARE(m_panel->saccadeClusterModel()->stage(), SaccadeClusterStage::PreProcessing);
}

void TestSaccadeClusterControl::clickCalculates()
{
    child<QSpinBox>(QStringLiteral("minAngleQuantitySpinbox"))->setValue(1);
    QList<qsizetype> clusters;
    connect(m_panel.get(), &SaccadeClusterControl::sigRedrawClusters, this,
            [&] { clusters << m_panel->saccadeClusterModel()->distanceClusters().size(); });
    click();
    QCOMPARE(clusters, QList<qsizetype>{4}); // the signal comes after the calculation
    QCOMPARE(states(), QStringLiteral("ddddddd"));
}

void TestSaccadeClusterControl::changeMarksWhatFollows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("minimum length") << QStringLiteral("minimumLenghtSpinbox") << QStringLiteral("ccccccc");
    QTest::newRow("angle difference") << QStringLiteral("minimumAngleDifferenceSpinbox") << QStringLiteral("ccccccc");
    QTest::newRow("direction") << QStringLiteral("directionDependentCheckBox") << QStringLiteral("dcccccc");
    QTest::newRow("angle linkage") << QStringLiteral("angleLinkageComboBox") << QStringLiteral("ddccccc");
    QTest::newRow("angle cutoff") << QStringLiteral("angleCutoffSpinbox") << QStringLiteral("dddcccc");
    QTest::newRow("angle quantity") << QStringLiteral("minAngleQuantitySpinbox") << QStringLiteral("dddcccc");
    QTest::newRow("distance") << QStringLiteral("distanceAlgorithmComboBox") << QStringLiteral("ddddccc");
    QTest::newRow("distance linkage") << QStringLiteral("distLinkageComboBox") << QStringLiteral("dddddcc");
    QTest::newRow("distance cutoff") << QStringLiteral("distanceCutoffSpinbox") << QStringLiteral("ddddddc");
    QTest::newRow("distance quantity") << QStringLiteral("minDistanceQuantitySpinbox") << QStringLiteral("ddddddc");
}

void TestSaccadeClusterControl::changeMarksWhatFollows()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    click();
    const SaccadeClusterParameters before = m_panel->saccadeClusterModel()->parameters();
    auto *widget = child<QWidget>(name);
    if (auto *spin = qobject_cast<QSpinBox *>(widget))
        spin->stepUp();
    else if (auto *list = qobject_cast<QComboBox *>(widget))
        list->setCurrentIndex(list->currentIndex() == 0 ? 1 : 0);
    else
        child<QCheckBox>(name)->toggle();
    QVERIFY(m_panel->saccadeClusterModel()->parameters() != before);
    QCOMPARE(states(), expected);
    QCOMPARE(m_panel->saccadeClusterModel()->stage(), static_cast<SaccadeClusterStage>(expected.count(u'd')));
    click();
    QCOMPARE(states(), QStringLiteral("ddddddd"));
}

void TestSaccadeClusterControl::changesAreNoCommands()
{
    child<QSpinBox>(QStringLiteral("distanceCutoffSpinbox"))->setValue(77);
    QCOMPARE(m_panel->saccadeClusterModel()->parameters().distanceCutoff, 77);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestSaccadeClusterControl::directionByMouse()
{
    auto *box = child<QCheckBox>(QStringLiteral("directionDependentCheckBox"));
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QVERIFY(!m_panel->saccadeClusterModel()->parameters().directionDependent);
}

void TestSaccadeClusterControl::numberByKeyboard()
{
    click();
    auto *box = child<QSpinBox>(QStringLiteral("distanceCutoffSpinbox"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(m_panel->saccadeClusterModel()->parameters().distanceCutoff, 26);
    QCOMPARE(states(), QStringLiteral("ddddddc"));
}

/// None of the stages is done, so that all have to be.
void TestSaccadeClusterControl::changeBeforeAnyRunMarksAll()
{
    child<QSpinBox>(QStringLiteral("distanceCutoffSpinbox"))->stepUp();
    QCOMPARE(states(), QStringLiteral("ccccccc"));
}

void TestSaccadeClusterControl::onlyWhatRunsIsDone()
{
    click();
    child<QSpinBox>(QStringLiteral("angleCutoffSpinbox"))->stepUp();
    child<QSpinBox>(QStringLiteral("distanceCutoffSpinbox"))->stepUp(); // a later one changes nothing
    QCOMPARE(states(), QStringLiteral("dddcccc"));
    const QSignalSpy trees(m_panel->saccadeClusterModel().get(), &SaccadeClusterModel::sigAngleTreeDone);
    const QSignalSpy clusters(m_panel->saccadeClusterModel().get(), &SaccadeClusterModel::sigAngleClusterDone);
    click();
    QCOMPARE(trees.count(), 0);
    QCOMPARE(clusters.count(), 1);
}

void TestSaccadeClusterControl::newDataSetBackEverything()
{
    click();
    m_panel->sltSetStatusNone();
    QCOMPARE(states(), QStringLiteral("nnnnnnn"));
    QCOMPARE(m_panel->saccadeClusterModel()->stage(), SaccadeClusterStage::PreProcessing);
    const QSignalSpy first(m_panel->saccadeClusterModel().get(), &SaccadeClusterModel::sigPreProcessingDone);
    m_model.examinations()[0] = samples::examinationAt({{1, 2}, {3, 4}});
    click();
    QCOMPARE(first.count(), 1);
    QCOMPARE(m_panel->saccadeClusterModel()->vectors().size(), 1);
    QCOMPARE(states(), QStringLiteral("ddddddd"));
}

void TestSaccadeClusterControl::anotherTimeFrameMarksAll()
{
    click();
    m_model.setTimeFrame({0, 1'000'000}); // as it was
    m_panel->sltDataChanged();
    QCOMPARE(states(), QStringLiteral("ddddddd"));
    m_model.setTimeFrame({100, 200});
    m_panel->sltDataChanged();
    QCOMPARE(states(), QStringLiteral("ccccccc"));
    QCOMPARE(m_panel->saccadeClusterModel()->stage(), SaccadeClusterStage::PreProcessing);
    click();
    QCOMPARE(m_panel->saccadeClusterModel()->vectors(), QList{SaccadeVector({500, 100}, {100, 140}, 200, 200)});
    QCOMPARE(states(), QStringLiteral("ddddddd"));
}

void TestSaccadeClusterControl::clickNoticesAnotherTimeFrame()
{
    click();
    QCOMPARE(m_panel->saccadeClusterModel()->vectors().size(), 4);
    m_model.setTimeFrame({100, 200});
    click();
    QCOMPARE(m_panel->saccadeClusterModel()->vectors().size(), 1);
}

void TestSaccadeClusterControl::changedDataMarkAll_data()
{
    QTest::addColumn<DataChange>("change");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *expected, DataChange change) {
        QTest::newRow(name) << change << QString::fromLatin1(expected);
    };
    const auto changed = [&](const char *name, DataChange change) { row(name, "ccccccc", change); };
    const auto same = [&](const char *name, DataChange change) { row(name, "ddddddd", change); };
    changed("unchecked", [](DataModel &model) { model.examinations()[0].checked = false; });
    changed("removed", [](DataModel &model) { model.examinations().clear(); });
    changed("one more", [](DataModel &model) { model.examinations() << samples::examinationAt({{1, 2}, {3, 4}}); });
    changed("the other eye", [](DataModel &model) { model.examinations()[0].dominantEye = QStringLiteral("left"); });
    changed("a sample at another place",
            [](DataModel &model) { model.examinations()[0].rightEye.scanpath[2].samples.own()[0].x += 1; });
    changed("a fixation less", [](DataModel &model) { model.examinations()[0].rightEye.scanpath.removeLast(); });
    same("calculated again, with the same outcome", [](DataModel &model) {
        model.examinations()[0] = samples::examinationAt({{100, 100}, {500, 100}, {100, 140}, {500, 140}, {100, 180}});
    });
    same("clusters of fixations", [](DataModel &model) { model.examinations()[0].rightEye.scanpath[1].cluster = 3; });
    same("one more without fixations", [](DataModel &model) { model.examinations() << Examination(); });
    same("fixations of the other eye", [](DataModel &model) {
        model.examinations()[0].leftEye = samples::scanpathAt({{1, 2}, {3, 4}});
    });
}

void TestSaccadeClusterControl::changedDataMarkAll()
{
    QFETCH(const DataChange, change);
    click();
    change(m_model);
    m_panel->sltDataChanged();
    QTEST(states(), "expected");
}

void TestSaccadeClusterControl::changedDataBeforeAnyRunMarkNothing()
{
    m_model.setTimeFrame({100, 200});
    m_panel->sltDataChanged();
    QCOMPARE(states(), QStringLiteral("nnnnnnn"));
    click();
    m_panel->sltSetStatusNone();
    m_model.setTimeFrame({0, 200});
    m_panel->sltDataChanged();
    QCOMPARE(states(), QStringLiteral("nnnnnnn"));
}

/// The stages that did not run are not up to date, whatever they were before.
void TestSaccadeClusterControl::tooManyMovementsLeaveNoOldDone()
{
    click();
    QList<QPoint> places; // from each to the next is a movement, each at right angles to the one before
    for (int i = 0; i <= mostSaccadeVectors + 1; ++i)
        places << QPoint(100 + 100 * (i / 2), 100 + 100 * ((i + 1) / 2));
    m_model.examinations() = {samples::examinationAt(places)};
    m_model.setTimeFrame({0, 100 * places.size()});
    const RecordedMessages messages;
    click();
    QCOMPARE(messages.texts().size(), 1);
    QCOMPARE(states(), QStringLiteral("dcccccc"));
}

void TestSaccadeClusterControl::withoutExaminationsOnlyTheSignalGoesOut()
{
    const QSignalSpy redraw(m_panel.get(), &SaccadeClusterControl::sigRedrawClusters);
    m_model.examinations().clear();
    click();
    m_panel->setModel(nullptr);
    click();
    QCOMPARE(redraw.count(), 2);
    QCOMPARE(states(), QStringLiteral("nnnnnnn"));
}

void TestSaccadeClusterControl::modelOutlivesThePanel()
{
    const std::shared_ptr<SaccadeClusterModel> model = m_panel->saccadeClusterModel();
    m_panel.reset();
    model->cluster();
    QCOMPARE(model->stage(), SaccadeClusterStage::Done);
}

void TestSaccadeClusterControl::statusIsReadableInADarkTheme_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QString>("sheet"); // of the program; without one the theme is a palette
    for (const QString &sheet : {QString(), QStringLiteral("QWidget { background: #282828; color: #c8d2dc; }")}) {
        const char *theme = sheet.isEmpty() ? "palette" : "style sheet";
        QTest::addRow("not calculated, %s", theme) << QStringLiteral("n") << QColor(Qt::black) << sheet;
        QTest::addRow("changed, %s", theme) << QStringLiteral("c") << QColor(Qt::black) << sheet;
        QTest::addRow("done, %s", theme) << QStringLiteral("d") << QColor(Qt::white) << sheet;
    }
}

/// The grounds are those of the state in every theme, so that the text cannot be that of the theme.
void TestSaccadeClusterControl::statusIsReadableInADarkTheme()
{
    QFETCH(QString, state);
    QFETCH(QColor, text);
    QFETCH(QString, sheet);
    const QPalette before = QApplication::palette();
    const auto restore = qScopeGuard([before] {
        QApplication::setPalette(before);
        qApp->setStyleSheet(QString());
    });
    QPalette dark(QColor(40, 40, 40));
    const QColor ofTheTheme(200, 210, 220);
    dark.setColor(QPalette::WindowText, ofTheTheme);
    if (sheet.isEmpty())
        QApplication::setPalette(dark);
    qApp->setStyleSheet(sheet);
    init(); // a panel that begins with it
    if (state == QStringLiteral("d"))
        click();
    else if (state == QStringLiteral("c"))
        child<QSpinBox>(QStringLiteral("distanceCutoffSpinbox"))->stepUp();
    QCOMPARE(states(), QString(7, state[0]));
    for (const QString &name : labels) {
        const QImage picture = child<QLabel>(name)->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QSet<QRgb> colors;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                colors << picture.pixel(x, y);
        }
        QVERIFY2(colors.contains(text.rgb()), qPrintable(name));
        QVERIFY2(!colors.contains(ofTheTheme.rgb()), qPrintable(name));
    }
}

QTEST_MAIN(TestSaccadeClusterControl)
#include "TestSaccadeClusterControl.moc"
