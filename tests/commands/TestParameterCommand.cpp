// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterSettingsModel.h"
#include "commands/CommandStack.h"
#include "commands/ParameterCommand.h"
#include "detection/FixationSettingsModel.h"
#include "TestLog.h"
#include "TestSettings.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QTest>

#include <memory>
#include <utility>

namespace {

/// A row of each type, so that each form of a value is seen in text and log.
struct Record {
    QString settingsPath = QStringLiteral("Visualization/Test");
    int whole = 0;
    bool flag = false;
    double real = 0;
    QColor color = Qt::black;
    QString text;
};

constexpr Parameter wholeRow{&Record::whole, QLatin1StringView("/Whole"), 0, QLatin1StringView("Whole changed: %1"),
                             QLatin1StringView("CommandChangeWhole")};
constexpr Parameter flagRow{&Record::flag, QLatin1StringView("/Flag"), false, QLatin1StringView("Flag changed: %1"),
                            QLatin1StringView("CommandChangeFlag")};
constexpr Parameter realRow{&Record::real, QLatin1StringView("/Real"), 0.0, QLatin1StringView("Real changed: %1"),
                            QLatin1StringView("CommandChangeReal")};
constexpr Parameter colorRow{&Record::color, QLatin1StringView("/Color"), QColor(0, 0, 0),
                             QLatin1StringView("Color changed: "), QLatin1StringView("CommandChangeColor")};
const Parameter textRow{&Record::text, QLatin1StringView("/Text"), QString(), QLatin1StringView("Text changed: %1"),
                        QLatin1StringView("CommandChangeText")};
constexpr Parameter useRow{&Record::flag, QLatin1StringView("/Use"), false, QLatin1StringView("Use it changed!"),
                           QLatin1StringView("CommandChangeUse")};

/// Remembers what was shown last, and how often something was.
class FakePanel : public IParameterView {
public:
    void show(QLatin1StringView key, const ParameterValue &value) override
    {
        m_key = key;
        m_value = value;
        ++m_shown;
    }
    QLatin1StringView key() const { return m_key; }
    const ParameterValue &value() const { return m_value; }
    int shown() const { return m_shown; }

private:
    QLatin1StringView m_key;
    ParameterValue m_value;
    int m_shown = 0;
};

/// Another value than the one given.
int changed(int value)
{
    return value + 7;
}
bool changed(bool value)
{
    return !value;
}
double changed(double value)
{
    return value + 0.25;
}
QColor changed(const QColor &color)
{
    return QColor(255 - color.red(), 128, 7);
}
QString changed(const QString &text)
{
    return text + QStringLiteral(" changed");
}

/// The forms of a value in texts, spelt out.
QString written(int value)
{
    return QString::number(value);
}
QString written(bool value)
{
    return value ? QStringLiteral("1") : QStringLiteral("0");
}
QString written(double value)
{
    return QString::number(value, 'g', 6);
}
QString written(const QColor &value)
{
    return value.name();
}
QString written(const QString &value)
{
    return value;
}

} // namespace

class TestParameterCommand : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_settings.reset(); }
    void everyRowWithACommandUndoes();
    void theStackRunsTheCommandOnce();
    void withoutALogNoLineIsWritten();
    void textsOfTheUndoView_data();
    void textsOfTheUndoView();
    void realNumbersHaveSixDigits_data();
    void realNumbersHaveSixDigits();
    void aLaterChangeOfTheRecordIsUndoneToTheValueBefore();

private:
    template <const auto &Row>
    void checkUndo(int &commands);
    template <const auto &Table, std::size_t... I>
    void checkTable(std::index_sequence<I...>, int &commands)
    {
        (checkUndo<std::get<I>(Table)>(commands), ...);
    }
    template <const auto &Table>
    int checkTable()
    {
        int commands = 0;
        checkTable<Table>(std::make_index_sequence<std::tuple_size_v<std::remove_cvref_t<decltype(Table)>>>(),
                          commands);
        return commands;
    }
    QStringList takeLogLines() const { return m_log->takeLines(); }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedLog> m_log;
};

void TestParameterCommand::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_log = std::make_unique<RecordedLog>();
}

template <const auto &Row>
void TestParameterCommand::checkUndo(int &commands)
{
    using Traits = std::remove_cvref_t<decltype(Row)>;
    using Value = typename Traits::Value;
    if (Row.command.isEmpty())
        return;
    ++commands;
    typename Traits::Record record{};
    const Value before = Row.initial;
    const Value after = changed(before);
    valueIn(record, Row) = before;
    FakePanel panel;
    ParameterCommand<Row> command(after, record, panel, &m_log->log());
    QVERIFY(valueIn(record, Row) == before); // nothing happens before the command is run
    QVERIFY2(takeLogLines().isEmpty() && panel.shown() == 0, Row.command.data());

    const auto check = [&](const Value &expected, QLatin1StringView step) {
        QVERIFY2(valueIn(record, Row) == expected, Row.command.data());
        QCOMPARE(fromStored<QString>(SettingsStore().value(storedKey(record, Row))),
                 storedForm(Row, expected).toString());
        QCOMPARE(panel.key(), Row.key);
        QVERIFY2(panel.value() == ParameterValue(expected), Row.command.data());
        QCOMPARE(takeLogLines(), QStringList{Row.command + step + written(expected)});
    };
    command.redo();
    check(after, QLatin1StringView("::redo = "));
    command.undo();
    check(before, QLatin1StringView("::undo = "));
    command.redo();
    check(after, QLatin1StringView("::redo = "));
    QCOMPARE(panel.shown(), 3);
}

void TestParameterCommand::everyRowWithACommandUndoes()
{
    static constexpr auto ownRows = std::tie(wholeRow, flagRow, realRow, colorRow, textRow, useRow);
    QCOMPARE(checkTable<ownRows>(), 6);
    QCOMPARE(checkTable<rows::fixation>(), 11);
    QCOMPARE(checkTable<rows::cluster>(), 8);
    QCOMPARE(checkTable<rows::visualization>(), 28);
    QCOMPARE(checkTable<rows::aoiVisualization>(), 6);
}

void TestParameterCommand::theStackRunsTheCommandOnce()
{
    Record record;
    FakePanel panel;
    QUndoStack stack;
    stack.push(new ParameterCommand<wholeRow>(5, record, panel, &m_log->log()));
    stack.push(new ParameterCommand<wholeRow>(6, record, panel, &m_log->log()));
    QCOMPARE(stack.count(), 2); // commands never merge
    QCOMPARE(panel.shown(), 2);
    stack.undo();
    QCOMPARE(record.whole, 5);
    stack.undo();
    QCOMPARE(record.whole, 0);
    QCOMPARE(
        takeLogLines(),
        (QStringList{QStringLiteral("CommandChangeWhole::redo = 5"), QStringLiteral("CommandChangeWhole::redo = 6"),
                     QStringLiteral("CommandChangeWhole::undo = 5"), QStringLiteral("CommandChangeWhole::undo = 0")}));
}

void TestParameterCommand::withoutALogNoLineIsWritten()
{
    Record record;
    FakePanel panel;
    ParameterCommand<wholeRow> command(5, record, panel, nullptr);
    command.redo();
    command.undo();
    command.redo();
    QCOMPARE(record.whole, 5);
    QCOMPARE(SettingsStore().value(QStringLiteral("Visualization/Test/Whole")).toInt(), 5);
    QCOMPARE(takeLogLines(), QStringList());
}

void TestParameterCommand::textsOfTheUndoView_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    Record record;
    FakePanel panel;
    const ParameterCommand<wholeRow> whole(-3, record, panel, nullptr);
    const ParameterCommand<flagRow> on(true, record, panel, nullptr);
    const ParameterCommand<flagRow> off(false, record, panel, nullptr);
    const ParameterCommand<realRow> real(0.1, record, panel, nullptr);
    const ParameterCommand<colorRow> color(QColor(16, 32, 255), record, panel, nullptr);
    const ParameterCommand<useRow> use(true, record, panel, nullptr);
    ClusterSettingsModel clusterRecord;
    const ParameterCommand<rows::clusterStandardMaximumRadius> cluster(120, clusterRecord, panel, nullptr);
    const ParameterCommand<textRow> words(QStringLiteral("%1 of b"), record, panel, nullptr);
    QTest::newRow("whole number") << whole.text() << QStringLiteral("Whole changed: -3");
    QTest::newRow("true is 1") << on.text() << QStringLiteral("Flag changed: 1");
    QTest::newRow("false is 0") << off.text() << QStringLiteral("Flag changed: 0");
    QTest::newRow("real number") << real.text() << QStringLiteral("Real changed: 0.1");
    QTest::newRow("the name of a colour follows its text") << color.text() << QStringLiteral("Color changed: #1020ff");
    QTest::newRow("a text without a value") << use.text() << QStringLiteral("Use it changed!");
    QTest::newRow("a text is put in as it is") << words.text() << QStringLiteral("Text changed: %1 of b");
    QTest::newRow("a row of the program")
        << cluster.text() << QStringLiteral("Cluster standard maximum radius changed: 120");
}

void TestParameterCommand::textsOfTheUndoView()
{
    QFETCH(QString, text);
    QTEST(text, "expected");
}

void TestParameterCommand::realNumbersHaveSixDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("shortest form") << 100.0 << QStringLiteral("100");
    QTest::newRow("sixth digit rounds") << 0.12345678 << QStringLiteral("0.123457");
    QTest::newRow("large") << 12345678.0 << QStringLiteral("1.23457e+07");
}

void TestParameterCommand::realNumbersHaveSixDigits()
{
    QFETCH(double, value);
    QFETCH(QString, expected);
    Record record;
    FakePanel panel;
    ParameterCommand<realRow> command(value, record, panel, &m_log->log());
    QCOMPARE(command.text(), QStringLiteral("Real changed: ") + expected);
    command.redo();
    QCOMPARE(takeLogLines(), QStringList{QStringLiteral("CommandChangeReal::redo = ") + expected});
    Record other;
    loadParameters(other, std::tie(realRow));
    QCOMPARE(other.real, value); // the store keeps all digits
}

void TestParameterCommand::aLaterChangeOfTheRecordIsUndoneToTheValueBefore()
{
    Record record;
    record.whole = 1;
    FakePanel panel;
    ParameterCommand<wholeRow> command(2, record, panel, nullptr);
    command.redo();
    record.whole = 50; // as a refresh from loaded settings may do
    command.undo();
    QCOMPARE(record.whole, 1);
    QCOMPARE(std::get<int>(panel.value()), 1);
}

QTEST_GUILESS_MAIN(TestParameterCommand)
#include "TestParameterCommand.moc"
