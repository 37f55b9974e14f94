// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "commands/ChangesPicture.h"
#include "model/CalculationInfo.h"
#include "model/EyeData.h"

#include <QHash>
#include <QUndoCommand>

#include <array>

class DataModel;
class IMainWindow;

/// Clusters the fixations of each checked examination.
///
/// Undo gives each of them back its clusters and the text of what was done before; the `cluster` of the fixations and
/// the pooled containers stay as the calculation left them. Redo calculates again.
class CommandCalculateClusters : public QUndoCommand, public ChangesPicture {
public:
    /// @param window  is told what came of it; may be null.
    CommandCalculateClusters(DataModel &model, const ClusterParameters &parameters, IMainWindow *window = nullptr);

    void undo() override;
    void redo() override;

    const ClusterParameters &parameters() const { return m_parameters; }

private:
    struct Before {
        QList<FixationCluster> left;
        QList<FixationCluster> right;
        QList<FixationCluster> mean;
        QString text;
    };

    DataModel &m_model;
    const ClusterParameters m_parameters;
    IMainWindow *m_window;
    QHash<qsizetype, Before> m_before; ///< by place in the list of examinations
};

/// Clusters the fixations of all checked examinations together.
///
/// Undo brings back the four pooled containers, the model's texts and the text of each examination. Redo calculates
/// again.
class CommandCalculateCumulativeClusters : public QUndoCommand, public ChangesPicture {
public:
    /// @param window  is told what came of it; may be null.
    CommandCalculateCumulativeClusters(DataModel &model, const ClusterParameters &parameters,
                                       IMainWindow *window = nullptr);

    void undo() override;
    void redo() override;

    const ClusterParameters &parameters() const { return m_parameters; }

private:
    DataModel &m_model;
    const ClusterParameters m_parameters;
    IMainWindow *m_window;
    std::array<EyeData, 4> m_pooled;              ///< by selection
    CalculationInfo m_texts;                      ///< of the model
    QHash<qsizetype, QString> m_examinationTexts; ///< by place in the list of examinations
};
