// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/TableImport.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <thread>

/// Reads tables in a thread of its own while the window stays alive, and can be stopped.
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
    bool isRunning() const { return m_thread.joinable(); }

Q_SIGNALS:
    /// @param percent  of all tables.
    void progressed(int percent);
    void finished(const QList<ImportedTable> &tables);

private:
    void look();

    std::atomic<int> m_percent = 0;
    std::atomic<bool> m_isDone = false;
    QList<ImportedTable> m_tables; ///< of the thread until it is done
    QTimer m_timer;
    std::jthread m_thread; ///< the last member: it ends before what it uses
};
