// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/panel/SimilarityPanel.h"

#include "aoi/panel/CancellableProgress.h"
#include "base/Messages.h"
#include "base/SideBySide.h"
#include "comparison/panel/SimilarityHeatmap.h"
#include "comparison/SimilarityExport.h"
#include "export/panel/GroupColumns.h"
#include "settings/StoredKeys.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QToolButton>

#include <cmath>
#include <memory>

namespace {

using namespace Qt::StringLiterals;

QTableWidgetItem *cell(const QString &text)
{
    return std::make_unique<QTableWidgetItem>(text).release(); // owned by the table
}

QString shortNumber(double value)
{
    constexpr int digits = 4;
    return std::isnan(value) ? QString() : QString::number(value, 'g', digits);
}

/// Numbers of table fields as users read them.
QString shortened(const QString &field)
{
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    return isNumber ? shortNumber(value) : field;
}

QTableWidget *table(const QString &name, QWidget *parent)
{
    auto *made = new QTableWidget(parent);
    made->setObjectName(name);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    constexpr int leastHeight = 140;
    made->setMinimumHeight(leastHeight);
    return made;
}

QComboBox *comboBox(const QString &name, const QString &toolTip, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->setObjectName(name);
    box->setToolTip(toolTip);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

} // namespace

SimilarityPanel::SimilarityPanel(QWidget *parent)
    : QGroupBox(u"Similarity of all pairs"_s, parent)
    , m_choose([this](const QString &folder) {
        return QFileDialog::getExistingDirectory(this, u"Select export folder"_s, folder);
    })
    , m_columns(comboBox(u"similarityGroupComboBox"_s, u"Entry of the set files that names the groups"_s, this))
    , m_setBox(comboBox(u"similaritySetComboBox"_s, u"Picture and eye"_s, this))
    , m_measures(comboBox(u"similarityMeasureComboBox"_s, u"What is shown below"_s, this))
    , m_heatmap(new SimilarityHeatmap(this))
    , m_matrix(table(u"similarityTable"_s, this))
    , m_groupLabel(new QLabel(u"Groups:"_s, this))
    , m_groups(table(u"similarityGroupTable"_s, this))
    , m_export(new QPushButton(u"Export similarity..."_s, this))
{
    auto *layout = new QVBoxLayout(this);
    auto *compare = new QPushButton(u"Compare scanpaths"_s, this);
    compare->setObjectName(u"similarity_Button"_s);
    compare->setToolTip(u"Compares the fixations of the checked examinations of each picture, in the time frame"_s);
    m_export->setObjectName(u"exportSimilarity_Button"_s);
    m_export->setToolTip(u"Writes all measures of all pairs, and of groups, as tables"_s);
    auto *form = makeParameters();
    layout->addLayout(form);
    layout->addWidget(compare);
    makeResults();
    connect(compare, &QPushButton::clicked, this, &SimilarityPanel::compare);
    connect(m_export, &QPushButton::clicked, this, &SimilarityPanel::exportTables);
    connect(m_setBox, &QComboBox::currentIndexChanged, this, &SimilarityPanel::showMeasure);
    connect(m_measures, &QComboBox::currentIndexChanged, this, &SimilarityPanel::showMeasure);
    listColumns();
    showSets();
}

/// Folded away until the user asks for them.
QFormLayout *SimilarityPanel::makeParameters()
{
    auto *form = std::make_unique<QFormLayout>().release(); // owned by the layout it is added to
    form->addRow(u"Groups by:"_s, m_columns);
    auto *unfold = new QToolButton(this);
    unfold->setObjectName(u"similarityParametersButton"_s);
    unfold->setText(u"Parameters"_s);
    unfold->setToolTip(u"Grids, thresholds and radius of the measures"_s);
    unfold->setCheckable(true);
    unfold->setArrowType(Qt::RightArrow);
    unfold->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto *fields = new QWidget(this);
    auto *rows = new QFormLayout(fields);
    rows->setContentsMargins(0, 0, 0, 0);
    for (const SimilarityParameter &row : similarityParameters()) {
        auto *number = new QDoubleSpinBox(fields);
        number->setObjectName(row.name);
        number->setDecimals(row.decimals);
        number->setRange(row.least, row.most);
        number->setSuffix(row.unit);
        number->setValue(SimilarityParameters().*row.member);
        rows->addRow(row.caption + u':', number);
        m_numbers << number;
    }
    fields->hide();
    connect(unfold, &QToolButton::toggled, fields, [fields, unfold](bool shown) {
        fields->setVisible(shown);
        unfold->setArrowType(shown ? Qt::DownArrow : Qt::RightArrow);
    });
    form->addRow(unfold);
    form->addRow(fields);
    return form;
}

void SimilarityPanel::makeResults()
{
    for (const SimilarityMeasure &measure : similarityMeasures())
        m_measures->addItem(measure.kind == SimilarityMeasure::Kind::Distance
                                ? measure.caption + u" (less is more alike)"_s
                                : QString(measure.caption));
    for (QWidget *each :
         std::initializer_list<QWidget *>{m_setBox, m_measures, m_heatmap, m_matrix, m_groupLabel, m_groups, m_export})
        layout()->addWidget(each);
}

SimilarityParameters SimilarityPanel::parameters() const
{
    SimilarityParameters parameters;
    for (qsizetype i = 0; i < m_numbers.size(); ++i)
        parameters.*similarityParameters()[static_cast<std::size_t>(i)].member = m_numbers[i]->value();
    return parameters;
}

void SimilarityPanel::showEvent(QShowEvent *event)
{
    QGroupBox::showEvent(event);
    listColumns();
}

/// The choice stays if it is still there.
void SimilarityPanel::listColumns()
{
    const bool isFirst = m_columns->count() == 0;
    listGroupColumns(*m_columns, m_model, isFirst ? QString(defaultGroupColumn) : m_columns->currentText());
}

void SimilarityPanel::compare()
{
    if (!m_model)
        return;
    const CancellableProgress progress(this);
    auto sets = compareScanpaths(
        *m_model,
        {.eyes = eyeMode(), .parameters = parameters(), .groupBy = m_columns->currentText(), .threads = coreCount()},
        progress.token());
    if (!sets)
        return; // what was shown before stays
    m_sets = std::move(*sets);
    m_groupRows = groupSimilarityRows(m_sets, coreCount());
    showSets();
    if (m_sets.empty())
        messages::information(u"Nothing to compare"_s,
                              u"At least two checked examinations of one picture are needed, with fixations."_s);
}

void SimilarityPanel::showSets()
{
    {
        const QSignalBlocker blocker(m_setBox);
        m_setBox->clear();
        for (const SimilaritySet &set : m_sets)
            m_setBox->addItem(
                u"%1, %2 eye"_s.arg(set.picture.isEmpty() ? u"no picture"_s : set.picture, eyeWord(set.eye)));
    }
    for (QWidget *each : std::initializer_list<QWidget *>{m_setBox, m_measures, m_heatmap, m_matrix, m_export})
        each->setVisible(!m_sets.empty());
    showMeasure();
}

void SimilarityPanel::showMeasure()
{
    const auto place = static_cast<std::size_t>(std::max(0, m_setBox->currentIndex()));
    const auto measure = static_cast<std::size_t>(std::max(0, m_measures->currentIndex()));
    const SimilaritySet set = place < m_sets.size() ? m_sets[place] : SimilaritySet();
    m_heatmap->show(set, measure);
    fillMatrix(set, measure);
    fillGroups(set, measure);
}

void SimilarityPanel::fillMatrix(const SimilaritySet &set, std::size_t measure)
{
    const auto count = static_cast<int>(set.recordings.size());
    m_matrix->clear();
    m_matrix->setRowCount(count);
    m_matrix->setColumnCount(count);
    QStringList names;
    for (qsizetype i = 0; i < count; ++i)
        names << u"%1: %2"_s.arg(i + 1).arg(set.recordings[i].recording.section(u'/', -1));
    m_matrix->setHorizontalHeaderLabels(names);
    m_matrix->setVerticalHeaderLabels(names);
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < count; ++column) {
            if (row != column)
                m_matrix->setItem(row, column, cell(shortNumber(set.value(row, column, measure))));
        }
    }
    m_matrix->resizeColumnsToContents();
}

/// Picture, eye and measure are those of the boxes above.
void SimilarityPanel::fillGroups(const SimilaritySet &set, std::size_t measure)
{
    constexpr int lead = 3;
    QList<QStringList> shown;
    for (const QStringList &row : m_groupRows.mid(1)) {
        if (row[0] == set.picture && row[1] == eyeWord(set.eye) && row[2] == similarityMeasures()[measure].name)
            shown << row.mid(lead);
    }
    for (QWidget *each : std::initializer_list<QWidget *>{m_groupLabel, m_groups})
        each->setVisible(!shown.isEmpty());
    m_groups->clear();
    m_groups->setRowCount(static_cast<int>(shown.size()));
    if (shown.isEmpty())
        return;
    const QStringList header = m_groupRows.constFirst().mid(lead);
    m_groups->setColumnCount(static_cast<int>(header.size()));
    m_groups->setHorizontalHeaderLabels(header);
    m_groups->verticalHeader()->hide();
    for (int row = 0; row < shown.size(); ++row) {
        for (int column = 0; column < header.size(); ++column)
            m_groups->setItem(row, column, cell(shortened(shown[row][column])));
    }
    m_groups->resizeColumnsToContents();
}

void SimilarityPanel::exportTables()
{
    const QString folder = m_choose(readStored(keys::statisticExportFolder));
    if (folder.isEmpty())
        return;
    writeStored(keys::statisticExportFolder, folder);
    exportScanpathSimilarity(m_sets, {folder, u"vistrum"_s, eyeMode()}, coreCount());
}
