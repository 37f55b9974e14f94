// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/ScanpathSimilarity.h"

#include <QWidget>

/// One measure of all pairs of a set as a square of colours, with its scale below. A cell tells its value as tool tip.
class SimilarityHeatmap : public QWidget {
    Q_OBJECT
public:
    explicit SimilarityHeatmap(QWidget *parent = nullptr);

    /// @param measure  place in `similarityMeasures`. A set without pairs shows nothing.
    void show(const SimilaritySet &set, std::size_t measure);

    /// What the cell at a place of the widget stands for; empty beside the cells.
    QString textAt(QPointF place) const;
    /// The colour of a value: from dark for the least to bright for the most of the scale; grey where it is not
    /// defined.
    QColor colorOf(double value) const;

    QSize sizeHint() const override { return {280, 320}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    QRectF square() const;
    void paintScale(QPainter &painter, const QRectF &cells) const;

    SimilaritySet m_set;
    std::size_t m_measure = 0;
    double m_least = 0;
    double m_most = 1;
};
