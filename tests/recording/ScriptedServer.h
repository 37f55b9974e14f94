// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>

#include <array>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// A server on a free port that keeps what it is sent and says what the test tells it to. Rules answer by themselves.
class ScriptedServer {
public:
    ScriptedServer() : m_acceptor(m_io, {boost::asio::ip::address_v4::loopback(), 0}), m_socket(m_io)
    {
        accept();
        m_thread = std::thread([this] { m_io.run(); });
    }
    ~ScriptedServer()
    {
        m_io.stop();
        m_thread.join();
    }
    ScriptedServer(const ScriptedServer &) = delete;
    ScriptedServer &operator=(const ScriptedServer &) = delete;

    std::string port() const { return std::to_string(m_acceptor.local_endpoint().port()); }

    /// Each time that the request comes it gets the reply. An empty reply closes the connection.
    void answer(std::string request, std::string reply)
    {
        const std::lock_guard lock(m_mutex);
        m_rules.emplace_back(std::move(request), std::move(reply));
    }

    void send(std::string text)
    {
        boost::asio::post(m_io, [this, text = std::move(text)] {
            boost::system::error_code ignored;
            boost::asio::write(m_socket, boost::asio::buffer(text), ignored);
        });
    }

    /// Closes the connection without a word; a new one is accepted.
    void close()
    {
        boost::asio::post(m_io, [this] { endConnection(); });
    }

    /// Waits until the text has come, as often as `count` says. Returns whether it has, within half a minute.
    bool received(const std::string &text, int count = 1)
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(30), [&] { return occurrences(text) >= count; });
    }

    int countOf(const std::string &text)
    {
        const std::lock_guard lock(m_mutex);
        return occurrences(text);
    }

    std::string allReceived()
    {
        const std::lock_guard lock(m_mutex);
        return m_received;
    }

private:
    using Rule = std::pair<std::string, std::string>; ///< request and reply

    int occurrences(const std::string &text) const
    {
        int count = 0;
        for (auto at = m_received.find(text); at != std::string::npos; at = m_received.find(text, at + text.size()))
            ++count;
        return count;
    }

    void accept()
    {
        m_acceptor.async_accept(m_socket, [this](const boost::system::error_code &error) {
            if (!error)
                read();
        });
    }

    void read()
    {
        m_socket.async_read_some(boost::asio::buffer(m_buffer),
                                 [this](const boost::system::error_code &error, std::size_t size) {
                                     if (error == boost::asio::error::operation_aborted)
                                         return;
                                     if (error) {
                                         endConnection();
                                         return;
                                     }
                                     take(std::string(m_buffer.data(), size));
                                     if (m_socket.is_open())
                                         read();
                                 });
    }

    void take(const std::string &bytes)
    {
        std::vector<Rule> rules;
        {
            const std::lock_guard lock(m_mutex);
            m_received += bytes;
            rules = m_rules;
        }
        m_changed.notify_all();
        m_request += bytes;
        for (const auto *rule = firstOf(rules); rule; rule = firstOf(rules)) {
            const auto &[request, reply] = *rule;
            m_request.erase(m_request.find(request), request.size());
            if (reply.empty()) {
                endConnection();
                return;
            }
            boost::system::error_code ignored;
            boost::asio::write(m_socket, boost::asio::buffer(reply), ignored);
        }
    }

    /// Whose request stands first in what came, for answers go out in the order of requests; null for none.
    const Rule *firstOf(const std::vector<Rule> &rules) const
    {
        const Rule *first = nullptr;
        auto place = std::string::npos;
        for (const Rule &rule : rules) {
            const auto at = m_request.find(rule.first);
            if (at < place) {
                place = at;
                first = &rule;
            }
        }
        return first;
    }

    void endConnection()
    {
        if (!m_socket.is_open())
            return;
        boost::system::error_code ignored;
        m_socket.close(ignored);
        m_request.clear();
        accept();
    }

    boost::asio::io_context m_io;
    boost::asio::ip::tcp::acceptor m_acceptor;
    boost::asio::ip::tcp::socket m_socket;
    std::array<char, 65536> m_buffer{};
    std::string m_request; ///< not answered
    std::mutex m_mutex;    ///< of the three below
    std::string m_received;
    std::vector<Rule> m_rules;
    std::condition_variable m_changed;
    std::thread m_thread;
};
