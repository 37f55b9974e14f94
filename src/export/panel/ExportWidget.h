#pragma once

#include <QWidget>

#include <memory>

class DataModel;
class QCheckBox;

namespace Ui {
class ExportWidget;
}

/// Writes what was computed into table files. A kind of table can be chosen once there is something to write of it.
class ExportWidget : public QWidget {
    Q_OBJECT
public:
    explicit ExportWidget(QWidget *parent = nullptr);
    ~ExportWidget() override;

    /// @param model  must outlive the widget and the undo stack's use; until one is set nothing is exported.
    void setModel(DataModel *model) { m_model = model; }

public Q_SLOTS:
    /// Pushes a command for each check box that is on, in the order of the form.
    void sltExportData();
    void sltBrowseDataExportFolder();
    /// Fixations were calculated, or their check box was clicked: it can be chosen, and the button follows.
    void sltEnableFixationExport();
    void sltEnableFixationClusterExport();
    void sltEnableEventExport();
    void sltEnableCumulativeClusterExport();
    /// Stores a choice, a Qt::CheckState, for which the form has no control any more.
    void sltExportAppendInfo(int state);

private:
    void enable(QCheckBox *kind);

    std::unique_ptr<Ui::ExportWidget> ui;
    DataModel *m_model = nullptr;
};
