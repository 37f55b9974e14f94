// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/SettingsCheck.h"
#include "settings/FirstStart.h"
#include "settings/Registry.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// What a settings file may hold for the window and the batch program alike.
class TestSettingsCheck : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_settings.reset(); }
    void problems_data();
    void problems();
    void whatIsPassedOver();
    void nearest_data();
    void nearest();
    void whatIsSavedCanBeTaken_data();
    void whatIsSavedCanBeTaken();

private:
    std::unique_ptr<TemporarySettings> m_settings;
};

void TestSettingsCheck::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
}

void TestSettingsCheck::problems_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("line"); // 0 where there is none
    QTest::addColumn<QString>("text");
    QTest::newRow("no problem") << QByteArray("Visualization/EyeMode=3\n") << 0 << QString();
    QTest::newRow("no number") << QByteArray("Visualization/EyeMode=3\nVisualization/Gazepoint/Size=abc\n") << 2
                               << QStringLiteral("Visualization/Gazepoint/Size=abc: not a whole number from 1 to 999");
    QTest::newRow("decimal comma") << QByteArray("Calculation/Cluster/Meanshift/Gradient=0,5") << 1
                                   << QStringLiteral("Calculation/Cluster/Meanshift/Gradient=0,5: not a number with a "
                                                     "decimal point from 0.01 to 1");
    QTest::newRow("out of range") << QByteArray("\nVisualization/EyeMode=5\n") << 2
                                  << QStringLiteral("Visualization/EyeMode=5: not a whole number from 0 to 4");
    QTest::newRow("two values") << QByteArray("Visualization/EyeMode=1=2\n") << 1
                                << QStringLiteral("Visualization/EyeMode: not a key, one \"=\" and a value");
    QTest::newRow("an unknown key is none") << QByteArray("Visualization/Foo=3\n") << 0 << QString();
    QTest::newRow("a folder with the sign is none") << QByteArray("ImportModule/lastbasepath=/a=b\n") << 0 << QString();
}

void TestSettingsCheck::problems()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, line);
    QFETCH(QString, text);
    const SettingsCheck check = checkSettings(lines);
    QCOMPARE(check.problem ? check.problem->line : 0, line);
    QCOMPARE(check.problem ? check.problem->text : QString(), text);
}

void TestSettingsCheck::whatIsPassedOver()
{
    const RecordedMessages messages;
    const SettingsCheck check =
        checkSettings("Visualization/EyeMode=3\nVisualization/Foo=3\nno sign\nImportModule/lastbasepath=/a=b\n");
    QCOMPARE(check.lines.size(), 1);
    QCOMPARE(check.lines.first().value, ParameterValue(3));
    QVERIFY(messages.texts().isEmpty());
    tellPassedOver(QStringLiteral("a.ini"), check);
    QCOMPARE(messages.texts(),
             (QStringList{QStringLiteral("Settings|a.ini: lines left out that are not a key, one \"=\" and a value: 1; "
                                         "the first is line 3."),
                          QStringLiteral("Settings|a.ini: keys that this version does not have are passed over: "
                                         "Visualization/Foo")}));
}

void TestSettingsCheck::nearest_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("nearest");
    const auto row = [](const char *key, const char *text, const char *nearest) {
        QTest::addRow("%s=%s", key, text)
            << QString::fromLatin1(key) << QString::fromLatin1(text) << QString::fromLatin1(nearest);
    };
    row("Visualization/EyeMode", "3", "3");
    row("Visualization/EyeMode", "17", "4");
    row("Visualization/EyeMode", "abc", "0");
    row("Calculation/Fixation/Standard/MaximumRadius", "abc", "10");
    row("Calculation/Cluster/Meanshift/Gradient", "1e-1", "1e-1");
    row("Calculation/Cluster/Meanshift/Gradient", "nan", "0.01");
    row("Calculation/Cluster/Meanshift/Gradient", "2", "1");
    row("Statistics/General/HGA", "2", "2"); // a ticked box
    row("Statistics/General/HGA", "", "false");
    row("Visualization/Fixation/FillColor", "red", "red");
    row("Visualization/Fixation/FillColor", "none", "#000000");
    row("Visualization/Fixation/ACM_start_c1", "none", "");
    row("Calculation/Fixation/CalculationType", "Standart", "");
    row("Calculation/Fixation/Velocity/Unit", "7", "2");
    row("ImportModule/lastbasepath", "/a=b", "/a=b");
}

void TestSettingsCheck::nearest()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QTEST(settingRules()[key].nearest(text), "nearest");
}

void TestSettingsCheck::whatIsSavedCanBeTaken_data()
{
    QTest::addColumn<QString>("stored"); // under each key
    for (const char *text : {"", "abc", "-1", "2", "30,5", "1e300", "nan", "@Invalid()", "a=b", "99999999999999999999"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestSettingsCheck::whatIsSavedCanBeTaken()
{
    QFETCH(QString, stored);
    const auto rules = settingRules();
    for (const QString &key : SettingsStore().allKeys())
        SettingsStore().setValue(key, stored);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved.ini"));
    QVERIFY(Registry(Log(folder.filePath(QStringLiteral("log"))))
                .saveSettings(
                    path, [&](const QString &key, const QString &value) { return rules.value(key).nearest(value); }));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const SettingsCheck check = checkSettings(file.readAll());
    QVERIFY2(!check.problem, check.problem ? qPrintable(check.problem->text) : "");
    QVERIFY(check.unknown.isEmpty());
    QVERIFY(check.lines.size() > 150);
}

QTEST_GUILESS_MAIN(TestSettingsCheck)
#include "TestSettingsCheck.moc"
