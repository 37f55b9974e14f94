// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/controlWidget.h"
#include "clustering/ClusterSettingsModel.h"
#include "commands/CommandStack.h"
#include "commands/ParameterCommand.h"
#include "detection/FixationSettingsModel.h"
#include "detection/panel/FixationControl.h"
#include "ParameterMembers.h"
#include "settings/FirstStart.h"
#include "TestLog.h"
#include "TestSettings.h"
#include "visualization/panel/VisualizationWidget.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSet>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <memory>

namespace {

const ParameterMember *memberOf(const QString &command)
{
    const auto found = std::find_if(std::begin(parameterMembers), std::end(parameterMembers),
                                    [&](const auto &member) { return command == QLatin1StringView(member.command); });
    return found == std::end(parameterMembers) ? nullptr : found;
}

/// A value before the command and one after it, and how texts write the latter.
template <class T>
struct Change;

template <>
struct Change<int> {
    static constexpr int before = 0;
    static constexpr int after = 1;
    static QString written(int value) { return QString::number(value); }
};

template <>
struct Change<bool> {
    static constexpr bool before = false;
    static constexpr bool after = true;
    static QString written(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }
};

template <>
struct Change<double> {
    static constexpr double before = 0.5;
    static constexpr double after = 0.125;
    static QString written(double value) { return value > 0.2 ? QStringLiteral("0.5") : QStringLiteral("0.125"); }
};

template <>
struct Change<QColor> {
    static constexpr QColor before = QColor(200, 100, 50);
    static constexpr QColor after = QColor(1, 2, 3);
    static QString written(const QColor &value) { return value.name(); }
};

/// Stands in for a panel: remembers what was shown last.
class View : public IParameterView {
public:
    void show(QLatin1StringView key, const ParameterValue &value) override
    {
        m_key = key;
        m_value = value;
        ++m_count;
    }
    QString key() const { return m_key; }
    const ParameterValue &value() const { return m_value; }
    int count() const { return m_count; }

private:
    QString m_key;
    ParameterValue m_value;
    int m_count = 0;
};

/// The text of the undo view with the value put in.
QString textWith(const ParameterMember &member, const QString &value, bool isColor)
{
    const QString text = QString::fromLatin1(member.text);
    return text.contains(QStringLiteral("%1")) ? text.arg(value) : isColor ? text + value : text;
}

constexpr char fixationType[] = "Calculation/Fixation/CalculationType";

} // namespace

/// Each parameter command over its row, with a stand-in for the panel and by the real controls.
class TestParameterCommands : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void everyMemberHasItsRow();
    void redoUndoRedo_data();
    void redoUndoRedo();
    void controlPushesItsCommand_data();
    void controlPushesItsCommand();

private:
    template <const auto &Row>
    void checkRow(typename std::remove_cvref_t<decltype(Row)>::Record &record, const QString &path);
    template <const auto &Table, class Record>
    void checkTable(Record &record, const QString &path = {});
    QStringList takeLogLines() const { return m_log->takeLines(); }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedLog> m_log;
    QStringList m_checked; ///< commands
};

void TestParameterCommands::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_log = std::make_unique<RecordedLog>();
    m_checked.clear();
}

void TestParameterCommands::cleanup()
{
    CommandStack::instance().clear(); // its commands refer to a panel
    m_settings.reset();
}

void TestParameterCommands::everyMemberHasItsRow()
{
    QStringList fromRows;
    const auto add = [&fromRows](const auto &...row) {
        const QString separator = QStringLiteral(" | ");
        const auto line = [&](const auto &one) { return one.command + separator + one.text + separator + one.key; };
        ((row.command.isEmpty() ? void() : void(fromRows << line(row))), ...);
    };
    std::apply(add, rows::visualization);
    std::apply(add, rows::aoiVisualization);
    std::apply(add, rows::fixation);
    std::apply(add, rows::cluster);
    QStringList expected;
    for (const ParameterMember &member : parameterMembers)
        expected << QStringLiteral("%1 | %2 | %3")
                        .arg(QString::fromLatin1(member.command), QString::fromLatin1(member.text),
                             QString::fromLatin1(member.key));
    fromRows.sort();
    expected.sort();
    QCOMPARE(fromRows, expected);
    QCOMPARE(expected.size(), 53);
}

template <const auto &Row>
void TestParameterCommands::checkRow(typename std::remove_cvref_t<decltype(Row)>::Record &record, const QString &path)
{
    using Value = typename std::remove_cvref_t<decltype(Row)>::Value;
    if (Row.command.isEmpty())
        return;
    const ParameterMember *member = memberOf(Row.command);
    QVERIFY2(member, Row.command.data());
    m_checked << Row.command;
    const QLatin1StringView key(member->key);
    valueIn(record, Row) = Change<Value>::before;
    View view;
    ParameterCommand<Row> command(Change<Value>::after, record, view, &m_log->log());
    // The type of the calculation is written as its name, but in the log.
    const auto named = [&](const Value &value) {
        if (key != QLatin1StringView(fixationType))
            return Change<Value>::written(value);
        return value == Value() ? QStringLiteral("Standard") : QStringLiteral("Gaussian Mixture Model");
    };
    constexpr bool isColor = std::is_same_v<Value, QColor>;
    QCOMPARE(command.text(), textWith(*member, named(Change<Value>::after), isColor));
    const auto check = [&](const Value &value, const char *step) {
        QVERIFY2(valueIn(record, Row) == value, member->command);
        const QVariant stored = SettingsStore().value(key.startsWith(u'/') ? path + key : QString(key));
        QVERIFY2(stored.isValid(), member->key);
        constexpr bool isFlag = std::is_same_v<Value, bool>; // which may be stored as a flag or as a text
        QCOMPARE(isFlag ? Change<bool>::written(stored.toBool()) : stored.toString(), named(value));
        QCOMPARE(view.key(), QString(key));
        QVERIFY2(view.value() == ParameterValue(value), member->command);
        QCOMPARE(takeLogLines(), QStringList(QString::fromLatin1(member->command) + QString::fromLatin1(step) +
                                             Change<Value>::written(value)));
    };
    command.redo();
    check(Change<Value>::after, "::redo = ");
    command.undo();
    check(Change<Value>::before, "::undo = ");
    command.redo();
    check(Change<Value>::after, "::redo = ");
    QCOMPARE(view.count(), 3);
}

template <const auto &Table, class Record>
void TestParameterCommands::checkTable(Record &record, const QString &path)
{
    using Rows = std::remove_cvref_t<decltype(Table)>;
    [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        (checkRow<std::get<I>(Table)>(record, path), ...);
    }
    (std::make_index_sequence<std::tuple_size_v<Rows>>());
}

void TestParameterCommands::redoUndoRedo_data()
{
    QTest::addColumn<qsizetype>("commands");
    for (const char *path : {"Visualization/Gazepoint", "Visualization/Fixation", "Visualization/Fixationcluster",
                             "Visualization/Saccade"})
        QTest::newRow(path) << qsizetype(28);
    QTest::newRow("areas of interest") << qsizetype(6);
    QTest::newRow("fixations") << qsizetype(11);
    QTest::newRow("clusters") << qsizetype(8);
}

void TestParameterCommands::redoUndoRedo()
{
    const QString table = QString::fromLatin1(QTest::currentDataTag());
    if (table == QStringLiteral("areas of interest")) {
        AoiVisualizationParameters record;
        checkTable<rows::aoiVisualization>(record);
    } else if (table == QStringLiteral("fixations")) {
        FixationSettingsModel record;
        checkTable<rows::fixation>(record);
    } else if (table == QStringLiteral("clusters")) {
        ClusterSettingsModel record;
        checkTable<rows::cluster>(record);
    } else {
        VisualizationParameters record;
        record.settingsPath = table;
        checkTable<rows::visualization>(record, table);
    }
    QTEST(m_checked.size(), "commands");
    m_checked.removeDuplicates();
    QTEST(m_checked.size(), "commands");
}

namespace {

/// Changes a control by one step, as far as it goes.
void change(QWidget *control)
{
    if (auto *whole = qobject_cast<QSpinBox *>(control))
        whole->setValue(whole->value() + (whole->value() < whole->maximum() ? 1 : -1) * whole->singleStep());
    else if (auto *real = qobject_cast<QDoubleSpinBox *>(control))
        real->setValue(real->value() + (real->value() < real->maximum() ? 1 : -1) * real->singleStep());
    else if (auto *box = qobject_cast<QCheckBox *>(control))
        box->toggle();
    else if (auto *choice = qobject_cast<QComboBox *>(control))
        choice->setCurrentIndex((choice->currentIndex() + 1) % choice->count());
    else
        qobject_cast<QToolButton *>(control)->click();
}

/// What a control shows, in the form of the store.
QString shown(const QWidget *control)
{
    if (const auto *whole = qobject_cast<const QSpinBox *>(control))
        return QString::number(whole->value());
    if (const auto *real = qobject_cast<const QDoubleSpinBox *>(control))
        return QString::number(real->value());
    if (const auto *box = qobject_cast<const QCheckBox *>(control))
        return QVariant(box->isChecked()).toString();
    if (const auto *choice = qobject_cast<const QComboBox *>(control))
        return QString::number(choice->currentIndex());
    return control->styleSheet().mid(QStringLiteral("background-color:").size());
}

/// A stored value as logs and texts write it.
QString written(const QWidget *control, const QString &value)
{
    return qobject_cast<const QCheckBox *>(control) ? QString::number(QVariant(value).toBool()) : value;
}

} // namespace

void TestParameterCommands::controlPushesItsCommand_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("command");
    const std::pair<const char *, const char *> panels[] = {
        {"gazepoint_widget", "Visualization/Gazepoint"},
        {"fixation_widget", "Visualization/Fixation"},
        {"fixationcluster_widget", "Visualization/Fixationcluster"},
        {"saccade_widget", "Visualization/Saccade"},
        {"FixCalc_widget", ""},
    };
    for (const auto &[panel, path] : panels) {
        for (const ParameterMember &member : parameterMembers) {
            if (member.control && (*member.key == '/') == (*path != '\0'))
                QTest::addRow("%s %s", panel, member.key)
                    << QString::fromLatin1(panel) << QString::fromLatin1(path) << QString::fromLatin1(member.command);
        }
    }
}

void TestParameterCommands::controlPushesItsCommand()
{
    QFETCH(QString, panel);
    QFETCH(QString, path);
    QFETCH(QString, command);
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
    controlWidget controls;
    controls.setLog(&m_log->log());
    for (VisualizationWidget *widget : controls.visualizationWidgets())
        widget->setColorChooser([](const QColor &) { return QColor(1, 2, 3); });
    const ParameterMember &member = *memberOf(command);
    auto *control = controls.findChild<QWidget *>(panel)->findChild<QWidget *>(QLatin1StringView(member.control));
    QVERIFY(control);
    const auto stored = [key = path + QLatin1StringView(member.key)] { return SettingsStore().value(key).toString(); };
    const bool isType = QLatin1StringView(member.key) == QLatin1StringView(fixationType);
    const bool isColor = qobject_cast<QToolButton *>(control);
    const QString shownBefore = shown(control);
    const QString storedBefore = stored();

    change(control);
    const QString after = shown(control);
    QVERIFY2(after != shownBefore, "the control did not change");
    QCOMPARE(CommandStack::instance().count(), 1);
    const QString value = isType ? qobject_cast<QComboBox *>(control)->currentText() : written(control, after);
    QCOMPARE(CommandStack::instance().text(0), textWith(member, value, isColor));
    QCOMPARE(stored(), isType ? value : after);
    const QString storedAfter = stored();
    CommandStack::instance().undo();
    QCOMPARE(shown(control), shownBefore);
    QCOMPARE(stored(), storedBefore);
    CommandStack::instance().redo();
    QCOMPARE(shown(control), after);
    QCOMPARE(stored(), storedAfter);
    QCOMPARE(CommandStack::instance().count(), 1); // neither step made a command of its own
    const QString redone = command + QStringLiteral("::redo = ") + written(control, after);
    const QString undone =
        command + QStringLiteral("::undo = ") + written(control, isType ? shownBefore : storedBefore);
    QCOMPARE(takeLogLines(), (QStringList{redone, undone, redone}));
}

QTEST_MAIN(TestParameterCommands)
#include "TestParameterCommands.moc"
