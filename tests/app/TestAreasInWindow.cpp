// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/AOI_PopUp.h"
#include "aoi/panel/AoiControl.h"
#include "WindowTest.h"

#include <QApplication>
#include <QComboBox>
#include <QGraphicsPixmapItem>
#include <QListWidget>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolBox>

namespace {

QWidget *topLevel(const char *className)
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits(className) && widget->isVisible())
            return widget;
    }
    return nullptr;
}

} // namespace

/// Areas of interest and saliency in the window, from page to picture.
class TestAreasInWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void gridIsDrawnAtOnce();
    void gridTwiceReplacesItself();
    void areasAreCheckedAndUndone();
    void eachStepOfAnAreaDrawsOnce();
    void regionDialogOpensAndFillsTheList();
    void clustersWithoutCalculation();
    void saliencyLiesOverThePicture();
    void saliencyOfThePlainBackgroundIsToldOnce();
    void fixationsInAreas();

private:
    void showPage() const
    {
        showTab("tab_3");
        find<QToolBox>("toolBox")->setCurrentWidget(find<QWidget>("aoisPage"));
    }
    void drawOutlines() const
    {
        find<QComboBox>("visAOIWidget", "comboBox_vismode")->setCurrentIndex(1);
        find<QAbstractButton>("visAOIWidget", "stat_calc")->click();
    }
};

void TestAreasInWindow::gridIsDrawnAtOnce()
{
    importExamples();
    drawOutlines();
    const QImage before = picture();
    showPage();
    click("addAOI_grid");
    QCOMPARE(find<QListWidget>("listViewAOI")->count(), 25);
    QCOMPARE(find<QListWidget>("listViewAOI")->item(0)->text(), QStringLiteral("GridAOI(2)"));
    QVERIFY(picture() != before);
    CommandStack::instance().setIndex(CommandStack::instance().count() - 25);
    QCOMPARE(find<QListWidget>("listViewAOI")->count(), 0);
    QCOMPARE(picture(), before);
}

void TestAreasInWindow::gridTwiceReplacesItself()
{
    showPage();
    click("addAOI_grid");
    click("addAOI_grid");
    QCOMPARE(find<QListWidget>("listViewAOI")->count(), 25);
    QCOMPARE(m_window->model().aoiList().size(), 25);
}

void TestAreasInWindow::areasAreCheckedAndUndone()
{
    importExamples();
    drawOutlines();
    showPage();
    click("addAOI_grid");
    const QImage all = picture();
    find<QListWidget>("listViewAOI")->item(0)->setCheckState(Qt::Unchecked);
    const QImage withoutOne = picture();
    QVERIFY(withoutOne != all);
    QCOMPARE(m_window->model().checkedAois().size(), 24);
    find<QListWidget>("listViewAOI")->item(0)->setCheckState(Qt::Checked);
    QCOMPARE(picture(), all);
    find<QListWidget>("listViewAOI")->setCurrentRow(0);
    click("removeAOI_Button");
    QCOMPARE(picture(), withoutOne);
}

void TestAreasInWindow::eachStepOfAnAreaDrawsOnce()
{
    importExamples();
    drawOutlines();
    const QImage before = picture();
    const QSignalSpy drawn(&m_window->picture(), &PictureControl::aboutToDraw);
    AreaOfInterest area(QStringLiteral("A"), {{100, 100}, {900, 100}, {900, 700}});
    area.color = {200, 0, 0, 255};
    find<AoiControl>("aoi_widget")->sltInsertAOI(area);
    QCOMPARE(drawn.count(), 1);
    const QImage inserted = picture();
    QVERIFY(inserted != before);
    CommandStack::instance().undo();
    QCOMPARE(drawn.count(), 2);
    QCOMPARE(picture(), before);
    CommandStack::instance().redo();
    QCOMPARE(drawn.count(), 3);
    QCOMPARE(picture(), inserted);
    auto *list = find<QListWidget>("listViewAOI");
    find<AoiControl>("aoi_widget")->sltDeleteAOI(list->item(0));
    QCOMPARE(drawn.count(), 4);
    QCOMPARE(picture(), before);
    CommandStack::instance().undo();
    QCOMPARE(drawn.count(), 5);
    QCOMPARE(picture(), inserted);
    list->setCurrentRow(0);
    showPage();
    click("removeAOI_Button");
    QCOMPARE(drawn.count(), 6);
}

void TestAreasInWindow::regionDialogOpensAndFillsTheList()
{
    importExamples();
    showPage();
    click("addAOI_heatmap");
    auto *dialog = qobject_cast<add_heatmap_aoi *>(topLevel("add_heatmap_aoi"));
    QVERIFY(dialog);
    dialog->sltGenHeatmap();
    dialog->sltGenAOIs();
    QVERIFY(dialog->search());
    dialog->sltExport();
    QVERIFY(find<QListWidget>("listViewAOI")->count() > 0);
    QCOMPARE(find<QListWidget>("listViewAOI")->item(0)->text(), QStringLiteral("HeatmapAOI(2)"));
    QVERIFY(!dialog->isVisible());
}

void TestAreasInWindow::clustersWithoutCalculation()
{
    showPage();
    click("addAOI_clusters");
    QCOMPARE(m_messages->texts(),
             QStringList{QStringLiteral("No clusters found. Did you compute them?|While trying to convert cumulative "
                                        "clusters to AOIs no clusters were found. No changes were made.")});
}

void TestAreasInWindow::saliencyLiesOverThePicture()
{
    importExamples();
    auto *images = find<QComboBox>("image_comboBox");
    QVERIFY(images->count() > 1);
    images->setCurrentIndex(1);
    find<QComboBox>("gazepoint_widget", "comboBox_vismode")->setCurrentIndex(0);
    find<QAbstractButton>("gazepoint_widget", "start_calc")->click();
    const auto shown = [this] {
        QGraphicsScene *scene = find<QGraphicsView>("visualization")->scene();
        QImage image(500, 400, QImage::Format_ARGB32);
        QPainter painter(&image);
        scene->render(&painter, QRectF(), QRectF(100, 100, 500, 400));
        return image;
    };
    const QImage before = shown();
    find<QComboBox>("comboBox_sal")->setCurrentIndex(2);
    QCOMPARE(shown(), before); // until the button is pressed
    find<QAbstractButton>("page_sal", "stat_calc")->click();
    const QImage grey = shown();
    QVERIFY(grey != before);
    for (const QPoint &place : {QPoint(10, 10), QPoint(250, 200), QPoint(490, 390)}) {
        const QColor color = grey.pixelColor(place);
        QVERIFY(color.red() == color.green() && color.green() == color.blue());
    }
    find<QSpinBox>("sal_spin_1")->setValue(61);
    find<QAbstractButton>("page_sal", "stat_calc")->click();
    QVERIFY(shown() != grey);
    find<QComboBox>("comboBox_sal")->setCurrentIndex(0);
    find<QAbstractButton>("page_sal", "stat_calc")->click();
    QCOMPARE(shown(), before);
}

void TestAreasInWindow::saliencyOfThePlainBackgroundIsToldOnce()
{
    find<QComboBox>("comboBox_sal")->setCurrentIndex(1);
    find<QAbstractButton>("page_sal", "stat_calc")->click();
    m_window->picture().sltUpdateAndRedraw();
    QCOMPARE(m_messages->texts().size(), 1);
}

/// The heatmap of fixations with its box "only Fixations in AOIs": nothing without areas.
void TestAreasInWindow::fixationsInAreas()
{
    importExamples();
    showTab("tab_3");
    find<QToolBox>("toolBox")->setCurrentWidget(find<QWidget>("fixationsPage"));
    find<QAbstractButton>("fixationsPage", "toolButton")->click();
    find<QComboBox>("gazepoint_widget", "comboBox_vismode")->setCurrentIndex(0);
    find<QComboBox>("fixation_widget", "comboBox_vismode")->setCurrentIndex(3);
    const auto draw = [this] { find<QAbstractButton>("fixation_widget", "start_calc")->click(); };
    draw();
    const QImage all = picture();
    find<QAbstractButton>("fixation_widget", "lengthCheckBox")->click();
    draw();
    const QImage none = picture();
    QVERIFY(none != all);
    showPage();
    click("addAOI_grid");
    draw();
    QVERIFY(picture() != none);
}

QTEST_MAIN(TestAreasInWindow)
#include "TestAreasInWindow.moc"
