// SPDX-License-Identifier: GPL-3.0-or-later
// For scripts/soak-recording.sh: listens to a simulated tracker for so many seconds, and tells each ten seconds how
// many frames came, were lost or doubled, and the memory of this process. The simulated subject's clock counts the
// frames.

#include "recording/client/GazeApi.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

namespace {

class Counter : public gtl::IGazeListener {
public:
    void onGazeData(const gtl::GazeData &frame) override
    {
        const std::int64_t step = frame.time - m_lastTime;
        if (m_frames > 0 && step > 1)
            m_lost += step - 1;
        if (m_frames > 0 && step < 1)
            ++m_doubled;
        m_lastTime = frame.time;
        ++m_frames;
    }

    std::int64_t frames() const { return m_frames; }
    std::int64_t lost() const { return m_lost; }
    std::int64_t doubled() const { return m_doubled; }

private:
    std::int64_t m_lastTime = 0;
    std::atomic<std::int64_t> m_frames = 0;
    std::atomic<std::int64_t> m_lost = 0;
    std::atomic<std::int64_t> m_doubled = 0;
};

std::string residentMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:"))
            return line.substr(line.find_first_of("0123456789"));
    }
    return "unknown";
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::cerr << "recording-soak PORT SECONDS\n";
        return 2;
    }
    Counter counter; // outlives the client
    gtl::GazeApi client({.port = argv[1]});
    if (!client.connect()) {
        std::cerr << "nobody listens on port " << argv[1] << '\n';
        return 1;
    }
    client.addListener(counter);
    constexpr int stepS = 10;
    for (int second = stepS; second <= std::atoi(argv[2]); second += stepS) {
        std::this_thread::sleep_for(std::chrono::seconds(stepS));
        std::cout << second << " s, " << counter.frames() << " frames, " << counter.lost() << " lost, "
                  << counter.doubled() << " doubled, " << residentMemory() << std::endl;
        if (!client.isConnected()) {
            std::cerr << "the connection is lost\n";
            return 1;
        }
    }
    return counter.lost() == 0 && counter.doubled() == 0 ? 0 : 1;
}
