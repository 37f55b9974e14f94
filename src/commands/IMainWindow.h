#pragma once

#include <QList>
#include <QPixmap>

struct Examination;

/// What commands and panels need of the main window, so that none of them includes the application.
class IMainWindow {
public:
    virtual ~IMainWindow() = default;

    /// Adds the row of a new examination to the table and rebuilds what lists images and properties.
    virtual void addTableRow(const Examination &examination) = 0;

    /// Removes the table rows of the examinations with these numbers: for each row from the top, the numbers are
    /// compared in order, and a match removes the row at this place before the next number is tried.
    virtual void removeTableRows(const QList<int> &numbers) = 0;

    /// An examination was imported: the plain background is drawn anew if it is the one shown.
    virtual void refreshPlainBackground() = 0;

    /// Recordings were imported again by a redo: outliers, time span and picture follow, as after an import.
    virtual void showImported() = 0;

    /// Width of the picture that is shown behind the drawing, in pixels.
    virtual int stimulusWidthPx() const = 0;

    /// The picture that is shown behind the drawing. A window without one may leave this out.
    virtual QPixmap stimulus() const { return {}; }
    /// Whether that is a picture, and not the plain background.
    virtual bool hasStimulus() const { return !stimulus().isNull(); }

    virtual void redraw() = 0;

    /// Examinations, groups or colours have changed: the picture is drawn anew.
    virtual void updateAndRedraw() = 0;

    /// From here to as many calls of `releaseRedraw` the picture waits; then it is drawn once, if it was to be drawn at
    /// all. A window without a picture may leave both out.
    virtual void holdRedraw() {}
    virtual void releaseRedraw() {}
};

/// Holds the picture while it lives: for many changes at a time, each of which would draw it anew.
class RedrawHold {
public:
    explicit RedrawHold(IMainWindow &window) : m_window(window) { m_window.holdRedraw(); }
    ~RedrawHold() { m_window.releaseRedraw(); }
    RedrawHold(const RedrawHold &) = delete;
    RedrawHold &operator=(const RedrawHold &) = delete;

private:
    IMainWindow &m_window;
};
