#include "base/Progress.h"

#include <QString>

namespace {

std::unique_ptr<Progress::IDisplay> &display()
{
    static std::unique_ptr<Progress::IDisplay> installed;
    return installed;
}

} // namespace

std::unique_ptr<Progress::IDisplay> Progress::install(std::unique_ptr<IDisplay> next)
{
    return std::exchange(display(), std::move(next));
}

Progress::Progress(const QString &label, int steps)
{
    if (display())
        display()->open(label, steps);
}

Progress::~Progress()
{
    if (display())
        display()->close();
}

void Progress::advance()
{
    ++m_done;
    if (display())
        display()->show(m_done);
}
