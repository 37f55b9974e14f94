// SPDX-License-Identifier: GPL-3.0-or-later
#include "VisualizationPanel.h"

#include <QGraphicsPixmapItem>
#include <QGraphicsView>
#include <QLabel>
#include <QToolButton>

/// The adjustable colour map in the panel: it is tried out in a preview before it is applied.
class TestVisualizationColorMap : public VisualizationPanelTest {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closePanel(); }
    void previewFillsItsView();
    void previewFollowsTheControls();
    void previewFollowsTheKeysOfASlider();
    void nothingIsStoredBeforeItIsApplied();
    void applyIsOneCommand();
    void undoAndRedoShowTheMap();
    void theScaleShowsWhatIsApplied();
    void undoReturnsWhatSlidersCannotShow();
    void aColorThatIsNotChosenStays();
    void useItIsACommand();
    void updateSettingsShowsTheMap();

private:
    QImage preview() const
    {
        const QList<QGraphicsItem *> items = child<QGraphicsView>("graphicsView_ADM")->scene()->items();
        const auto *item = items.size() == 1 ? qgraphicsitem_cast<QGraphicsPixmapItem *>(items[0]) : nullptr;
        return item ? item->pixmap().toImage() : QImage();
    }
    QString style(const char *button) const { return child<QToolButton>(button)->styleSheet(); }
    void choose(const char *button, const QColor &color)
    {
        panel().setColorChooser([color](const QColor &) { return color; });
        click(button);
    }
    /// The first colour red and opaque at the start, the third blue and opaque at 80 percent.
    void setTwoColors()
    {
        click("checkBox_cm_1");
        click("checkBox_cm_3");
        choose("toolButton_cm_c1", Qt::red);
        choose("toolButton_cm_c3", Qt::blue);
        child<QSlider>("horizontalSlider_cm_t1")->setValue(255);
        child<QSlider>("horizontalSlider_cm_t3")->setValue(255);
        child<QSlider>("horizontalSlider_cm_sp3")->setValue(80);
    }
    QString storedMap() const
    {
        QStringList values;
        for (int i = 1; i <= 4; ++i) {
            for (const char *key : {"/ACM_acti", "/ACM_trans", "/ACM_start_p", "/ACM_start_c"}) {
                const QByteArray name = key + QByteArray::number(i);
                values << stored(name.constData());
                if (recorded(name.constData()) != values.constLast())
                    values << QStringLiteral("but in the record ") + recorded(name.constData());
            }
        }
        return values.join(u' ');
    }
    QString shownMap() const
    {
        QStringList values;
        for (int i = 1; i <= 4; ++i) {
            for (const char *name : {"checkBox_cm_", "horizontalSlider_cm_t", "horizontalSlider_cm_sp"})
                values << shown(child<QWidget>((name + QByteArray::number(i)).constData()));
            const QString sheet = style(("toolButton_cm_c" + QByteArray::number(i)).constData());
            values << sheet.mid(sheet.indexOf(u':') + 1);
        }
        return values.join(u' ');
    }
};

namespace {

constexpr char mapAtFirst[] = "false 0 0 #000000 false 0 0 #000000 false 0 0 #000000 false 0 0 #000000";
constexpr char twoColorsStored[] = "true 255 0 #ff0000 false 0 0 #000000 true 255 0.8 #0000ff false 0 0 #000000";
constexpr char twoColorsShown[] = "true 255 0 #ff0000 false 0 0 #000000 true 255 80 #0000ff false 0 0 #000000";

} // namespace

void TestVisualizationColorMap::init()
{
    openPanel(PanelKind::GazePoints, 2);
    QTest::keyClick(child<QWidget>("heatmap_colormap"), Qt::Key_End);
    QTRY_VERIFY(child<QWidget>("graphicsView_ADM")->isVisible());
    stack().clear();
    QCOMPARE(takeLogLines().size(), 1);
}

void TestVisualizationColorMap::previewFillsItsView()
{
    const auto *view = child<QGraphicsView>("graphicsView_ADM");
    QTRY_COMPARE(preview().size(), view->viewport()->size());
    QCOMPARE(view->sceneRect(), QRectF(QPointF(), QSizeF(view->viewport()->size())));
    QCOMPARE(preview().pixelColor(3, 3).alpha(), 0); // no colour takes part yet
    panel().resize(panel().width() + 120, panel().height());
    QTRY_COMPARE(preview().size(), view->viewport()->size());
}

void TestVisualizationColorMap::previewFollowsTheControls()
{
    setTwoColors();
    const QImage image = preview();
    const int end = image.width() - 1;
    QCOMPARE(image.pixelColor(end, 2), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(image.width() * 9 / 10, 2), QColor(Qt::blue));
    QVERIFY(image.pixelColor(1, 2).red() > 240);
    const QColor middle = image.pixelColor(image.width() * 4 / 10, 2);
    QVERIFY2(std::abs(middle.red() - 128) < 6 && std::abs(middle.blue() - 128) < 6, qPrintable(middle.name()));
    click("checkBox_cm_1");
    QCOMPARE(preview().pixelColor(1, 2), QColor(Qt::blue)); // alone, it fills all
    choose("toolButton_cm_c3", Qt::green);
    QCOMPARE(preview().pixelColor(1, 2), QColor(Qt::green));
    click("checkBox_cm_3");
    QCOMPARE(preview().pixelColor(1, 2).alpha(), 0);
}

void TestVisualizationColorMap::previewFollowsTheKeysOfASlider()
{
    setTwoColors();
    QTest::keyClick(child<QWidget>("horizontalSlider_cm_t1"), Qt::Key_Home);
    QVERIFY(preview().pixelColor(0, 2).alpha() < 3);
    QTest::keyClick(child<QWidget>("horizontalSlider_cm_t1"), Qt::Key_End);
    QCOMPARE(preview().pixelColor(0, 2).alpha(), 255);
    QTest::keyClick(child<QWidget>("horizontalSlider_cm_sp3"), Qt::Key_End);
    QVERIFY(preview().pixelColor(preview().width() * 9 / 10, 2).red() > 15); // not blue before the end
}

void TestVisualizationColorMap::nothingIsStoredBeforeItIsApplied()
{
    setTwoColors();
    QCOMPARE(storedMap(), QString::fromLatin1(mapAtFirst));
    QCOMPARE(stack().count(), 0);
    panel().sltUpdateSettings();
    QCOMPARE(shownMap(), QString::fromLatin1(mapAtFirst));
    QCOMPARE(preview().pixelColor(1, 2).alpha(), 0);
}

void TestVisualizationColorMap::applyIsOneCommand()
{
    setTwoColors();
    click("pushButton_ACM");
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().text(0), QStringLiteral("Adjustible Colormap changed!"));
    QCOMPARE(storedMap(), QString::fromLatin1(twoColorsStored));
    QCOMPARE(shownMap(), QString::fromLatin1(twoColorsShown));
    QCOMPARE(takeLogLines(), QStringList(QStringLiteral("CommandChangeAdjColorMap::redo = ")));
}

void TestVisualizationColorMap::undoAndRedoShowTheMap()
{
    setTwoColors();
    click("pushButton_ACM");
    stack().undo();
    QCOMPARE(storedMap(), QString::fromLatin1(mapAtFirst));
    QCOMPARE(shownMap(), QString::fromLatin1(mapAtFirst));
    QCOMPARE(preview().pixelColor(preview().width() - 1, 2).alpha(), 0);
    stack().redo();
    QCOMPARE(storedMap(), QString::fromLatin1(twoColorsStored));
    QCOMPARE(shownMap(), QString::fromLatin1(twoColorsShown));
    QCOMPARE(preview().pixelColor(preview().width() - 1, 2), QColor(Qt::blue));
    QCOMPARE(stack().count(), 1);
}

void TestVisualizationColorMap::theScaleShowsWhatIsApplied()
{
    const auto most = [this] {
        const QImage image = child<QLabel>("colormap_preview")->pixmap().toImage();
        return image.pixelColor(image.width() - 1, 0);
    };
    setTwoColors();
    QCOMPARE(most().alpha(), 0);
    click("pushButton_ACM");
    QCOMPARE(most(), QColor(Qt::blue));
    stack().undo();
    QCOMPARE(most().alpha(), 0);
}

void TestVisualizationColorMap::undoReturnsWhatSlidersCannotShow()
{
    setStored("/ACM_start_p2", 0.336);
    setStored("/ACM_trans2", 999);
    panel().sltUpdateSettings();
    QCOMPARE(shown(child<QWidget>("horizontalSlider_cm_sp2")), QStringLiteral("34")); // rounded
    QCOMPARE(shown(child<QWidget>("horizontalSlider_cm_t2")), QStringLiteral("255"));
    QCOMPARE(recorded("/ACM_trans2"), QStringLiteral("999"));
    click("pushButton_ACM");
    QCOMPARE(stored("/ACM_start_p2"), QStringLiteral("0.34"));
    QCOMPARE(stored("/ACM_trans2"), QStringLiteral("255"));
    stack().undo();
    QCOMPARE(stored("/ACM_start_p2"), QStringLiteral("0.336"));
    QCOMPARE(stored("/ACM_trans2"), QStringLiteral("999"));
}

void TestVisualizationColorMap::aColorThatIsNotChosenStays()
{
    QColor start;
    choose("toolButton_cm_c2", QColor(9, 8, 7));
    panel().setColorChooser([&start](const QColor &color) {
        start = color;
        return QColor();
    });
    click("toolButton_cm_c2");
    QCOMPARE(start, QColor(9, 8, 7)); // what the button shows, applied or not
    QCOMPARE(style("toolButton_cm_c2"), QStringLiteral("background-color:#090807"));
}

void TestVisualizationColorMap::useItIsACommand()
{
    auto *use = child<QCheckBox>("checkBox_use_colormap");
    step(use, Qt::Key_Space);
    QVERIFY(use->isChecked() && record().acmUse);
    QCOMPARE(stored("/ACM_use"), QStringLiteral("true"));
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().text(0), QStringLiteral("Use it changed!"));
    stack().undo();
    QVERIFY(!use->isChecked() && !record().acmUse);
    QCOMPARE(stored("/ACM_use"), QStringLiteral("false"));
    stack().redo();
    QVERIFY(use->isChecked());
    QCOMPARE(takeLogLines(), (QStringList{QStringLiteral("CommandChangeUseIt::redo = 1"),
                                          QStringLiteral("CommandChangeUseIt::undo = 0"),
                                          QStringLiteral("CommandChangeUseIt::redo = 1")}));
}

void TestVisualizationColorMap::updateSettingsShowsTheMap()
{
    setStored("/ACM_acti4", QStringLiteral("true"));
    setStored("/ACM_trans4", QStringLiteral("255"));
    setStored("/ACM_start_p4", QStringLiteral("0.07"));
    setStored("/ACM_start_c4", QStringLiteral("#00ff00"));
    panel().sltUpdateSettings();
    QCOMPARE(shownMap(), QStringLiteral("false 0 0 #000000 false 0 0 #000000 false 0 0 #000000 true 255 7 #00ff00"));
    QCOMPARE(preview().pixelColor(1, 2), QColor(Qt::green));
    QCOMPARE(stack().count(), 0);
}

QTEST_MAIN(TestVisualizationColorMap)
#include "TestVisualizationColorMap.moc"
