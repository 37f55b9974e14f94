// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/panel/SimilarityHeatmap.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double margin = 24; ///< px, for the numbers of the recordings
constexpr double scaleHeight = 36;
constexpr qsizetype mostNumbers = 25; ///< recordings; of more the numbers would overlap

/// Brightness rises evenly, also where colours are not told apart. Source: the colour map viridis, nine stops.
constexpr std::array<QRgb, 9> stops{0xff440154, 0xff472d7b, 0xff3b528b, 0xff2c728e, 0xff21918c,
                                    0xff28ae80, 0xff5ec962, 0xffaddc30, 0xfffde725};

int between(int first, int second, double share)
{
    return static_cast<int>(std::lround(first + (second - first) * share));
}

QColor onScale(double share)
{
    const double place = std::clamp(share, 0.0, 1.0) * (stops.size() - 1);
    const auto stop = std::min(static_cast<std::size_t>(place), stops.size() - 2);
    const double rest = place - static_cast<double>(stop);
    const QRgb a = stops[stop];
    const QRgb b = stops[stop + 1];
    return {between(qRed(a), qRed(b), rest), between(qGreen(a), qGreen(b), rest), between(qBlue(a), qBlue(b), rest)};
}

} // namespace

SimilarityHeatmap::SimilarityHeatmap(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(220, 240);
}

void SimilarityHeatmap::show(const SimilaritySet &set, std::size_t measure)
{
    m_set = set;
    m_measure = measure;
    m_least = similarityMeasures()[measure].least;
    m_most = similarityMeasures()[measure].most;
    if (std::isinf(m_most)) {
        m_most = m_least;
        for (const ScanpathPair &pair : m_set.pairs)
            m_most = std::isnan(pair.values[measure]) ? m_most : std::max(m_most, pair.values[measure]);
    }
    update();
}

QColor SimilarityHeatmap::colorOf(double value) const
{
    if (std::isnan(value))
        return palette().color(QPalette::Mid);
    return onScale(m_most > m_least ? (value - m_least) / (m_most - m_least) : 0);
}

QRectF SimilarityHeatmap::square() const
{
    const double side = std::max(1.0, std::min(width() - margin - 2, height() - margin - scaleHeight));
    return {margin, margin, side, side};
}

QString SimilarityHeatmap::textAt(QPointF place) const
{
    const QRectF cells = square();
    const qsizetype count = m_set.recordings.size();
    if (m_set.pairs.empty() || !cells.contains(place))
        return {};
    const auto placeOf = [&](double distance, double extent) {
        return std::min(static_cast<qsizetype>(distance / extent * static_cast<double>(count)), count - 1);
    };
    const qsizetype row = placeOf(place.y() - cells.top(), cells.height());
    const qsizetype column = placeOf(place.x() - cells.left(), cells.width());
    if (row == column)
        return m_set.recordings[row].recording;
    const double value = m_set.value(row, column, m_measure);
    return QStringLiteral("%1, %2: %3")
        .arg(m_set.recordings[row].recording, m_set.recordings[column].recording,
             std::isnan(value) ? QStringLiteral("not defined") : QString::number(value, 'g', 4));
}

bool SimilarityHeatmap::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), textAt(help->pos()), this);
    return true;
}

void SimilarityHeatmap::paintEvent(QPaintEvent *)
{
    if (m_set.pairs.empty())
        return;
    QPainter painter(this);
    const QRectF cells = square();
    const qsizetype count = m_set.recordings.size();
    const double side = cells.width() / static_cast<double>(count);
    for (qsizetype row = 0; row < count; ++row) {
        const double y = cells.top() + side * static_cast<double>(row);
        if (count <= mostNumbers) {
            painter.drawText(QRectF(0, y, margin - 4, side), Qt::AlignRight | Qt::AlignVCenter,
                             QString::number(row + 1));
            painter.drawText(QRectF(margin + y - cells.top(), 0, side, margin - 2), Qt::AlignHCenter | Qt::AlignBottom,
                             QString::number(row + 1));
        }
        for (qsizetype column = 0; column < count; ++column) {
            if (row != column)
                painter.fillRect(QRectF(cells.left() + side * static_cast<double>(column), y, side, side),
                                 colorOf(m_set.value(row, column, m_measure)));
        }
    }
    painter.drawRect(cells);
    const auto isDefined = [this](const ScanpathPair &pair) { return !std::isnan(pair.values[m_measure]); };
    if (std::none_of(m_set.pairs.begin(), m_set.pairs.end(), isDefined))
        painter.drawText(cells, Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("not defined: too few fixations, or none in areas of interest"));
    paintScale(painter, cells);
}

void SimilarityHeatmap::paintScale(QPainter &painter, const QRectF &cells) const
{
    const QRectF bar(cells.left(), cells.bottom() + 6, cells.width(), 10);
    for (int x = 0; x < static_cast<int>(bar.width()); ++x)
        painter.fillRect(QRectF(bar.left() + x, bar.top(), 1, bar.height()), onScale(x / bar.width()));
    const QRectF texts(bar.left(), bar.bottom() + 1, bar.width(), scaleHeight - 17);
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignTop, QString::number(m_least, 'g', 4));
    painter.drawText(texts, Qt::AlignRight | Qt::AlignTop, QString::number(m_most, 'g', 4));
}
