// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/TableReading.h"

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
    m_percent = 0;
    m_isDone = false;
    m_tables.clear();
    m_thread = std::jthread([this, requests](const std::stop_token &stop) {
        const auto count = static_cast<double>(std::max<qsizetype>(requests.size(), 1));
        double done = 0;
        for (const auto &[path, request] : requests) {
            if (stop.stop_requested())
                break;
            m_tables << importTable(path, request, [&](double part) {
                m_percent = static_cast<int>(all * (done + part) / count);
                return !stop.stop_requested();
            });
            ++done;
        }
        m_isDone = true;
    });
    m_timer.start();
}

void TableReading::stop()
{
    m_timer.stop();
    m_thread.request_stop();
    if (m_thread.joinable())
        m_thread.join();
    m_tables.clear();
}

void TableReading::look()
{
    Q_EMIT progressed(m_percent);
    if (!m_isDone)
        return;
    m_timer.stop();
    m_thread.join();
    Q_EMIT finished(std::exchange(m_tables, {}));
}
