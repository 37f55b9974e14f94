// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class DataModel;
class SimilarityPanel;

/// The page of scanpath comparison: by the outside program iComp, and by measures of our own.
class ScanpathCompareControl : public QWidget {
    Q_OBJECT
public:
    explicit ScanpathCompareControl(QWidget *parent = nullptr);

    /// @param model  must outlive the widget.
    void setModel(const DataModel *model);

public Q_SLOTS:
    /// Hands the fixations of the checked examinations to iComp, which leaves its result as a file.
    void sltCompare();

private:
    const DataModel *m_model = nullptr;
    SimilarityPanel *m_similarity; ///< a child
};
