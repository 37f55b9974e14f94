// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/QualityWindow.h"

#include "commands/CommandStack.h"
#include "detection/StoredGeometry.h"
#include "settings/StoredKeys.h"
#include "settings/WindowMemory.h"
#include "table/QualityLimits.h"
#include "table/StudyQuality.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

const QString memoryName = QStringLiteral("QualityLimits");

QPushButton *button(const QString &name, const QString &text, const QString &toolTip, QWidget *parent)
{
    auto *made = new QPushButton(text, parent); // owned by the parent
    made->setObjectName(name);
    made->setToolTip(toolTip);
    made->setAutoDefault(false);
    return made;
}

} // namespace

QualityWindow::QualityWindow(const DataModel &model, Uncheck uncheck, QWidget *parent)
    : QDialog(parent)
    , m_model(model)
    , m_uncheck(std::move(uncheck))
    , m_table(new QualityTable(this))
    , m_state(new QLabel(this))
    , m_uncheckButton(button(QStringLiteral("uncheckSelectedButton"), tr("Uncheck selected"),
                             tr("Leave the recordings of the selected rows out of calculations, drawings and exports"),
                             this))
{
    setWindowTitle(tr("Data quality"));
    m_table->setObjectName(QStringLiteral("qualityTable"));
    m_state->setObjectName(QStringLiteral("stateLabel"));
    m_state->setWordWrap(true);
    makeLayout();
    recallLimits();
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &QualityWindow::showSelection);
    connect(m_uncheckButton, &QPushButton::clicked, this, &QualityWindow::uncheckSelected);
    connect(&CommandStack::instance(), &CommandStack::indexChanged, this, &QualityWindow::noteChange);
    constexpr QSize usual(1000, 560);
    resize(usual);
    measure();
}

void QualityWindow::makeLayout()
{
    auto *again = button(QStringLiteral("measureButton"), tr("Measure again"),
                         tr("Data, fixations and time frame as they are now"), this);
    auto *marked = button(QStringLiteral("selectMarkedButton"), tr("Select marked"),
                          tr("Select the rows that are beyond a limit"), this);
    connect(again, &QPushButton::clicked, this, &QualityWindow::measure);
    connect(marked, &QPushButton::clicked, m_table, &QualityTable::selectMarked);
    auto *buttons = new QHBoxLayout; // owned by the layout
    for (QWidget *each : std::initializer_list<QWidget *>{again, marked, m_uncheckButton})
        buttons->addWidget(each);
    buttons->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeLimits());
    layout->addWidget(m_state);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);
}

QWidget *QualityWindow::makeLimits()
{
    auto *box =
        new QGroupBox(tr("Limits: what is beyond one is marked with \"!\". They are a matter of your study."), this);
    auto *grid = new QGridLayout(box);
    constexpr int columns = 3;
    int place = 0;
    for (const QualityLimit &limit : qualityLimits()) {
        auto *field = new QDoubleSpinBox(box);
        field->setObjectName(limit.measure);
        field->setRange(0, limit.most);
        field->setDecimals(1);
        field->setKeyboardTracking(false);
        field->setSuffix(u' ' + QString(limit.unit));
        field->setPrefix(limit.side == LimitSide::AtLeast ? tr("at least ") : tr("at most "));
        auto *label = new QLabel(limit.caption + u':', box);
        label->setBuddy(field);
        grid->addWidget(label, place / columns, 2 * (place % columns));
        grid->addWidget(field, place / columns, 2 * (place % columns) + 1);
        connect(field, &QDoubleSpinBox::valueChanged, this, &QualityWindow::changeLimits);
        m_limits << field;
        ++place;
    }
    auto *usual = button(QStringLiteral("usualLimitsButton"), tr("Usual limits"),
                         tr("Set all limits as they were at the first start"), box);
    connect(usual, &QPushButton::clicked, this, &QualityWindow::restoreUsualLimits);
    grid->addWidget(usual, 0, 2 * columns, 2, 1);
    return box;
}

QList<double> QualityWindow::limits() const
{
    QList<double> values;
    for (const QDoubleSpinBox *field : m_limits)
        values << field->value();
    return values;
}

/// What was kept, in the order of the fields; what is missing or no number is as usual.
void QualityWindow::recallLimits()
{
    const QList<QByteArray> kept = windowmemory::recall(memoryName).split(' ');
    const QList<double> usual = usualLimits();
    for (qsizetype i = 0; i < m_limits.size(); ++i) {
        bool isNumber = false;
        const double value = kept.value(i).toDouble(&isNumber);
        const QSignalBlocker blocker(m_limits[i]);
        m_limits[i]->setValue(isNumber && kept.size() == m_limits.size() ? value : usual[i]);
    }
}

void QualityWindow::restoreUsualLimits()
{
    const QList<double> usual = usualLimits();
    for (qsizetype i = 0; i < m_limits.size(); ++i) {
        const QSignalBlocker blocker(m_limits[i]);
        m_limits[i]->setValue(usual[i]);
    }
    changeLimits();
}

void QualityWindow::changeLimits()
{
    QByteArrayList values;
    for (const double value : limits())
        values << QByteArray::number(value);
    windowmemory::keep(memoryName, values.join(' '));
    m_table->showQuality(m_rows, limits());
}

void QualityWindow::measure()
{
    m_rows.clear();
    for (const StreamQuality &each : studyQuality(
             m_model,
             {.eyes = eyeMode(), .which = MeasuredExaminations::All, .pixelPerDistance = storedPixelPerDistance()}))
    {
        const Examination &examination = m_model.examinations()[each.examination];
        m_rows << QualityRow{examination.number, examination.baseName, examination.checked, each.eye, each.quality};
    }
    m_table->showQuality(m_rows, limits());
    const TimeFrame frame = m_model.timeFrame();
    m_state->setText(
        m_rows.isEmpty()
            ? tr("There are no recordings: import some, and measure again.")
            : tr("Recordings: %1, from %2 to %3 ms. A row for each eye that is shown; docs/measures.md tells "
                 "what each column means.")
                  .arg(QString::number(m_model.examinations().size()), QString::number(frame.startMs),
                       QString::number(frame.endMs)));
    showSelection();
}

void QualityWindow::uncheckSelected()
{
    m_uncheck(m_table->selectedNumbers());
    measure();
}

void QualityWindow::showSelection()
{
    m_uncheckButton->setEnabled(!m_table->selectedNumbers().isEmpty());
}

void QualityWindow::noteChange()
{
    m_state->setText(
        tr("The data may have changed since they were measured: \"Measure again\" shows them as they are."));
}
