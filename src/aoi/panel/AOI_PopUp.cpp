// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/AOI_PopUp.h"
#include "ui_AOI_PopUp.h"

#include "aoi/PolygonChecks.h"
#include "base/Messages.h"
#include "base/Truncation.h"
#include "model/Canvas.h"
#include "model/DataModel.h"

#include <QCloseEvent>
#include <QColorDialog>
#include <QGraphicsPixmapItem>
#include <QGraphicsPolygonItem>
#include <QMouseEvent>
#include <QShortcut>
#include <QSignalBlocker>

#include <cmath>
#include <numbers>

namespace {

/// The dialog is Qt's own, so that it looks alike everywhere; it begins with black.
ColorChooser drawingColorDialog(QWidget *parent)
{
    return [parent](const QColor &start) {
        return QColorDialog::getColor(start, parent, QStringLiteral("Text Color"), QColorDialog::DontUseNativeDialog);
    };
}

QPolygon rectanglePolygon(QPoint corner, QPoint opposite)
{
    return {corner, QPoint(opposite.x(), corner.y()), opposite, QPoint(corner.x(), opposite.y())};
}

/// The ellipse that fills the rectangle, each vertex rounded to the nearest pixel.
QPolygon ellipseBetween(QPoint corner, QPoint opposite)
{
    constexpr int vertices = 48;
    const QPointF center = (corner.toPointF() + opposite.toPointF()) / 2;
    const QPointF radii = (opposite.toPointF() - corner.toPointF()) / 2;
    QPolygon polygon;
    for (int i = 0; i < vertices; ++i) {
        const double angle = 2 * std::numbers::pi * i / vertices;
        polygon << (center + QPointF(radii.x() * std::cos(angle), radii.y() * std::sin(angle))).toPoint();
    }
    return polygon;
}

} // namespace

AOI_PopUp::AOI_PopUp(const DataModel *model, const QString &name, const QPolygon &polygon, const QPixmap &pixmap,
                     QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::AOI_PopUp>())
    , m_model(model)
    , m_editor(polygon)
    , m_pixmap(pixmap)
    , m_aoi(name, polygon)
{
    setUp();
}

AOI_PopUp::AOI_PopUp(const DataModel *model, const QString &name, const QPolygon &polygon, const AreaOfInterest &aoi,
                     const QPixmap &pixmap, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::AOI_PopUp>())
    , m_model(model)
    , m_editor(polygon)
    , m_oldName(name)
    , m_pixmap(pixmap)
    , m_aoi(aoi)
{
    m_aoi.name = name;
    setUp();
}

AOI_PopUp::~AOI_PopUp() = default;

// ---- form

void AOI_PopUp::setUp()
{
    m_ui->setupUi(this);
    m_chooseColor = drawingColorDialog(this);
    if (!m_aoi.name.isNull())
        m_ui->lineEdit->setText(m_aoi.name);
    m_ui->aoivalidbox->setChecked(m_aoi.enabled);
    showColor(m_ui->aoicolorbutton, m_aoi.color);
    showColor(m_ui->linecolor, m_lineColor);
    setUpView();
    connectForm();
    redraw();
}

void AOI_PopUp::setUpView()
{
    QRect shown = m_pixmap.isNull() ? QRect(0, 0, canvas::width, canvas::height) : m_pixmap.rect();
    if (m_editor.polygon().size() > 0)
        shown = shown.united(m_editor.polygon().boundingRect());
    m_scene.setSceneRect(shown); // fixed: the picture would jump while one draws beyond its edge
    if (!m_pixmap.isNull())
        m_image = m_scene.addPixmap(m_pixmap);
    m_ui->graphicsView->setScene(&m_scene);
    m_ui->graphicsView->setDragMode(QGraphicsView::NoDrag);
    m_ui->graphicsView->setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    m_ui->graphicsView->viewport()->setCursor(Qt::CrossCursor);
    m_ui->graphicsView->installEventFilter(this); // keys
    m_ui->graphicsView->viewport()->installEventFilter(this);
}

void AOI_PopUp::connectForm()
{
    connect(m_ui->pushButton, &QPushButton::clicked, this, &AOI_PopUp::acceptAOI);
    connect(m_ui->linecolor, &QToolButton::clicked, this, &AOI_PopUp::sltLineColor);
    connect(m_ui->aoicolorbutton, &QToolButton::clicked, this, &AOI_PopUp::sltDominantColor);
    connect(m_ui->linesize, &QSpinBox::valueChanged, this, &AOI_PopUp::sltLineSZ);
    connect(m_ui->opacityspinbox, &QDoubleSpinBox::valueChanged, this, &AOI_PopUp::sltOpac);
    connect(m_ui->vertexXSpinBox, &QSpinBox::valueChanged, this, [this](int x) {
        moveMarked({x, m_editor.marked().value_or(QPoint()).y()});
    });
    connect(m_ui->vertexYSpinBox, &QSpinBox::valueChanged, this, [this](int y) {
        moveMarked({m_editor.marked().value_or(QPoint()).x(), y});
    });
    connect(m_ui->lineEdit, &QLineEdit::textChanged, this, &AOI_PopUp::showFindings);
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this, &AOI_PopUp::stepBack);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), this), &QShortcut::activated, this,
            &AOI_PopUp::stepForth);
}

void AOI_PopUp::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!std::exchange(m_isFitted, true))
        m_ui->graphicsView->fit(m_scene.sceneRect());
}

void AOI_PopUp::sltDominantColor()
{
    const QColor color = m_chooseColor(Qt::black);
    if (!color.isValid())
        return;
    m_aoi.color = color;
    showColor(m_ui->aoicolorbutton, color);
}

void AOI_PopUp::sltLineColor()
{
    const QColor color = m_chooseColor(Qt::black);
    if (!color.isValid())
        return;
    m_lineColor = color;
    showColor(m_ui->linecolor, color);
    redraw();
}

void AOI_PopUp::sltLineSZ()
{
    m_lineSize = m_ui->linesize->value();
    redraw();
}

void AOI_PopUp::sltOpac()
{
    m_opacity = m_ui->opacityspinbox->value();
    redraw();
}

// ---- accept and close

void AOI_PopUp::acceptAOI()
{
    const QString name = m_ui->lineEdit->text();
    if (name.isEmpty()) {
        messages::information(QStringLiteral("No AOI name specified!"),
                              QStringLiteral("Please specify a name for the new AOI."));
        return;
    }
    AreaOfInterest aoi(name, m_editor.polygon());
    aoi.color = m_aoi.color;
    aoi.enabled = m_ui->aoivalidbox->isChecked();
    m_accepted = true;
    Q_EMIT sigAddAOI(aoi, m_oldName);
    close();
}

void AOI_PopUp::closeEvent(QCloseEvent *event)
{
    if (!m_accepted && !m_oldName.isNull())
        acceptAOI();
    event->setAccepted(m_accepted || m_oldName.isNull());
}

// ---- mouse and keys

bool AOI_PopUp::eventFilter(QObject *watched, QEvent *event)
{
    const bool isTaken = watched == m_ui->graphicsView->viewport() ? takeMouse(*event) : takeKey(*event);
    return isTaken || QWidget::eventFilter(watched, event);
}

bool AOI_PopUp::takeMouse(const QEvent &event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        return takePress(static_cast<const QMouseEvent &>(event));
    case QEvent::MouseMove:
        return takeMove(static_cast<const QMouseEvent &>(event));
    case QEvent::MouseButtonRelease:
        m_isDragging = false;
        return false;
    default:
        return false;
    }
}

QPoint AOI_PopUp::scenePosition(const QMouseEvent &event) const
{
    return m_ui->graphicsView->mapToScene(event.position().toPoint()).toPoint();
}

bool AOI_PopUp::takePress(const QMouseEvent &event)
{
    const QPoint position = scenePosition(event);
    if (event.button() == Qt::RightButton)
        m_editor.markNearest(position);
    else if (event.button() == Qt::LeftButton && event.modifiers().testFlag(Qt::ControlModifier))
        beginDrag(position);
    else if (event.button() == Qt::LeftButton)
        m_editor.insert(position);
    else
        return false;
    redraw();
    return true;
}

void AOI_PopUp::beginDrag(QPoint position)
{
    constexpr double reachPx = 12; // on the screen
    const double scale = m_ui->graphicsView->transform().m11();
    m_dragStart = position;
    if (ctrlTool() == CtrlTool::Vertex) {
        m_isDragging = m_editor.grab(position, reachPx / scale);
        return;
    }
    m_editor.grabNothing();
    m_isDragging = true;
}

AOI_PopUp::CtrlTool AOI_PopUp::ctrlTool() const
{
    return static_cast<CtrlTool>(m_ui->ctrlToolComboBox->currentIndex());
}

bool AOI_PopUp::takeMove(const QMouseEvent &event)
{
    if (!m_isDragging)
        return false;
    const QPoint position = scenePosition(event);
    if (ctrlTool() == CtrlTool::Vertex)
        m_editor.drag(position);
    else
        m_editor.dragShape(shapeTo(position));
    redraw();
    return true;
}

QPolygon AOI_PopUp::shapeTo(QPoint corner) const
{
    return ctrlTool() == CtrlTool::Rectangle ? rectanglePolygon(m_dragStart, corner)
                                             : ellipseBetween(m_dragStart, corner);
}

bool AOI_PopUp::takeKey(const QEvent &event)
{
    if (event.type() != QEvent::KeyRelease)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    if (key != Qt::Key_Delete && key != Qt::Key_Backspace)
        return false;
    m_editor.removeMarked();
    redraw();
    return true;
}

void AOI_PopUp::stepBack()
{
    if (m_editor.undo())
        redraw();
}

void AOI_PopUp::stepForth()
{
    if (m_editor.redo())
        redraw();
}

void AOI_PopUp::moveMarked(QPoint to)
{
    m_editor.moveMarked(to);
    redraw();
}

// ---- drawing

void AOI_PopUp::redraw()
{
    const QList<QGraphicsItem *> drawn = m_scene.items();
    for (QGraphicsItem *item : drawn) {
        if (item == m_image)
            continue;
        m_scene.removeItem(item);
        const std::unique_ptr<QGraphicsItem> gone(item);
    }
    drawOthers();
    m_scene.addPolygon(m_editor.polygon(), QPen(m_lineColor, m_lineSize), QBrush(Qt::transparent));
    drawBorder();
    drawMark();
    showVertex();
    showFindings();
}

void AOI_PopUp::drawOthers()
{
    constexpr int opaque = 255;
    if (!m_model)
        return;
    for (const AreaOfInterest &aoi : m_model->aoiList()) {
        QColor color = aoi.color;
        color.setAlpha(truncated(m_opacity * opaque));
        m_scene.addPolygon(aoi.polygon, color, color);
    }
}

/// The edge into which the next vertex goes.
void AOI_PopUp::drawBorder()
{
    const QPolygon &polygon = m_editor.polygon();
    const qsizetype next = m_editor.insertIndex();
    if (next < 1 || polygon.size() <= 2)
        return;
    const QPoint to = next == polygon.size() ? polygon.first() : polygon[next];
    m_scene.addLine(QLineF(polygon[next - 1], to), QPen(Qt::red, m_lineSize));
}

/// A ring around the marked vertex, of the same size at each zoom. The border alone does not show on a red outline.
void AOI_PopUp::drawMark()
{
    constexpr double radiusPx = 5;
    const std::optional<QPoint> vertex = m_editor.marked();
    if (!vertex)
        return;
    QGraphicsItem *ring = m_scene.addEllipse(-radiusPx, -radiusPx, 2 * radiusPx, 2 * radiusPx, QPen(Qt::black, 2));
    ring->setFlag(QGraphicsItem::ItemIgnoresTransformations);
    ring->setPos(*vertex);
}

void AOI_PopUp::showVertex()
{
    const std::optional<QPoint> vertex = m_editor.marked();
    const auto show = [&](QSpinBox *box, int value) {
        const QSignalBlocker blocker(box);
        box->setEnabled(vertex.has_value());
        box->setValue(value);
    };
    show(m_ui->vertexXSpinBox, vertex.value_or(QPoint()).x());
    show(m_ui->vertexYSpinBox, vertex.value_or(QPoint()).y());
}

void AOI_PopUp::showFindings()
{
    QStringList findings;
    const QString own = m_oldName.isNull() ? m_ui->lineEdit->text() : m_oldName;
    if (m_model) {
        const QStringList names = overlappedNames(m_editor.polygon(), own, m_model->aoiList());
        if (!names.isEmpty())
            findings << tr("Overlaps with: %1.").arg(names.join(QLatin1StringView(", ")));
    }
    if (crossesItself(m_editor.polygon()))
        findings << tr("The outline meets itself.");
    m_ui->findingsLabel->setText(findings.isEmpty() ? tr("No overlap; the outline does not meet itself.")
                                                    : findings.join(u' '));
}
