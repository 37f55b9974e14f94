// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChordSamples.h"
#include "diagram/panel/add_diagram.h"

#include <QGraphicsView>
#include <QTest>
#include <QUrl>

class Testadd_diagram : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fillsItsWindow();
};

void Testadd_diagram::fillsItsWindow()
{
    add_diagram window;
    window.showDiagram(sampleChords(), QUrl()); // no page: the window draws
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.size(), QSize(800, 900));
    const auto *view = window.findChild<QGraphicsView *>();
    const auto shownWidth = [&] { return view->mapFromScene(view->sceneRect()).boundingRect().width(); };
    const int before = shownWidth();
    QVERIFY(before > 700 && before <= view->viewport()->width() + 2);
    window.resize(500, 500);
    QTRY_VERIFY(shownWidth() < before);
    QVERIFY(shownWidth() <= view->viewport()->width() + 2);
}

QTEST_MAIN(Testadd_diagram)
#include "Testadd_diagram.moc"
