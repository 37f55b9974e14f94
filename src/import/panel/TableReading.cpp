// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/TableReading.h"

#include "base/SideBySide.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int lookEveryMs = 50;
constexpr double all = 100; // percent

} // namespace

TableReading::TableReading(QObject *parent) : QObject(parent)
{
    m_timer.setInterval(lookEveryMs);
    connect(&m_timer, &QTimer::timeout, this, &TableReading::look);
}

TableReading::~TableReading() = default;

void TableReading::start(const QList<Request> &requests)
{
    const auto count = static_cast<std::size_t>(requests.size());
    m_jobs = std::vector<Job>(count);
    for (std::size_t i = 0; i < count; ++i)
        m_jobs[i].request = requests[static_cast<qsizetype>(i)];
    m_next = 0;
    m_done = 0;
    for (std::size_t i = 0; i < std::min(count, static_cast<std::size_t>(coreCount())); ++i)
        m_threads.emplace_back([this](const std::stop_token &stop) { work(stop); });
    m_timer.start();
}

void TableReading::work(const std::stop_token &stop)
{
    for (std::size_t i = m_next++; i < m_jobs.size() && !stop.stop_requested(); i = m_next++) {
        read(m_jobs[i], stop);
        ++m_done;
    }
}

/// Where not even the memory is left to say so, the table stays empty.
void TableReading::read(Job &job, const std::stop_token &stop)
{
    try {
        const auto &[path, layout] = job.request;
        job.table = importTable(path, layout, [&](double part) {
            job.part = part;
            return !stop.stop_requested();
        });
    } catch (const std::bad_alloc &) {
        job.table = {};
    }
    job.part = 1;
}

void TableReading::stop()
{
    m_timer.stop();
    for (std::jthread &thread : m_threads)
        thread.request_stop();
    m_threads.clear();
    m_jobs.clear();
}

void TableReading::look()
{
    double part = 0;
    for (const Job &job : m_jobs)
        part += job.part;
    Q_EMIT progressed(static_cast<int>(all * part / static_cast<double>(std::max<std::size_t>(m_jobs.size(), 1))));
    if (m_done < m_jobs.size())
        return;
    m_timer.stop();
    m_threads.clear();
    QList<ImportedTable> tables;
    for (Job &job : m_jobs) {
        if (job.table.path.isEmpty()) {
            job.table.path = job.request.first;
            job.table.notRead << RecordingPath(job.request.first).baseName;
            job.table.messages << corruptRecording(job.request.first,
                                                   QStringLiteral("it does not fit into the memory"));
        }
        tables << std::move(job.table);
    }
    m_jobs.clear();
    Q_EMIT finished(tables);
}
