// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracker-simulator/FrameSource.h"
#include "tracker-simulator/TrackerOptions.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>

#include <functional>
#include <memory>

/// The simulated tracker on a port of the loopback address. It works within `run` of the given context, in one thread,
/// and serves one client at a time; a further one waits.
class TrackerServer {
public:
    /// Receives a line on each thing that happens.
    using Teller = std::function<void(const QString &)>;

    TrackerServer(boost::asio::io_context &io, const TrackerOptions &options, std::unique_ptr<IFrameSource> frames,
                  Teller tell);
    ~TrackerServer();
    TrackerServer(const TrackerServer &) = delete;
    TrackerServer &operator=(const TrackerServer &) = delete;

    /// @return the port that is listened on; nothing where it is taken.
    std::optional<quint16> listen();

private:
    class Client;
    void accept();
    void clientLeft(int pauseMs);

    boost::asio::io_context &m_io;
    TrackerOptions m_options;
    std::unique_ptr<IFrameSource> m_frames;
    Teller m_tell;
    boost::asio::ip::tcp::acceptor m_acceptor;
    boost::asio::steady_timer m_pause;
    std::shared_ptr<Client> m_client;
};
