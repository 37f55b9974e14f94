// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Messages.h"

#include <algorithm>

namespace messages {

namespace {

std::unique_ptr<IHandler> &handler()
{
    static std::unique_ptr<IHandler> installed;
    return installed;
}

Collector *&innermostCollector()
{
    static thread_local Collector *current = nullptr;
    return current;
}

bool haveOneCause(const Message &a, const Message &b)
{
    return a.severity == b.severity && a.title == b.title;
}

} // namespace

void IHandler::showDetailed(const Message &message)
{
    show(message.severity, message.title, message.text + u'\n' + message.details);
}

std::unique_ptr<IHandler> install(std::unique_ptr<IHandler> next)
{
    return std::exchange(handler(), std::move(next));
}

void show(const Message &message)
{
    if (Collector *collector = innermostCollector())
        collector->m_messages << message;
    else if (handler() && message.details.isEmpty())
        handler()->show(message.severity, message.title, message.text);
    else if (handler())
        handler()->showDetailed(message);
}

void show(Severity severity, const QString &title, const QString &text)
{
    show(Message{severity, title, text});
}

void information(const QString &title, const QString &text)
{
    show(Severity::Information, title, text);
}

void warning(const QString &title, const QString &text)
{
    show(Severity::Warning, title, text);
}

void critical(const QString &title, const QString &text)
{
    show(Severity::Critical, title, text);
}

Collector::Collector() : m_outer(std::exchange(innermostCollector(), this)) {}

Collector::~Collector()
{
    leave();
}

void Collector::leave()
{
    if (innermostCollector() == this)
        innermostCollector() = m_outer;
}

QList<Message> Collector::take()
{
    return std::exchange(m_messages, {});
}

Run::~Run()
{
    addOwn();
    leave();
    for (const Counted &counted : std::as_const(m_counted)) {
        Message message = counted.message;
        if (counted.count > 1 && message.details.isEmpty())
            message.details = timesText(counted);
        show(message);
    }
}

/// Such as "6 times in S01, S02 and 3 more".
QString Run::timesText(const Counted &counted)
{
    constexpr qsizetype mostNamed = 10;
    const qsizetype all = counted.recordings.size();
    QString text = QStringLiteral("%1 times").arg(counted.count);
    if (all > 0)
        text += QStringLiteral(" in ") + counted.recordings.first(std::min(mostNamed, all)).join(QStringLiteral(", "));
    if (all > mostNamed)
        text += QStringLiteral(" and %1 more").arg(all - mostNamed);
    return text;
}

void Run::addRecording(const QString &name, const QList<Message> &messages)
{
    addOwn();
    QList<Counted> causes;
    for (const Message &message : messages) {
        const auto same = std::find_if(causes.begin(), causes.end(),
                                       [&](const Counted &known) { return haveOneCause(known.message, message); });
        if (same == causes.end())
            causes.append({message, 1, name.isEmpty() ? QStringList() : QStringList(name)});
        else
            ++same->count;
    }
    for (const Counted &cause : std::as_const(causes))
        add(cause);
}

/// What this thread said meanwhile, in its place among the recordings.
void Run::addOwn()
{
    for (const Message &message : take())
        add({message, 1});
}

void Run::add(const Counted &added)
{
    const Message &message = added.message;
    const auto same = std::find_if(m_counted.begin(), m_counted.end(), [&](const Counted &known) {
        return haveOneCause(known.message, message) && known.message.text == message.text;
    });
    if (same == m_counted.end()) {
        m_counted.append(added);
        return;
    }
    same->count += added.count;
    same->recordings += added.recordings;
    if (!message.details.isEmpty() && !same->message.details.isEmpty())
        same->message.details += u'\n' + message.details;
}

} // namespace messages
