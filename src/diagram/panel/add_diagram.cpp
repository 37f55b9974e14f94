#include "diagram/panel/add_diagram.h"

#include "diagram/ChordShapes.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsView>
#include <QVBoxLayout>

add_diagram::add_diagram(QWidget *parent) : QWidget(parent), m_view(new QGraphicsView(this))
{
    setWindowTitle(tr("Transition diagram"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_view);
    m_view->setScene(&m_scene);
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setBackgroundBrush(Qt::white);
}

void add_diagram::showDiagram(const ChordData &chords)
{
    constexpr QSize firstSize(800, 900);
    m_scene.clear();
    addItems(m_scene, chordShapes(chords));
    m_scene.setSceneRect(m_scene.itemsBoundingRect());
    if (!isVisible())
        resize(firstSize);
    show();
    raise();
    m_view->fitInView(m_scene.sceneRect(), Qt::KeepAspectRatio);
}

void add_diagram::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_view->fitInView(m_scene.sceneRect(), Qt::KeepAspectRatio);
}
