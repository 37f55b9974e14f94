// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/VisualizationWidget.h"
#include "ui_VisualizationWidget.h"

#include "model/DataModel.h"
#include "visualization/heatmap/ColorTable.h"
#include "visualization/heatmap/GradientImage.h"
#include "visualization/heatmap/HeatmapLabels.h"
#include "visualization/modes/VisualizationKinds.h"
#include "visualization/panel/OpenGlViewport.h"
#include "visualization/panel/OptionForm.h"
#include "visualization/parameters/AdjustableColorMap.h"
#include "visualization/parameters/VisualizationCommands.h"

#include <QEvent>
#include <QSignalBlocker>

namespace {

constexpr double powerStep = 100.0; ///< of the whole number in which users set the power
constexpr double startStep = 100.0; ///< of the slider that sets where a colour of the map stands

/// Whether the mode can take the power; shadow maps cannot take what may be the maximum of a heatmap.
bool isInRange(double power, const ShownOption &option)
{
    const double number = power * powerStep;
    return !option.range || (number >= option.range->minimum && number <= option.range->maximum);
}

} // namespace

VisualizationWidget::VisualizationWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::VisualizationWidget>())
    , m_chooseColor(colorDialog(this))
    , m_chooseMapColor(colorDialog(this, ColorAlpha::Chosen))
{
    m_ui->setupUi(this);
    m_options = std::make_unique<OptionForm>(*m_ui);
    bindNumbers();
    bindFlags();
    bindColors();
    bindColorMap();
    bindWithoutKeys();
    connect(m_ui->start_calc, &QPushButton::clicked, this, &VisualizationWidget::sigGraphicsParametersChanged);
    connect(m_ui->export_heatmap, &QPushButton::clicked, this, &VisualizationWidget::sltExportheatmap);
}

VisualizationWidget::~VisualizationWidget() = default;

void VisualizationWidget::setKind(const VisualizationKind &kind)
{
    m_record = kind.stored();
    m_ui->sizeLabel->setText(kind.sizeLabel);
    const QSignalBlocker blocker(m_ui->comboBox_vismode);
    m_ui->comboBox_vismode->clear();
    m_ui->comboBox_vismode->addItems(kind.modeNames());
}

void VisualizationWidget::setLog(const Log *log)
{
    m_log = log;
    m_parameters.setLog(log);
}

void VisualizationWidget::setColorChooser(const ColorChooser &chooser)
{
    m_chooseColor = chooser;
    m_chooseMapColor = chooser;
}

void VisualizationWidget::sltUpdateSettings()
{
    loadParameters(m_record, rows::visualization);
    m_parameters.refresh(m_record, rows::visualization);
    showColorMap(m_record.colorMap);
    applyLayout();
    sltColorMapChanged();
}

void VisualizationWidget::sltExportheatmap()
{
    Q_EMIT sigExportheatmap(static_cast<int>(visualizationKindOf(m_record.settingsName)));
}

// ---- controls and parameters

void VisualizationWidget::bindNumbers()
{
    m_parameters.bind<rows::visualizationMode, CommandChangeVisualizationMode>(m_ui->comboBox_vismode, m_record);
    m_parameters.bind<rows::size>(m_ui->sizeSpinBox, m_record);
    m_parameters.bind<rows::stepSize>(m_ui->spinBox_stepsize, m_record);
    m_parameters.bind<rows::fillOpacity>(m_ui->fillOpacitySpinBox, m_record);
    m_parameters.bind<rows::borderWidth>(m_ui->borderWidthSpinBox, m_record);
    m_parameters.bind<rows::borderType>(m_ui->bordertype_comboBox, m_record);
    m_parameters.bind<rows::heatmapColormap>(m_ui->heatmap_colormap, m_record);
    m_parameters.bind<rows::normalDistributionWidth>(m_ui->normalDistributionWidthspinBox, m_record);
    m_parameters.bind<rows::normalDistributionSigma>(m_ui->normalDistributionSigmaspinBox, m_record);
    m_parameters.bind<rows::power>(m_ui->shadow_power_spinbox, m_record);
    m_parameters.bind<rows::shadowTransparency>(m_ui->shadow_transparency_slider2, m_record);
    m_parameters.bind<rows::heatmapThreashold>(m_ui->heat_th_slider2, m_record);
    m_parameters.bind<rows::numberOfHistogramBins>(m_ui->binsSpinBox, m_record);
    m_parameters.bind<rows::angleOffset>(m_ui->angleOffsetSpinbox, m_record);
    m_parameters.whenShown<rows::visualizationMode>([this](int) { applyLayout(); });
    m_parameters.whenShown<rows::heatmapColormap>([this](int) { applyLayout(); });
    m_parameters.whenShown<rows::power>([this](double power) {
        const QSignalBlocker blocker(m_ui->shadow_power_slider2);
        m_ui->shadow_power_slider2->setValue(qRound(power * powerStep));
    });
    connect(m_ui->comboBox_vismode, &QComboBox::currentIndexChanged, this, &VisualizationWidget::takeStartValues);
    connect(m_ui->shadow_power_slider2, &QSpinBox::valueChanged, this, &VisualizationWidget::sltShadowMapPower_update);
}

void VisualizationWidget::bindFlags()
{
    m_parameters.bind<rows::durationDependent>(m_ui->durationdependents_checkBox, m_record);
    m_parameters.bind<rows::showArrowTip>(m_ui->showArrowTipCheckBox, m_record);
    m_parameters.bind<rows::showGazePoints>(m_ui->show_gaze_points, m_record);
    m_parameters.bind<rows::showOriginalSize>(m_ui->checkBox_original_size, m_record);
    m_parameters.bind<rows::showQuantityArcs>(m_ui->quantityCheckBox, m_record);
    m_parameters.bind<rows::showDurationArcs>(m_ui->durationCheckBox, m_record);
    m_parameters.bind<rows::showLenghtArcs>(m_ui->lengthCheckBox, m_record);
    m_parameters.bind<rows::quantityArcsHighlight>(m_ui->quantitySolidColorCheckBox, m_record);
    m_parameters.bind<rows::durationArcsHighlight>(m_ui->durationSolidColorCheckBox, m_record);
    m_parameters.bind<rows::lenghtArcsHighlight>(m_ui->lengthSolidColorCheckBox, m_record);
    m_parameters.bind<rows::acmUse>(m_ui->checkBox_use_colormap, m_record);
    m_parameters.bindWithoutCommand<rows::transitionsOnly>(m_ui->checkBox_transonly, m_record);
    m_parameters.bindWithoutCommand<rows::lineSizeAbsolute>(m_ui->line_size_rel_to_abs_max, m_record);
}

void VisualizationWidget::bindColors()
{
    const auto choose = [this](const QColor &start) { return m_chooseColor(start); };
    m_parameters.bindColor<rows::fillColor>(m_ui->colorButton_dominant, m_record, choose);
    m_parameters.bindColor<rows::fillColorLeft>(m_ui->colorButton_left, m_record, choose);
    m_parameters.bindColor<rows::fillColorRight>(m_ui->colorButton_right, m_record, choose);
    m_parameters.bindColorWithoutCommand<rows::fillColorName>(m_ui->toolButton_name_color, m_record, choose);
    connect(m_ui->groupsComboBox, &QComboBox::currentTextChanged, this,
            &VisualizationWidget::sltGroupsSelectComboBoxChanged);
}

/// What lasts as long as the panel and is not stored.
void VisualizationWidget::bindWithoutKeys()
{
    connect(m_ui->checkBox_inproz, &QCheckBox::clicked, this, &VisualizationWidget::sltFixHeatmapinPercentage);
    connect(m_ui->cluster_perc_box, &QDoubleSpinBox::valueChanged, this,
            [this](double percent) { m_record.clusterPercentage = percent; });
    connect(m_ui->transtypecombo, &QComboBox::currentIndexChanged, this,
            [this](int type) { m_record.transitionType = type; });
    for (QCheckBox *box : {m_ui->sacheat, m_ui->sacfixtime, m_ui->saclen})
        connect(box, &QCheckBox::toggled, this, &VisualizationWidget::sltsacchkboxes);
}

void VisualizationWidget::sltsacchkboxes()
{
    m_record.gaussianSaccades = m_ui->sacheat->isChecked();
    m_record.fixationDurationDependent = m_ui->sacfixtime->isChecked();
    m_record.lengthDependent = m_ui->saclen->isChecked();
}

void VisualizationWidget::sltShadowMapPower_update()
{
    setParameter(m_record, rows::power, m_ui->shadow_power_slider2->value() / powerStep);
    const QSignalBlocker blocker(m_ui->shadow_power_spinbox);
    m_ui->shadow_power_spinbox->setValue(m_record.power);
}

// ---- groups

void VisualizationWidget::refreshGroups()
{
    const QString current = m_ui->groupsComboBox->currentText();
    {
        const QSignalBlocker blocker(m_ui->groupsComboBox);
        m_ui->groupsComboBox->clear();
        m_ui->groupsComboBox->addItem(Group::none);
        if (m_model) {
            for (const Group &group : m_model->groups())
                m_ui->groupsComboBox->addItem(group.name);
        }
        m_ui->groupsComboBox->setCurrentIndex(std::max(0, m_ui->groupsComboBox->findText(current)));
    }
    sltGroupsSelectComboBoxChanged(m_ui->groupsComboBox->currentText());
}

void VisualizationWidget::sltGroupsSelectComboBoxChanged(const QString &name)
{
    const Group *group = m_model && name != Group::none ? m_model->group(name) : nullptr;
    const QString &kind = m_record.settingsName;
    showColor(m_ui->colorButton_dominant, group ? group->colorsDominant.value(kind) : m_record.fillColor);
    showColor(m_ui->colorButton_left, group ? group->colorsLeft.value(kind) : m_record.fillColorLeft);
    showColor(m_ui->colorButton_right, group ? group->colorsRight.value(kind) : m_record.fillColorRight);
}

// ---- the layout of the mode

void VisualizationWidget::applyLayout()
{
    sltShowShadowMap(isShadowMode(m_record));
    m_options->show(modeLayout(m_record));
    showColorTable();
    m_parameters.show(rows::power.key, m_record.power); // ranges may have changed what the boxes show
    m_parameters.show(rows::heatmapThreashold.key, m_record.heatmapThreashold);
    m_parameters.show(rows::stepSize.key, m_record.stepSize);
}

/// The colours as the next heatmap has them.
void VisualizationWidget::showColorTable()
{
    m_ui->colormap_preview->setPixmap(QPixmap::fromImage(colorTable(m_record)));
}

/// Where another mode counts in other units, the numbers of the last mode would be nonsense. Steps back and forth in
/// the undo stack leave them as they are.
void VisualizationWidget::takeStartValues()
{
    for (ShownOption option : modeLayout(m_record)) {
        if (option.option == DrawingOption::Power && !option.start && !isInRange(m_record.power, option))
            option.start = option.range->maximum;
        if (!option.start)
            continue;
        if (option.option == DrawingOption::Power)
            setParameter(m_record, rows::power, *option.start / powerStep);
        else if (option.option == DrawingOption::Threshold)
            setParameter(m_record, rows::heatmapThreashold, *option.start);
    }
    applyLayout();
    sltColorMapChanged();
}

void VisualizationWidget::sltFixHeatmapinPercentage()
{
    m_record.percentMode = m_ui->checkBox_inproz->isChecked();
    clearFigures();
    takeStartValues();
}

void VisualizationWidget::sltShowShadowMap(int shadow)
{
    const bool isShadow = shadow != 0;
    m_ui->shadow_power_spinbox->setEnabled(false);
    m_ui->shadow_power_slider2->setVisible(isShadow);
    m_ui->heatmap_colormap->setEnabled(!isShadow);
    m_ui->colormapLabel->setEnabled(!isShadow);
}

// ---- what the colours stand for

namespace {

using ClassLabels = std::array<QLabel *, 5>;

ClassLabels rangeLabels(const Ui::VisualizationWidget &form)
{
    return {form.fixmin1, form.fixmin2, form.fixmin3, form.fixmin4, form.fixmin5};
}

ClassLabels shareLabels(const Ui::VisualizationWidget &form)
{
    return {form.perc1, form.perc2, form.perc3, form.perc4, form.perc5};
}

void setTexts(const ClassLabels &labels, const QStringList &texts)
{
    for (std::size_t i = 0; i < labels.size() && std::cmp_less(i, texts.size()); ++i)
        labels[i]->setText(texts[static_cast<qsizetype>(i)]);
}

} // namespace

void VisualizationWidget::showFigures(const HeatmapFigures &figures)
{
    m_ui->max_val_heat->setText(maximumText(figures));
    setTexts(rangeLabels(*m_ui), colorRangeTexts(figures));
    setTexts(shareLabels(*m_ui), classPercentageTexts(figures));
}

/// Counts and shares are nothing to each other: the figures of the last heatmap would mislead.
void VisualizationWidget::clearFigures()
{
    for (QLabel *range : rangeLabels(*m_ui))
        range->setText(QStringLiteral("0-0"));
    for (QLabel *share : shareLabels(*m_ui))
        share->setText(QStringLiteral("0%"));
}

// ---- the adjustable colour map

namespace {

/// The controls of one colour of the map.
struct StopControls {
    QCheckBox *active;
    QSlider *transparency;
    QSlider *start;
    QToolButton *color;
};

std::array<StopControls, AdjustableColorMap::stopCount> stopControls(const Ui::VisualizationWidget &form)
{
    return {{
        {form.checkBox_cm_1, form.horizontalSlider_cm_t1, form.horizontalSlider_cm_sp1, form.toolButton_cm_c1},
        {form.checkBox_cm_2, form.horizontalSlider_cm_t2, form.horizontalSlider_cm_sp2, form.toolButton_cm_c2},
        {form.checkBox_cm_3, form.horizontalSlider_cm_t3, form.horizontalSlider_cm_sp3, form.toolButton_cm_c3},
        {form.checkBox_cm_4, form.horizontalSlider_cm_t4, form.horizontalSlider_cm_sp4, form.toolButton_cm_c4},
    }};
}

} // namespace

void VisualizationWidget::bindColorMap()
{
    m_ui->graphicsView_ADM->setScene(&m_colorMapScene);
    m_ui->graphicsView_ADM->installEventFilter(this);
    for (const StopControls &stop : stopControls(*m_ui)) {
        connect(stop.active, &QCheckBox::clicked, this, &VisualizationWidget::sltColorMapChanged);
        connect(stop.transparency, &QSlider::sliderReleased, this, &VisualizationWidget::sltColorMapChanged);
        connect(stop.start, &QSlider::sliderReleased, this, &VisualizationWidget::sltColorMapChanged);
        connect(stop.transparency, &QSlider::valueChanged, this, &VisualizationWidget::sltColorMapChanged);
        connect(stop.start, &QSlider::valueChanged, this, &VisualizationWidget::sltColorMapChanged);
        connect(stop.color, &QToolButton::clicked, this, [this, button = stop.color] {
            const QColor color = m_chooseMapColor(shownColor(button));
            if (!color.isValid())
                return;
            showColor(button, color);
            sltColorMapChanged();
        });
    }
    connect(m_ui->pushButton_ACM, &QPushButton::clicked, this, &VisualizationWidget::sltColorMapChangedApply);
}

AdjustableColorMap VisualizationWidget::shownColorMap() const
{
    AdjustableColorMap map;
    const auto controls = stopControls(*m_ui);
    std::transform(controls.begin(), controls.end(), map.stops.begin(), [](const StopControls &stop) {
        return AdjustableColorMap::Stop{stop.active->isChecked(), stop.transparency->value(),
                                        stop.start->value() / startStep, shownColor(stop.color)};
    });
    return map;
}

void VisualizationWidget::showColorMap(const AdjustableColorMap &map)
{
    const auto controls = stopControls(*m_ui);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const StopControls &stop = controls[i];
        const QSignalBlocker active(stop.active);
        const QSignalBlocker transparency(stop.transparency);
        const QSignalBlocker start(stop.start);
        stop.active->setChecked(map.stops[i].active);
        stop.transparency->setValue(map.stops[i].transparency);
        stop.start->setValue(qRound(map.stops[i].start * startStep));
        showColor(stop.color, map.stops[i].color);
    }
    sltColorMapChanged();
    showColorTable();
}

void VisualizationWidget::sltColorMapChangedApply()
{
    CommandStack::instance().push(new CommandChangeAdjColorMap(
        shownColorMap(), m_record, [this](const AdjustableColorMap &map) { showColorMap(map); }, m_log));
}

/// Shows the map as the controls have it, applied or not.
void VisualizationWidget::sltColorMapChanged()
{
    const QSize size = m_ui->graphicsView_ADM->maximumViewportSize(); // the viewport itself follows a resize later
    m_colorMapScene.clear();
    m_colorMapScene.setSceneRect(QRect(QPoint(0, 0), size));
    m_colorMapScene.addPixmap(QPixmap::fromImage(gradientImage(gradientStops(shownColorMap()), size)));
}

/// The preview fills its view, whose size is known only when it is shown; most panels never show it.
bool VisualizationWidget::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPreview = watched == m_ui->graphicsView_ADM;
    if (isPreview && event->type() == QEvent::Show && !m_previewIsSetUp) {
        m_previewIsSetUp = true;
        useOpenGlViewport(*m_ui->graphicsView_ADM);
    }
    if (isPreview && (event->type() == QEvent::Show || event->type() == QEvent::Resize))
        sltColorMapChanged();
    return QWidget::eventFilter(watched, event);
}
