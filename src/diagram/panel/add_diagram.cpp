// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/panel/add_diagram.h"

#include "base/Messages.h"
#include "base/OwnLibrary.h"
#include "diagram/ChordShapes.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsView>
#include <QOpenGLContext>
#include <QStackedLayout>
#include <QUrl>
#include <QVBoxLayout>

namespace {

/// The engine draws with OpenGL, in a context that must have been made with the application.
std::unique_ptr<IChordPage> makePage()
{
    std::unique_ptr<IChordPage> page;
    if (!QOpenGLContext::globalShareContext())
        return page;
    const auto make =
        reinterpret_cast<MakeChordPage>(ownLibraryFunction(QLatin1StringView(chordPageLibrary), makeChordPageName));
    if (make)
        make(page);
    return page;
}

} // namespace

add_diagram::add_diagram(QWidget *parent) : QWidget(parent), m_view(new QGraphicsView), m_stack(new QStackedLayout)
{
    setWindowTitle(tr("Transition diagram"));
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(m_stack);
    m_stack->addWidget(m_view);
    m_view->setScene(&m_scene);
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setBackgroundBrush(Qt::white);
}

add_diagram::~add_diagram() = default;

void add_diagram::showDiagram(const ChordData &chords, const QUrl &page)
{
    constexpr QSize firstSize(800, 900);
    if (!isVisible())
        resize(firstSize);
    if (!showPage(page))
        drawDiagram(chords);
    show();
    raise();
    m_view->fitInView(m_scene.sceneRect(), Qt::KeepAspectRatio);
}

bool add_diagram::showPage(const QUrl &page)
{
    if (!m_page)
        m_page = makePage();
    if (!m_page)
        return false;
    if (m_stack->indexOf(m_page->widget()) < 0)
        m_stack->addWidget(m_page->widget());
    const IChordPage::Loaded loaded = m_page->load(page);
    if (loaded == IChordPage::Loaded::WithoutScripts)
        messages::information(QStringLiteral("Javascript is disabled"),
                              QStringLiteral("Javascript is disabled  and it is not possible to enable it")); // sic
    if (loaded != IChordPage::Loaded::Yes)
        return false;
    m_stack->setCurrentWidget(m_page->widget());
    return true;
}

void add_diagram::drawDiagram(const ChordData &chords)
{
    m_scene.clear();
    addItems(m_scene, chordShapes(chords));
    m_scene.setSceneRect(m_scene.itemsBoundingRect());
    m_stack->setCurrentWidget(m_view);
}

void add_diagram::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_view->fitInView(m_scene.sceneRect(), Qt::KeepAspectRatio);
}
