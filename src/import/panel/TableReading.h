// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/TableImport.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <thread>
#include <vector>

/// Reads tables side by side while the window stays alive, and can be stopped.
class TableReading : public QObject {
    Q_OBJECT
public:
    using Request = std::pair<QString, LayoutRequest>;

    explicit TableReading(QObject *parent = nullptr);
    ~TableReading() override;

    /// Not while it runs.
    void start(const QList<Request> &requests);
    /// What was read until then is dropped, and nothing more is told.
    void stop();
    bool isRunning() const { return !m_threads.empty(); }

Q_SIGNALS:
    /// @param percent  of all tables.
    void progressed(int percent);
    /// The tables in the order of the requests.
    void finished(const QList<ImportedTable> &tables);

private:
    /// A table on its way; its thread alone writes it until it is done.
    struct Job {
        Request request;
        ImportedTable table;
        std::atomic<double> part = 0; ///< that was read, 0 to 1
    };

    void work(const std::stop_token &stop);
    static void read(Job &job, const std::stop_token &stop);
    void look();

    std::vector<Job> m_jobs;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_done = 0;
    QTimer m_timer;
    std::vector<std::jthread> m_threads; ///< the last member: they end before what they use
};
