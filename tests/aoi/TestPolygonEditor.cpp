// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/PolygonEditor.h"

#include <QTest>

/// Vertices are inserted behind the marked one; marking, removing and stepping back keep the place.
class TestPolygonEditor : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void firstVertexOfAnEditedAreaGoesToTheFront();
    void verticesFollowTheMarkedOne();
    void nearestVertexIsMarked_data();
    void nearestVertexIsMarked();
    void removing_data();
    void removing();
    void removingTheFirstVertexMarksTheLast();
    void draggingIsOneStep();
    void nothingNearIsGrabbed();
    void shapeReplacesAllVertices();
    void stepsBackAndForth();
    void newChangeForgetsWhatWasTakenBack();
};

void TestPolygonEditor::firstVertexOfAnEditedAreaGoesToTheFront()
{
    PolygonEditor editor({{10, 10}, {20, 10}});
    QCOMPARE(editor.insertIndex(), 0);
    QVERIFY(!editor.marked());
    editor.insert({5, 5});
    QCOMPARE(editor.polygon(), QPolygon({{5, 5}, {10, 10}, {20, 10}}));
    QCOMPARE(editor.insertIndex(), 1);
}

void TestPolygonEditor::verticesFollowTheMarkedOne()
{
    PolygonEditor editor({{0, 0}, {100, 0}, {100, 100}});
    editor.markNearest({90, 10});
    editor.insert({110, 30});
    editor.insert({110, 60});
    QCOMPARE(editor.polygon(), QPolygon({{0, 0}, {100, 0}, {110, 30}, {110, 60}, {100, 100}}));
    QCOMPARE(editor.marked(), std::optional(QPoint(110, 60)));
}

void TestPolygonEditor::nearestVertexIsMarked_data()
{
    QTest::addColumn<QPolygon>("polygon");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<qsizetype>("insertIndex");
    const QPolygon two{{0, 0}, {10, 0}};
    QTest::newRow("no vertex") << QPolygon() << QPoint(3, 3) << qsizetype(0);
    QTest::newRow("one vertex, however far") << QPolygon{{0, 0}} << QPoint(900, 900) << qsizetype(1);
    QTest::newRow("nearer to the first") << two << QPoint(4, 0) << qsizetype(1);
    QTest::newRow("nearer to the second") << two << QPoint(6, 0) << qsizetype(2);
    QTest::newRow("first of equals") << two << QPoint(5, 7) << qsizetype(1);
    QTest::newRow("as the crow flies, not by columns") << QPolygon{{0, 9}, {6, 6}} << QPoint(0, 0) << qsizetype(2);
}

void TestPolygonEditor::nearestVertexIsMarked()
{
    QFETCH(QPolygon, polygon);
    QFETCH(QPoint, position);
    PolygonEditor editor(polygon);
    editor.markNearest(position);
    QTEST(editor.insertIndex(), "insertIndex");
    QCOMPARE(editor.polygon(), polygon);
}

void TestPolygonEditor::removing_data()
{
    QTest::addColumn<QPoint>("marked");
    QTest::addColumn<QPolygon>("left");
    QTest::addColumn<qsizetype>("insertIndex");
    QTest::newRow("first") << QPoint(0, 0) << QPolygon{{10, 0}, {10, 10}} << qsizetype(2);
    QTest::newRow("second") << QPoint(10, 0) << QPolygon{{0, 0}, {10, 10}} << qsizetype(1);
    QTest::newRow("last") << QPoint(10, 10) << QPolygon{{0, 0}, {10, 0}} << qsizetype(2);
}

void TestPolygonEditor::removing()
{
    QFETCH(QPoint, marked);
    PolygonEditor editor({{0, 0}, {10, 0}, {10, 10}});
    editor.removeMarked(); // none is marked yet
    QCOMPARE(editor.polygon().size(), 3);
    editor.markNearest(marked);
    editor.removeMarked();
    QTEST(editor.polygon(), "left");
    QTEST(editor.insertIndex(), "insertIndex");
}

void TestPolygonEditor::removingTheFirstVertexMarksTheLast()
{
    PolygonEditor editor({{0, 0}, {10, 0}});
    editor.markNearest({0, 0});
    editor.removeMarked();
    editor.insert({20, 20});
    QCOMPARE(editor.polygon(), QPolygon({{10, 0}, {20, 20}}));
    editor.removeMarked();
    editor.removeMarked();
    QVERIFY(editor.polygon().isEmpty());
    QCOMPARE(editor.insertIndex(), 0);
    editor.removeMarked();
    QVERIFY(editor.polygon().isEmpty());
}

void TestPolygonEditor::draggingIsOneStep()
{
    const QPolygon before{{0, 0}, {100, 0}, {100, 100}};
    PolygonEditor editor(before);
    QVERIFY(editor.grab({98, 3}, 10));
    QCOMPARE(editor.marked(), std::optional(QPoint(100, 0)));
    editor.drag({120, 10});
    editor.drag({130, 20});
    QCOMPARE(editor.polygon(), QPolygon({{0, 0}, {130, 20}, {100, 100}}));
    QVERIFY(editor.undo());
    QCOMPARE(editor.polygon(), before);
    QVERIFY(!editor.undo());
}

void TestPolygonEditor::nothingNearIsGrabbed()
{
    PolygonEditor editor({{0, 0}, {100, 0}});
    QVERIFY(!editor.grab({50, 0}, 49.9));
    QVERIFY(editor.grab({50, 0}, 50));
    QVERIFY(!PolygonEditor().grab({0, 0}, 1000));
}

void TestPolygonEditor::shapeReplacesAllVertices()
{
    const QPolygon first{{1, 1}, {2, 2}};
    PolygonEditor editor(first);
    editor.grabNothing();
    editor.dragShape({{0, 0}, {5, 0}, {5, 5}, {0, 5}});
    editor.dragShape({{0, 0}, {9, 0}, {9, 9}, {0, 9}});
    QCOMPARE(editor.polygon(), QPolygon({{0, 0}, {9, 0}, {9, 9}, {0, 9}}));
    QCOMPARE(editor.insertIndex(), 4);
    QVERIFY(editor.undo());
    QCOMPARE(editor.polygon(), first);
}

void TestPolygonEditor::stepsBackAndForth()
{
    PolygonEditor editor;
    editor.insert({1, 1});
    editor.insert({2, 2});
    editor.moveMarked({3, 3});
    QCOMPARE(editor.polygon(), QPolygon({{1, 1}, {3, 3}}));
    QVERIFY(editor.undo());
    QCOMPARE(editor.polygon(), QPolygon({{1, 1}, {2, 2}}));
    QVERIFY(editor.undo());
    QCOMPARE(editor.polygon(), QPolygon({{1, 1}}));
    QCOMPARE(editor.insertIndex(), 1);
    QVERIFY(editor.redo());
    QVERIFY(editor.redo());
    QVERIFY(!editor.redo());
    QCOMPARE(editor.polygon(), QPolygon({{1, 1}, {3, 3}}));
}

void TestPolygonEditor::newChangeForgetsWhatWasTakenBack()
{
    PolygonEditor editor;
    editor.insert({1, 1});
    QVERIFY(editor.undo());
    editor.insert({2, 2});
    QVERIFY(!editor.redo());
    QCOMPARE(editor.polygon(), QPolygon({{2, 2}}));
}

QTEST_GUILESS_MAIN(TestPolygonEditor)
#include "TestPolygonEditor.moc"
