// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

/// What algorithms, readers and writers tell the user. They never know who listens: the window shows a box, the batch
/// tool writes to stderr, a test keeps a list.
namespace messages {

enum class Severity { Information, Warning, Critical };

struct Message {
    bool operator==(const Message &) const = default;

    Severity severity = Severity::Warning;
    QString title;
    QString text;
    QString details = {}; ///< lines that stand below the text, such as the reason of a failure; mostly empty
};

class IHandler {
public:
    virtual ~IHandler() = default;
    /// Returns when the message has been seen. May be called from any thread.
    virtual void show(Severity severity, const QString &title, const QString &text) = 0;
    /// The same for a message with details. Where nothing sets them apart they are further lines of the text.
    virtual void showDetailed(const Message &message);
};

/// Makes `handler` the receiver of all messages and returns the one before; null means that messages are dropped.
std::unique_ptr<IHandler> install(std::unique_ptr<IHandler> handler);

/// Tells the innermost collector of this thread or, without one, the installed handler. The others are short forms.
void show(const Message &message);
void show(Severity severity, const QString &title, const QString &text);

void information(const QString &title, const QString &text);
void warning(const QString &title, const QString &text);
void critical(const QString &title, const QString &text);

/// Keeps the messages of its thread while it lives; nobody is told.
class Collector {
public:
    Collector();
    virtual ~Collector();
    Collector(const Collector &) = delete;
    Collector &operator=(const Collector &) = delete;

    /// The messages since the last call, in the order in which they came.
    QList<Message> take();

protected:
    /// From here on others get the messages.
    void leave();

private:
    friend void show(const Message &message);

    QList<Message> m_messages;
    Collector *m_outer;
};

/// Work over many recordings: whatever they hold, nobody has to close more than one box for each recording and cause.
///
/// Keeps the messages of its thread, and those that it is given, while it lives. Its end tells each of them once: those
/// of equal title and text with all their details or, where they have none, with their number and recordings.
class Run : public Collector {
public:
    ~Run() override;

    /// Adds what came of one recording. Of the messages with one title, which have one cause, the first stands for all.
    /// @param name  of the recording, told beside the number; empty where it has none.
    void addRecording(const QString &name, const QList<Message> &messages);

private:
    struct Counted {
        Message message;
        qsizetype count;
        QStringList recordings = {};
    };
    static QString timesText(const Counted &counted);
    void add(const Counted &added);
    void addOwn();

    QList<Counted> m_counted;
};

} // namespace messages
