#pragma once

#include "model/EyeMode.h"

#include <QWidget>

#include <memory>

class DataModel;
class DataWidget;
class ExportWidget;
class FixationControl;
class IMainWindow;
class Log;

namespace Ui {
class controlWidget;
}

/// The right pane of the main window: owns the panels, in tabs and tool boxes.
class controlWidget : public QWidget {
    Q_OBJECT
public:
    explicit controlWidget(QWidget *parent = nullptr);
    ~controlWidget() override;

    void setModel(DataModel *model);
    void setMainWindow(IMainWindow *window);
    void setLog(const Log *log);

    DataWidget &dataWidget();
    FixationControl &fixationControl();
    ExportWidget &exportWidget();

Q_SIGNALS:
    void sigGraphicsParametersChanged();

public Q_SLOTS:
    /// Opens a further view of the undo stack in a window of its own.
    void sltShowCommandProcessor();

private Q_SLOTS:
    void sltEyeModeChanged(int index);

private:
    std::unique_ptr<Ui::controlWidget> m_ui;
};
