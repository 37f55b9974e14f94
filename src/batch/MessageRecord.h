// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QList>
#include <QString>

#include <functional>
#include <mutex>

/// A message as it was shown.
struct ShownMessage {
    bool operator==(const ShownMessage &) const = default;

    messages::Severity severity = messages::Severity::Information;
    QString title;
    QString text;
};

/// The messages of a run until its report takes them. May be used from several threads.
class MessageRecord {
public:
    using Naming = std::function<QString(const QString &)>;

    /// @param naming  replaces each path of a link in a text by the path on the command line; may be empty.
    explicit MessageRecord(Naming naming = {}) : m_naming(std::move(naming)) {}

    QString named(const QString &text) const { return m_naming ? m_naming(text) : text; }

    void add(const ShownMessage &message);

    /// The messages since the last call, in the order in which they came.
    QList<ShownMessage> take();

private:
    const Naming m_naming;
    std::mutex m_mutex;
    QList<ShownMessage> m_messages;
};
