// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Listeners.h"
#include "recording/client/Observable.h"

#include <boost/thread/mutex.hpp>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace gtl {

/// Receives lines for the developers' log, from any thread.
using LogSink = std::function<void(const std::string &line)>;

enum class Debug {
    Off,
    On ///< each message goes to the console
};

/// The connection to a port of the loopback address, with a thread of its own that calls the listeners.
class Socket : public Observable<ISocketListener> {
public:
    Socket(LogSink log, Debug debug);
    ~Socket();
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    /// Connects. Nothing is written or read until `start`.
    /// @param port  a number from 1 to 65535 as text.
    /// @return false where nobody listens or the port is none.
    bool open(const std::string &port);

    /// Starts the thread: it calls `first`, writes what was sent meanwhile, and reads from then on.
    void start(std::function<void()> first);

    /// Writes the text after those before it; dropped without a connection. From any thread.
    void send(std::string text);

    /// Ends the connection; listeners hear of it on the thread of the socket. Returns when that has ended. From within
    /// a listener's call the thread ends soon, and the next `open`, `close` or the end of the socket waits for it.
    void close();

    /// Whether the caller is called by the socket.
    bool isOwnThread() const;

    /// When the bytes came that completed the message; for listeners within their call.
    std::chrono::steady_clock::time_point arrival() const;

private:
    class Link;
    std::shared_ptr<Link> link() const;

    LogSink m_log;
    Debug m_debug;
    mutable boost::mutex m_mutex; ///< of the link's pointer
    std::shared_ptr<Link> m_link;
};

} // namespace gtl
