// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <deque>
#include <functional>

/// Answers modal dialogs while it lives, each with the next answer in turn, as soon as it stands on the screen.
class ModalAnswers : public QObject {
public:
    using Answer = std::function<void(QDialog &)>;

    explicit ModalAnswers(std::deque<Answer> answers) : m_answers(std::move(answers))
    {
        constexpr int pollMs = 10;
        connect(&m_poll, &QTimer::timeout, this, &ModalAnswers::look);
        m_poll.start(pollMs);
    }

    bool areAllGiven() const { return m_answers.empty(); }

    /// Types the path into a file dialog and accepts it.
    static Answer file(const QString &path)
    {
        return [path](QDialog &dialog) {
            auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            QVERIFY(name);
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        };
    }
    static Answer cancel()
    {
        return [](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    }
    /// Presses the button with this text.
    static Answer press(const QString &text)
    {
        return [text](QDialog &dialog) {
            for (auto *button : dialog.findChildren<QAbstractButton *>()) {
                if (button->text().remove(u'&') == text) {
                    QTest::mouseClick(button, Qt::LeftButton);
                    return;
                }
            }
            qFatal("The dialog has no button %s", qPrintable(text));
        };
    }

private:
    void look()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || m_answers.empty() || dialog == m_answered)
            return;
        m_answered = dialog;
        const Answer answer = m_answers.front();
        m_answers.pop_front();
        answer(*dialog);
        m_answered = nullptr;
    }

    QTimer m_poll;
    std::deque<Answer> m_answers;
    QDialog *m_answered = nullptr; ///< being answered: an answer may open another one
};
