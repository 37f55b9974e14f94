#pragma once

#include "diagram/ChordData.h"

#include <QGraphicsScene>
#include <QWidget>

class QGraphicsView;

/// The window that shows the chord diagram. It fills the window at any size.
class add_diagram : public QWidget {
    Q_OBJECT
public:
    explicit add_diagram(QWidget *parent = nullptr);

    void showDiagram(const ChordData &chords);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QGraphicsScene m_scene;
    QGraphicsView *m_view; ///< a child
};
