// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/interactive_polygon.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QTest>
#include <QToolTip>

namespace {

AreaShape areaAt(int left, qsizetype index, const QString &toolTip)
{
    return {QPolygon(QRect(left, 100, 100, 100)), QPen(Qt::black, 1), QBrush(Qt::blue), toolTip, index};
}

PolygonShape ribbonOf(qsizetype index, int top)
{
    PolygonShape ribbon{QPolygon(QRect(0, top, 20, 10)), QPen(Qt::red, 1), QBrush(Qt::red)};
    ribbon.toolTip = QStringLiteral("ribbon");
    ribbon.shownOnArea = index;
    return ribbon;
}

} // namespace

/// Areas whose ribbons show while the mouse was last on them.
class TestInteractivePolygon : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_view.reset(); }
    void ribbonsAreHiddenAtFirst();
    void ribbonsOfTheAreaUnderTheMouseShow();
    void nameDoesNotHideItsArea();
    void toolTipShows();
    void clearingTheSceneInAnyOrder();
    void shapeWithoutAreaShows();

private:
    void enter(QPoint position) const
    {
        QTest::mouseMove(m_view->viewport(), m_view->mapFromScene(QPoint(150, 50)));
        QTest::mouseMove(m_view->viewport(), m_view->mapFromScene(position));
    }
    /// Which of the ribbons 0 of area 0, 1 of area 0 and 2 of area 1 are shown.
    QList<bool> shown() const;

    std::unique_ptr<QGraphicsView> m_view;
    QGraphicsScene m_scene;
};

void TestInteractivePolygon::init()
{
    m_scene.clear();
    m_scene.setSceneRect(0, 0, 400, 300);
    addItems(m_scene, {ribbonOf(0, 0), ribbonOf(0, 15), areaAt(0, 0, QStringLiteral("first")), ribbonOf(1, 30),
                       areaAt(200, 1, QStringLiteral("second")), areaAt(301, 2, QStringLiteral("third"))});
    m_view = std::make_unique<QGraphicsView>(&m_scene);
    m_view->resize(500, 400);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

QList<bool> TestInteractivePolygon::shown() const
{
    QList<bool> visible;
    for (const QGraphicsItem *item : m_scene.items(Qt::AscendingOrder)) {
        if (item->type() == QGraphicsPolygonItem::Type && item->toolTip() == QLatin1StringView("ribbon"))
            visible << item->isVisible();
    }
    return visible;
}

void TestInteractivePolygon::ribbonsAreHiddenAtFirst()
{
    QCOMPARE(shown(), QList<bool>({false, false, false}));
}

void TestInteractivePolygon::ribbonsOfTheAreaUnderTheMouseShow()
{
    enter({50, 150});
    QTRY_COMPARE(shown(), QList<bool>({true, true, false}));
    enter({150, 150}); // on nothing: they stay
    QCOMPARE(shown(), QList<bool>({true, true, false}));
    enter({250, 150});
    QTRY_COMPARE(shown(), QList<bool>({false, false, true}));
    enter({350, 150}); // an area without ribbons
    QTRY_COMPARE(shown(), QList<bool>({false, false, false}));
}

void TestInteractivePolygon::nameDoesNotHideItsArea()
{
    addItems(m_scene, {TextShape{{220, 130}, QStringLiteral("second"), QFont(), Qt::black}});
    enter({225, 138});
    QTRY_COMPARE(shown(), QList<bool>({false, false, true}));
}

void TestInteractivePolygon::toolTipShows()
{
    enter({250, 150});
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("second"));
}

/// Every area may be the last that knows the ribbons.
void TestInteractivePolygon::clearingTheSceneInAnyOrder()
{
    QList<QGraphicsItem *> items = m_scene.items(Qt::AscendingOrder);
    std::rotate(items.begin(), items.begin() + 2, items.end());
    for (QGraphicsItem *item : items) {
        m_scene.removeItem(item);
        const std::unique_ptr<QGraphicsItem> gone(item);
    }
    QVERIFY(m_scene.items().isEmpty());
}

void TestInteractivePolygon::shapeWithoutAreaShows()
{
    m_scene.clear();
    PolygonShape plain = ribbonOf(0, 0);
    plain.shownOnArea.reset();
    addItems(m_scene, {plain});
    QVERIFY(m_scene.items().constFirst()->isVisible());
}

QTEST_MAIN(TestInteractivePolygon)
#include "TestInteractivePolygon.moc"
