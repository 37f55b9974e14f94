// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowFeedback.h"

#include "base/Messages.h"
#include "base/Progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
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

/// Boxes and dialogs belong to the window in front, be it the progress of the work that has something to say.
QWidget *windowInFront()
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

/// Stays until the work is done: nobody is to touch, in its midst, the data that it works on.
class ProgressDialog : public QProgressDialog {
public:
    using QProgressDialog::QProgressDialog;
    void reject() override {}

protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
};

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

/// A box follows the width of its text; the title above a short one would be cut. Window managers draw titles bold, and
/// those in the middle of the frame keep as much room on their left as the buttons take on their right.
void makeAsWideAsItsTitle(QMessageBox &box)
{
    constexpr int symbolAndButtons = 200; // px, of the window's frame
    QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + symbolAndButtons;
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

void showBox(const messages::Message &message)
{
    constexpr qsizetype mostPlainLines = 25;
    const bool isLong = message.text.count(u'\n') + message.details.count(u'\n') > mostPlainLines;
    QMessageBox box(iconOf(message.severity), message.title, isLong ? QString() : message.text, QMessageBox::Ok,
                    windowInFront());
    if (isLong)
        addScrollingText(box, message.details.isEmpty() ? message.text : message.text + u'\n' + message.details);
    else
        box.setInformativeText(message.details);
    makeAsWideAsItsTitle(box);
    box.exec();
}

class MessageBoxes : public messages::IHandler {
public:
    void show(messages::Severity severity, const QString &title, const QString &text) override
    {
        showDetailed({severity, title, text});
    }

    void showDetailed(const messages::Message &message) override
    {
        const auto box = [=] { showBox(message); };
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
        m_dialog = std::make_unique<ProgressDialog>(label, QString(), 0, steps, windowInFront());
        m_dialog->setWindowTitle(QStringLiteral("Vistrum"));
        m_dialog->setWindowModality(Qt::ApplicationModal);
        m_dialog->setMinimumDuration(0);
        m_dialog->setValue(0);
        m_dialog->show(); // of its own accord it would wait for the event loop, which the work does not enter
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        m_dialog->repaint();
    }

    void show(int stepsDone) override
    {
        if (!m_dialog)
            return;
        m_dialog->setValue(stepsDone);
        m_dialog->repaint();
    }

    void close() override { m_dialog.reset(); }
    std::chrono::milliseconds interval() const override { return Progress::oneMovement; }

private:
    std::unique_ptr<ProgressDialog> m_dialog;
};

} // namespace

void installWindowFeedback()
{
    messages::install(std::make_unique<MessageBoxes>());
    Progress::install(std::make_unique<ProgressDialogs>());
}

void tellOutcome(const QString &title, const QString &text, const std::optional<QString> &problem)
{
    if (problem)
        messages::warning(title, *problem);
    else
        messages::information(title, text);
}
