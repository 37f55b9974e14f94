// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <chrono>
#include <memory>

/// Progress of one long piece of work. The destructor closes the display on every way out.
///
///     Progress progress(label, steps);
///     for (...) {
///         work();
///         progress.advance();
///     }
///
/// Work within a step may have progress of its own: that one takes the place of the outer one, which comes back when it
/// has something to show. To be used from one thread.
class Progress {
public:
    /// Where progress is shown. Without one (in tests) nothing is shown. It has one piece of work at a time: what was
    /// opened is closed before the next one opens.
    class IDisplay {
    public:
        virtual ~IDisplay() = default;
        virtual void open(const QString &label, int steps) = 0;
        virtual void show(int stepsDone) = 0;
        virtual void close() = 0;
    };

    /// Makes `display` show all progress from now on and returns the one before.
    static std::unique_ptr<IDisplay> install(std::unique_ptr<IDisplay> display);

    /// Progress of this thread is shown to nobody while one lives.
    class Hidden {
    public:
        Hidden();
        ~Hidden();
        Hidden(const Hidden &) = delete;
        Hidden &operator=(const Hidden &) = delete;
    };

    Progress(const QString &label, int steps);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// One step is done, and is shown.
    void advance();

    /// One of many short steps is done. It is shown only if the last time is some while ago, so that showing takes less
    /// time than the work.
    void tick();

    /// For work that takes long within a step: shows the innermost progress as it stands, again only after some while.
    static void refresh();

private:
    void open();
    void close();
    void show();
    void showIfDue();

    QString m_label;
    int m_steps;
    int m_done = 0;
    bool m_isOpen = false;
    std::chrono::steady_clock::time_point m_shown;
    Progress *m_outer;
};
