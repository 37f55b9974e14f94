// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DrawingContext.h"

#include <QObject>

#include <functional>
#include <memory>

class QUrl;
class add_diagram;
class controlWidget;
struct ChordData;

/// The chord diagram of the transitions between areas: its window, its page in the browser, and its export.
class DiagramControl : public QObject {
    Q_OBJECT
public:
    /// @param context  what is drawn now; its areas say which transitions are meant.
    /// @param control  whose areas and exports it follows.
    DiagramControl(std::function<DrawingContext()> context, controlWidget &control);
    ~DiagramControl() override;

    /// In place of the browser.
    void setPageOpener(const std::function<void(const QUrl &)> &open) { m_openPage = open; }

    void hide();

public Q_SLOTS:
    void sltExport_aoi_trans_vis_Image(const QString &path);

private:
    /// After the areas were drawn on demand: the diagram is shown where it is their mode, and what is missing is told.
    /// A move of the timeline must do neither.
    void followAreas();
    ChordData diagram() const;
    void show();

    std::function<DrawingContext()> m_context;
    std::function<void(const QUrl &)> m_openPage;
    std::unique_ptr<add_diagram> m_window;
};
