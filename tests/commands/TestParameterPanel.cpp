// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/ParameterPanel.h"
#include "TestSettings.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

struct Record {
    int whole = 3;
    double real = 0.5;
    bool flag = false;
    int choice = 0;
    int unbound = 0;
    QColor color = QColor(1, 2, 3);
    QColor quietColor = QColor(4, 5, 6);
    int quietNumber = 1;
    bool quietFlag = false;
};

constexpr Parameter wholeRow{&Record::whole, QLatin1StringView("Whole"), 3, QLatin1StringView("Whole changed: %1"),
                             QLatin1StringView("CommandChangeWhole")};
constexpr Parameter realRow{&Record::real, QLatin1StringView("Real"), 0.5, QLatin1StringView("Real changed: %1"),
                            QLatin1StringView("CommandChangeReal")};
constexpr Parameter flagRow{&Record::flag, QLatin1StringView("Flag"), false, QLatin1StringView("Flag changed: %1"),
                            QLatin1StringView("CommandChangeFlag")};
constexpr Parameter choiceRow{&Record::choice, QLatin1StringView("Choice"), 0, QLatin1StringView("Choice changed: %1"),
                              QLatin1StringView("CommandChangeChoice")};
constexpr Parameter unboundRow{&Record::unbound, QLatin1StringView("Unbound"), 0};
constexpr Parameter colorRow{&Record::color, QLatin1StringView("Color"), QColor(1, 2, 3),
                             QLatin1StringView("Color changed: "), QLatin1StringView("CommandChangeColor")};
constexpr Parameter quietColorRow{&Record::quietColor, QLatin1StringView("QuietColor"), QColor(4, 5, 6)};
constexpr Parameter quietNumberRow{&Record::quietNumber, QLatin1StringView("QuietNumber"), 1};
constexpr Parameter quietFlagRow{&Record::quietFlag, QLatin1StringView("QuietFlag"), false};
constexpr auto recordRows =
    std::tie(wholeRow, realRow, flagRow, choiceRow, unboundRow, colorRow, quietColorRow, quietNumberRow, quietFlagRow);

/// A command that differs from its row's in what it shows.
class CommandChangeChoice : public ParameterCommand<choiceRow> {
public:
    using ParameterCommand::ParameterCommand;

protected:
    void show(const int &value) override
    {
        ParameterCommand::show(value);
        SettingsStore().setValue(QStringLiteral("Shown"), value);
    }
};

/// A panel with a control of each kind.
class Panel : public QWidget {
public:
    Panel()
    {
        m_whole->setRange(0, 10);
        m_real->setRange(0, 1);
        m_choice->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        m_parameters.bind<wholeRow>(m_whole, m_record);
        m_parameters.bind<realRow>(m_real, m_record);
        m_parameters.bind<flagRow>(m_flag, m_record);
        m_parameters.bind<choiceRow, CommandChangeChoice>(m_choice, m_record);
        const auto choose = [this](const QColor &start) {
            m_start = start;
            return m_chosen;
        };
        m_parameters.bindColor<colorRow>(m_color, m_record, choose);
        m_parameters.bindColorWithoutCommand<quietColorRow>(m_quietColor, m_record, choose);
        m_parameters.bindWithoutCommand<quietNumberRow>(m_quietNumber, m_record);
        m_parameters.bindWithoutCommand<quietFlagRow>(m_quietFlag, m_record);
        m_parameters.refresh(m_record, recordRows);
    }

    Record &record() { return m_record; }
    ParameterPanel &parameters() { return m_parameters; }
    QSpinBox &whole() { return *m_whole; }
    QDoubleSpinBox &real() { return *m_real; }
    QCheckBox &flag() { return *m_flag; }
    QComboBox &choice() { return *m_choice; }
    QToolButton &color() { return *m_color; }
    QToolButton &quietColor() { return *m_quietColor; }
    QSpinBox &quietNumber() { return *m_quietNumber; }
    QCheckBox &quietFlag() { return *m_quietFlag; }

    /// What the user will choose; invalid for a cancelled choice.
    void setChosen(const QColor &color) { m_chosen = color; }
    /// The colour with which the last choice began.
    const QColor &start() const { return m_start; }

private:
    QSpinBox *m_whole = new QSpinBox(this);
    QDoubleSpinBox *m_real = new QDoubleSpinBox(this);
    QCheckBox *m_flag = new QCheckBox(this);
    QComboBox *m_choice = new QComboBox(this);
    QToolButton *m_color = new QToolButton(this);
    QToolButton *m_quietColor = new QToolButton(this);
    QSpinBox *m_quietNumber = new QSpinBox(this);
    QCheckBox *m_quietFlag = new QCheckBox(this);
    QColor m_chosen;
    QColor m_start;
    Record m_record;
    ParameterPanel m_parameters;
};

CommandStack &stack()
{
    return CommandStack::instance();
}

} // namespace

class TestParameterPanel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void showsTheRecordWithoutACommand();
    void aChangeOfAControlIsACommand();
    void undoAndRedoSetTheControlSilently();
    void reactsToEachShownValue();
    void twoQuickChangesAreTwoCommands();
    void whatIsTypedIsOneCommand();
    void aDerivedCommandIsPushed();
    void theControlClampsWhatTheRecordKeeps_data();
    void theControlClampsWhatTheRecordKeeps();
    void aClampedControlChangesFromItsOwnValue();
    void aChoiceBeyondTheItemsShowsNone();
    void aKeyWithoutControlIsNoError();
    void aChosenColorIsACommand();
    void aCancelledChoiceChangesNothing();
    void aColorWithoutCommand();
    void controlsWithoutCommand();

private:
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<Panel> m_panel;
    int m_before = 0; ///< commands on the stack, which lives as long as the process
};

void TestParameterPanel::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_panel = std::make_unique<Panel>();
    m_before = stack().count();
}

void TestParameterPanel::cleanup()
{
    stack().clear(); // the commands hold references to the panel
    m_settings.reset();
}

void TestParameterPanel::showsTheRecordWithoutACommand()
{
    m_panel->record() = {7, 0.25, true, 2, 9, QColor(10, 11, 12), QColor(13, 14, 15), 8, true};
    m_panel->parameters().refresh(m_panel->record(), recordRows);
    QCOMPARE(m_panel->whole().value(), 7);
    QCOMPARE(m_panel->real().value(), 0.25);
    QVERIFY(m_panel->flag().isChecked());
    QCOMPARE(m_panel->choice().currentIndex(), 2);
    QCOMPARE(shownColor(&m_panel->color()), QColor(10, 11, 12));
    QCOMPARE(shownColor(&m_panel->quietColor()), QColor(13, 14, 15));
    QCOMPARE(m_panel->quietNumber().value(), 8);
    QVERIFY(m_panel->quietFlag().isChecked());
    QCOMPARE(stack().count(), m_before);
    QVERIFY2(SettingsStore().allKeys().isEmpty(), "a refresh writes nothing");
}

void TestParameterPanel::aChangeOfAControlIsACommand()
{
    m_panel->whole().setValue(8);
    m_panel->real().setValue(0.75);
    m_panel->flag().click();
    m_panel->choice().setCurrentIndex(1);
    QCOMPARE(stack().count(), m_before + 4);
    QCOMPARE(stack().text(m_before), QStringLiteral("Whole changed: 8"));
    QCOMPARE(stack().text(m_before + 1), QStringLiteral("Real changed: 0.75"));
    QCOMPARE(stack().text(m_before + 2), QStringLiteral("Flag changed: 1"));
    QCOMPARE(stack().text(m_before + 3), QStringLiteral("Choice changed: 1"));
    QCOMPARE(m_panel->record().whole, 8);
    QCOMPARE(m_panel->record().real, 0.75);
    QCOMPARE(m_panel->record().flag, true);
    QCOMPARE(m_panel->record().choice, 1);
    QCOMPARE(SettingsStore().value(wholeRow.key).toInt(), 8);
    QCOMPARE(SettingsStore().value(realRow.key).toDouble(), 0.75);
}

void TestParameterPanel::undoAndRedoSetTheControlSilently()
{
    m_panel->whole().setValue(8);
    m_panel->flag().click();
    const QSignalSpy wholeChanges(&m_panel->whole(), &QSpinBox::valueChanged);
    const QSignalSpy flagChanges(&m_panel->flag(), &QCheckBox::toggled);
    stack().undo();
    stack().undo();
    QCOMPARE(m_panel->whole().value(), 3);
    QCOMPARE(m_panel->flag().isChecked(), false);
    QCOMPARE(SettingsStore().value(wholeRow.key).toInt(), 3);
    stack().redo();
    QCOMPARE(m_panel->whole().value(), 8);
    QCOMPARE(wholeChanges.count(), 0);
    QCOMPARE(flagChanges.count(), 0);
    QCOMPARE(stack().count(), m_before + 2);
    QVERIFY2(stack().canRedo(), "a new command would have cut off what can be redone");
}

void TestParameterPanel::reactsToEachShownValue()
{
    Panel panel;
    QList<int> shown;
    panel.parameters().whenShown<wholeRow>([&](int value) { shown << value; });
    panel.parameters().whenShown<unboundRow>([&](int value) { shown << value; });
    panel.whole().setValue(7);
    stack().undo();
    panel.parameters().refresh(panel.record(), recordRows);
    QCOMPARE(shown, (QList<int>{7, 3, 3, 0}));
}

void TestParameterPanel::twoQuickChangesAreTwoCommands()
{
    m_panel->whole().stepUp();
    m_panel->whole().stepUp();
    QCOMPARE(stack().count(), m_before + 2);
    stack().undo();
    QCOMPARE(m_panel->whole().value(), 4);
    stack().undo();
    QCOMPARE(m_panel->whole().value(), 3);
}

void TestParameterPanel::whatIsTypedIsOneCommand()
{
    m_panel->whole().selectAll();
    QTest::keyClicks(&m_panel->whole(), QStringLiteral("10"));
    QCOMPARE(stack().count(), m_before); // not yet complete
    QTest::keyClick(&m_panel->whole(), Qt::Key_Return);
    QCOMPARE(stack().count(), m_before + 1);
    QCOMPARE(stack().text(m_before), QStringLiteral("Whole changed: 10"));
}

void TestParameterPanel::aDerivedCommandIsPushed()
{
    m_panel->choice().setCurrentIndex(2);
    QCOMPARE(SettingsStore().value(QStringLiteral("Shown")).toInt(), 2);
    stack().undo();
    QCOMPARE(SettingsStore().value(QStringLiteral("Shown")).toInt(), 0);
    QCOMPARE(m_panel->choice().currentIndex(), 0);
}

void TestParameterPanel::theControlClampsWhatTheRecordKeeps_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("shown");
    QTest::newRow("above") << 99 << 10;
    QTest::newRow("below") << -5 << 0;
    QTest::newRow("at the limit") << 10 << 10;
}

void TestParameterPanel::theControlClampsWhatTheRecordKeeps()
{
    QFETCH(int, value);
    stack().push(new ParameterCommand<wholeRow>(value, m_panel->record(), m_panel->parameters(), nullptr));
    QTEST(m_panel->whole().value(), "shown");
    QCOMPARE(m_panel->record().whole, value);
    QCOMPARE(SettingsStore().value(wholeRow.key).toInt(), value);
    QCOMPARE(stack().count(), m_before + 1);
    m_panel->parameters().refresh(m_panel->record(), recordRows);
    QTEST(m_panel->whole().value(), "shown");
    QCOMPARE(m_panel->record().whole, value);
    stack().undo();
    QCOMPARE(m_panel->whole().value(), 3);
}

void TestParameterPanel::aClampedControlChangesFromItsOwnValue()
{
    stack().push(new ParameterCommand<wholeRow>(99, m_panel->record(), m_panel->parameters(), nullptr));
    m_panel->whole().stepDown();
    QCOMPARE(m_panel->record().whole, 9);
    stack().undo();
    QCOMPARE(m_panel->record().whole, 99);
    QCOMPARE(m_panel->whole().value(), 10);
}

void TestParameterPanel::aChoiceBeyondTheItemsShowsNone()
{
    for (const int index : {3, -1}) {
        m_panel->record().choice = index;
        m_panel->parameters().refresh(m_panel->record(), recordRows);
        QCOMPARE(m_panel->choice().currentIndex(), -1);
        QCOMPARE(m_panel->record().choice, index);
    }
    QCOMPARE(stack().count(), m_before);
}

void TestParameterPanel::aKeyWithoutControlIsNoError()
{
    m_panel->parameters().show(QLatin1StringView("No/Such/Key"), 5);
    QCOMPARE(m_panel->whole().value(), 3);
    QCOMPARE(m_panel->choice().currentIndex(), 0);
}

void TestParameterPanel::aChosenColorIsACommand()
{
    m_panel->setChosen(QColor(200, 100, 50));
    QTest::mouseClick(&m_panel->color(), Qt::LeftButton);
    QCOMPARE(m_panel->start(), QColor(1, 2, 3));
    QCOMPARE(stack().count(), m_before + 1);
    QCOMPARE(stack().text(m_before), QStringLiteral("Color changed: #c86432"));
    QCOMPARE(m_panel->record().color, QColor(200, 100, 50));
    QCOMPARE(SettingsStore().value(colorRow.key).toString(), QStringLiteral("#c86432"));
    QCOMPARE(m_panel->color().styleSheet(), QStringLiteral("background-color:#c86432"));
    stack().undo();
    QCOMPARE(m_panel->record().color, QColor(1, 2, 3));
    QCOMPARE(SettingsStore().value(colorRow.key).toString(), QStringLiteral("#010203"));
    QCOMPARE(m_panel->color().styleSheet(), QStringLiteral("background-color:#010203"));
    stack().redo();
    QCOMPARE(m_panel->color().styleSheet(), QStringLiteral("background-color:#c86432"));
    QCOMPARE(stack().count(), m_before + 1);
}

void TestParameterPanel::aCancelledChoiceChangesNothing()
{
    for (QToolButton *button : {&m_panel->color(), &m_panel->quietColor()}) {
        const QString style = button->styleSheet();
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(button->styleSheet(), style);
    }
    QCOMPARE(m_panel->record().color, QColor(1, 2, 3));
    QCOMPARE(m_panel->record().quietColor, QColor(4, 5, 6));
    QCOMPARE(stack().count(), m_before);
    QVERIFY(SettingsStore().allKeys().isEmpty());
}

void TestParameterPanel::aColorWithoutCommand()
{
    m_panel->setChosen(QColor(200, 100, 50));
    QTest::mouseClick(&m_panel->quietColor(), Qt::LeftButton);
    QCOMPARE(m_panel->start(), QColor(4, 5, 6));
    QCOMPARE(m_panel->record().quietColor, QColor(200, 100, 50));
    QCOMPARE(SettingsStore().value(quietColorRow.key).toString(), QStringLiteral("#c86432"));
    QCOMPARE(m_panel->quietColor().styleSheet(), QStringLiteral("background-color:#c86432"));
    QCOMPARE(stack().count(), m_before);
}

void TestParameterPanel::controlsWithoutCommand()
{
    QTest::keyClick(&m_panel->quietNumber(), Qt::Key_Up);
    QTest::mouseClick(&m_panel->quietFlag(), Qt::LeftButton, {}, QPoint(8, m_panel->quietFlag().height() / 2));
    QCOMPARE(m_panel->record().quietNumber, 2);
    QVERIFY(m_panel->record().quietFlag);
    QCOMPARE(SettingsStore().value(quietNumberRow.key).toInt(), 2);
    QCOMPARE(SettingsStore().value(quietFlagRow.key).toBool(), true);
    QCOMPARE(stack().count(), m_before);
    m_panel->parameters().show(quietNumberRow.key, 77); // as a refresh does, silently
    QCOMPARE(m_panel->quietNumber().value(), 77);
    QCOMPARE(m_panel->record().quietNumber, 2);
}

QTEST_MAIN(TestParameterPanel)
#include "TestParameterPanel.moc"
