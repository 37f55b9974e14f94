// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeClusterModel.h"
#include "clustering/SaccadeSamples.h"
#include "commands/CommandStack.h"
#include "model/DataModel.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"
#include "visualization/scene/ArrowGroup.h"
#include "visualization/scene/ArrowItem.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGraphicsItemGroup>
#include <QGraphicsScene>
#include <QLabel>
#include <QPainter>
#include <QSpinBox>
#include <QTest>

class TestVisualizationSaccadeClustersWidget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void eachChangeIsDrawnAtOnce();
    void arrowTipsByMouse();
    void valuesWithoutEffectAreKept();
    void allItemsAreInOneGroupOnTop();
    void levelArrowsOfAGroupAreDrawn();
    void redrawReplacesTheGroup();
    void newClustersAreDrawn();
    void removeTakesOnlyTheGroup();
    void aRedrawHandsTheGroupOver();
    void withoutModelOrSceneNothingIsDrawn();
    void anotherScene();
    void sceneGoesFirst();
    void panelGoesFirst();
    void manyArrowsInLinearTime();

private:
    template <class Widget>
    Widget *child(const char *name) const
    {
        auto *found = m_panel->findChild<Widget *>(QLatin1StringView(name));
        if (!found)
            qFatal("The form has no %s", name);
        return found;
    }
    void choose(int mode) const
    {
        auto *box = child<QComboBox>("visualizationModeComboBox");
        box->setFocus();
        while (box->currentIndex() != mode)
            QTest::keyClick(box, box->currentIndex() < mode ? Qt::Key_Down : Qt::Key_Up);
    }
    qsizetype arrows() const { return m_panel->itemGroup() ? m_panel->itemGroup()->childItems().size() : 0; }
    QImage picture() const;

    DataModel m_data;
    std::shared_ptr<SaccadeClusterModel> m_model;
    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<VisualizationSaccadeClustersWidget> m_panel;
};

QImage TestVisualizationSaccadeClustersWidget::picture() const
{
    QImage image(600, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    m_scene->render(&painter, image.rect(), image.rect());
    return image;
}

/// Three saccades to the right at x from 100 to 500, two of them near each other, and two back.
void TestVisualizationSaccadeClustersWidget::init()
{
    m_data = DataModel();
    m_data.setTimeFrame({0, 1'000'000});
    m_data.examinations() << samples::examinationAt(
        {{100, 50}, {500, 50}, {100, 60}, {500, 60}, {100, 250}, {500, 250}});
    m_model = std::make_shared<SaccadeClusterModel>();
    m_model->setModel(&m_data);
    m_model->set(stagedrows::minimumAngleQuantity, 3); // leaves the three to the right
    m_model->cluster();
    m_scene = std::make_unique<QGraphicsScene>(0, 0, 600, 300);
    m_panel = std::make_unique<VisualizationSaccadeClustersWidget>();
    m_panel->setScene(m_scene.get());
    m_panel->setClusters(m_model);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestVisualizationSaccadeClustersWidget::cleanup()
{
    m_panel.reset();
    m_scene.reset();
}

void TestVisualizationSaccadeClustersWidget::form()
{
    const auto *mode = child<QComboBox>("visualizationModeComboBox");
    QCOMPARE(mode->count(), 3);
    QCOMPARE(mode->itemText(0), QStringLiteral("None"));
    QCOMPARE(mode->itemText(1), QStringLiteral("Lines"));
    QCOMPARE(mode->itemText(2), QStringLiteral("Single Line"));
    QCOMPARE(mode->currentIndex(), 0);
    QCOMPARE(child<QLabel>("minimumQuantityLabel")->text(), QStringLiteral("Minimum Quantity:"));
    QCOMPARE(child<QSpinBox>("minimumQuantitySpinBox")->value(), m_panel->style().minimumQuantity);
    QCOMPARE(child<QSpinBox>("lineWidthSpinBox")->value(), m_panel->style().lineWidthPx);
    QCOMPARE(child<QCheckBox>("showArrowTipsCheckBox")->isChecked(), m_panel->style().showArrowTips);
    QVERIFY(m_scene->items().isEmpty());
}

void TestVisualizationSaccadeClustersWidget::eachChangeIsDrawnAtOnce()
{
    choose(1);
    QCOMPARE(m_panel->mode(), SaccadeClusterMode::Lines);
    QCOMPARE(arrows(), 3);
    auto *quantity = child<QSpinBox>("minimumQuantitySpinBox");
    quantity->setFocus();
    QTest::keyClick(quantity, Qt::Key_Up);
    QCOMPARE(arrows(), 2); // the cluster of the near ones
    choose(2);
    QCOMPARE(arrows(), 1);
    QTest::keyClick(quantity, Qt::Key_Down);
    QCOMPARE(arrows(), 2);
    const QImage thin = picture();
    child<QSpinBox>("lineWidthSpinBox")->setValue(20);
    QVERIFY(picture() != thin);
    choose(0);
    QCOMPARE(arrows(), 0);
    QVERIFY(m_scene->items().isEmpty());
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestVisualizationSaccadeClustersWidget::arrowTipsByMouse()
{
    choose(1);
    const QImage without = picture();
    auto *box = child<QCheckBox>("showArrowTipsCheckBox");
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QVERIFY(m_panel->style().showArrowTips);
    QVERIFY(picture() != without);
}

void TestVisualizationSaccadeClustersWidget::valuesWithoutEffectAreKept()
{
    choose(1);
    const QImage before = picture();
    m_panel->sltFillOpacityChanged(30);
    m_panel->sltShowGazePointsChanged(true);
    QCOMPARE(m_panel->fillOpacity(), 30);
    QVERIFY(m_panel->showGazePoints());
    QCOMPARE(picture(), before);
    QCOMPARE(arrows(), 3);
}

void TestVisualizationSaccadeClustersWidget::allItemsAreInOneGroupOnTop()
{
    QGraphicsItem *below = m_scene->addRect(0, 0, 600, 300);
    choose(1);
    QCOMPARE(m_scene->items().size(), 5); // group, arrows, rectangle
    QCOMPARE(m_scene->items().last(), below);
    for (const QGraphicsItem *item : m_panel->itemGroup()->childItems())
        QVERIFY(dynamic_cast<const ArrowItem *>(item));
}

void TestVisualizationSaccadeClustersWidget::levelArrowsOfAGroupAreDrawn()
{
    choose(1);
    const QImage image = picture();
    for (const int y : {50, 60, 250})
        QVERIFY2(image.pixelColor(300, y) != QColor(Qt::white), qPrintable(QString::number(y)));
    QCOMPARE(image.pixelColor(300, 50), image.pixelColor(300, 60));
    QVERIFY(image.pixelColor(300, 50) != image.pixelColor(300, 250));
    QCOMPARE(image.pixelColor(300, 150), QColor(Qt::white));
}

void TestVisualizationSaccadeClustersWidget::redrawReplacesTheGroup()
{
    choose(1);
    for (int i = 0; i < 3; ++i)
        m_panel->sltRedrawClusters();
    QCOMPARE(m_scene->items().size(), 4);
}

void TestVisualizationSaccadeClustersWidget::newClustersAreDrawn()
{
    choose(1);
    m_model->set(stagedrows::minimumAngleQuantity, 1);
    m_model->cluster();
    QCOMPARE(arrows(), 3);
    m_panel->sltRedrawClusters();
    QCOMPARE(arrows(), 5);
}

void TestVisualizationSaccadeClustersWidget::removeTakesOnlyTheGroup()
{
    const QGraphicsItem *below = m_scene->addRect(0, 0, 600, 300);
    choose(1);
    m_panel->removeClusters();
    QVERIFY(!m_panel->itemGroup());
    QCOMPARE(m_scene->items().size(), 1);
    QCOMPARE(m_scene->items().first(), below);
    m_panel->removeClusters(); // nothing left to take
    QCOMPARE(m_scene->items().size(), 1);
}

/// The way of a redraw: clear, draw the rest, draw the clusters, hand their group over.
void TestVisualizationSaccadeClustersWidget::aRedrawHandsTheGroupOver()
{
    choose(1);
    for (int i = 0; i < 3; ++i) {
        m_scene->clear();
        m_scene->addRect(0, 0, 600, 300);
        m_panel->adoptGroup(addArrowGroup(*m_scene, m_panel->arrows()));
    }
    QCOMPARE(m_scene->items().size(), 5);
    QCOMPARE(arrows(), 3);
    m_panel->removeClusters();
    QCOMPARE(m_scene->items().size(), 1);
}

void TestVisualizationSaccadeClustersWidget::withoutModelOrSceneNothingIsDrawn()
{
    choose(1);
    m_panel->setClusters(nullptr);
    m_panel->sltRedrawClusters();
    QVERIFY(m_scene->items().isEmpty());
    m_panel->setClusters(m_model);
    m_panel->setScene(nullptr);
    m_panel->sltRedrawClusters();
    QCOMPARE(arrows(), 0);
}

void TestVisualizationSaccadeClustersWidget::anotherScene()
{
    choose(1);
    QGraphicsScene other;
    m_panel->setScene(&other);
    QVERIFY(m_scene->items().isEmpty());
    m_panel->sltRedrawClusters();
    QCOMPARE(other.items().size(), 4);
}

void TestVisualizationSaccadeClustersWidget::sceneGoesFirst()
{
    choose(1);
    m_scene.reset();
    m_panel->sltRedrawClusters();
    QCOMPARE(arrows(), 0);
    m_panel.reset();
}

void TestVisualizationSaccadeClustersWidget::panelGoesFirst()
{
    choose(1);
    m_panel.reset();
    QVERIFY(m_scene->items().isEmpty());
}

void TestVisualizationSaccadeClustersWidget::manyArrowsInLinearTime()
{
    QList<QPoint> places;
    for (int i = 0; i < 4000; ++i)
        places << QPoint(100 + 7 * (i % 40), 100 + 3 * (i % 97));
    m_data.examinations() = {samples::examinationAt(places)};
    m_model->set(stagedrows::minimumAngleDifference, -1);
    m_model->set(stagedrows::minimumAngleQuantity, 1);
    m_model->cluster();
    QElapsedTimer timer;
    timer.start();
    choose(1);
    QCOMPARE(arrows(), 3999);
    choose(0);
    qInfo("drawing and taking away 3999 arrows: %lld ms", timer.elapsed());
    QVERIFY(timer.elapsed() < 5'000); // some 30 ms on an idle machine
}

QTEST_MAIN(TestVisualizationSaccadeClustersWidget)
#include "TestVisualizationSaccadeClustersWidget.moc"
