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
/// The display says how often it is worth while to show anything, so that showing takes less time than the work. Work
/// within a step may have progress of its own: once that one is due it takes the place of the outer one, which comes
/// back when it has something to show. To be used from one thread.
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
        /// The least time between two pictures of one piece of work; without any, every step is shown.
        virtual std::chrono::milliseconds interval() const { return {}; }
    };

    /// Of a display for people: twenty pictures a second look like one movement.
    static constexpr std::chrono::milliseconds oneMovement{50};

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

    /// One step is done; the last one is shown in any case, if the others were.
    void advance();

    /// For work that takes long within a step: shows the innermost progress as it stands.
    static void refresh();

private:
    void open();
    void close();
    void show();
    void showIfDue();
    static bool isDue();

    QString m_label;
    int m_steps;
    int m_done = 0;
    bool m_isOpen = false;
    Progress *m_outer;
};
