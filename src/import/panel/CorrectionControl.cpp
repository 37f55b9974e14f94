// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/CorrectionControl.h"
#include "ui_CorrectionControl.h"

#include "base/Messages.h"
#include "commands/IMainWindow.h"
#include "commands/panel/ColorButton.h"
#include "import/scene/QGraphicSceneOverlay.h"
#include "settings/StoredKeys.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

CorrectionControl::CorrectionControl(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::CorrectionControl>())
    , m_questions(std::make_unique<CorrectionDialogs>(this))
    , m_programFolder(QDir(QCoreApplication::applicationDirPath()).filePath(u"correctionmodule"_s))
{
    m_ui->setupUi(this);
    showColor(m_ui->colorgp, m_pointColor);
    showColor(m_ui->colorel, m_originalColor);
    showColor(m_ui->colorelcorr, m_correctedColor);
    using Control = CorrectionControl;
    connect(m_ui->add_elipse, &QPushButton::clicked, this, &Control::sltAddEllipsis);
    connect(m_ui->remove_ellipse, &QPushButton::clicked, this, &Control::sltRemoveEllipsis);
    connect(m_ui->set_ellipses, &QPushButton::clicked, this, &Control::sltSetEllipsis);
    connect(m_ui->export_corr_points, &QPushButton::clicked, this, &Control::sltExportPoints);
    connect(m_ui->calc_corr_value, &QPushButton::clicked, this, &Control::sltCalcCorrQual);
    connect(m_ui->avg2cor, &QPushButton::clicked, this, &Control::sltAVG2Cor);
    connect(m_ui->colorgp, &QPushButton::clicked, this, &Control::sltSetColorGP);
    connect(m_ui->colorel, &QPushButton::clicked, this, &Control::sltSetColorEL);
    connect(m_ui->colorelcorr, &QPushButton::clicked, this, &Control::sltSetColorELCORR);
    connect(m_ui->use_correction, &QCheckBox::stateChanged, this, &Control::sigGraphicsParametersChanged);
    connect(m_ui->ellipses_list, &QListWidget::itemSelectionChanged, this, &Control::sigGraphicsParametersChanged);
    connect(m_ui->spinBox_corr_gp_size, &QSpinBox::valueChanged, this, &Control::sigGraphicsParametersChanged);
}

CorrectionControl::~CorrectionControl() = default;

bool CorrectionControl::isUsed() const
{
    return m_ui->use_correction->isChecked();
}

CorrectionOverlay CorrectionControl::overlay()
{
    CorrectionOverlay drawn{.rows = {},
                            .pointSizePx = m_ui->spinBox_corr_gp_size->value(),
                            .points = m_pointColor,
                            .original = m_originalColor,
                            .corrected = m_correctedColor,
                            .moved = [self = QPointer(this)](qsizetype row, QPointF center) {
                                if (self)
                                    self->moveCorrectedOf(row, center);
                            }};
    const QList<int> selected = selectedRows();
    for (int row = 0; row < m_pairs.size(); ++row)
        drawn.rows << CorrectionOverlay::Row{std::as_const(m_pairs)[row], selected.contains(row)};
    return drawn;
}

/// From the top.
QList<int> CorrectionControl::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < m_ui->ellipses_list->count(); ++row) {
        if (m_ui->ellipses_list->item(row)->isSelected())
            rows << row;
    }
    return rows;
}

void CorrectionControl::tell(const QString &text)
{
    if (m_window)
        m_window->tell({text, {}, {}});
}

/// The list asks for a redraw by itself, once, when the row is selected.
void CorrectionControl::addRow(const QString &text, const EllipsePair &pair)
{
    {
        const QSignalBlocker blocker(m_ui->ellipses_list);
        m_pairs << pair;
        m_ui->ellipses_list->addItem(text);
        m_ui->ellipses_list->setCurrentRow(m_ui->ellipses_list->count() - 1, QItemSelectionModel::ClearAndSelect);
    }
    Q_EMIT sigGraphicsParametersChanged();
}

void CorrectionControl::sltAddEllipsis()
{
    if (!m_scene || !m_model)
        return;
    if (m_scene->lastFit().isEmpty()) {
        tell(u"No ellipse has been drawn yet: draw around points with the right mouse button"_s);
        return;
    }
    addRow(ellipseText(++m_number, m_model->timeFrame()), newPair(m_scene->lastFit()));
    if (!isUsed())
        tell(u"An ellipse was added; \"Use correction module\" shows it"_s);
}

void CorrectionControl::sltRemoveEllipsis()
{
    QList<int> rows = selectedRows();
    std::reverse(rows.begin(), rows.end());
    {
        const QSignalBlocker blocker(m_ui->ellipses_list);
        for (const int row : std::as_const(rows)) {
            m_pairs.removeAt(row);
            const std::unique_ptr<QListWidgetItem> removed(m_ui->ellipses_list->takeItem(row));
        }
    }
    if (!rows.isEmpty())
        Q_EMIT sigGraphicsParametersChanged();
}

void CorrectionControl::sltAddEllipsesINI(const QList<QString> &lines)
{
    for (const QString &line : lines) {
        const std::optional<NamedEllipses> read = readEllipseLine(line);
        if (!read)
            continue;
        ++m_number;
        addRow(read->text, read->pair);
    }
}

void CorrectionControl::sltSetEllipsis()
{
    if (!m_model)
        return;
    const TimeFrame frame = m_model->timeFrame();
    qsizetype points = 0;
    for (const int row : selectedRows()) {
        QListWidgetItem *item = m_ui->ellipses_list->item(row);
        item->setText(withFrame(item->text(), frame));
        assignPoints(m_pairs[row], *m_model, eyeMode(), frame);
        points += std::as_const(m_pairs)[row].original.points.size();
    }
    tell(u"Points in the selected ellipses: %1"_s.arg(points));
    Q_EMIT sigGraphicsParametersChanged();
}

void CorrectionControl::moveCorrectedOf(qsizetype row, QPointF center)
{
    if (row >= m_pairs.size())
        return;
    moveCorrected(m_pairs[row], center);
    Q_EMIT sigGraphicsParametersChanged();
}

void CorrectionControl::sltCalcCorrQual()
{
    const QList<const Examination *> checked = m_model ? m_model->checkedExaminations() : QList<const Examination *>();
    if (checked.size() != 2) {
        messages::information(u"Please select only two examinations"_s, u"Please select only two examinations"_s);
        return;
    }
    const auto quality = [&](Eye eye) {
        return correctionQuality(checked[0]->stream(eye).gazePoints, checked[1]->stream(eye).gazePoints);
    };
    const CorrectionQuality left = quality(Eye::Left);
    const CorrectionQuality right = quality(Eye::Right);
    messages::information(
        u"Quality meassure"_s, // sic
        u"Quality value (left):%1\n Amount of equal timestamps (left):%2\n Quality value (right):%3\n "
        "Amount of equal timestamps (right):%4"_s.arg(
            QString::number(left.meanDistancePx), QString::number(left.equalTimes),
            QString::number(right.meanDistancePx), QString::number(right.equalTimes)));
}

void CorrectionControl::chooseColor(QColor &color, QPushButton &button)
{
    const QColor chosen = m_questions->color(color);
    if (!chosen.isValid())
        return;
    color = chosen;
    showColor(&button, color);
    Q_EMIT sigGraphicsParametersChanged();
}

void CorrectionControl::sltSetColorGP()
{
    chooseColor(m_pointColor, *m_ui->colorgp);
}

void CorrectionControl::sltSetColorEL()
{
    chooseColor(m_originalColor, *m_ui->colorel);
}

void CorrectionControl::sltSetColorELCORR()
{
    chooseColor(m_correctedColor, *m_ui->colorelcorr);
}
