// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/add_heatmap_aoi.h"
#include "ui_add_heatmap_aoi.h"

#include "aoi/generation/RegionClusters.h"
#include "aoi/panel/CancellableProgress.h"
#include "base/Log.h"
#include "base/Messages.h"
#include "commands/IMainWindow.h"
#include "model/Canvas.h"
#include "model/DataModel.h"
#include "visualization/panel/OpenGlViewport.h"

#include <QGraphicsItem>

#include <array>

namespace {

constexpr std::array sourceSuffixes{QLatin1StringView(" gp/min"),   QLatin1StringView(" fix/min"),
                                    QLatin1StringView(" clu/min"),  QLatin1StringView(" cumclu/min"),
                                    QLatin1StringView(" saliency"), QLatin1StringView(" saliency"),
                                    QLatin1StringView(" saliency")};

/// The box of each number of the search, in the order of `regionNumbers`.
std::array<QSpinBox *, std::size(regionNumbers)> numberBoxes(const Ui::addaoiheatmap &form)
{
    return {form.inten, form.dm, form.preth, form.window, form.th, form.th_size, form.max_th_size};
}

} // namespace

add_heatmap_aoi::add_heatmap_aoi(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::addaoiheatmap>())
{
    m_ui->setupUi(this);
    const RegionParameters initial;
    const auto boxes = numberBoxes(*m_ui);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i]->setRange(regionNumbers[i].lowest, regionNumbers[i].highest);
        boxes[i]->setSingleStep(regionNumbers[i].step);
        boxes[i]->setValue(initial.*regionNumbers[i].member);
    }
    setUpViews();
    connectForm();
    sltChangeState(0);
    sltchange_method(0);
}

add_heatmap_aoi::~add_heatmap_aoi() = default;

void add_heatmap_aoi::connectForm()
{
    connect(m_ui->gen_heat, &QPushButton::clicked, this, &add_heatmap_aoi::sltGenHeatmap);
    connect(m_ui->genaoiclose, &QPushButton::clicked, this, &add_heatmap_aoi::sltGenAOIs);
    connect(m_ui->export_and_close, &QPushButton::clicked, this, &add_heatmap_aoi::sltExport);
    connect(m_ui->comboBox_heatmap, &QComboBox::currentIndexChanged, this, &add_heatmap_aoi::sltChangeState);
    connect(m_ui->method_comboBox, &QComboBox::currentIndexChanged, this, &add_heatmap_aoi::sltchange_method);
    connect(m_ui->preth, &QSpinBox::valueChanged, this, &add_heatmap_aoi::showPreThreshold);
}

void add_heatmap_aoi::setUpViews()
{
    constexpr double previewScale = 0.25;
    constexpr int legendWidth = 400;
    constexpr int legendHeight = 20;
    constexpr QColor strongest(0, 255, 0, 250);
    m_scene.setSceneRect(0, 0, canvas::width, canvas::height);
    m_ui->graphicsView->setScene(&m_scene);
    m_ui->graphicsView->scale(previewScale, previewScale);
    useOpenGlViewport(*m_ui->graphicsView);
    QLinearGradient gradient(0, 0, legendWidth, 0);
    gradient.setColorAt(0, QColor(0, 255, 0, 0));
    gradient.setColorAt(1, strongest);
    m_legend.addRect(0, 0, legendWidth, legendHeight, Qt::NoPen, gradient);
    m_ui->graphicsView_2->setScene(&m_legend);
    useOpenGlViewport(*m_ui->graphicsView_2);
}

RegionParameters add_heatmap_aoi::parameters() const
{
    RegionParameters parameters;
    parameters.source = static_cast<RegionSource>(m_ui->comboBox_heatmap->currentIndex());
    parameters.method = static_cast<RegionMethod>(m_ui->method_comboBox->currentIndex());
    const auto boxes = numberBoxes(*m_ui);
    for (std::size_t i = 0; i < boxes.size(); ++i)
        parameters.*regionNumbers[i].member = boxes[i]->value();
    return parameters;
}

void add_heatmap_aoi::sltChangeState(int source)
{
    m_ui->pre_gpmin->setSuffix(sourceSuffixes[static_cast<std::size_t>(std::max(0, source))]);
}

/// Only what the method asks for can be changed; width and kernel of the density always can.
void add_heatmap_aoi::sltchange_method(int method)
{
    const bool isStandard = method == static_cast<int>(RegionMethod::Standard);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_ui->window, m_ui->windowLabel, m_ui->th, m_ui->thLabel,
                                                            m_ui->max_th_size, m_ui->maxLabel})
        widget->setEnabled(isStandard);
}

// ---- density

void add_heatmap_aoi::sltGenHeatmap()
{
    if (!isReady())
        return;
    const RegionParameters wanted = parameters();
    if (isSaliency(wanted.source) && !m_window->hasStimulus()) {
        messages::information(tr("No picture"), tr("Saliency is that of a picture. Please choose one as background."));
        return;
    }
    const QImage picture = isSaliency(wanted.source) ? m_window->stimulus().toImage() : QImage();
    const CancellableProgress progress(this);
    std::optional<RegionDensity> made = regionDensity(*m_model, picture, wanted, progress.token());
    if (!made) {
        tell(progress.token().stop_requested() ? tr("Cancelled.") : tr("Nothing of this kind in the time frame."));
        return;
    }
    m_density = std::move(made);
    m_search.reset();
    showReadOuts();
    drawPreview();
    tell(m_density->remark);
}

void add_heatmap_aoi::showReadOuts()
{
    const QStringList texts = scaleTexts(*m_density);
    m_ui->gpmin1->setText(texts.value(0));
    m_ui->gpmin2->setText(texts.value(1));
    m_ui->gpmin3->setText(texts.value(2));
    m_ui->pre_gpmin->setSuffix(m_density->unit);
    showPreThreshold();
}

void add_heatmap_aoi::showPreThreshold()
{
    if (m_density)
        m_ui->pre_gpmin->setValue(preThresholdInUnit(*m_density, m_ui->preth->value()));
}

// ---- search

void add_heatmap_aoi::sltGenAOIs()
{
    if (parameters().method == RegionMethod::Gradient)
        sltGenAOIsGrdient();
    else
        searchWith(RegionMethod::Standard);
}

void add_heatmap_aoi::sltGenAOIsGrdient()
{
    searchWith(RegionMethod::Gradient);
}

void add_heatmap_aoi::searchWith(RegionMethod method)
{
    if (!m_density) {
        tell(tr("Please generate a heatmap first."));
        return;
    }
    RegionParameters wanted = parameters();
    wanted.method = method;
    const CancellableProgress progress(this);
    std::optional<RegionSearch> found = searchRegions(*m_density, wanted, progress.token());
    if (!found) {
        tell(tr("Cancelled."));
        return;
    }
    m_search = std::move(found);
    if (const QString remark = searchRemark(*m_search); m_log && !remark.isEmpty())
        m_log->write(remark);
    drawPreview();
    const QString count = tr("Regions: %1.").arg(regionContours(*m_search, wanted.minimumRegion).size());
    tell(m_density->remark.isEmpty() ? count : count + u' ' + m_density->remark);
}

// ---- preview

void add_heatmap_aoi::drawPreview()
{
    constexpr double behindEverything = -1;
    m_scene.clear();
    if (m_window)
        m_scene.addPixmap(m_window->stimulus())->setZValue(behindEverything);
    if (m_density)
        m_scene.addPixmap(QPixmap::fromImage(densityLayer(*m_density)));
    if (m_search)
        drawRegions();
}

void add_heatmap_aoi::drawRegions()
{
    constexpr int penWidth = 10;
    constexpr double seedSize = 10;
    m_scene.addPixmap(QPixmap::fromImage(regionLayer(*m_search)));
    if (m_search->method == RegionMethod::Standard) {
        for (const QPolygon &contour : regionContours(*m_search, m_ui->th_size->value()))
            m_scene.addPolygon(contour, QPen(Qt::black, penWidth));
    }
    for (const QPoint &seed : m_search->seeds)
        m_scene.addEllipse(QRectF(seed, QSizeF(seedSize, seedSize)), QPen(Qt::blue), Qt::blue);
}

// ---- export

void add_heatmap_aoi::sltExport()
{
    if (m_ui->comboBox_expsel->currentIndex() == static_cast<int>(RegionExport::CumulativeClusters))
        exportClusters();
    else
        exportAois();
}

void add_heatmap_aoi::sltExportGrdient()
{
    exportAois();
}

void add_heatmap_aoi::exportAois()
{
    if (!isReady())
        return;
    if (m_search && m_insert) {
        m_insert(aoisOf(regionAois(*m_search, m_ui->th_size->value())));
        m_exported = parameters();
    }
    finishExport();
}

void add_heatmap_aoi::exportClusters()
{
    if (!isReady())
        return;
    const QList<QPolygon> contours = m_search ? regionContours(*m_search, m_ui->th_size->value()) : QList<QPolygon>();
    std::optional<PooledStreams> pools;
    {
        const CancellableProgress progress(this);
        pools = regionClusters(contours, *m_model, progress.token());
    }
    if (!pools) {
        tell(tr("Cancelled."));
        return;
    }
    for (const Eye eye : allEyes)
        m_model->pooled(eye) = std::move((*pools)[static_cast<std::size_t>(eye)]);
    finishExport();
}

/// The contours are used up.
void add_heatmap_aoi::finishExport()
{
    m_search.reset();
    drawPreview();
    tell(m_density->remark);
    Q_EMIT sigGenAOIs();
    close();
}

void add_heatmap_aoi::tell(const QString &text)
{
    m_ui->statusLabel->setText(text);
}
