// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Recorders.h"

#include "recording/panel/LiveGazeOverlay.h"
#include "recording/panel/TheEyeTribeRecorder.h"

Recorders::Recorders(QGraphicsView &view, Log &log, std::function<QString()> picture)
    : m_view(view)
    , m_log(log)
    , m_picture(std::move(picture))
    , m_random(std::make_shared<std::minstd_rand>())
{
}

Recorders::~Recorders()
{
    for (const QPointer<TheEyeTribeRecorder> &recorder : std::as_const(m_open))
        const std::unique_ptr<TheEyeTribeRecorder> ended(recorder.data());
}

TheEyeTribeRecorder &Recorders::open()
{
    auto recorder = std::make_unique<TheEyeTribeRecorder>(RecorderSetup{
        .journalFolder = RecordingJournal::defaultFolder(), .random = m_random, .picture = m_picture, .log = &m_log});
    recorder->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(recorder.get(), &TheEyeTribeRecorder::sigLiveView, &m_view,
                     [this](bool isShown) { showLiveView(isShown); });
    QObject::connect(recorder.get(), &TheEyeTribeRecorder::sigGaze, &m_view, [this](const QList<ArrivedGaze> &gaze) {
        if (m_overlay)
            m_overlay->show(gaze);
    });
    TheEyeTribeRecorder &opened = *recorder;
    m_open.removeAll(nullptr);
    m_open << recorder.release();
    opened.show();
    opened.offerInterruptedRecordings();
    return opened;
}

/// The overlay goes above what the view has as viewport by now.
void Recorders::showLiveView(bool isShown)
{
    if (!isShown) {
        const std::unique_ptr<LiveGazeOverlay> ended(m_overlay.data());
        return;
    }
    if (!m_overlay)
        m_overlay = new LiveGazeOverlay(m_view); // owned by the viewport
    m_overlay->QWidget::show();
}

LiveGazeOverlay *Recorders::overlay() const
{
    return m_overlay;
}
