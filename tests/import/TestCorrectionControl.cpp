// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/CorrectionPage.h"

/// Strokes, ellipses, points, colours and quality.
class TestCorrectionControl : public CorrectionPage {
    Q_OBJECT
private Q_SLOTS:
    void init() { openPage(); }
    void cleanup() { closePage(); }
    void form();
    void nothingDrawnYet();
    void aStrokeMakesAnEllipse();
    void aShortStrokeMakesNone();
    void theLeftButtonDrawsNothing();
    void removing();
    void settingPoints();
    void settingWithoutSelection();
    void rowsOfAnIni();
    void itemsInTheScene();
    void draggingAnEllipse();
    void immediateChanges();
    void colours();
    void quality_data();
    void quality();
};

void TestCorrectionControl::form()
{
    QCOMPARE(child<QCheckBox>("use_correction")->text(), u"Use correction module"_s);
    const auto *size = child<QSpinBox>("spinBox_corr_gp_size");
    QCOMPARE(size->suffix(), u"px"_s);
    QCOMPARE(size->minimum(), 1);
    QCOMPARE(size->maximum(), 50);
    QCOMPARE(size->value(), 5);
    for (const auto &[name, text] : {std::pair("colorgp", "Color GP"),
                                     {"colorel", "Color Ellipse"},
                                     {"colorelcorr", "Color Elipse Correction"},
                                     {"add_elipse", "Add ellipse"},
                                     {"remove_ellipse", "Remove Ellipse"},
                                     {"set_ellipses", "Set points to ellipses"},
                                     {"export_corr_points", "Export Points"},
                                     {"calc_corr_value", "Calculate correction quality"},
                                     {"avg2cor", "Avarage two corrections"}})
        QCOMPARE(child<QPushButton>(name)->text(), QLatin1StringView(text));
    QCOMPARE(child<QPushButton>("colorgp")->styleSheet(), u"background-color:#ff0000"_s);
    QCOMPARE(child<QPushButton>("colorel")->styleSheet(), u"background-color:#00ff00"_s);
    QCOMPARE(child<QPushButton>("colorelcorr")->styleSheet(), u"background-color:#0000ff"_s);
    QVERIFY(!child<QTextBrowser>("textBrowser")->toPlainText().isEmpty());
}

void TestCorrectionControl::nothingDrawnYet()
{
    click("add_elipse");
    QCOMPARE(list().count(), 0);
    QCOMPARE(m_window->told,
             QStringList{u"No ellipse has been drawn yet: draw around points with the right mouse button"_s});
}

void TestCorrectionControl::aStrokeMakesAnEllipse()
{
    drawStroke({500, 400}, 80, 40);
    QCOMPARE(list().count(), 1);
    QCOMPARE(list().item(0)->text(), u"Ellipse 1:time(ms):0-1000"_s);
    QVERIFY(list().item(0)->isSelected());
    const CorrectionEllipse &original = m_control->pairs().constFirst().original;
    QVERIFY(std::abs(original.centerX - 500) < 3 && std::abs(original.centerY - 400) < 3);
    QVERIFY(std::abs(original.width - 160) < 6 && std::abs(original.height - 160) < 6);
    QCOMPARE(m_control->pairs().constFirst().corrected.centerX, original.centerX + 100);
    QCOMPARE(m_control->pairs().constFirst().corrected.centerY, original.centerY + 100);
    click("add_elipse"); // once more
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().item(1)->text(), u"Ellipse 2:time(ms):0-1000"_s);
    QVERIFY(!list().item(0)->isSelected() && list().item(1)->isSelected());
}

void TestCorrectionControl::aShortStrokeMakesNone()
{
    drawStroke({500, 400}, 80, 10);
    QCOMPARE(list().count(), 0);
    QVERIFY(m_scene->lastFit().isEmpty());
    drawStroke({500, 400}, 80, 11);
    QCOMPARE(list().count(), 1);
}

void TestCorrectionControl::theLeftButtonDrawsNothing()
{
    drawStroke({500, 400}, 80, 40, Qt::LeftButton);
    QCOMPARE(list().count(), 0);
    drawStroke({500, 400}, 80, 40); // and takes nothing from the next stroke
    QCOMPARE(list().count(), 1);
}

void TestCorrectionControl::removing()
{
    for (int i = 0; i < 4; ++i)
        drawStroke({300.0 + 100 * i, 400}, 50, 40);
    list().clearSelection();
    click("remove_ellipse");
    QCOMPARE(list().count(), 4);
    list().item(0)->setSelected(true);
    list().item(2)->setSelected(true);
    click("remove_ellipse");
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().item(0)->text(), u"Ellipse 2:time(ms):0-1000"_s);
    QVERIFY(std::abs(m_control->pairs()[0].original.centerX - 400) < 3);
    QVERIFY(std::abs(m_control->pairs()[1].original.centerX - 600) < 3);
    drawStroke({500, 400}, 50, 40);
    QCOMPARE(list().item(2)->text(), u"Ellipse 5:time(ms):0-1000"_s); // the number only grows
}

void TestCorrectionControl::settingPoints()
{
    addRecording(u"a.txt"_s);
    drawStroke({500, 400}, 50, 40);
    m_model->setTimeFrame({1, 1});
    click("set_ellipses");
    QCOMPARE(list().item(0)->text(), u"Ellipse 1:time(ms):1-1"_s);
    QCOMPARE(m_control->pairs()[0].original.points.size(), 2); // one sample, both eyes
    QCOMPARE(m_control->pairs()[0].corrected.points[0].x, 600.0);
    m_model->setTimeFrame({0, 1000});
    click("set_ellipses");
    QCOMPARE(m_control->pairs()[0].original.points.size(), 4);
    QCOMPARE(m_window->told.last(), u"Points in the selected ellipses: 4"_s);
}

void TestCorrectionControl::settingWithoutSelection()
{
    addRecording(u"a.txt"_s);
    drawStroke({500, 400}, 50, 40);
    list().clearSelection();
    m_model->setTimeFrame({5, 6});
    click("set_ellipses");
    QCOMPARE(list().item(0)->text(), u"Ellipse 1:time(ms):0-1000"_s);
    QVERIFY(m_control->pairs()[0].original.points.isEmpty());
}

void TestCorrectionControl::rowsOfAnIni()
{
    m_control->sltAddEllipsesINI(
        {ellipseHeader(), u"first;1;2;3;4;5;6;7;8;9;10"_s, u"too;short"_s, u"second;11;12;13;14;15;16;17;18;19;20"_s});
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().item(0)->text(), u"first"_s);
    QVERIFY(list().item(1)->isSelected());
    QCOMPARE(m_control->pairs()[1].corrected.rotation, 20.0);
    m_control->sltAddEllipsesINI({});
    QCOMPARE(list().count(), 2);
    drawStroke({500, 400}, 50, 40);
    QCOMPARE(list().item(2)->text(), u"Ellipse 3:time(ms):0-1000"_s);
}

void TestCorrectionControl::itemsInTheScene()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    QVERIFY(m_scene->items().isEmpty()); // the module is not used
    child<QCheckBox>("use_correction")->click();
    QCOMPARE(items<QGraphicsEllipseItem>().size(), 2);
    QCOMPARE(items<interactiv_eli>().size(), 1);
    QCOMPARE(items<pixelitem>().size(), 4); // two places, and where they belong; both eyes are there at one
    QCOMPARE(items<QGraphicsEllipseItem>()[0]->pen().color(), QColor(0, 255, 0));
    QCOMPARE(items<interactiv_eli>()[0]->pen().color(), QColor(0, 0, 255));
    QCOMPARE(items<interactiv_eli>()[0]->pos().x(), m_control->pairs()[0].corrected.centerX);
    QCOMPARE(items<pixelitem>()[0]->boundingRect().size(), QSizeF(5, 5));
    QVERIFY(items<pixelitem>()[0]->boundingRect().contains(QPointF(500.5, 400.5)));
    list().clearSelection();
    QCOMPARE(items<pixelitem>().size(), 0);
    QCOMPARE(items<QGraphicsEllipseItem>().size(), 2);
}

void TestCorrectionControl::draggingAnEllipse()
{
    addRecording(u"a.txt"_s);
    addSetEllipse();
    child<QCheckBox>("use_correction")->click();
    const CorrectionEllipse before = m_control->pairs()[0].corrected;
    const QPointF grip(before.centerX + 10, before.centerY);
    mouse(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, grip + QPointF(-50, 30), Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, grip + QPointF(-50, 30), Qt::LeftButton, Qt::NoButton);
    QTRY_VERIFY(m_control->pairs()[0].corrected.centerX != before.centerX);
    const CorrectionEllipse &after = m_control->pairs()[0].corrected;
    QVERIFY(std::abs(after.centerX - before.centerX + 50) < 1.5);
    QVERIFY(std::abs(after.centerY - before.centerY - 30) < 1.5);
    QVERIFY(std::abs(after.points[0].x - before.points[0].x + 50) < 1.5);
    QCOMPARE(items<interactiv_eli>()[0]->pos().x(), after.centerX); // drawn anew
    drawStroke({after.centerX, after.centerY}, 20, 30); // the right button still draws, over an ellipse, too
    QCOMPARE(list().count(), 2);
}

void TestCorrectionControl::immediateChanges()
{
    const QSignalSpy redraws(m_control.get(), &CorrectionControl::sigGraphicsParametersChanged);
    child<QCheckBox>("use_correction")->click();
    QCOMPARE(redraws.size(), 1);
    child<QSpinBox>("spinBox_corr_gp_size")->setValue(9);
    QCOMPARE(redraws.size(), 2);
    QCOMPARE(m_control->overlay().pointSizePx, 9);
    drawStroke({500, 400}, 50, 40);
    QCOMPARE(redraws.size(), 3);
    list().clearSelection();
    QCOMPARE(redraws.size(), 4);
}

void TestCorrectionControl::colours()
{
    click("colorel"); // the answer is no colour
    QCOMPARE(m_control->overlay().original, QColor(0, 255, 0));
    m_answers->chosen = QColor(1, 2, 3);
    const QSignalSpy redraws(m_control.get(), &CorrectionControl::sigGraphicsParametersChanged);
    click("colorgp");
    click("colorel");
    click("colorelcorr");
    QCOMPARE(m_answers->asked, (QStringList{u"#00ff00"_s, u"#ff0000"_s, u"#00ff00"_s, u"#0000ff"_s}));
    QCOMPARE(redraws.size(), 3);
    QCOMPARE(m_control->overlay().points, QColor(1, 2, 3));
    QCOMPARE(m_control->overlay().corrected, QColor(1, 2, 3));
    QCOMPARE(child<QPushButton>("colorel")->styleSheet(), u"background-color:#010203"_s);
}

void TestCorrectionControl::quality_data()
{
    QTest::addColumn<int>("recordings");
    QTest::addColumn<QString>("box");
    const QString refused = u"Please select only two examinations|Please select only two examinations"_s;
    QTest::newRow("one") << 1 << refused;
    QTest::newRow("three") << 3 << refused;
    QTest::newRow("two")
        << 2
        << u"Quality meassure|Quality value (left):2.5\n Amount of equal timestamps (left):4\n Quality "
           "value (right):0\n Amount of equal timestamps (right):4"_s;
}

void TestCorrectionControl::quality()
{
    QFETCH(int, recordings);
    QFETCH(QString, box);
    for (int i = 0; i < recordings; ++i)
        addRecording(u"%1.txt"_s.arg(i));
    for (GazePoint &point : m_model->examinations().last().leftEye.gazePoints)
        point.y += point.time > 2 ? 0 : 5; // of four samples two
    click("calc_corr_value");
    QCOMPARE(m_messages->texts(), QStringList{box});
}

QTEST_MAIN(TestCorrectionControl)
#include "TestCorrectionControl.moc"
