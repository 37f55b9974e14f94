// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/CommandStack.h"
#include "TestSettings.h"
#include "visualization/panel/VisualizationAOIWidget.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

/// The panel of the areas' looks: every control writes its own field and key.
class TestVisualizationAOIWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void controlsAndKeys_data();
    void controlsAndKeys();
    void unstoredControls();
    void colours_data();
    void colours();
    void colourThatIsNotChosen();
    void undoRestoresControlAndStore();
    void optionsOfTheMode_data();
    void optionsOfTheMode();
    void storedValuesAreShown();
    void buttonAsksForThePicture();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_panel->findChild<Widget *>(QLatin1StringView(name));
        Q_ASSERT(widget);
        return widget;
    }
    void open();
    static QString stored(const char *key)
    {
        return SettingsStore().value(QLatin1StringView("Visualization/AOI/") + QLatin1StringView(key)).toString();
    }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<VisualizationAOIWidget> m_panel;
};

void TestVisualizationAOIWidget::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    SettingsStore store;
    const auto write = [&](const auto &row) { store.setValue(row.key, storedForm(row, row.initial)); };
    std::apply([&](const auto &...row) { (write(row), ...); }, rows::aoiVisualization);
    open();
}

void TestVisualizationAOIWidget::open()
{
    m_panel = std::make_unique<VisualizationAOIWidget>();
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestVisualizationAOIWidget::cleanup()
{
    CommandStack::instance().clear(); // its commands refer to the panel
    m_panel.reset();
    m_settings.reset();
}

void TestVisualizationAOIWidget::controlsAndKeys_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("text"); // of the command; empty where there is none
    const auto add = [](const char *control, const QVariant &value, const char *key, const char *text = "") {
        QTest::newRow(control) << QByteArray(control) << value << QByteArray(key) << QString::fromLatin1(text);
    };
    add("comboBox_vismode", 3, "DrawMode", "AOI visualization mode changed: 3");
    add("checkBox_display_names", false, "DisplayNames", "AOI visualization display names changed: 0");
    add("fillOpacitySpinBox_aoi", 73, "FillOpacity", "AOI visualization fill opacity changed: 73");
    add("borderWidthSpinBox_aoi", 9, "BorderWidth", "AOI visualization border width changed: 9");
    add("bordertype_comboBox_aoi", 2, "BorderType", "AOI visualization border color changed: 2");
    add("checkBox_as_line", true, "show_lines");
    add("checkBox_show_all", true, "show_all");
    add("outlines", true, "outlines");
    add("one_color", true, "one_color");
    add("line_size", 17, "line_size");
    add("transminSpinBox", 2.5, "trans_min");
    add("no_text", true, "no_text");
    add("mix_color", true, "mix_color");
}

void TestVisualizationAOIWidget::controlsAndKeys()
{
    QFETCH(QByteArray, control);
    QFETCH(QVariant, value);
    QFETCH(QByteArray, key);
    QFETCH(QString, text);
    auto *widget = find<QWidget>(control.constData());
    const QString before = stored(key.constData());
    QSignalSpy drawn(m_panel.get(), &VisualizationAOIWidget::sigGraphicsParametersChanged);
    if (auto *combo = qobject_cast<QComboBox *>(widget))
        combo->setCurrentIndex(value.toInt());
    else
        widget->setProperty(qobject_cast<QCheckBox *>(widget) ? "checked" : "value", value);
    QVERIFY(stored(key.constData()) != before);
    QCOMPARE(CommandStack::instance().text(0), text);
    QCOMPARE(CommandStack::instance().count(), text.isEmpty() ? 0 : 1);
    QCOMPARE(drawn.count(), 0);
    const AoiVisualizationParameters record = m_panel->parameters();
    m_panel->sltUpdateSettings();
    QCOMPARE(m_panel->parameters(), record);
    const QVariant shown = widget->property(qobject_cast<QComboBox *>(widget)   ? "currentIndex"
                                            : qobject_cast<QCheckBox *>(widget) ? "checked"
                                                                                : "value");
    QCOMPARE(shown, value);
}

void TestVisualizationAOIWidget::unstoredControls()
{
    QCOMPARE(m_panel->parameters().timeWindowMs, 1000);
    find<QComboBox>("comboBox_transtype")->setCurrentIndex(1);
    find<QSpinBox>("spinBox_timewindow")->setValue(777);
    find<QCheckBox>("checkBox_global")->setChecked(true);
    QCOMPARE(m_panel->parameters().transitionType, 1);
    QCOMPARE(m_panel->parameters().timeWindowMs, 777);
    QVERIFY(m_panel->parameters().normTransGlobal);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestVisualizationAOIWidget::colours_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QColor>("start");
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("areas") << QByteArray("colorButton_dominant") << QStringLiteral("AOI Color") << QColor(255, 0, 0)
                           << QByteArray("Color");
    QTest::newRow("left") << QByteArray("color_left") << QStringLiteral("Color Left") << QColor(255, 0, 0)
                          << QByteArray("ColorL");
    QTest::newRow("right") << QByteArray("color_right") << QStringLiteral("Color Right") << QColor(0, 255, 0)
                           << QByteArray("ColorR");
    QTest::newRow("one colour") << QByteArray("color_aoi") << QStringLiteral("Color AOI") << QColor(0, 0, 255)
                                << QByteArray("ColorAOI");
}

void TestVisualizationAOIWidget::colours()
{
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, key);
    const QString before = stored(key.constData());
    QString title;
    QColor start;
    m_panel->setColorChooser([&](const QColor &from, const QString &asked) {
        start = from;
        title = asked;
        return QColor(1, 2, 3);
    });
    find<QToolButton>(button.constData())->click();
    QTEST(title, "title");
    QTEST(start, "start");
    QCOMPARE(find<QToolButton>(button.constData())->styleSheet(), QStringLiteral("background-color:#010203"));
    QVERIFY(stored(key.constData()) != before);
    const AoiVisualizationParameters record = m_panel->parameters();
    m_panel->sltUpdateSettings();
    QCOMPARE(m_panel->parameters(), record);
}

void TestVisualizationAOIWidget::colourThatIsNotChosen()
{
    m_panel->setColorChooser([](const QColor &, const QString &) { return QColor(); });
    const AoiVisualizationParameters record = m_panel->parameters();
    for (const char *button : {"colorButton_dominant", "color_left", "color_right", "color_aoi"})
        find<QToolButton>(button)->click();
    QCOMPARE(m_panel->parameters(), record);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestVisualizationAOIWidget::undoRestoresControlAndStore()
{
    auto *mode = find<QComboBox>("comboBox_vismode");
    mode->setCurrentIndex(1);
    mode->setCurrentIndex(3);
    CommandStack::instance().undo();
    QCOMPARE(mode->currentIndex(), 1);
    QCOMPARE(stored("DrawMode"), QStringLiteral("1"));
    QCOMPARE(m_panel->parameters().drawMode, 1);
    QVERIFY(find<QWidget>("borderWidthSpinBox_aoi")->isVisible());
    QCOMPARE(CommandStack::instance().count(), 2);
}

void TestVisualizationAOIWidget::optionsOfTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("shown");
    const QStringList outline{QStringLiteral("fillOpacitySpinBox_aoi"), QStringLiteral("borderWidthSpinBox_aoi"),
                              QStringLiteral("bordertype_comboBox_aoi"), QStringLiteral("checkBox_display_names")};
    QTest::newRow("none") << 0 << QStringList();
    QTest::newRow("outlined") << 1 << outline;
    QTest::newRow("transitions") << 3
                                 << QStringList{QStringLiteral("comboBox_transtype"),
                                                QStringLiteral("label_global"),
                                                QStringLiteral("transminSpinBox"),
                                                QStringLiteral("line_size"),
                                                QStringLiteral("checkBox_as_line"),
                                                QStringLiteral("checkBox_global"),
                                                QStringLiteral("checkBox_show_all"),
                                                QStringLiteral("outlines"),
                                                QStringLiteral("one_color"),
                                                QStringLiteral("no_text"),
                                                QStringLiteral("mix_color"),
                                                QStringLiteral("color_left"),
                                                QStringLiteral("color_right"),
                                                QStringLiteral("color_aoi"),
                                                QStringLiteral("fillOpacitySpinBox_aoi"),
                                                QStringLiteral("checkBox_display_names")};
    const QStringList chart{QStringLiteral("spinBox_timewindow"), QStringLiteral("checkBox_display_names"),
                            QStringLiteral("outlines")};
    const QStringList ofTransitions{QStringLiteral("comboBox_transtype")};
    QTest::newRow("diagram") << 2 << outline + ofTransitions;
    QTest::newRow("transitions of areas over time") << 4 << chart + ofTransitions;
    QTest::newRow("fixations over time") << 5 << chart;
    QTest::newRow("transitions of pairs over time")
        << 6 << chart + ofTransitions + QStringList{QStringLiteral("mix_color")};
    QTest::newRow("shares over time") << 7 << outline + chart;
    QTest::newRow("not there") << 99 << QStringList();
}

void TestVisualizationAOIWidget::optionsOfTheMode()
{
    QFETCH(int, mode);
    QFETCH(QStringList, shown);
    SettingsStore().setValue(QStringLiteral("Visualization/AOI/DrawMode"), mode);
    m_panel->sltUpdateSettings();
    for (const char *name : {"comboBox_transtype",
                             "spinBox_timewindow",
                             "transminSpinBox",
                             "label_global",
                             "line_size",
                             "fillOpacitySpinBox_aoi",
                             "borderWidthSpinBox_aoi",
                             "bordertype_comboBox_aoi",
                             "checkBox_display_names",
                             "checkBox_as_line",
                             "checkBox_global",
                             "checkBox_show_all",
                             "outlines",
                             "one_color",
                             "no_text",
                             "mix_color",
                             "colorButton_dominant",
                             "color_left",
                             "color_right",
                             "color_aoi"})
        QVERIFY2(find<QWidget>(name)->isVisible() == shown.contains(QLatin1StringView(name)), name);
    const bool isChart = shown.contains(QStringLiteral("spinBox_timewindow"));
    QCOMPARE(find<QCheckBox>("outlines")->text(), isChart ? QStringLiteral("Lines only") : QStringLiteral("outlines"));
    QVERIFY(find<QWidget>("comboBox_vismode")->isVisible() && find<QWidget>("stat_calc")->isVisible());
}

void TestVisualizationAOIWidget::storedValuesAreShown()
{
    QCOMPARE(find<QSpinBox>("fillOpacitySpinBox_aoi")->value(), 50);
    SettingsStore().setValue(QStringLiteral("Visualization/AOI/FillOpacity"), 22);
    open();
    QCOMPARE(find<QSpinBox>("fillOpacitySpinBox_aoi")->value(), 22);
}

void TestVisualizationAOIWidget::buttonAsksForThePicture()
{
    QSignalSpy drawn(m_panel.get(), &VisualizationAOIWidget::sigGraphicsParametersChanged);
    QTest::mouseClick(find<QPushButton>("stat_calc"), Qt::LeftButton);
    QCOMPARE(drawn.count(), 1);
}

QTEST_MAIN(TestVisualizationAOIWidget)
#include "TestVisualizationAOIWidget.moc"
