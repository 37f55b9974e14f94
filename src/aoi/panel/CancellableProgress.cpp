// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/CancellableProgress.h"

#include <QApplication>
#include <QProgressDialog>

namespace {

class CancellableDialog : public Progress::IDisplay {
public:
    CancellableDialog(QWidget *parent, std::stop_source stop) : m_parent(parent), m_stop(std::move(stop)) {}

    void open(const QString &label, int steps) override
    {
        m_dialog = std::make_unique<QProgressDialog>(label, QObject::tr("Cancel"), 0, steps, m_parent);
        m_dialog->setWindowTitle(QApplication::applicationDisplayName());
        m_dialog->setWindowModality(Qt::ApplicationModal);
        m_dialog->setMinimumDuration(0);
        m_dialog->setAutoReset(false);
        m_dialog->setAutoClose(false);
        QObject::connect(m_dialog.get(), &QProgressDialog::canceled, m_dialog.get(), [this] { m_stop.request_stop(); });
        m_dialog->setValue(0);
        m_dialog->show(); // of its own accord it would wait for the event loop, which the work does not enter
        QApplication::processEvents();
        m_dialog->repaint();
    }

    /// Takes a press of the button, too.
    void show(int stepsDone) override
    {
        if (!m_dialog)
            return;
        m_dialog->setValue(stepsDone);
        QApplication::processEvents();
    }

    void close() override { m_dialog.reset(); }
    std::chrono::milliseconds interval() const override { return Progress::oneMovement; }

private:
    QWidget *m_parent;
    std::stop_source m_stop;
    std::unique_ptr<QProgressDialog> m_dialog;
};

} // namespace

CancellableProgress::CancellableProgress(QWidget *parent)
    : m_before(Progress::install(std::make_unique<CancellableDialog>(parent, m_stop)))
{
}

CancellableProgress::~CancellableProgress()
{
    Progress::install(std::move(m_before));
}
