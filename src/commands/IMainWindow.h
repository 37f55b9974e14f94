// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataKind.h"

#include <QList>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <optional>

struct Examination;

/// What a calculation or an import has to say when it is done, in one line and, on demand, in many.
struct Notice {
    bool operator==(const Notice &) const = default;

    QString text;
    QStringList warnings;
    std::optional<DataKind> kind; ///< of the data that were made
};

/// What commands and panels need of the main window, so that none of them includes the application.
class IMainWindow {
public:
    virtual ~IMainWindow() = default;

    /// Adds the row of a new examination to the table and rebuilds what lists images and properties.
    virtual void addTableRow(const Examination &examination) = 0;

    /// Removes the table rows of the examinations with these numbers: for each row from the top, the numbers are
    /// compared in order, and a match removes the row at this place before the next number is tried.
    virtual void removeTableRows(const QList<int> &numbers) = 0;

    /// Examinations were imported: the plain background is drawn anew if it is the one shown.
    virtual void refreshPlainBackground() = 0;

    /// Recordings were imported again by a redo: outliers, time span and picture follow, as after an import.
    virtual void showImported() = 0;

    /// Width of the picture that is shown behind the drawing, in pixels.
    virtual int stimulusWidthPx() const = 0;

    /// The picture that is shown behind the drawing. A window without one may leave this out.
    virtual QPixmap stimulus() const { return {}; }
    /// Whether that is a picture, and not the plain background.
    virtual bool hasStimulus() const { return !stimulus().isNull(); }

    /// Tells the user what came of a calculation, without asking for attention. A window may have no place for it.
    virtual void tell(const Notice &) {}

    virtual void redraw() = 0;

    /// Examinations, groups or colours have changed: the picture is drawn anew.
    virtual void updateAndRedraw() = 0;

    /// From here to as many calls of `releaseRedraw` picture and table wait; then the picture is drawn once, if it was
    /// to be drawn at all. A window without a picture may leave both out.
    virtual void holdRedraw() {}
    virtual void releaseRedraw() {}
};

/// Holds the picture while it lives: for many changes at a time, each of which would draw it anew.
class RedrawHold {
public:
    explicit RedrawHold(IMainWindow &window) : RedrawHold(&window) {}
    /// Without a window nothing is drawn, nor held.
    explicit RedrawHold(IMainWindow *window) : m_window(window)
    {
        if (m_window)
            m_window->holdRedraw();
    }
    ~RedrawHold()
    {
        if (m_window)
            m_window->releaseRedraw();
    }
    RedrawHold(const RedrawHold &) = delete;
    RedrawHold &operator=(const RedrawHold &) = delete;

private:
    IMainWindow *m_window;
};
