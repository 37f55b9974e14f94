// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/TrackerServer.h"

#include "tracker-simulator/RequestSplitter.h"

#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>

#include <array>
#include <chrono>
#include <deque>
#include <random>

namespace asio = boost::asio;
using Error = boost::system::error_code;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int toleratedHeartbeats = 3;
constexpr int longestDelayMs = 20;
constexpr int longestTornDelayMs = 2;
constexpr int mergedPackets = 4;

} // namespace

/// One connection.
class TrackerServer::Client : public std::enable_shared_from_this<TrackerServer::Client> {
public:
    Client(TrackerServer &server, asio::ip::tcp::socket socket)
        : m_server(server)
        , m_protocol(server.m_options.state)
        , m_socket(std::move(socket))
        , m_frameTimer(server.m_io)
        , m_heartTimer(server.m_io)
        , m_packetTimer(server.m_io)
        , m_random(static_cast<std::minstd_rand::result_type>(server.m_options.seed + 1))
    {
    }

    void start();

private:
    const TrackerOptions &options() const { return m_server.m_options; }

    void read();
    void takeRequests(QByteArrayView bytes);
    void watchHeartbeat();
    void pushFrames();
    void pushFrame();
    void runEvents();
    void run(const PlannedEvent &event);
    void send(const QByteArray &message);
    void write();
    std::size_t packetSize();
    std::chrono::milliseconds packetDelay();
    int randomUpTo(int greatest) { return std::uniform_int_distribution(0, greatest)(m_random); }
    void close(const QString &reason, int pauseMs = 0);

    TrackerServer &m_server;
    ProtocolSide m_protocol;
    RequestSplitter m_splitter;
    asio::ip::tcp::socket m_socket;
    asio::steady_timer m_frameTimer;
    asio::steady_timer m_heartTimer;
    asio::steady_timer m_packetTimer;
    std::minstd_rand m_random;
    std::array<char, 4096> m_received{};
    QByteArray m_waiting; ///< to be written
    QByteArray m_packet;  ///< being written
    bool m_isWriting = false;
    bool m_isClosed = false;
    bool m_isSilent = false;
    bool m_hasStopped = false;
    bool m_isPushing = false;
    qint64 m_sentFrames = 0;
    qsizetype m_nextEvent = 0;
    Clock::time_point m_frameDue;
};

void TrackerServer::Client::start()
{
    Error ignored;
    m_socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    m_server.m_tell(QStringLiteral("connected"));
    watchHeartbeat();
    read();
}

void TrackerServer::Client::read()
{
    m_socket.async_read_some(asio::buffer(m_received),
                             [self = shared_from_this()](const Error &error, std::size_t size) {
                                 if (error) {
                                     self->close(QStringLiteral("the client has gone"));
                                     return;
                                 }
                                 self->takeRequests({self->m_received.data(), static_cast<qsizetype>(size)});
                                 if (!self->m_isClosed)
                                     self->read();
                             });
}

void TrackerServer::Client::takeRequests(QByteArrayView bytes)
{
    for (const QByteArray &request : m_splitter.take(bytes)) {
        if (request.contains("\"heartbeat\"}"))
            watchHeartbeat();
        for (const QByteArray &reply : m_protocol.answer(request))
            send(reply);
    }
    if (m_protocol.isPushing() && !std::exchange(m_isPushing, m_protocol.isPushing())) {
        m_frameDue = Clock::now();
        pushFrames();
    }
    m_isPushing = m_protocol.isPushing();
}

/// Counts the time from now: called for each heartbeat.
void TrackerServer::Client::watchHeartbeat()
{
    m_heartTimer.expires_after(std::chrono::milliseconds(options().state.heartbeatIntervalMs * toleratedHeartbeats));
    m_heartTimer.async_wait([self = shared_from_this()](const Error &error) {
        if (!error)
            self->close(QStringLiteral("three heartbeats are missing"));
    });
}

// ---- frames

void TrackerServer::Client::pushFrames()
{
    constexpr double nsPerS = 1e9;
    m_frameDue += std::chrono::nanoseconds(static_cast<std::int64_t>(nsPerS / options().rateHz));
    m_frameTimer.expires_at(m_frameDue);
    m_frameTimer.async_wait([self = shared_from_this()](const Error &error) {
        if (error || self->m_isClosed || !self->m_isPushing)
            return;
        self->pushFrame();
        if (!self->m_isClosed)
            self->pushFrames();
    });
}

void TrackerServer::Client::pushFrame()
{
    runEvents();
    if (m_isClosed || m_hasStopped)
        return;
    for (const QByteArray &message : hostileMessages(options().hostilities, m_sentFrames))
        send(message);
    send(m_protocol.frame(m_server.m_frames->next()));
    ++m_sentFrames;
}

void TrackerServer::Client::runEvents()
{
    const QList<PlannedEvent> &events = options().events;
    while (!m_isClosed && m_nextEvent < events.size() && events[m_nextEvent].frame <= m_sentFrames)
        run(events[m_nextEvent++]);
}

void TrackerServer::Client::run(const PlannedEvent &event)
{
    switch (event.kind) {
    case PlannedEvent::Kind::State:
        send(m_protocol.changeTrackerState(event.value));
        break;
    case PlannedEvent::Kind::Screen:
        send(m_protocol.changeScreen(event.value));
        break;
    case PlannedEvent::Kind::Silence:
        m_isSilent = true;
        break;
    case PlannedEvent::Kind::Close:
        close(QStringLiteral("as planned"));
        break;
    case PlannedEvent::Kind::Restart:
        close(QStringLiteral("as planned"), event.value);
        break;
    case PlannedEvent::Kind::Stop:
        m_hasStopped = true;
        m_server.m_tell(QStringLiteral("stopped, frames sent: %1").arg(m_sentFrames));
        break;
    }
}

// ---- packets

void TrackerServer::Client::send(const QByteArray &message)
{
    if (m_isSilent || m_isClosed)
        return;
    m_waiting += message;
    if (!m_isWriting)
        write();
}

std::size_t TrackerServer::Client::packetSize()
{
    const auto all = static_cast<int>(m_waiting.size());
    return static_cast<std::size_t>(has(options().hostilities, Hostility::Torn) ? 1 + randomUpTo(all - 1) : all);
}

std::chrono::milliseconds TrackerServer::Client::packetDelay()
{
    int delayMs = 0;
    if (has(options().hostilities, Hostility::Torn))
        delayMs = randomUpTo(longestTornDelayMs);
    if (has(options().hostilities, Hostility::Merged)) {
        constexpr int msPerS = 1000;
        delayMs += randomUpTo(static_cast<int>(mergedPackets * msPerS / options().rateHz));
    }
    if (has(options().hostilities, Hostility::Delayed))
        delayMs += randomUpTo(longestDelayMs);
    return std::chrono::milliseconds(delayMs);
}

void TrackerServer::Client::write()
{
    m_isWriting = true;
    m_packetTimer.expires_after(packetDelay());
    m_packetTimer.async_wait([self = shared_from_this()](const Error &error) {
        if (error || self->m_isClosed)
            return;
        const auto size = static_cast<qsizetype>(self->packetSize());
        self->m_packet = self->m_waiting.left(size);
        self->m_waiting.remove(0, size);
        asio::async_write(self->m_socket, asio::buffer(self->m_packet.constData(), self->m_packet.size()),
                          [self](const Error &failure, std::size_t) {
                              if (failure) {
                                  self->close(QStringLiteral("the client has gone"));
                                  return;
                              }
                              self->m_isWriting = false;
                              if (!self->m_waiting.isEmpty())
                                  self->write();
                          });
    });
}

void TrackerServer::Client::close(const QString &reason, int pauseMs)
{
    if (std::exchange(m_isClosed, true))
        return;
    Error ignored;
    m_socket.close(ignored);
    m_frameTimer.cancel();
    m_heartTimer.cancel();
    m_packetTimer.cancel();
    m_server.m_tell(QStringLiteral("disconnected, frames sent: %1, %2").arg(m_sentFrames).arg(reason));
    m_server.clientLeft(pauseMs);
}

// ---- the server

TrackerServer::TrackerServer(asio::io_context &io, const TrackerOptions &options, std::unique_ptr<IFrameSource> frames,
                             Teller tell)
    : m_io(io)
    , m_options(options)
    , m_frames(std::move(frames))
    , m_tell(std::move(tell))
    , m_acceptor(io)
    , m_pause(io)
{
}

TrackerServer::~TrackerServer() = default;

std::optional<quint16> TrackerServer::listen()
{
    const asio::ip::tcp::endpoint place(asio::ip::address_v4::loopback(), m_options.port);
    Error error;
    m_acceptor.open(place.protocol(), error);
    m_acceptor.set_option(asio::ip::tcp::acceptor::reuse_address(true), error);
    m_acceptor.bind(place, error);
    if (!error)
        m_acceptor.listen(asio::socket_base::max_listen_connections, error);
    if (error)
        return {};
    m_options.port = m_acceptor.local_endpoint().port();
    accept();
    return m_options.port;
}

void TrackerServer::accept()
{
    m_acceptor.async_accept([this](const Error &error, asio::ip::tcp::socket socket) {
        if (error)
            return;
        m_client = std::make_shared<Client>(*this, std::move(socket));
        m_client->start();
    });
}

void TrackerServer::clientLeft(int pauseMs)
{
    m_client.reset();
    if (pauseMs == 0) {
        asio::post(m_io, [this] { accept(); });
        return;
    }
    Error ignored;
    m_acceptor.close(ignored);
    m_pause.expires_after(std::chrono::milliseconds(pauseMs));
    m_pause.async_wait([this](const Error &error) {
        if (!error && !listen())
            m_tell(QStringLiteral("port %1 is taken").arg(m_options.port));
    });
}
