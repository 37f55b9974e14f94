// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/StoredKeys.h"
#include "statistics/panel/StatisticsWidget.h"
#include "TestSettings.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolBox>

class TestStatisticsWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pages();
    void everythingIsChosenAtTheStart();
    void generalChoicesAreStored();
    void areaChoicesAreStored();

private:
    const TemporarySettings m_settings;
    StatisticsWidget m_widget;
};

void TestStatisticsWidget::pages()
{
    const auto *box = m_widget.findChild<QToolBox *>();
    QCOMPARE(box->count(), 3);
    QCOMPARE(box->itemText(0), QStringLiteral("General Gaze Statistics"));
    QCOMPARE(box->itemText(1), QStringLiteral("AOI Statistics"));
    QCOMPARE(box->itemText(2), QStringLiteral("close..."));
}

void TestStatisticsWidget::everythingIsChosenAtTheStart()
{
    const auto boxes = m_widget.findChildren<QCheckBox *>();
    QCOMPARE(boxes.size(), 15);
    for (const QCheckBox *box : boxes)
        QVERIFY2(box->isChecked(), qPrintable(box->text()));
}

void TestStatisticsWidget::generalChoicesAreStored()
{
    const QSignalSpy wanted(&m_widget, &StatisticsWidget::sigCalculateGeneralStatistics);
    const QSignalSpy enabled(&m_widget, &StatisticsWidget::sigEnableGeneralStatisticExport);
    m_widget.findChild<QCheckBox *>(QStringLiteral("verticalActivityCheckBox"))->setChecked(false);
    QVERIFY(!SettingsStore().contains(keys::horizontalActivity.key)); // not before a calculation starts
    m_widget.findChild<QPushButton *>(QStringLiteral("generalButton"))->click();
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(enabled.count(), 1);
    QCOMPARE(SettingsStore().value(keys::horizontalActivity.key).toString(), QStringLiteral("2"));
    QCOMPARE(SettingsStore().value(keys::verticalActivity.key).toString(), QStringLiteral("0"));
    QVERIFY(readStored(keys::horizontalActivity) && readStored(keys::averageSpeed));
    QVERIFY(!readStored(keys::verticalActivity));
    QVERIFY(!SettingsStore().contains(keys::glanceFrequency.key));
}

void TestStatisticsWidget::areaChoicesAreStored()
{
    const QSignalSpy wanted(&m_widget, &StatisticsWidget::sigCalcAOIstats);
    const QSignalSpy enabled(&m_widget, &StatisticsWidget::sigEnableAOIstatExport);
    m_widget.findChild<QCheckBox *>(QStringLiteral("glanceProportionCheckBox"))->setChecked(false);
    m_widget.findChild<QPushButton *>(QStringLiteral("aoiButton"))->click();
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(enabled.count(), 1);
    QVERIFY(!readStored(keys::glanceProportion));
    for (const auto &key : {keys::glanceFrequency, keys::glanceLocationProbability, keys::maximumGlanceDuration,
                            keys::meanGlanceDuration, keys::minimumGlanceDuration, keys::numberOfFixations,
                            keys::numberOfGlances, keys::timeOfFirstGlance, keys::totalGlanceTime})
        QVERIFY2(readStored(key), key.key.data());
}

QTEST_MAIN(TestStatisticsWidget)
#include "TestStatisticsWidget.moc"
