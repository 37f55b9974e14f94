// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/panel/QCalibrationWidget.h"

#include "base/Truncation.h"
#include "recording/CalibrationPoints.h"

#include <QCloseEvent>
#include <QDebug>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <array>

namespace {

constexpr int settleMs = 500; ///< from the key to the first point
constexpr int dwellMs = 1000; ///< from the key to the end of a point
constexpr int pointRadius = 10;

bool isModifier(int key)
{
    constexpr std::array modifiers = {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Meta,    Qt::Key_Alt,
                                      Qt::Key_AltGr, Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_CapsLock};
    return std::ranges::find(modifiers, key) != modifiers.end();
}

} // namespace

QCalibrationWidget::QCalibrationWidget(gtl::GazeApi &client, std::minstd_rand &random, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
    , m_random(random)
{
    setWindowTitle(tr("Calibration"));
    setFocusPolicy(Qt::StrongFocus);
    m_client.addListener(*this);
}

QCalibrationWidget::~QCalibrationWidget()
{
    m_client.removeListener(*this);
}

bool QCalibrationWidget::start()
{
    m_client.calibrationClear();
    m_points = calibrationPoints(size(), m_random);
    if (!m_client.calibrationStart(static_cast<int>(m_points.size())))
        return false;
    begin();
    return true;
}

void QCalibrationWidget::begin()
{
    if (m_index != justStarted)
        return;
    m_isStarted = true;
    continueCalibration();
}

void QCalibrationWidget::continueCalibration()
{
    if (m_index >= 0)
        m_client.calibrationPointEnd();
    if (m_index >= m_points.size())
        close();
    ++m_index;
    qDebug() << m_index;
    update();
}

/// For the point that is shown now: a second key during its dwell brings a second timer, which must not end the next
/// one.
void QCalibrationWidget::continueAfter(int timeMs)
{
    QTimer::singleShot(timeMs, this, [this, index = m_index] {
        if (m_index == index)
            continueCalibration();
    });
}

void QCalibrationWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat() || isModifier(event->key()))
        return;
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (m_index == positioning) {
        continueAfter(settleMs);
    } else if (m_index >= m_points.size()) {
        continueCalibration();
    } else if (m_index >= 0) {
        m_client.calibrationPointStart(m_points[m_index].x(), m_points[m_index].y());
        continueAfter(dwellMs);
    }
}

/// Whoever leaves before the end leaves no calibration half done.
void QCalibrationWidget::closeEvent(QCloseEvent *event)
{
    if (std::exchange(m_isStarted, false) && m_index < m_points.size())
        m_client.calibrationClear();
    event->accept();
}

void QCalibrationWidget::paintEyes(QPainter &painter)
{
    gtl::GazeData frame;
    {
        const std::lock_guard lock(m_frameMutex);
        frame = m_frame;
    }
    for (const gtl::Eye &eye : {frame.lefteye, frame.righteye}) {
        const double diameter = truncated(static_cast<double>(eye.psize));
        const QPointF center(static_cast<double>(eye.pcenter.x) * width(),
                             static_cast<double>(eye.pcenter.y) * height());
        painter.drawEllipse(center, diameter / 2, diameter / 2);
    }
}

void QCalibrationWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::lightGray);
    painter.setPen(Qt::black);
    painter.setBrush(Qt::white);
    if (m_index == positioning)
        paintEyes(painter);
    else if (m_index >= 0 && m_index < m_points.size())
        painter.drawEllipse(m_points[m_index], pointRadius, pointRadius);
}

void QCalibrationWidget::onGazeData(const gtl::GazeData &frame)
{
    {
        const std::lock_guard lock(m_frameMutex);
        m_frame = frame;
    }
    QMetaObject::invokeMethod(this, qOverload<>(&QWidget::update), Qt::QueuedConnection);
}
