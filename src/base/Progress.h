#pragma once

#include <memory>

class QString;

/// Progress of one long piece of work. The destructor closes the display on every way out.
///
///     Progress progress(label, steps);
///     for (...) {
///         work();
///         progress.advance();
///     }
class Progress {
public:
    /// Where progress is shown. Without one (in tests) nothing is shown.
    class IDisplay {
    public:
        virtual ~IDisplay() = default;
        virtual void open(const QString &label, int steps) = 0;
        virtual void show(int stepsDone) = 0;
        virtual void close() = 0;
    };

    /// Makes `display` show all progress from now on and returns the one before.
    static std::unique_ptr<IDisplay> install(std::unique_ptr<IDisplay> display);

    Progress(const QString &label, int steps);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void advance();

private:
    int m_done = 0;
};
