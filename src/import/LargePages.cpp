// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/LargePages.h"

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#include <unistd.h>

#include <memory>
#endif

void adviseLargePages([[maybe_unused]] const void *memory, [[maybe_unused]] qsizetype bytes)
{
#ifdef Q_OS_LINUX
    constexpr qsizetype smallestArea = qsizetype(4) << 20; // two large pages
    if (bytes < smallestArea)
        return;
    void *start = const_cast<void *>(memory); // the content is not changed
    auto space = static_cast<std::size_t>(bytes);
    const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    if (std::align(pageSize, pageSize, start, space))
        (void)madvise(start, space, MADV_HUGEPAGE);
#endif
}
