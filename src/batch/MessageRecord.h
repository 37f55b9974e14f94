#pragma once

#include "base/Messages.h"

#include <QList>
#include <QString>

#include <map>
#include <mutex>
#include <thread>

/// A message as it was shown.
struct ShownMessage {
    bool operator==(const ShownMessage &) const = default;

    messages::Severity severity = messages::Severity::Information;
    QString title;
    QString text;
};

/// The messages of a run, for its report. May be used from several threads.
///
/// Threads that work on recordings side by side finish in any order. Therefore messages are kept apart by what they are
/// about: each part is in a fixed order, however the threads ran.
class MessageRecord {
public:
    /// While it lives, messages of its thread are about this source. Scopes of one thread may be nested.
    class Scope {
    public:
        Scope(MessageRecord &record, const QString &source);
        ~Scope();
        Scope(const Scope &) = delete;
        Scope &operator=(const Scope &) = delete;

    private:
        MessageRecord &m_record;
        QString m_before;
    };

    void add(const ShownMessage &message);

    /// The messages about the source in the order in which they came; those of no scope with an empty source.
    QList<ShownMessage> about(const QString &source) const;

private:
    /// Returns the source before.
    QString setSource(const QString &source);

    mutable std::mutex m_mutex;
    std::map<std::thread::id, QString> m_sources; ///< of the threads that are in a scope
    std::map<QString, QList<ShownMessage>> m_messages;
};
