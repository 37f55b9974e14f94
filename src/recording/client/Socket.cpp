// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/Socket.h"

#include "recording/client/MessageFramer.h"

#include <boost/asio/connect.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <boost/thread/lock_types.hpp>
#include <boost/thread/thread.hpp>

#include <array>
#include <atomic>
#include <charconv>
#include <deque>
#include <iostream>
#include <thread>
#include <utility>

namespace gtl {

namespace asio = boost::asio;
using Lock = boost::unique_lock<boost::mutex>;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::size_t readBytes = 65536;
constexpr std::size_t greatestQueueBytes = 1 << 20; ///< a server that reads nothing is none
constexpr auto longestConnect = std::chrono::seconds(5);

} // namespace

/// One connection from its beginning to its end. What is posted to one that has ended never runs, so that nothing
/// reaches the next one. All but `open`, `start`, `send` and `close` runs on its own thread.
class Socket::Link : public std::enable_shared_from_this<Socket::Link> {
public:
    explicit Link(Socket &owner) : m_owner(owner), m_socket(m_io) {}

    bool open(std::uint16_t port);
    void start(std::function<void()> first);
    void send(std::string text);
    void close();
    bool isOwnThread() const { return m_ownThread == std::this_thread::get_id(); }
    Clock::time_point arrival() const { return m_arrival; }

private:
    void read();
    void deliver(std::string_view bytes);
    void enqueue(std::string text);
    void write();
    void end();
    void show(const char *prefix, const std::string &text) const;

    Socket &m_owner;
    asio::io_context m_io;
    asio::ip::tcp::socket m_socket;
    std::array<char, readBytes> m_buffer{};
    MessageFramer m_framer;
    std::deque<std::string> m_queue; ///< the first is being written
    std::size_t m_queueBytes = 0;
    bool m_hasEnded = false;
    std::atomic<Clock::time_point> m_arrival = Clock::time_point();
    std::atomic<std::thread::id> m_ownThread = std::thread::id();
    boost::thread m_thread;
};

bool Socket::Link::open(std::uint16_t port)
{
    boost::system::error_code result = asio::error::timed_out;
    m_socket.async_connect({asio::ip::address_v4::loopback(), port},
                           [&result](const boost::system::error_code &error) { result = error; });
    m_io.run_for(longestConnect);
    if (result) {
        boost::system::error_code ignored;
        m_socket.close(ignored);
        m_io.restart();
        m_io.poll(); // the handler refers to a variable of this call
        return false;
    }
    boost::system::error_code ignored;
    m_socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    m_io.restart();
    return true;
}

void Socket::Link::start(std::function<void()> first)
{
    asio::post(m_io, [this, first = std::move(first)] {
        first();
        read();
    });
    m_thread = boost::thread([this] {
        m_ownThread = std::this_thread::get_id();
        m_io.run();
    });
}

void Socket::Link::send(std::string text)
{
    asio::post(m_io, [this, text = std::move(text)]() mutable { enqueue(std::move(text)); });
}

void Socket::Link::close()
{
    if (isOwnThread()) {
        end();
        return;
    }
    asio::post(m_io, [this] { end(); });
    if (m_thread.joinable())
        m_thread.join();
}

void Socket::Link::read()
{
    if (m_hasEnded)
        return;
    m_socket.async_read_some(asio::buffer(m_buffer), [this](const boost::system::error_code &error, std::size_t size) {
        if (error) {
            end();
            return;
        }
        m_arrival = Clock::now();
        deliver({m_buffer.data(), size});
        read();
    });
}

void Socket::Link::deliver(std::string_view bytes)
{
    const MessageFramer::Result framed = m_framer.take(bytes);
    for (std::size_t i = 0; i < framed.dropped; ++i)
        m_owner.m_log("TrackerClient: message dropped: more than 1 MiB without an end");
    for (const std::string &message : framed.messages) {
        if (m_hasEnded)
            return;
        show("Recv: ", message);
        m_owner.notify([&message](ISocketListener &listener) { listener.onMessage(message); });
    }
}

void Socket::Link::enqueue(std::string text)
{
    if (m_hasEnded)
        return;
    show("Send: ", text);
    m_queueBytes += text.size();
    m_queue.push_back(std::move(text));
    if (m_queueBytes > greatestQueueBytes) {
        m_owner.m_log("TrackerClient: disconnected: the server does not read");
        end();
    } else if (m_queue.size() == 1) {
        write();
    }
}

void Socket::Link::write()
{
    asio::async_write(m_socket, asio::buffer(m_queue.front()),
                      [this](const boost::system::error_code &error, std::size_t) {
                          if (error) {
                              end();
                              return;
                          }
                          m_queueBytes -= m_queue.front().size();
                          m_queue.pop_front();
                          if (!m_queue.empty() && !m_hasEnded)
                              write();
                      });
}

/// The first reason counts: pending reads and writes end with errors of their own.
void Socket::Link::end()
{
    if (std::exchange(m_hasEnded, true))
        return;
    boost::system::error_code ignored;
    m_socket.close(ignored);
    m_owner.notify([](ISocketListener &listener) { listener.onDisconnected(); });
}

void Socket::Link::show(const char *prefix, const std::string &text) const
{
    if (m_owner.m_debug == Debug::On)
        std::cout << prefix + text + '\n' << std::flush;
}

Socket::Socket(LogSink log, Debug debug) : m_log(log ? std::move(log) : [](const std::string &) {}), m_debug(debug) {}

Socket::~Socket()
{
    try {
        close();
    } catch (const boost::thread_exception &) {
        // Its own thread is not waited for, and whatever else refuses to be joined has ended already.
    }
}

std::shared_ptr<Socket::Link> Socket::link() const
{
    const Lock lock(m_mutex);
    return m_link;
}

bool Socket::open(const std::string &port)
{
    close();
    std::uint16_t number = 0;
    const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), number);
    if (error != std::errc() || end != port.data() + port.size() || number == 0)
        return false;
    auto opened = std::make_shared<Link>(*this);
    if (!opened->open(number))
        return false;
    const Lock lock(m_mutex);
    m_link = std::move(opened);
    return true;
}

void Socket::start(std::function<void()> first)
{
    if (const auto current = link())
        current->start(std::move(first));
}

void Socket::send(std::string text)
{
    if (const auto current = link())
        current->send(std::move(text));
}

void Socket::close()
{
    const auto current = link();
    if (!current)
        return;
    current->close();
    if (current->isOwnThread())
        return;
    const Lock lock(m_mutex);
    if (m_link == current)
        m_link.reset();
}

bool Socket::isOwnThread() const
{
    const auto current = link();
    return current && current->isOwnThread();
}

Clock::time_point Socket::arrival() const
{
    const auto current = link();
    return current ? current->arrival() : Clock::time_point();
}

} // namespace gtl
