// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <csignal>
#include <sys/resource.h>

/// As long as it lives no file of the process can grow beyond so many bytes: writing fails as on a full disk.
class FullDisk {
public:
    explicit FullDisk(unsigned long bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        m_signalBefore = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit tiny{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tiny);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signalBefore);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_before{};
    void (*m_signalBefore)(int) = SIG_DFL;
};
