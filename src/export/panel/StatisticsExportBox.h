// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/TransitionExport.h"

#include <QGroupBox>

#include <memory>

namespace Ui {
class StatisticsExportBox;
}

/// The part of the export panel that writes statistics. A kind of table can be chosen once there is something to write
/// of it.
class StatisticsExportBox : public QGroupBox {
    Q_OBJECT
public:
    enum class Kind { General, Areas, AreaTransitions, Clusters, CumulativeClusters, AngleStar, Recordings };

    explicit StatisticsExportBox(QWidget *parent = nullptr);
    ~StatisticsExportBox() override;

    /// @param model  must outlive the box and the undo stack's use; until one is set no command is pushed.
    void setModel(DataModel *model) { m_model = model; }

    /// There is something to write of this kind.
    void enable(Kind kind);

    /// Which tables of transitions are chosen.
    TransitionChoice transitionChoice() const;

Q_SIGNALS:
    /// With what the paths of the files begin.
    void transitionsWanted(const QString &stem);
    void angleStarWanted(const QString &stem);

public Q_SLOTS:
    /// Pushes a command or asks for the tables of each check box that is on, in the order of the form.
    void exportChosen();
    void browseFolder();

private:
    void updateButton();

    std::unique_ptr<Ui::StatisticsExportBox> m_ui;
    DataModel *m_model = nullptr;
};
