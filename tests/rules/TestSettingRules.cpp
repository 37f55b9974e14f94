// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/SettingRules.h"
#include "settings/SettingsFile.h"

#include <QTest>

/// Every key of the factory has a rule, and every factory value keeps it.
class TestSettingRules : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void factoryValues_data();
    void factoryValues();
    void values_data();
    void values();
    void expectations();

private:
    static QString key(const char *name) { return QString::fromLatin1(name); }
    static QString storedText(const ParameterValue &value)
    {
        return std::visit([](const auto &typed) { return toStored(typed).toString(); }, value);
    }
};

void TestSettingRules::factoryValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const auto lines = readSettingsFile(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"));
    QVERIFY(lines && !lines->isEmpty());
    for (const SettingsLine &line : *lines)
        QTest::newRow(qPrintable(line.key)) << line.key << line.value;
}

void TestSettingRules::factoryValues()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    const auto rules = settingRules();
    QVERIFY(rules.contains(name));
    const std::optional<ParameterValue> value = rules[name].value(text);
    QVERIFY2(value, qPrintable(rules[name].expected()));
    QCOMPARE(storedText(*value), text);
}

void TestSettingRules::values_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value"); // as it is used; "refused" where it is none
    const auto rows = [](const char *name, std::initializer_list<std::pair<const char *, const char *>> cases) {
        for (const auto &[text, value] : cases)
            QTest::addRow("%s=%s", name, text)
                << QString::fromLatin1(name) << QString::fromUtf8(text) << QString::fromLatin1(value);
    };
    rows("Calculation/Fixation/Standard/MaximumRadius", {{"9", "refused"},
                                                         {"10", "10"},
                                                         {"1000", "1000"},
                                                         {"1001", "refused"},
                                                         {"-40", "refused"},
                                                         {"30.5", "refused"},
                                                         {"30,5", "refused"},
                                                         {"abc", "refused"},
                                                         {"", "refused"},
                                                         {"99999999999999999999", "refused"}});
    rows("Calculation/Cluster/Meanshift/Gradient", {{"0.25", "0.25"},
                                                    {"1e-1", "0.1"},
                                                    {"0,25", "refused"},
                                                    {"0.009", "refused"},
                                                    {"0.01", "0.01"},
                                                    {"nan", "refused"},
                                                    {"inf", "refused"}});
    rows("Calculation/Fixation/Gaussian/MergeSequential", {{"true", "true"},
                                                           {"1", "true"},
                                                           {"2", "true"},
                                                           {"false", "false"},
                                                           {"0", "false"},
                                                           {"no", "refused"},
                                                           {"3", "refused"},
                                                           {"", "refused"}});
    rows("Visualization/Fixation/FillColor",
         {{"#0072b2", "#0072b2"}, {"red", "#ff0000"}, {"notacolor", "refused"}, {"", "refused"}});
    rows("Visualization/Fixation/FillColor", {{"#ff0072b2", "#0072b2"}, {"#800072b2", "refused"}});
    rows("Visualization/Fixation/ACM_start_c1", {{"", ""}, {"notacolor", "refused"}});
    rows("Visualization/EyeMode", {{"4", "4"}, {"5", "refused"}, {"-1", "refused"}});
    rows("Visualization/Fixation/VisualizationMode", {{"6", "6"}, {"7", "refused"}});
    rows("Calculation/Fixation/CalculationType",
         {{"Velocity based", "Velocity based"}, {"Standart", "refused"}, {"", ""}});
    rows("Calculation/Fixation/Velocity/Unit", {{"0", "0"},
                                                {"1", "1"},
                                                {"2", "2"},
                                                {"3", "refused"},
                                                {"-1", "refused"},
                                                {"abc", "refused"},
                                                {"", "refused"},
                                                {"[Pixel / ms]", "[Pixel / ms]"}});
    rows("Visualization/AOI/DrawMode",
         {{"0", "0"}, {"7", "7"}, {"8", "refused"}, {"99", "refused"}, {"-1", "refused"}});
    rows("Visualization/AOI/BorderWidth", {{"-5", "refused"}, {"0", "0"}, {"100", "100"}, {"101", "refused"}});
    rows("Visualization/AOI/line_size", {{"-3", "refused"}, {"0", "0"}, {"1000", "1000"}, {"1001", "refused"}});
    rows("Visualization/AOI/trans_min",
         {{"-1", "refused"}, {"0", "0"}, {"2.5", "2.5"}, {"999999", "999999"}, {"1000001", "refused"}});
    rows("ImportModule/lastbasepath", {{"/data/a, b", "/data/a, b"}, {"", ""}});
}

void TestSettingRules::values()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    const std::optional<ParameterValue> read = settingRules()[name].value(text);
    QTEST(read ? storedText(*read) : QStringLiteral("refused"), "value");
}

void TestSettingRules::expectations()
{
    const auto rules = settingRules();
    const auto expected = [&](const char *name) { return rules[key(name)].expected(); };
    QCOMPARE(expected("Calculation/Fixation/Standard/MaximumRadius"), QStringLiteral("a whole number from 10 to 1000"));
    QCOMPARE(expected("Calculation/Cluster/Meanshift/Gradient"),
             QStringLiteral("a number with a decimal point from 0.01 to 1"));
    QCOMPARE(expected("CorrectionModule/width"), QStringLiteral("a whole number"));
    QCOMPARE(expected("Visualization/Fixation/FillColor"), QStringLiteral("an opaque color such as #ff8000"));
    QCOMPARE(expected("Statistics/General/HGA"), QStringLiteral("true or false"));
}

QTEST_GUILESS_MAIN(TestSettingRules)
#include "TestSettingRules.moc"
