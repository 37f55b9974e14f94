// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/panel/FixationCommands.h"
#include "detection/panel/FixationControl.h"
#include "TestMessages.h"
#include "TestPanel.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {

const QString typeKey = QStringLiteral("Calculation/Fixation/CalculationType");

template <class Widget>
Widget *childOf(const QWidget &panel, const char *name)
{
    return panel.findChild<Widget *>(QString::fromLatin1(name));
}

/// Names of the visible boxes, separated by blanks.
QString shownBoxes(const FixationControl &panel)
{
    QStringList shown;
    for (const char *name : {"standardBox", "gaussianBox", "velocityBox"}) {
        if (!childOf<QGroupBox>(panel, name)->isHidden())
            shown << QLatin1StringView(name);
    }
    return shown.join(u' ');
}

/// How many of the four widgets for degrees are there to be seen.
int shownGeometry(const FixationControl &panel)
{
    int shown = 0;
    for (const char *name : {"screenDistance", "screenDistanceLabel", "imgSize", "imgSizeLabel"})
        shown += childOf<QWidget>(panel, name)->isHidden() ? 0 : 1;
    return shown;
}

} // namespace

/// The pages of the three detectors in the panel.
class TestFixationPages : public PanelTest<FixationControl> {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { closePanel(); }
    void doubleFormAtConstruction_data();
    void doubleFormAtConstruction();
    void detectorsAreOffered();
    void boxOfTheTypeIsShown_data();
    void boxOfTheTypeIsShown();
    void boxFollowsUndoRedoAndRefresh();
    void geometryIsShownForDegrees();
    void geometryFollowsRefresh();
    void changeOfDoubleIsACommand_data();
    void changeOfDoubleIsACommand();
    void mergeIsACommand();
    void unitIsACommand();
    void citation();
};

void TestFixationPages::init()
{
    openSettings();
    SettingsStore().setValue(typeKey, QStringLiteral("Standard"));
    openPanel();
    m_panel->sltUpdateSettings();
    showPanel();
}

void TestFixationPages::doubleFormAtConstruction_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("value");
    QTest::newRow("threshold") << QStringLiteral("velocityThreshold") << 5000.0 << 1.0 << 10.0;
    QTest::newRow("screen distance") << QStringLiteral("screenDistance") << 99.99 << 0.1 << 0.6;
    QTest::newRow("image size") << QStringLiteral("imgSize") << 99.99 << 0.1 << 0.2;
}

void TestFixationPages::doubleFormAtConstruction()
{
    QFETCH(QString, name);
    const FixationControl panel;
    const auto *control = panel.findChild<QDoubleSpinBox *>(name);
    QVERIFY(control);
    QCOMPARE(control->minimum(), 0.0);
    QTEST(control->maximum(), "maximum");
    QTEST(control->singleStep(), "step");
    QTEST(control->value(), "value");
    QCOMPARE(control->decimals(), 2);
    QCOMPARE(control->suffix(), QString());
}

void TestFixationPages::detectorsAreOffered()
{
    const FixationControl panel;
    const auto itemsOf = [&panel](const char *name) {
        QStringList items;
        const auto *box = childOf<QComboBox>(panel, name);
        for (int i = 0; i < box->count(); ++i)
            items << box->itemText(i);
        return items;
    };
    QCOMPARE(itemsOf("Fix_comboBox"), QStringList({QStringLiteral("Standard"), QStringLiteral("Gaussian Mixture Model"),
                                                   QStringLiteral("Velocity based")}));
    QCOMPARE(itemsOf("comboVelocityUnit"), QStringList({QStringLiteral("[Pixel/ms]"), QString::fromUtf8("[\xC2\xB0/s]"),
                                                        QStringLiteral("Percentile")}));
    QVERIFY(childOf<QCheckBox>(panel, "mergeGauss")->isChecked());
    const auto labelOf = [&panel](const char *name) { return childOf<QLabel>(panel, name)->text().remove(u'&'); };
    QCOMPARE(labelOf("screenDistanceLabel"), QStringLiteral("Screen distance [m]:"));
    QCOMPARE(labelOf("imgSizeLabel"), QStringLiteral("Image size [m]:"));
    QCOMPARE(childOf<QToolButton>(panel, "toolButton")->text(), QStringLiteral("Calculate fixations"));
    QCOMPARE(shownBoxes(panel), QStringLiteral("standardBox"));
    QCOMPARE(shownGeometry(panel), 0);
}

void TestFixationPages::boxOfTheTypeIsShown_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("box");
    QTest::newRow("standard") << 0 << QStringLiteral("standardBox");
    QTest::newRow("mixture") << 1 << QStringLiteral("gaussianBox");
    QTest::newRow("velocity") << 2 << QStringLiteral("velocityBox");
}

/// Chosen by keys, as a user does.
void TestFixationPages::boxOfTheTypeIsShown()
{
    QFETCH(int, type);
    auto *combo = child<QComboBox>("Fix_comboBox");
    combo->setFocus();
    for (int i = 0; i < type; ++i)
        QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(combo->currentIndex(), type);
    QTEST(shownBoxes(*m_panel), "box");
    QCOMPARE(CommandStack::instance().count(), type);
    QCOMPARE(SettingsStore().value(typeKey).toString(), QString(calculationTypeNames[type]));
}

void TestFixationPages::boxFollowsUndoRedoAndRefresh()
{
    child<QComboBox>("Fix_comboBox")->setCurrentIndex(2);
    QCOMPARE(shownBoxes(*m_panel), QStringLiteral("velocityBox"));
    CommandStack::instance().undo();
    QCOMPARE(shownBoxes(*m_panel), QStringLiteral("standardBox"));
    CommandStack::instance().redo();
    QCOMPARE(shownBoxes(*m_panel), QStringLiteral("velocityBox"));
    SettingsStore().setValue(typeKey, QStringLiteral("Gaussian Mixture Model"));
    m_panel->sltUpdateSettings();
    QCOMPARE(shownBoxes(*m_panel), QStringLiteral("gaussianBox"));
    SettingsStore().setValue(typeKey, QStringLiteral("Velocity based")); // not recognised: standard will run
    m_panel->sltUpdateSettings();
    QCOMPARE(shownBoxes(*m_panel), QStringLiteral("standardBox"));
    QCOMPARE(CommandStack::instance().count(), 1);
}

void TestFixationPages::geometryIsShownForDegrees()
{
    auto *combo = child<QComboBox>("comboVelocityUnit");
    QCOMPARE(combo->currentIndex(), 2); // as every loaded unit
    combo->setCurrentIndex(1);
    QCOMPARE(shownGeometry(*m_panel), 4);
    combo->setCurrentIndex(0);
    QCOMPARE(shownGeometry(*m_panel), 0);
    CommandStack::instance().undo();
    QCOMPARE(shownGeometry(*m_panel), 4);
    CommandStack::instance().undo();
    QCOMPARE(shownGeometry(*m_panel), 0);
    CommandStack::instance().redo();
    QCOMPARE(shownGeometry(*m_panel), 4);
    combo->setCurrentIndex(2);
    QCOMPARE(shownGeometry(*m_panel), 0);
}

void TestFixationPages::geometryFollowsRefresh()
{
    SettingsStore().setValue(rows::velocityUnit.key, QString::fromUtf8("[\xC2\xB0/s]"));
    m_panel->sltUpdateSettings();
    QCOMPARE(child<QComboBox>("comboVelocityUnit")->currentIndex(), 1);
    QCOMPARE(shownGeometry(*m_panel), 4);
    SettingsStore().setValue(rows::velocityUnit.key, 0);
    m_panel->sltUpdateSettings();
    QCOMPARE(child<QComboBox>("comboVelocityUnit")->currentIndex(), 2);
    QCOMPARE(shownGeometry(*m_panel), 0);
}

void TestFixationPages::changeOfDoubleIsACommand_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("command");
    QTest::newRow("threshold") << QStringLiteral("velocityThreshold")
                               << QStringLiteral("Calculation/Fixation/Velocity/VelocityThreshold")
                               << QStringLiteral("Fixation velocity calculation threshold changed: 1.25")
                               << QStringLiteral("CommandChangeFixationControlVelocityThreshold");
    QTest::newRow("screen distance") << QStringLiteral("screenDistance")
                                     << QStringLiteral("Calculation/Fixation/Velocity/ScreenDistance")
                                     << QStringLiteral("Fixation velocity calculation observer distance changed: 1.25")
                                     << QStringLiteral("CommandChangeFixationControlVelocityObserverDistance");
    QTest::newRow("image size") << QStringLiteral("imgSize")
                                << QStringLiteral("Calculation/Fixation/Velocity/ImageSize")
                                << QStringLiteral("Fixation velocity calculation image size changed: 1.25")
                                << QStringLiteral("CommandChangeFixationControlVelocityImageSize");
}

void TestFixationPages::changeOfDoubleIsACommand()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    QFETCH(QString, command);
    m_panel->setLog(&log().log());
    auto *control = m_panel->findChild<QDoubleSpinBox *>(name);
    QCOMPARE(control->value(), 0.0); // the key is missing
    control->setValue(1.25);
    QTEST(CommandStack::instance().text(0), "text");
    QCOMPARE(SettingsStore().value(key).toDouble(), 1.25);
    CommandStack::instance().undo();
    QCOMPARE(control->value(), 0.0);
    QCOMPARE(SettingsStore().value(key).toDouble(), 0.0);
    QCOMPARE(CommandStack::instance().count(), 1);
    QCOMPARE(log().lines(),
             QStringList({command + QStringLiteral("::redo = 1.25"), command + QStringLiteral("::undo = 0")}));
}

void TestFixationPages::mergeIsACommand()
{
    child<QComboBox>("Fix_comboBox")->setCurrentIndex(1);
    auto *merge = child<QCheckBox>("mergeGauss");
    QVERIFY(!merge->isChecked()); // the key is missing
    QTest::mouseClick(merge, Qt::LeftButton, {}, QPoint(8, merge->height() / 2));
    QVERIFY(merge->isChecked());
    QCOMPARE(CommandStack::instance().text(1),
             QStringLiteral("Fixation gaussian calculation merge sequential fixations changed: 1"));
    QCOMPARE(SettingsStore().value(rows::gaussianMergeSequential.key).toBool(), true);
    CommandStack::instance().undo();
    QVERIFY(!merge->isChecked());
    QCOMPARE(SettingsStore().value(rows::gaussianMergeSequential.key).toBool(), false);
    QCOMPARE(CommandStack::instance().count(), 2);
}

void TestFixationPages::unitIsACommand()
{
    child<QComboBox>("comboVelocityUnit")->setCurrentIndex(1);
    QCOMPARE(CommandStack::instance().text(0),
             QStringLiteral("Fixation velocity calculation threshold unit changed: 1"));
    QCOMPARE(SettingsStore().value(rows::velocityUnit.key).toInt(), 1);
    CommandStack::instance().undo();
    QCOMPARE(SettingsStore().value(rows::velocityUnit.key).toInt(), 2);
}

void TestFixationPages::citation()
{
    child<QComboBox>("Fix_comboBox")->setCurrentIndex(1);
    const RecordedMessages messages;
    QTest::mouseClick(child<QPushButton>("citeButton"), Qt::LeftButton);
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts()[0].startsWith(QStringLiteral("How to cite the Gaussian Mixture Model|")));
    QVERIFY(messages.texts()[0].contains(QStringLiteral("Dempster, A. P., Laird, N. M., Rubin, D. B. (1977).")));
}

QTEST_MAIN(TestFixationPages)
#include "TestFixationPages.moc"
