// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/controlWidget.h"
#include "ui_controlWidget.h"

#include "app/WheelGuard.h"
#include "base/Log.h"
#include "base/TextFormat.h"
#include "commands/CommandStack.h"
#include "model/DataModel.h"
#include "settings/StoredKeys.h"
#include "visualization/modes/VisualizationKinds.h"

#include <QSignalBlocker>
#include <QUndoView>

#include <algorithm>

namespace {

/// The page at which a tool box opens. A place beyond its pages means the last one, which is empty: all are closed.
void openPage(QToolBox *box, int page)
{
    box->setCurrentIndex(std::min(page, box->count() - 1));
}

constexpr int openedCalculationPage = 3;
constexpr int openedVisualizationPage = 7;

struct SaliencyParameter {
    const char *label; ///< null for a parameter that the method does not have
    int preset;
};

/// What the four numbers mean to each saliency method; the first one is no method.
constexpr SaliencyParameter saliencyMethods[][4] = {
    {},
    {{}, {"Number local maxima", 12}, {"Size Gabor", 10}, {"Sigma Gabor", 100}},
    {{"Gauss size", 5}, {"Gauss varrianze x", 2}, {"Gauss varrianze y", 2}, {}}, // sic
    {{"Edge TH up", 500}, {"Edge TH down", 250}, {"Gauss divisor", 20}, {"Gauss window", 40}},
};

std::array<QSpinBox *, 4> saliencyNumbers(const Ui::controlWidget &form)
{
    return {form.sal_spin_1, form.sal_spin_2, form.sal_spin_3, form.sal_spin_4};
}

} // namespace

controlWidget::controlWidget(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::controlWidget>())
{
    m_ui->setupUi(this);
    sltUpdateSettings();
    m_ui->FixCalc_widget->sltUpdateSettings();
    const auto kinds = visualizationKinds();
    for (std::size_t i = 0; VisualizationWidget * panel : visualizationWidgets()) {
        panel->setKind(kinds[i++]);
        panel->sltUpdateSettings();
    }
    m_ui->saccadebundle_widget->setClusters(m_ui->saccadeClusterWidget->saccadeClusterModel());
    openPage(m_ui->toolBox, openedCalculationPage);
    openPage(m_ui->toolBox_4, openedVisualizationPage);
    sltSetSalButtons();
    connectControls();
    (new WheelGuard(this))->guard(*this);
}

controlWidget::~controlWidget() = default;

void controlWidget::connectControls()
{
    connect(m_ui->comboBox_eyemode, &QComboBox::currentIndexChanged, this, &controlWidget::sltEyeModeChanged);
    connect(m_ui->toolButton, &QToolButton::clicked, this, &controlWidget::sltShowCommandProcessor);
    connect(m_ui->doubleSpinBox_start, &QDoubleSpinBox::editingFinished, this, &controlWidget::sltTimeSpinboxChanged);
    connect(m_ui->doubleSpinBox_end, &QDoubleSpinBox::editingFinished, this, &controlWidget::sltTimeSpinboxChanged);
    connect(m_ui->comboBox_sal, &QComboBox::currentIndexChanged, this, &controlWidget::sltSetSalButtons);
    for (QSpinBox *number : saliencyNumbers(*m_ui))
        connect(number, &QSpinBox::valueChanged, this, &controlWidget::sltSetSalVal);
    connect(m_ui->stat_calc, &QPushButton::clicked, this, &controlWidget::sltEmitGraphicChanged);
    connect(m_ui->aoi_widget, &AoiControl::sigGraphicsParametersChanged, this, &controlWidget::sltEmitGraphicChanged);
    connect(m_ui->aoi_widget, &AoiControl::sigAddAOIsHeatmap, this, &controlWidget::sigAddAOIsHeatmap);
    connect(m_ui->aoi_widget, &AoiControl::sigAddAOIsGrid, this, &controlWidget::sigAddAOIsGrid);
}

void controlWidget::setModel(DataModel *model)
{
    m_model = model;
    m_ui->Data_Widget->setModel(model);
    m_ui->FixCalc_widget->setModel(model);
    m_ui->clusterCalc_widget->setModel(model);
    m_ui->saccadeClusterWidget->setModel(model);
    m_ui->aoi_widget->setModel(model);
    m_ui->export_widget->setModel(model);
    m_ui->group_comparison_widget->setModel(model);
    m_ui->scanpathComparisonWidget->setModel(model);
    m_ui->correction_widget->setModel(model);
    for (VisualizationWidget *panel : visualizationWidgets())
        panel->setModel(model);
}

void controlWidget::setMainWindow(IMainWindow *window)
{
    m_ui->Data_Widget->setMainWindow(window);
    m_ui->FixCalc_widget->setMainWindow(window);
    m_ui->aoi_widget->setMainWindow(window);
    m_ui->clusterCalc_widget->setMainWindow(window);
    m_ui->correction_widget->setMainWindow(window);
}

void controlWidget::setLog(const Log *log)
{
    m_log = log;
    m_ui->Data_Widget->setLog(log);
    m_ui->FixCalc_widget->setLog(log);
    m_ui->clusterCalc_widget->setLog(log);
    m_ui->visAOIWidget->setLog(log);
    for (VisualizationWidget *panel : visualizationWidgets())
        panel->setLog(log);
}

DataWidget &controlWidget::dataWidget()
{
    return *m_ui->Data_Widget;
}

FixationControl &controlWidget::fixationControl()
{
    return *m_ui->FixCalc_widget;
}

ClusterControl &controlWidget::clusterControl()
{
    return *m_ui->clusterCalc_widget;
}

SaccadeClusterControl &controlWidget::saccadeClusterControl()
{
    return *m_ui->saccadeClusterWidget;
}

VisualizationSaccadeClustersWidget &controlWidget::saccadeClustersWidget()
{
    return *m_ui->saccadebundle_widget;
}

VisualizationAOIWidget &controlWidget::areasWidget()
{
    return *m_ui->visAOIWidget;
}

AoiControl &controlWidget::aoiControl()
{
    return *m_ui->aoi_widget;
}

CorrectionControl &controlWidget::correctionControl()
{
    return *m_ui->correction_widget;
}

StatisticsWidget &controlWidget::statisticsWidget()
{
    return *m_ui->statistics_widget;
}

ExportWidget &controlWidget::exportWidget()
{
    return *m_ui->export_widget;
}

std::array<VisualizationWidget *, 4> controlWidget::visualizationWidgets() const
{
    return {m_ui->gazepoint_widget, m_ui->fixation_widget, m_ui->fixationcluster_widget, m_ui->saccade_widget};
}

void controlWidget::sltShowCommandProcessor()
{
    auto *view = new QUndoView(&CommandStack::instance(), this); // owned by the panel: it does not outlive the program
    view->setWindowFlag(Qt::Dialog);                             // a window of its own that stays above this one
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->setWindowTitle(tr("Undo view"));
    view->setEmptyLabel(tr("<start>"));
    view->resize(420, 480);
    view->show();
}

void controlWidget::sltEyeModeChanged(int index)
{
    writeStored(keys::eyeMode, index);
    Q_EMIT sigGraphicsParametersChanged();
}

void controlWidget::sltUpdateSettings()
{
    const QSignalBlocker blocker(m_ui->comboBox_eyemode);
    m_ui->comboBox_eyemode->setCurrentIndex(readStored(keys::eyeMode));
}

// ---- time frame

void controlWidget::sltTimelineHasChanged(qint64 start, qint64 end)
{
    for (QDoubleSpinBox *field : {m_ui->doubleSpinBox_start, m_ui->doubleSpinBox_end})
        field->setEnabled(true);
    m_ui->doubleSpinBox_start->setMaximum(static_cast<double>(end)); // an end typed before must not hold it back
    m_ui->doubleSpinBox_start->setValue(static_cast<double>(start));
    m_ui->doubleSpinBox_end->setValue(static_cast<double>(end));
    write(QStringLiteral("controlWidget::sltTimelineHasChanged(%1, %2)").arg(start).arg(end));
    if (!m_model)
        return;
    m_model->setTimeFrame({start, end});
    m_ui->saccadeClusterWidget->sltDataChanged();
}

void controlWidget::sltTimespanHasChanged(qint64 duration)
{
    m_ui->doubleSpinBox_end->setMaximum(static_cast<double>(duration));
    write(QStringLiteral("controlWidget::sltTimespanHasChanged(%1)").arg(duration));
}

void controlWidget::sltTimeSpinboxChanged()
{
    m_ui->doubleSpinBox_start->setMaximum(m_ui->doubleSpinBox_end->value()); // pulls back a start that is later
    const auto end = static_cast<qint64>(m_ui->doubleSpinBox_end->value());
    const auto start = static_cast<qint64>(m_ui->doubleSpinBox_start->value());
    // A frame is not empty; without this the timeline would move the end, which was typed.
    Q_EMIT sigUpdateTimeframe(std::max<qint64>(std::min(start, end - 1), 0), end);
}

QString controlWidget::time2specific_String(qint64 durationMs) const
{
    return text::timeText(durationMs);
}

void controlWidget::write(const QString &line) const
{
    if (m_log)
        m_log->write(line);
}

// ---- saliency

int controlWidget::saliencyMethod() const
{
    return m_ui->comboBox_sal->currentIndex();
}

void controlWidget::sltSetSalButtons()
{
    const auto &method = saliencyMethods[std::max(0, m_ui->comboBox_sal->currentIndex())];
    const std::array<QLabel *, 4> labels{m_ui->sal_label_1, m_ui->sal_label_2, m_ui->sal_label_3, m_ui->sal_label_4};
    const auto numbers = saliencyNumbers(*m_ui);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool isShown = method[i].label != nullptr;
        labels[i]->setVisible(isShown);
        numbers[i]->setVisible(isShown);
        if (!isShown)
            continue;
        labels[i]->setText(QString::fromLatin1(method[i].label));
        numbers[i]->setValue(method[i].preset);
    }
}

void controlWidget::sltSetSalVal()
{
    if (!m_model)
        return;
    const auto numbers = saliencyNumbers(*m_ui);
    std::transform(numbers.begin(), numbers.end(), m_model->saliencyParameters.begin(),
                   [](const QSpinBox *number) { return number->value(); });
}
