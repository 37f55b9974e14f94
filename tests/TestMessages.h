// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QStringList>

/// Keeps what the user would have been told while it lives, each message as "title|text".
class RecordedMessages {
public:
    RecordedMessages() { m_before = messages::install(std::make_unique<Handler>(m_texts)); }
    ~RecordedMessages() { messages::install(std::move(m_before)); }
    RecordedMessages(const RecordedMessages &) = delete;
    RecordedMessages &operator=(const RecordedMessages &) = delete;

    const QStringList &texts() const { return m_texts; }

private:
    class Handler : public messages::IHandler {
    public:
        explicit Handler(QStringList &texts) : m_texts(texts) {}
        void show(messages::Severity, const QString &title, const QString &text) override
        {
            m_texts << title + u'|' + text;
        }

    private:
        QStringList &m_texts;
    };

    QStringList m_texts;
    std::unique_ptr<messages::IHandler> m_before;
};
