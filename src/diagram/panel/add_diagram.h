// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "diagram/ChordData.h"
#include "diagram/panel/ChordPage.h"

#include <QGraphicsScene>
#include <QWidget>

class QGraphicsView;
class QStackedLayout;

/// The window that shows the chord diagram as its page. Where there is no web engine, it draws the same diagram
/// itself, without what the page does under the mouse. It fills the window at any size.
class add_diagram : public QWidget {
    Q_OBJECT
public:
    explicit add_diagram(QWidget *parent = nullptr);
    ~add_diagram() override;

    /// @param page  index.htm with the files of the same data beside it.
    void showDiagram(const ChordData &chords, const QUrl &page);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    bool showPage(const QUrl &page);
    void drawDiagram(const ChordData &chords);

    QGraphicsScene m_scene;
    QGraphicsView *m_view;   ///< a child
    QStackedLayout *m_stack; ///< a child
    std::unique_ptr<IChordPage> m_page;
};
