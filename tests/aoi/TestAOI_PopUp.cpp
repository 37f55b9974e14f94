// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/AOI_PopUp.h"
#include "model/DataModel.h"
#include "TestMessages.h"
#include "visualization/panel/ZoomPanGraphicsView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGraphicsItem>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

namespace {

const QPolygon triangle{{20, 20}, {100, 20}, {60, 80}};

QPixmap picture()
{
    QPixmap pixmap(200, 120); // smaller than the view: each of its pixels can be hit
    pixmap.fill(Qt::white);
    return pixmap;
}

AreaOfInterest area(const QString &name, const QPolygon &polygon, const QColor &color)
{
    AreaOfInterest aoi(name, polygon);
    aoi.color = color;
    return aoi;
}

} // namespace

/// The real window, with real buttons and keys. Positions are those of the picture.
class TestAOI_PopUp : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void formAtConstruction();
    void clicksInsertBehindTheMarkedVertex();
    void firstClickOfAnEditedAreaGoesToTheFront();
    void rightClickMarksTheNearest();
    void rightClickOnOneVertex();
    void otherButtonsDoNothing();
    void keysRemoveTheMarkedVertex_data();
    void keysRemoveTheMarkedVertex();
    void keyWithoutMarkDoesNothing();
    void removingTheFirstAppendsTheNext();
    void otherKeysDoNothing();
    void zoomedAndPanned();
    void ctrlDragsAVertex();
    void ctrlFarFromEachVertexDoesNothing();
    void ctrlDrawsShapes_data();
    void ctrlDrawsShapes();
    void stepsOfTheVertices();
    void markedVertexIsShownAndTyped();
    void findings();
    void othersShowByTheirOpacity();
    void outlineFollowsSizeAndColor();
    void highlightedBorder();
    void acceptWithoutNameStaysOpen();
    void acceptGivesTheArea();
    void emptyPolygonIsAccepted();
    void closingANewAreaDropsIt();
    void closingAnEditedAreaAcceptsIt();
    void closingAnEditedAreaWithoutNameIsRefused();
    void twoWindowsKeepTheirOwnVertices();
    void withoutPicture();

private:
    void open(std::unique_ptr<AOI_PopUp> dialog);
    void openNew() { open(std::make_unique<AOI_PopUp>(&m_model, QString(), QPolygon(), picture())); }
    void openEdited(const AreaOfInterest &aoi)
    {
        open(std::make_unique<AOI_PopUp>(&m_model, aoi.name, aoi.polygon, aoi, picture()));
    }
    template <class Widget>
    Widget *find(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1StringView(name));
    }
    ZoomPanGraphicsView *view() const { return find<ZoomPanGraphicsView>("graphicsView"); }
    QPoint at(QPoint inPicture) const { return view()->mapFromScene(inPicture); }
    void press(QPoint inPicture, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::mouseClick(view()->viewport(), button, keys, at(inPicture));
    }
    void drag(QPoint from, QPoint to) const;
    QPolygon vertices() const { return m_dialog->editor().polygon(); }
    QList<QGraphicsItem *> items(int type) const;

    DataModel m_model;
    std::unique_ptr<AOI_PopUp> m_dialog;
    std::unique_ptr<QSignalSpy> m_added;
};

void TestAOI_PopUp::init()
{
    m_model = DataModel();
}

void TestAOI_PopUp::cleanup()
{
    m_added.reset();
    m_dialog.reset();
}

void TestAOI_PopUp::open(std::unique_ptr<AOI_PopUp> dialog)
{
    m_dialog = std::move(dialog);
    m_added = std::make_unique<QSignalSpy>(m_dialog.get(), &AOI_PopUp::sigAddAOI);
    m_dialog->show();
    m_dialog->activateWindow(); // for its shortcuts
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    QVERIFY(view()->transform().m11() > 1.5);
}

void TestAOI_PopUp::drag(QPoint from, QPoint to) const
{
    QWidget *viewport = view()->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::ControlModifier, at(from));
    QTest::mouseMove(viewport, at((from + to) / 2));
    QTest::mouseMove(viewport, at(to));
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::ControlModifier, at(to));
}

QList<QGraphicsItem *> TestAOI_PopUp::items(int type) const
{
    QList<QGraphicsItem *> found;
    for (QGraphicsItem *item : view()->scene()->items(Qt::AscendingOrder)) {
        if (item->type() == type)
            found << item;
    }
    return found;
}

void TestAOI_PopUp::formAtConstruction()
{
    openNew();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("AOI_PopUp"));
    QCOMPARE(m_dialog->size(), QSize(750, 557));
    QCOMPARE(view()->dragMode(), QGraphicsView::NoDrag);
    QCOMPARE(view()->transformationAnchor(), QGraphicsView::AnchorUnderMouse);
    QCOMPARE(find<QLabel>("label")->text(), QStringLiteral("AOI Name:"));
    QVERIFY(find<QLineEdit>("lineEdit")->text().isEmpty());
    QCOMPARE(find<QPushButton>("pushButton")->text(), QStringLiteral("Accept AOI"));
    QCOMPARE(find<QToolButton>("linecolor")->text(), QStringLiteral("Line Color"));
    QCOMPARE(find<QToolButton>("linecolor")->styleSheet(), QStringLiteral("background-color:#ff0000"));
    QCOMPARE(find<QToolButton>("aoicolorbutton")->text(), QStringLiteral("Choose Color"));
    QCOMPARE(find<QSpinBox>("linesize")->text(), QStringLiteral("Line size:1px"));
    QCOMPARE(find<QSpinBox>("linesize")->minimum(), 1);
    QCOMPARE(find<QDoubleSpinBox>("opacityspinbox")->text(), QStringLiteral("Opacity:0.00"));
    QCOMPARE(find<QDoubleSpinBox>("opacityspinbox")->maximum(), 1.0);
    QCOMPARE(find<QDoubleSpinBox>("opacityspinbox")->singleStep(), 0.01);
    QVERIFY(find<QCheckBox>("aoivalidbox")->isChecked());
    QCOMPARE(find<QCheckBox>("aoivalidbox")->text(), QStringLiteral("AOI enabled"));
    QCOMPARE(
        find<QLabel>("label_2")->text(),
        QStringLiteral("Left-click the scene to set an AOI border point. The next border point is inserted at the "
                       "highlighted border.\nRight-click to change selection.\nPress \"Del/Entf\" or \"Backspace\" "
                       "to delete the currently selected point."));
}

void TestAOI_PopUp::clicksInsertBehindTheMarkedVertex()
{
    openNew();
    for (const QPoint &vertex : triangle)
        press(vertex);
    QCOMPARE(vertices(), triangle);
    press({99, 22}, Qt::RightButton);
    press({110, 50});
    QCOMPARE(vertices(), QPolygon({{20, 20}, {100, 20}, {110, 50}, {60, 80}}));
}

void TestAOI_PopUp::firstClickOfAnEditedAreaGoesToTheFront()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    press({5, 5});
    press({10, 5});
    QCOMPARE(vertices(), QPolygon({{5, 5}, {10, 5}, {20, 20}, {100, 20}, {60, 80}}));
}

void TestAOI_PopUp::rightClickMarksTheNearest()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    press({60, 30}, Qt::RightButton); // as far from the first as from the second
    QCOMPARE(m_dialog->editor().insertIndex(), 1);
    press({61, 30}, Qt::RightButton);
    QCOMPARE(m_dialog->editor().insertIndex(), 2);
    press({60, 110}, Qt::RightButton);
    QCOMPARE(m_dialog->editor().insertIndex(), 3);
    QCOMPARE(vertices(), triangle);
}

void TestAOI_PopUp::rightClickOnOneVertex()
{
    openEdited(area(QStringLiteral("A"), {{50, 50}}, Qt::blue));
    press({150, 10}, Qt::RightButton);
    QCOMPARE(m_dialog->editor().insertIndex(), 1);
    cleanup();
    openNew();
    press({150, 10}, Qt::RightButton);
    QCOMPARE(m_dialog->editor().insertIndex(), 0);
}

void TestAOI_PopUp::otherButtonsDoNothing()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    press({5, 5}, Qt::MiddleButton);
    press({5, 5}, Qt::BackButton);
    QCOMPARE(vertices(), triangle);
    QCOMPARE(m_dialog->editor().insertIndex(), 0);
}

void TestAOI_PopUp::keysRemoveTheMarkedVertex_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("delete") << Qt::Key_Delete;
    QTest::newRow("backspace") << Qt::Key_Backspace;
}

void TestAOI_PopUp::keysRemoveTheMarkedVertex()
{
    QFETCH(Qt::Key, key);
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    press({100, 20}, Qt::RightButton);
    QTest::keyPress(view(), key);
    QCOMPARE(vertices(), triangle); // only the release counts
    QTest::keyRelease(view(), key);
    QCOMPARE(vertices(), QPolygon({{20, 20}, {60, 80}}));
    QCOMPARE(m_dialog->editor().insertIndex(), 1);
}

void TestAOI_PopUp::keyWithoutMarkDoesNothing()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    QTest::keyClick(view(), Qt::Key_Delete);
    QCOMPARE(vertices(), triangle);
    QCOMPARE(m_dialog->editor().insertIndex(), 0);
}

void TestAOI_PopUp::removingTheFirstAppendsTheNext()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    press({20, 20}, Qt::RightButton);
    QTest::keyClick(view(), Qt::Key_Backspace);
    QCOMPARE(m_dialog->editor().insertIndex(), 2);
    press({30, 100});
    QCOMPARE(vertices(), QPolygon({{100, 20}, {60, 80}, {30, 100}}));
}

void TestAOI_PopUp::otherKeysDoNothing()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    press({100, 20}, Qt::RightButton);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space})
        QTest::keyClick(view(), key);
    QCOMPARE(vertices(), triangle);
    QVERIFY(m_dialog->isVisible());
}

void TestAOI_PopUp::zoomedAndPanned()
{
    openNew();
    const double before = view()->transform().m11();
    for (int step = 0; step < 8; ++step) {
        const QPointF place(100, 100);
        QWheelEvent wheel(place, view()->viewport()->mapToGlobal(place), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view()->viewport(), &wheel);
    }
    QVERIFY(view()->transform().m11() > before * 3);
    view()->horizontalScrollBar()->setValue(view()->horizontalScrollBar()->maximum());
    view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->maximum());
    QVERIFY(!view()->viewport()->rect().contains(at({20, 20})));
    press({190, 110});
    press({199, 119});
    press({180, 115});
    QCOMPARE(vertices(), QPolygon({{190, 110}, {199, 119}, {180, 115}}));
    press({198, 117}, Qt::RightButton);
    QTest::keyClick(view(), Qt::Key_Delete);
    QCOMPARE(vertices(), QPolygon({{190, 110}, {180, 115}}));
    drag({181, 115}, {170, 100});
    QCOMPARE(vertices(), QPolygon({{190, 110}, {170, 100}}));
}

void TestAOI_PopUp::ctrlDragsAVertex()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    drag({101, 21}, {150, 50});
    QCOMPARE(vertices(), QPolygon({{20, 20}, {150, 50}, {60, 80}}));
    QTest::mouseMove(view()->viewport(), at({10, 10})); // released
    QCOMPARE(vertices(), QPolygon({{20, 20}, {150, 50}, {60, 80}}));
}

void TestAOI_PopUp::ctrlFarFromEachVertexDoesNothing()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    drag({150, 100}, {10, 10});
    QCOMPARE(vertices(), triangle);
    QCOMPARE(m_dialog->editor().insertIndex(), 0);
}

void TestAOI_PopUp::ctrlDrawsShapes_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<qsizetype>("count");
    QTest::newRow("rectangle") << 1 << qsizetype(4);
    QTest::newRow("ellipse") << 2 << qsizetype(48);
}

void TestAOI_PopUp::ctrlDrawsShapes()
{
    QFETCH(int, tool);
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    find<QComboBox>("ctrlToolComboBox")->setCurrentIndex(tool);
    press({110, 50}); // without Ctrl still a vertex
    QCOMPARE(vertices().size(), 4);
    drag({30, 40}, {90, 60});
    QTEST(vertices().size(), "count");
    QCOMPARE(vertices().boundingRect(), QRect(QPoint(30, 40), QPoint(90, 60)));
    for (const QPoint &vertex : vertices()) {
        const double x = (vertex.x() - 60) / 30.0;
        const double y = (vertex.y() - 50) / 10.0;
        QVERIFY(tool == 1 ? std::abs(x) == 1 && std::abs(y) == 1 : std::abs(std::hypot(x, y) - 1) < 0.06);
    }
    QTest::keyClick(m_dialog.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(vertices().size(), 4); // the shape was one step
    QCOMPARE(vertices().first(), QPoint(110, 50));
}

void TestAOI_PopUp::stepsOfTheVertices()
{
    openNew();
    for (const QPoint &vertex : triangle)
        press(vertex);
    QTest::keyClick(view(), Qt::Key_Delete);
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(vertices(), triangle);
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(vertices(), triangle.first(2));
    for (int step = 0; step < 5; ++step)
        QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(vertices().isEmpty());
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(vertices(), triangle);
}

void TestAOI_PopUp::markedVertexIsShownAndTyped()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    auto *x = find<QSpinBox>("vertexXSpinBox");
    auto *y = find<QSpinBox>("vertexYSpinBox");
    QVERIFY(!x->isEnabled() && !y->isEnabled());
    press({60, 80}, Qt::RightButton);
    QVERIFY(x->isEnabled() && y->isEnabled());
    QCOMPARE(QPoint(x->value(), y->value()), QPoint(60, 80));
    x->selectAll();
    QTest::keyClicks(x, QStringLiteral("75"));
    QTest::keyClick(x, Qt::Key_Return);
    QTest::keyClick(y, Qt::Key_Up);
    QCOMPARE(vertices(), QPolygon({{20, 20}, {100, 20}, {75, 81}}));
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(vertices(), triangle);
    QCOMPARE(x->value(), 60);
}

void TestAOI_PopUp::findings()
{
    m_model.insertAoi(area(QStringLiteral("near"), {{90, 10}, {150, 10}, {90, 60}}, Qt::green));
    m_model.insertAoi(area(QStringLiteral("far"), {{180, 100}, {190, 100}, {190, 110}}, Qt::green));
    m_model.insertAoi(area(QStringLiteral("A"), triangle, Qt::blue));
    openEdited(m_model.aoi(QStringLiteral("A")));
    const auto *line = find<QLabel>("findingsLabel");
    QCOMPARE(line->text(), QStringLiteral("Overlaps with: near."));
    press({60, 80}, Qt::RightButton);
    press({60, 10});
    QCOMPARE(line->text(), QStringLiteral("Overlaps with: near. The outline meets itself."));
    QTest::keyClick(view(), Qt::Key_Delete);
    m_model.removeAoi(QStringLiteral("near"));
    press({59, 80});
    QCOMPARE(line->text(), QStringLiteral("No overlap; the outline does not meet itself."));
}

void TestAOI_PopUp::othersShowByTheirOpacity()
{
    m_model.insertAoi(area(QStringLiteral("a"), {{90, 10}, {150, 10}, {150, 60}}, QColor(10, 20, 30)));
    m_model.insertAoi(area(QStringLiteral("b"), {{9, 1}, {15, 1}, {15, 6}}, QColor(40, 50, 60)));
    openNew();
    find<QDoubleSpinBox>("opacityspinbox")->setValue(0.5);
    const QList<QGraphicsItem *> polygons = items(QGraphicsPolygonItem::Type);
    QCOMPARE(polygons.size(), 3);
    const auto *first = static_cast<QGraphicsPolygonItem *>(polygons[0]);
    QCOMPARE(first->brush().color(), QColor(10, 20, 30, 127)); // 127.5, truncated
    QCOMPARE(first->pen().color(), QColor(10, 20, 30, 127));
    QCOMPARE(static_cast<QGraphicsPolygonItem *>(polygons[1])->brush().color(), QColor(40, 50, 60, 127));
    find<QDoubleSpinBox>("opacityspinbox")->setValue(0);
    QCOMPARE(static_cast<QGraphicsPolygonItem *>(items(QGraphicsPolygonItem::Type)[0])->brush().color().alpha(), 0);
}

void TestAOI_PopUp::outlineFollowsSizeAndColor()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    QList<QColor> asked;
    QColor answer = Qt::darkGreen;
    m_dialog->setColorChooser([&](const QColor &start) {
        asked << start;
        return answer;
    });
    find<QSpinBox>("linesize")->setValue(7);
    QTest::mouseClick(find<QToolButton>("linecolor"), Qt::LeftButton);
    const auto outline = [this] {
        return static_cast<QGraphicsPolygonItem *>(items(QGraphicsPolygonItem::Type).last());
    };
    QCOMPARE(outline()->pen().color(), QColor(Qt::darkGreen));
    QCOMPARE(outline()->pen().width(), 7);
    QCOMPARE(outline()->brush().color().alpha(), 0);
    QCOMPARE(find<QToolButton>("linecolor")->styleSheet(), QStringLiteral("background-color:#008000"));
    answer = QColor();
    QTest::mouseClick(find<QToolButton>("linecolor"), Qt::LeftButton);
    QTest::mouseClick(find<QToolButton>("aoicolorbutton"), Qt::LeftButton);
    QCOMPARE(outline()->pen().color(), QColor(Qt::darkGreen));
    QCOMPARE(find<QToolButton>("aoicolorbutton")->styleSheet(), QStringLiteral("background-color:#0000ff"));
    QCOMPARE(asked, QList<QColor>(3, Qt::black));
}

void TestAOI_PopUp::highlightedBorder()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    const auto border = [this] {
        const QList<QGraphicsItem *> lines = items(QGraphicsLineItem::Type);
        return lines.isEmpty() ? QLineF() : static_cast<QGraphicsLineItem *>(lines.first())->line();
    };
    QCOMPARE(border(), QLineF()); // nothing is marked
    press({20, 20}, Qt::RightButton);
    QCOMPARE(border(), QLineF(20, 20, 100, 20));
    press({60, 80}, Qt::RightButton);
    QCOMPARE(border(), QLineF(60, 80, 20, 20)); // behind the last comes the first
    QCOMPARE(static_cast<QGraphicsLineItem *>(items(QGraphicsLineItem::Type).first())->pen().color(), QColor(Qt::red));
    QTest::keyClick(view(), Qt::Key_Delete);
    QCOMPARE(border(), QLineF()); // two vertices have one edge
}

void TestAOI_PopUp::acceptWithoutNameStaysOpen()
{
    openNew();
    const RecordedMessages messages;
    QTest::mouseClick(find<QPushButton>("pushButton"), Qt::LeftButton);
    QCOMPARE(messages.texts(),
             QStringList{QStringLiteral("No AOI name specified!|Please specify a name for the new AOI.")});
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_added->count(), 0);
}

void TestAOI_PopUp::acceptGivesTheArea()
{
    openNew();
    for (const QPoint &vertex : triangle)
        press(vertex);
    QTest::keyClicks(find<QLineEdit>("lineEdit"), QStringLiteral("Face"));
    QTest::mouseClick(find<QCheckBox>("aoivalidbox"), Qt::LeftButton, {}, QPoint(8, 8));
    m_dialog->setColorChooser([](const QColor &) { return QColor(1, 2, 3); });
    QTest::mouseClick(find<QToolButton>("aoicolorbutton"), Qt::LeftButton);
    QTest::mouseClick(find<QPushButton>("pushButton"), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_added->count(), 1);
    const auto aoi = m_added->first()[0].value<AreaOfInterest>();
    QCOMPARE(aoi.name, QStringLiteral("Face"));
    QCOMPARE(aoi.polygon, triangle);
    QCOMPARE(aoi.color, QColor(1, 2, 3));
    QVERIFY(!aoi.enabled);
    QVERIFY(m_added->first()[1].toString().isNull());
}

void TestAOI_PopUp::emptyPolygonIsAccepted()
{
    openNew();
    QTest::keyClicks(find<QLineEdit>("lineEdit"), QStringLiteral("Nothing"));
    QTest::mouseClick(find<QPushButton>("pushButton"), Qt::LeftButton);
    QCOMPARE(m_added->count(), 1);
    QVERIFY(m_added->first()[0].value<AreaOfInterest>().polygon.isEmpty());
}

void TestAOI_PopUp::closingANewAreaDropsIt()
{
    openNew();
    press({20, 20});
    QTest::keyClicks(find<QLineEdit>("lineEdit"), QStringLiteral("Face"));
    const RecordedMessages messages;
    QVERIFY(m_dialog->close());
    QCOMPARE(m_added->count(), 0);
    QVERIFY(messages.texts().isEmpty());
}

void TestAOI_PopUp::closingAnEditedAreaAcceptsIt()
{
    AreaOfInterest aoi = area(QStringLiteral("A"), triangle, QColor(1, 2, 3, 150));
    aoi.enabled = false;
    openEdited(aoi);
    QVERIFY(!find<QCheckBox>("aoivalidbox")->isChecked());
    press({5, 5});
    QVERIFY(m_dialog->close());
    QCOMPARE(m_added->count(), 1);
    const auto accepted = m_added->first()[0].value<AreaOfInterest>();
    QCOMPARE(accepted.name, QStringLiteral("A"));
    QCOMPARE(accepted.polygon.size(), 4);
    QCOMPARE(accepted.color, QColor(1, 2, 3, 150));
    QVERIFY(!accepted.enabled);
    QCOMPARE(m_added->first()[1].toString(), QStringLiteral("A"));
}

void TestAOI_PopUp::closingAnEditedAreaWithoutNameIsRefused()
{
    openEdited(area(QStringLiteral("A"), triangle, Qt::blue));
    find<QLineEdit>("lineEdit")->clear();
    const RecordedMessages messages;
    QVERIFY(!m_dialog->close());
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_added->count(), 0);
}

void TestAOI_PopUp::twoWindowsKeepTheirOwnVertices()
{
    const AreaOfInterest aoi = area(QStringLiteral("A"), triangle, Qt::blue);
    AOI_PopUp other(&m_model, aoi.name, aoi.polygon, aoi, picture());
    openEdited(aoi);
    press({5, 5});
    QCOMPARE(vertices().size(), 4);
    QCOMPARE(other.editor().polygon(), triangle);
}

void TestAOI_PopUp::withoutPicture()
{
    AOI_PopUp dialog(nullptr, QString(), triangle, QPixmap());
    QCOMPARE(dialog.findChild<QGraphicsView *>()->scene()->items().size(), 1);
    QCOMPARE(dialog.editor().polygon(), triangle);
}

QTEST_MAIN(TestAOI_PopUp)
#include "TestAOI_PopUp.moc"
