// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FirstStart.h"
#include "settings/ParameterTexts.h"
#include "TestSettings.h"

#include <QTest>

class TestParameterTexts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void deliveredOnesAreThoseOfTheFactory();
    void currentOnesFollowTheStore();
};

void TestParameterTexts::deliveredOnesAreThoseOfTheFactory()
{
    const QMap<QString, QString> delivered = deliveredParameters();
    QCOMPARE(delivered.value(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius")), QStringLiteral("40"));
    QCOMPARE(delivered.value(QStringLiteral("Calculation/Fixation/Gaussian/MergeSequential")), QStringLiteral("true"));
    // Places on this machine, and what the program notes for itself.
    QVERIFY(!delivered.contains(QStringLiteral("AOIModule/LOADAOIDIR")));
    QVERIFY(!delivered.contains(QStringLiteral("Version")));
}

/// A flag that the store has as a number is a flag all the same.
void TestParameterTexts::currentOnesFollowTheStore()
{
    const TemporarySettings settings;
    applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
    const QMap<QString, QString> delivered = deliveredParameters();
    QCOMPARE(currentParameters(delivered), delivered);
    SettingsStore().setValue(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius"), 55);
    SettingsStore().setValue(QStringLiteral("Calculation/Fixation/Gaussian/MergeSequential"), 0);
    SettingsStore().setValue(QStringLiteral("Statistics/AOI/GlanceFrequency"), 2);
    QMap<QString, QString> expected = delivered;
    expected[QStringLiteral("Calculation/Fixation/Standard/MaximumRadius")] = QStringLiteral("55");
    expected[QStringLiteral("Calculation/Fixation/Gaussian/MergeSequential")] = QStringLiteral("false");
    QCOMPARE(currentParameters(delivered), expected);
}

QTEST_GUILESS_MAIN(TestParameterTexts)
#include "TestParameterTexts.moc"
