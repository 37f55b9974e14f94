// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/PolygonEditor.h"
#include "commands/panel/ColorButton.h"
#include "model/AreaOfInterest.h"

#include <QGraphicsScene>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace Ui {
class AOI_PopUp;
}
class DataModel;
class QGraphicsPixmapItem;
class QMouseEvent;

/// The window in which somebody draws one area of interest over the stimulus.
///
/// A left click sets a vertex behind the marked one, a right click marks the nearest, Del and Backspace remove the
/// marked one. With Ctrl, the left button drags a vertex or draws a rectangle or an ellipse, as chosen. Several windows
/// may be open at a time, each with vertices of its own. Closing the window of a new area drops it, closing that of an
/// edited one accepts it.
class AOI_PopUp : public QWidget {
    Q_OBJECT
public:
    /// For a new area. The model, which may be null, gives the areas behind it and is to outlive the window.
    AOI_PopUp(const DataModel *model, const QString &name, const QPolygon &polygon, const QPixmap &pixmap,
              QWidget *parent = nullptr);
    /// For an area that there is.
    AOI_PopUp(const DataModel *model, const QString &name, const QPolygon &polygon, const AreaOfInterest &aoi,
              const QPixmap &pixmap, QWidget *parent = nullptr);
    ~AOI_PopUp() override;

    const PolygonEditor &editor() const { return m_editor; }

    /// In place of the dialog that both colour buttons open.
    void setColorChooser(const ColorChooser &chooser) { m_chooseColor = chooser; }

Q_SIGNALS:
    /// The area is accepted; `oldName` is the name with which the window was opened, null for a new area.
    void sigAddAOI(const AreaOfInterest &aoi, const QString &oldName);

public Q_SLOTS:
    /// Takes the area over and closes the window; without a name it tells so and stays open.
    void acceptAOI();
    void sltDominantColor();
    void sltLineColor();
    void sltLineSZ();
    void sltOpac();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    enum class CtrlTool { Vertex, Rectangle, Ellipse };

    void setUp();
    void setUpView();
    void connectForm();
    bool takeMouse(const QEvent &event);
    bool takeKey(const QEvent &event);
    CtrlTool ctrlTool() const;
    bool takePress(const QMouseEvent &event);
    bool takeMove(const QMouseEvent &event);
    void beginDrag(QPoint position);
    QPolygon shapeTo(QPoint corner) const;
    QPoint scenePosition(const QMouseEvent &event) const;
    void stepBack();
    void stepForth();
    void moveMarked(QPoint to);

    void redraw();
    void drawOthers();
    void drawBorder();
    void drawMark();
    void showVertex();
    void showFindings();

    std::unique_ptr<Ui::AOI_PopUp> m_ui;
    const DataModel *m_model;
    PolygonEditor m_editor;
    QString m_oldName; ///< null for a new area
    QPixmap m_pixmap;
    AreaOfInterest m_aoi; ///< its colour and whether it is enabled, while edited
    QGraphicsScene m_scene;
    const QGraphicsItem *m_image = nullptr; ///< in the scene; null without a picture
    ColorChooser m_chooseColor;
    QColor m_lineColor = Qt::red;
    double m_opacity = 0; ///< of the other areas, 0 to 1
    int m_lineSize = 1;   ///< px
    bool m_accepted = false;
    bool m_isFitted = false; ///< the picture has been fitted into the view
    bool m_isDragging = false;
    QPoint m_dragStart; ///< px in the picture
};
