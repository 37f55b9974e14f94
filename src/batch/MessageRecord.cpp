#include "batch/MessageRecord.h"

MessageRecord::Scope::Scope(MessageRecord &record, const QString &source)
    : m_record(record)
    , m_before(record.setSource(source))
{
}

MessageRecord::Scope::~Scope()
{
    m_record.setSource(m_before);
}

void MessageRecord::add(const ShownMessage &message)
{
    const std::lock_guard lock(m_mutex);
    const auto source = m_sources.find(std::this_thread::get_id());
    m_messages[source == m_sources.end() ? QString() : source->second] << message;
}

QList<ShownMessage> MessageRecord::about(const QString &source) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_messages.find(source);
    return found == m_messages.end() ? QList<ShownMessage>() : found->second;
}

QString MessageRecord::setSource(const QString &source)
{
    const std::lock_guard lock(m_mutex);
    const QString before = std::exchange(m_sources[std::this_thread::get_id()], source);
    if (source.isEmpty())
        m_sources.erase(std::this_thread::get_id()); // ids are used again by later threads
    return before;
}
