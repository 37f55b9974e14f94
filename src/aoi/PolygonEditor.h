// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPolygon>

#include <optional>

/// The vertices of an area while somebody edits them: where the next one goes, and the steps back.
///
/// The next vertex goes behind the marked one, and is the marked one from then on. At the start none is marked: the
/// first vertex goes to the front.
class PolygonEditor {
public:
    explicit PolygonEditor(const QPolygon &polygon = {}) : m_now{polygon, 0} {}

    const QPolygon &polygon() const { return m_now.polygon; }
    /// Where the next vertex is inserted, from 0 to the number of vertices.
    qsizetype insertIndex() const { return m_now.insertIndex; }
    /// The vertex before the place of insertion.
    std::optional<QPoint> marked() const;

    void insert(QPoint vertex);
    /// Marks the vertex nearest to the position, the first of equals. Without vertices nothing happens.
    void markNearest(QPoint position);
    /// Removes the marked vertex and marks the one before it; before the first one comes the last.
    void removeMarked();
    /// Without a marked vertex nothing happens.
    void moveMarked(QPoint to);
    /// Marks the vertex nearest to the position, if one lies within the distance (px), for `drag` to move it.
    bool grab(QPoint position, double distancePx);
    /// Moves the grabbed vertex; all moves until the next `grab` are one step.
    void drag(QPoint to);

    /// Begins a shape; until `dragShape` nothing changes.
    void grabNothing() { m_dragBegins = true; }
    /// Puts the vertices of a shape in the place of all and marks the last one; all shapes until the next `grab` or
    /// `grabNothing` are one step.
    void dragShape(const QPolygon &polygon);

    /// Takes the last change of the vertices back, or does it again; false if there is none. Marking is no change.
    bool undo();
    bool redo();

private:
    struct State {
        QPolygon polygon;
        qsizetype insertIndex;
    };

    std::optional<qsizetype> nearest(QPoint position) const;
    void keepStep();

    State m_now;
    QList<State> m_done;
    QList<State> m_undone;
    bool m_dragBegins = false; ///< the next move is the first of its step
};
