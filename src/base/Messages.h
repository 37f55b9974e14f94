#pragma once

#include <memory>

class QString;

/// What algorithms, readers and writers tell the user. They never know who listens: the window shows a box, the batch
/// tool writes to stderr, a test keeps a list.
namespace messages {

enum class Severity { Information, Warning, Critical };

class IHandler {
public:
    virtual ~IHandler() = default;
    /// Returns when the message has been seen. May be called from any thread.
    virtual void show(Severity severity, const QString &title, const QString &text) = 0;
};

/// Makes `handler` the receiver of all messages and returns the one before; null means that messages are dropped.
std::unique_ptr<IHandler> install(std::unique_ptr<IHandler> handler);

/// Tells the installed handler. The three below are its short forms.
void show(Severity severity, const QString &title, const QString &text);

void information(const QString &title, const QString &text);
void warning(const QString &title, const QString &text);
void critical(const QString &title, const QString &text);

} // namespace messages
