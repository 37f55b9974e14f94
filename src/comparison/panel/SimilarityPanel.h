// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/ScanpathSimilarity.h"

#include <QGroupBox>

#include <functional>

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QTableWidget;
class SimilarityHeatmap;

/// Compares the checked examinations of each picture, pair by pair, and shows one measure at a time: as a square of
/// colours, as a table, and by groups.
class SimilarityPanel : public QGroupBox {
    Q_OBJECT
public:
    explicit SimilarityPanel(QWidget *parent = nullptr);

    /// @param model  must outlive the widget; until one is set nothing is compared.
    void setModel(const DataModel *model) { m_model = model; }
    /// Replaces the dialog that asks for a folder, beginning in one.
    void setFolderChooser(std::function<QString(const QString &folder)> choose) { m_choose = std::move(choose); }

    SimilarityParameters parameters() const;

public Q_SLOTS:
    void compare();
    /// Writes what was compared last into a folder that the user chooses.
    void exportTables();

protected:
    void showEvent(QShowEvent *event) override;

private:
    QFormLayout *makeParameters();
    void makeResults();
    void listColumns();
    void showSets();
    void showMeasure();
    void fillMatrix(const SimilaritySet &set, std::size_t measure);
    void fillGroups(const SimilaritySet &set, std::size_t measure);

    const DataModel *m_model = nullptr;
    std::function<QString(const QString &folder)> m_choose;
    std::vector<SimilaritySet> m_sets;
    QList<QStringList> m_groupRows; ///< of all sets and measures
    QList<QDoubleSpinBox *> m_numbers;
    QComboBox *m_columns; ///< this and the following are children
    QComboBox *m_setBox;
    QComboBox *m_measures;
    SimilarityHeatmap *m_heatmap;
    QTableWidget *m_matrix;
    QLabel *m_groupLabel;
    QTableWidget *m_groups;
    QPushButton *m_export;
};
