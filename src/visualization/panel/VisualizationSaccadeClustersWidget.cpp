// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"
#include "ui_VisualizationSaccadeClustersWidget.h"

#include "clustering/SaccadeClusterModel.h"
#include "visualization/scene/ArrowGroup.h"

#include <QGraphicsItemGroup>
#include <QGraphicsScene>

VisualizationSaccadeClustersWidget::VisualizationSaccadeClustersWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::VisualizationSaccadeClustersWidget>())
{
    using Panel = VisualizationSaccadeClustersWidget;
    m_ui->setupUi(this);
    m_ui->lineWidthSpinBox->setValue(m_style.lineWidthPx);
    m_ui->showArrowTipsCheckBox->setChecked(m_style.showArrowTips);
    m_ui->minimumQuantitySpinBox->setValue(m_style.minimumQuantity);
    connect(m_ui->visualizationModeComboBox, &QComboBox::currentIndexChanged, this,
            &Panel::sltVisualizationModeChanged);
    connect(m_ui->lineWidthSpinBox, &QSpinBox::valueChanged, this, &Panel::sltLineWidthChanged);
    connect(m_ui->showArrowTipsCheckBox, &QCheckBox::toggled, this, &Panel::sltShowArrowTipsChanged);
    connect(m_ui->minimumQuantitySpinBox, &QSpinBox::valueChanged, this, &Panel::sltMinQuantityChanged);
}

VisualizationSaccadeClustersWidget::~VisualizationSaccadeClustersWidget()
{
    removeClusters();
}

void VisualizationSaccadeClustersWidget::setScene(QGraphicsScene *scene)
{
    removeClusters();
    m_scene = scene;
}

void VisualizationSaccadeClustersWidget::removeClusters()
{
    QGraphicsItemGroup *group = std::exchange(m_group, nullptr);
    if (group && m_scene) // a scene that has gone has taken it along
        removeGroup(*m_scene, group);
}

void VisualizationSaccadeClustersWidget::sltRedrawClusters()
{
    removeClusters();
    if (m_scene)
        m_group = addArrowGroup(*m_scene, arrows());
}

QList<ArrowShape> VisualizationSaccadeClustersWidget::arrows() const
{
    return m_clusters ? saccadeClusterArrows(m_clusters->distanceClusters(), m_mode, m_style) : QList<ArrowShape>();
}

template <class T>
void VisualizationSaccadeClustersWidget::change(T &field, T value)
{
    field = value;
    sltRedrawClusters();
}

void VisualizationSaccadeClustersWidget::sltVisualizationModeChanged(int mode)
{
    change(m_mode, static_cast<SaccadeClusterMode>(mode));
}

void VisualizationSaccadeClustersWidget::sltFillOpacityChanged(int percent)
{
    change(m_fillOpacity, percent);
}

void VisualizationSaccadeClustersWidget::sltLineWidthChanged(int widthPx)
{
    change(m_style.lineWidthPx, widthPx);
}

void VisualizationSaccadeClustersWidget::sltShowGazePointsChanged(bool shown)
{
    change(m_showGazePoints, shown);
}

void VisualizationSaccadeClustersWidget::sltShowArrowTipsChanged(bool shown)
{
    change(m_style.showArrowTips, shown);
}

void VisualizationSaccadeClustersWidget::sltMinQuantityChanged(int quantity)
{
    change(m_style.minimumQuantity, quantity);
}
