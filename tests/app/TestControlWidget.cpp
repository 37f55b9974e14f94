// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/controlWidget.h"
#include "commands/CommandStack.h"
#include "model/DataModel.h"
#include "settings/FirstStart.h"
#include "TestLog.h"
#include "TestSettings.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QToolBox>
#include <QToolButton>
#include <QUndoView>
#include <QWheelEvent>

#include <memory>

namespace {

using SaliencyParameters = std::array<int, 4>;

constexpr SaliencyParameters unset{-1, -2, -3, -4};

} // namespace

/// The frame of the control panel: its pages, the time fields, the choice of eye and the saliency page.
class TestControlWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void tabsAreInOrder();
    void pagesAreInOrder_data();
    void pagesAreInOrder();
    void panelsStartWithTheStoredValues();

    void timeFieldsOfTheForm();
    void timeFieldsFollowTheTimeline();
    void theEndFollowsTheTimeSpan();
    void aTypedTimeIsToldOnceItIsFinished();
    void aTypedEndBeforeTheStartPullsItBack();
    void aTypedEndBeyondTheTimelineIsItsEnd();
    void theTimelineMayGoBeyondATypedEnd();
    void timeFieldsWithoutModelAndLog();
    void durationsHaveTheirUnit_data();
    void durationsHaveTheirUnit();
    void updateOfTheTimeIsTold();

    void eyeModeStartsAsItIsStored_data();
    void eyeModeStartsAsItIsStored();
    void eyeModeIsStoredAndToldWithoutCommand();

    void saliencyPageOfTheForm();
    void saliencyMethod_data();
    void saliencyMethod();
    void saliencyNumbersGoToTheModel();
    void withoutMethodTheModelKeepsItsNumbers();
    void theButtonAsksForThePicture();
    void undoView();
    void theWheelTurnsOnlyWhatHasTheFocus();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_panel->findChild<Widget *>(QLatin1StringView(name));
        Q_ASSERT(widget);
        return widget;
    }
    QDoubleSpinBox *start() const { return find<QDoubleSpinBox>("doubleSpinBox_start"); }
    QDoubleSpinBox *end() const { return find<QDoubleSpinBox>("doubleSpinBox_end"); }
    static void type(QDoubleSpinBox *field, const char *text)
    {
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(text));
    }
    QStringList takeLogLines() const { return m_log->takeLines(); }
    /// Shows the saliency page, so that what is not hidden is visible.
    void showSaliencyPage() const
    {
        find<QTabWidget>("tabWidget")->setCurrentWidget(find<QWidget>("tab_4"));
        find<QToolBox>("toolBox_4")->setCurrentWidget(find<QWidget>("page_sal"));
    }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedLog> m_log;
    std::unique_ptr<DataModel> m_model;
    std::unique_ptr<controlWidget> m_panel;
};

void TestControlWidget::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_log = std::make_unique<RecordedLog>();
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
    m_model = std::make_unique<DataModel>();
    m_panel = std::make_unique<controlWidget>();
    m_panel->setModel(m_model.get());
    m_panel->setLog(&m_log->log());
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestControlWidget::cleanup()
{
    CommandStack::instance().clear(); // its commands refer to the panel
    m_panel.reset();
    m_settings.reset();
}

// ---- pages

void TestControlWidget::tabsAreInOrder()
{
    const auto *tabs = find<QTabWidget>("tabWidget");
    QStringList titles;
    for (int i = 0; i < tabs->count(); ++i)
        titles << tabs->tabText(i);
    // The tab of the statistics comes fourth, once there is one.
    const QStringList before{QStringLiteral("Data"), QStringLiteral("Calculation"), QStringLiteral("Visualization")};
    QCOMPARE(titles.mid(0, 3), before);
    QCOMPARE(titles.constLast(), QStringLiteral("Export"));
    QCOMPARE(tabs->currentIndex(), 2); // the third
    QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("tab_4"));
    QCOMPARE(tabs->widget(0)->objectName(), QStringLiteral("tab_1"));
    QCOMPARE(tabs->widget(1)->objectName(), QStringLiteral("tab_3"));
}

void TestControlWidget::pagesAreInOrder_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("pages"); // object name and title; others may stand between them
    QTest::newRow("data") << QByteArray("toolBox_2") << QStringLiteral("page_8 Import|page_15 close...");
    QTest::newRow("calculation") << QByteArray("toolBox")
                                 << QStringLiteral(
                                        "fixationsPage Fixations|aoisPage Areas of Interest|page_7 close...");
    QTest::newRow("visualization") << QByteArray("toolBox_4")
                                   << QStringLiteral("page_6 GazePoints|page_10 Fixations|page_11 Fixation Clusters|"
                                                     "page_14 Saccades|page_5 Areas of Interest|page_sal Saliency map|"
                                                     "page_16 close...");
}

void TestControlWidget::pagesAreInOrder()
{
    QFETCH(QByteArray, box);
    QFETCH(QString, pages);
    const auto *tools = find<QToolBox>(box.constData());
    QStringList found;
    for (int i = 0; i < tools->count(); ++i)
        found << tools->widget(i)->objectName() + u' ' + tools->itemText(i);
    int place = -1;
    for (const QString &page : pages.split(u'|')) {
        QVERIFY2(found.indexOf(page) > place, qPrintable(page));
        place = static_cast<int>(found.indexOf(page));
    }
    QCOMPARE(place, found.size() - 1); // the page that closes all is the last
}

void TestControlWidget::panelsStartWithTheStoredValues()
{
    SettingsStore().setValue(QStringLiteral("Visualization/Saccade/Size"), 17);
    SettingsStore().setValue(QStringLiteral("Calculation/Fixation/Standard/MinimumDuration"), 333);
    const controlWidget panel;
    QCOMPARE(panel.findChild<QWidget *>(QStringLiteral("saccade_widget"))
                 ->findChild<QSpinBox *>(QStringLiteral("sizeSpinBox"))
                 ->value(),
             17);
    QCOMPARE(panel.findChild<QSpinBox *>(QStringLiteral("s_spinBox_dur"))->value(), 333);
    QCOMPARE(CommandStack::instance().count(), 0);
}

// ---- time frame

void TestControlWidget::timeFieldsOfTheForm()
{
    QCOMPARE(find<QGroupBox>("groupBox_4")->title(), QStringLiteral("Set time manually"));
    QCOMPARE(find<QLabel>("label_start")->text().remove(u'&'), QStringLiteral("Start:"));
    QCOMPARE(find<QLabel>("label_end")->text().remove(u'&'), QStringLiteral("End:"));
    for (const QDoubleSpinBox *field : {start(), end()}) {
        QVERIFY(!field->isEnabled());
        QCOMPARE(field->decimals(), 0);
        QCOMPARE(field->minimum(), 0.0);
        QCOMPARE(field->maximum(), 100'000'000.0);
        QCOMPARE(field->singleStep(), 0.001);
        QCOMPARE(field->suffix(), QStringLiteral("ms"));
    }
}

void TestControlWidget::timeFieldsFollowTheTimeline()
{
    const QSignalSpy told(m_panel.get(), &controlWidget::sigUpdateTimeframe);
    const QSignalSpy drawn(m_panel.get(), &controlWidget::sigGraphicsParametersChanged);
    m_panel->sltTimelineHasChanged(250, 4000);
    QVERIFY(start()->isEnabled() && end()->isEnabled());
    QCOMPARE(start()->value(), 250.0);
    QCOMPARE(end()->value(), 4000.0);
    QCOMPARE(m_model->timeFrame().startMs, 250);
    QCOMPARE(m_model->timeFrame().endMs, 4000);
    QCOMPARE(takeLogLines(), QStringList(QStringLiteral("controlWidget::sltTimelineHasChanged(250, 4000)")));
    QCOMPARE(told.count(), 0); // the timeline knows
    QCOMPARE(drawn.count(), 0);
}

void TestControlWidget::theEndFollowsTheTimeSpan()
{
    m_panel->sltTimespanHasChanged(5000);
    QCOMPARE(end()->maximum(), 5000.0);
    QCOMPARE(start()->maximum(), 100'000'000.0);
    QVERIFY(!end()->isEnabled());
    QCOMPARE(takeLogLines(), QStringList(QStringLiteral("controlWidget::sltTimespanHasChanged(5000)")));
    m_panel->sltTimelineHasChanged(0, 5000);
    QCOMPARE(end()->value(), 5000.0);
    m_panel->sltTimespanHasChanged(3000);
    QCOMPARE(end()->value(), 3000.0);
}

void TestControlWidget::aTypedTimeIsToldOnceItIsFinished()
{
    m_panel->sltTimespanHasChanged(5000);
    m_panel->sltTimelineHasChanged(0, 5000);
    const QSignalSpy told(m_panel.get(), &controlWidget::sigUpdateTimeframe);
    type(start(), "1250");
    QCOMPARE(told.count(), 0);
    QTest::keyClick(start(), Qt::Key_Return);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told[0], (QVariantList{qint64(1250), qint64(5000)}));
    QCOMPARE(m_model->timeFrame().startMs, 0); // the timeline decides, and tells it back
    type(end(), "3000");
    QTest::keyClick(end(), Qt::Key_Return);
    QCOMPARE(told.count(), 2);
    QCOMPARE(told[1], (QVariantList{qint64(1250), qint64(3000)}));
    QCOMPARE(start()->maximum(), 3000.0);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestControlWidget::aTypedEndBeforeTheStartPullsItBack()
{
    m_panel->sltTimespanHasChanged(5000);
    m_panel->sltTimelineHasChanged(2000, 5000);
    const QSignalSpy told(m_panel.get(), &controlWidget::sigUpdateTimeframe);
    type(end(), "1000");
    QTest::keyClick(end(), Qt::Key_Return);
    QCOMPARE(start()->maximum(), 1000.0);
    QCOMPARE(start()->value(), 1000.0);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told[0], (QVariantList{qint64(999), qint64(1000)})); // as late as a frame can begin that ends there
}

void TestControlWidget::aTypedEndBeyondTheTimelineIsItsEnd()
{
    m_panel->sltTimespanHasChanged(5000);
    m_panel->sltTimelineHasChanged(0, 3000);
    type(end(), "12345");
    QTest::keyClick(end(), Qt::Key_Return);
    QCOMPARE(end()->value(), 5000.0); // not 1234, with the last digit dropped
}

void TestControlWidget::theTimelineMayGoBeyondATypedEnd()
{
    m_panel->sltTimespanHasChanged(5000);
    m_panel->sltTimelineHasChanged(0, 5000);
    type(end(), "1000");
    QTest::keyClick(end(), Qt::Key_Return);
    m_panel->sltTimelineHasChanged(3000, 5000);
    QCOMPARE(start()->value(), 3000.0);
    QCOMPARE(end()->value(), 5000.0);
}

void TestControlWidget::timeFieldsWithoutModelAndLog()
{
    controlWidget panel;
    panel.sltTimelineHasChanged(10, 20);
    panel.sltTimespanHasChanged(30);
    QCOMPARE(panel.findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinBox_end"))->value(), 20.0);
    QVERIFY(takeLogLines().isEmpty());
}

void TestControlWidget::durationsHaveTheirUnit_data()
{
    QTest::addColumn<qint64>("durationMs");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << qint64(0) << QStringLiteral("00.000 sec.ms");
    QTest::newRow("below a minute") << qint64(59'999) << QStringLiteral("59.999 sec.ms");
    QTest::newRow("a minute") << qint64(60'000) << QStringLiteral("01:00 min:sec");
    QTest::newRow("below an hour") << qint64(3'599'999) << QStringLiteral("59:59 min:sec");
    QTest::newRow("an hour") << qint64(3'600'000) << QStringLiteral("01:00:00 h:min:sec");
}

void TestControlWidget::durationsHaveTheirUnit()
{
    QFETCH(qint64, durationMs);
    QTEST(m_panel->time2specific_String(durationMs), "expected");
}

void TestControlWidget::updateOfTheTimeIsTold()
{
    const QSignalSpy told(m_panel.get(), &controlWidget::sigUpdateTime);
    m_panel->sltUpdateTime();
    QCOMPARE(told.count(), 1);
}

// ---- eye

void TestControlWidget::eyeModeStartsAsItIsStored_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("index");
    QTest::newRow("a number") << QVariant(2) << 2;
    QTest::newRow("a text, as a loaded file leaves it") << QVariant(QStringLiteral("4")) << 4;
    QTest::newRow("all") << QVariant(0) << 0;
}

void TestControlWidget::eyeModeStartsAsItIsStored()
{
    QFETCH(QVariant, stored);
    SettingsStore().setValue(QStringLiteral("Visualization/EyeMode"), stored);
    const controlWidget panel;
    const auto *eye = panel.findChild<QComboBox *>(QStringLiteral("comboBox_eyemode"));
    QTEST(eye->currentIndex(), "index");
    QCOMPARE(eye->count(), 5);
}

void TestControlWidget::eyeModeIsStoredAndToldWithoutCommand()
{
    QCOMPARE(find<QGroupBox>("groupBox_eye")->title(), QStringLiteral("Eye"));
    auto *eye = find<QComboBox>("comboBox_eyemode");
    eye->setCurrentIndex(0);
    const QSignalSpy drawn(m_panel.get(), &controlWidget::sigGraphicsParametersChanged);
    for (const int mode : {1, 2, 3, 4}) {
        QString storedWhenTold;
        const auto connection = connect(m_panel.get(), &controlWidget::sigGraphicsParametersChanged, this, [&] {
            storedWhenTold = SettingsStore().value(QStringLiteral("Visualization/EyeMode")).toString();
        });
        QTest::keyClick(eye, Qt::Key_Down);
        disconnect(connection);
        QCOMPARE(storedWhenTold, QString::number(mode)); // who draws reads the store
        QCOMPARE(drawn.count(), mode);
    }
    QCOMPARE(CommandStack::instance().count(), 0);
}

// ---- saliency

void TestControlWidget::saliencyPageOfTheForm()
{
    const auto *methods = find<QComboBox>("comboBox_sal");
    QStringList names;
    for (int i = 0; i < methods->count(); ++i)
        names << methods->itemText(i);
    QCOMPARE(names.join(u','), QStringLiteral("none,Itti,Frequency-tuned,Integrated Features"));
    QCOMPARE(methods->currentIndex(), 0);
    for (const char *name : {"sal_spin_1", "sal_spin_2", "sal_spin_3", "sal_spin_4"}) {
        QCOMPARE(find<QSpinBox>(name)->minimum(), 2);
        QCOMPARE(find<QSpinBox>(name)->maximum(), 1000);
    }
    QCOMPARE(find<QWidget>("page_sal")->findChild<QPushButton *>(QStringLiteral("stat_calc"))->text(),
             QStringLiteral("Calculate changes"));
    QCOMPARE(m_model->saliencyParameters, SaliencyParameters());
}

void TestControlWidget::saliencyMethod_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("shown"); // number of the field, label, value
    QTest::addColumn<SaliencyParameters>("values");
    QTest::newRow("none") << 0 << QString() << unset;
    QTest::newRow("Itti") << 1 << QStringLiteral("2 Number local maxima 12,3 Size Gabor 10,4 Sigma Gabor 100")
                          << SaliencyParameters{2, 12, 10, 100}; // the first as the form has it
    QTest::newRow("Frequency-tuned") << 2
                                     << QStringLiteral("1 Gauss size 5,2 Gauss varrianze x 2,3 Gauss varrianze y 2")
                                     << SaliencyParameters{5, 2, 2, 2};
    QTest::newRow("Integrated Features")
        << 3 << QStringLiteral("1 Edge TH up 500,2 Edge TH down 250,3 Gauss divisor 20,4 Gauss window 40")
        << SaliencyParameters{500, 250, 20, 40};
}

void TestControlWidget::saliencyMethod()
{
    QFETCH(int, index);
    QFETCH(SaliencyParameters, values);
    showSaliencyPage();
    m_model->saliencyParameters = unset;
    const QSignalSpy drawn(m_panel.get(), &controlWidget::sigGraphicsParametersChanged);
    find<QComboBox>("comboBox_sal")->setCurrentIndex(index);
    QStringList visible;
    for (int i = 1; i <= 4; ++i) {
        const auto *number = find<QSpinBox>(("sal_spin_" + QByteArray::number(i)).constData());
        const auto *label = find<QLabel>(("sal_label_" + QByteArray::number(i)).constData());
        QCOMPARE(label->isVisible(), number->isVisible());
        if (number->isVisible())
            visible << QStringLiteral("%1 %2 %3").arg(i).arg(label->text()).arg(number->value());
    }
    QTEST(visible.join(u','), "shown");
    QCOMPARE(m_model->saliencyParameters, values);
    QCOMPARE(drawn.count(), 0);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestControlWidget::saliencyNumbersGoToTheModel()
{
    showSaliencyPage();
    find<QComboBox>("comboBox_sal")->setCurrentIndex(3);
    QTest::keyClick(find<QSpinBox>("sal_spin_1"), Qt::Key_Up);
    QCOMPARE(m_model->saliencyParameters, (SaliencyParameters{501, 250, 20, 40}));
    QTest::keyClick(find<QSpinBox>("sal_spin_4"), Qt::Key_Down);
    QCOMPARE(m_model->saliencyParameters, (SaliencyParameters{501, 250, 20, 39}));
    find<QComboBox>("comboBox_sal")->setCurrentIndex(1); // the first keeps what it had
    QCOMPARE(m_model->saliencyParameters, (SaliencyParameters{501, 12, 10, 100}));
    controlWidget alone; // without a model
    alone.findChild<QSpinBox *>(QStringLiteral("sal_spin_1"))->setValue(9);
    QCOMPARE(m_model->saliencyParameters[0], 501);
}

void TestControlWidget::withoutMethodTheModelKeepsItsNumbers()
{
    showSaliencyPage();
    auto *methods = find<QComboBox>("comboBox_sal");
    methods->setCurrentIndex(2);
    QTest::keyClick(find<QSpinBox>("sal_spin_2"), Qt::Key_Up);
    methods->setCurrentIndex(0);
    QCOMPARE(m_model->saliencyParameters, (SaliencyParameters{5, 3, 2, 2}));
    for (const char *name : {"sal_spin_1", "sal_spin_2", "sal_spin_3", "sal_spin_4", "sal_label_1", "sal_label_2",
                             "sal_label_3", "sal_label_4"})
        QVERIFY2(!find<QWidget>(name)->isVisible(), name);
}

void TestControlWidget::theButtonAsksForThePicture()
{
    showSaliencyPage();
    const QSignalSpy drawn(m_panel.get(), &controlWidget::sigGraphicsParametersChanged);
    QTest::mouseClick(find<QWidget>("page_sal")->findChild<QPushButton *>(QStringLiteral("stat_calc")), Qt::LeftButton);
    QCOMPARE(drawn.count(), 1);
}

// ---- undo view

void TestControlWidget::undoView()
{
    auto *tools = find<QToolBox>("toolBox");
    find<QTabWidget>("tabWidget")->setCurrentWidget(find<QWidget>("tab_3"));
    tools->setCurrentWidget(find<QWidget>("page_7"));
    auto *button = find<QWidget>("page_7")->findChild<QToolButton *>(QStringLiteral("toolButton"));
    QVERIFY(button);
    const auto views = [this] { return m_panel->findChildren<QUndoView *>(); };
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseClick(button, Qt::LeftButton); // a further view
    QCOMPARE(views().size(), 2);
    for (const QUndoView *view : views()) {
        QVERIFY(view->isWindow() && view->isVisible());
        QCOMPARE(view->stack(), &CommandStack::instance());
    }
    auto *size = find<QWidget>("saccade_widget")->findChild<QSpinBox *>(QStringLiteral("sizeSpinBox"));
    const int before = size->value();
    size->setValue(before + 1);
    const QAbstractItemModel *list = views()[0]->model();
    QCOMPARE(list->rowCount(), 2); // the start and the change
    QCOMPARE(list->index(1, 0).data().toString(), QStringLiteral("Size factor changed: %1").arg(before + 1));
    views()[0]->setCurrentIndex(list->index(0, 0));
    QCOMPARE(size->value(), before);
    views()[0]->setCurrentIndex(list->index(1, 0));
    QCOMPARE(size->value(), before + 1);
    views()[0]->close();
    QTRY_COMPARE(views().size(), 1);
}

void TestControlWidget::theWheelTurnsOnlyWhatHasTheFocus()
{
    showSaliencyPage();
    auto *choice = find<QComboBox>("comboBox_sal");
    const auto turnDown = [choice] {
        constexpr QPoint oneStep(0, -120);
        QWheelEvent event(QPointF(5, 5), choice->mapToGlobal(QPointF(5, 5)), QPoint(), oneStep, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(choice, &event);
    };
    find<QTabWidget>("tabWidget")->setFocus();
    turnDown();
    QCOMPARE(choice->currentIndex(), 0);
    m_panel->activateWindow();
    choice->setFocus();
    QTRY_VERIFY(choice->hasFocus());
    turnDown();
    QCOMPARE(choice->currentIndex(), 1);
}

QTEST_MAIN(TestControlWidget)
#include "TestControlWidget.moc"
