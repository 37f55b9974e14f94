#include "app/WindowFeedback.h"

#include "base/Messages.h"
#include "base/Progress.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QThread>

namespace {

QMessageBox::Icon iconOf(messages::Severity severity)
{
    switch (severity) {
    case messages::Severity::Information:
        return QMessageBox::Information;
    case messages::Severity::Warning:
        return QMessageBox::Warning;
    case messages::Severity::Critical:
        break;
    }
    return QMessageBox::Critical;
}

/// A report on many recordings is longer than the screen is high: it scrolls, so that the button stays in reach.
void addScrollingText(QMessageBox &box, const QString &text)
{
    constexpr QSize size(520, 420);
    auto *view = new QPlainTextEdit(text, &box);
    view->setReadOnly(true);
    view->setMinimumSize(size);
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
        grid->addWidget(view, 0, grid->columnCount() - 1);
}

void showBox(messages::Severity severity, const QString &title, const QString &text)
{
    constexpr qsizetype mostPlainLines = 25;
    const bool isLong = text.count(u'\n') > mostPlainLines;
    QMessageBox box(iconOf(severity), title, isLong ? QString() : text, QMessageBox::Ok, QApplication::activeWindow());
    if (isLong)
        addScrollingText(box, text);
    box.exec();
}

class MessageBoxes : public messages::IHandler {
public:
    void show(messages::Severity severity, const QString &title, const QString &text) override
    {
        const auto box = [=] { showBox(severity, title, text); };
        if (QThread::currentThread() == qApp->thread())
            box();
        else
            QMetaObject::invokeMethod(qApp, box, Qt::BlockingQueuedConnection);
    }
};

class ProgressDialogs : public Progress::IDisplay {
public:
    void open(const QString &label, int steps) override
    {
        m_dialog = std::make_unique<QProgressDialog>(label, QString(), 0, steps, QApplication::activeWindow());
        m_dialog->setWindowTitle(QApplication::applicationDisplayName());
        m_dialog->setWindowModality(Qt::ApplicationModal);
        m_dialog->setMinimumDuration(0);
        show(0);
    }

    void show(int stepsDone) override
    {
        if (!m_dialog)
            return;
        m_dialog->setValue(stepsDone);
        m_dialog->repaint();
    }

    void close() override { m_dialog.reset(); }

private:
    std::unique_ptr<QProgressDialog> m_dialog;
};

} // namespace

void installWindowFeedback()
{
    messages::install(std::make_unique<MessageBoxes>());
    Progress::install(std::make_unique<ProgressDialogs>());
}
