// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Network/ClosingWebSockets.h"
#include "Platform/Network/URLError.h"

#include <QByteArray>
#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QString>
#include <QUrl>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

class QWebSocket;

namespace platform {

/// One WebSocket connection, from `resume` to its end; it is not opened twice. Belongs to the
/// thread it was made on. Made by `URLSession::webSocketTask`.
class URLSessionWebSocketTask : public std::enable_shared_from_this<URLSessionWebSocketTask> {
public:
    /// Close code of an endpoint that goes away (RFC 6455, section 7.4.1).
    static constexpr std::uint16_t goingAway = 1001;

    /// How long the opening handshake may take.
    static constexpr std::chrono::seconds handshakeTimeout{15};

    /// How long an open connection may be silent before it is asked whether it is there, and how
    /// long the answer may take: together less than 20 seconds, after which nobody should still
    /// believe what came last.
    static constexpr std::chrono::seconds silenceLimit{8};
    static constexpr std::chrono::seconds pongLimit{8};

    /// Larger messages end the connection.
    static constexpr quint64 largestMessage = 1024 * 1024;

    /// Waits for a message. On the path of every frame, so that it does without an object that
    /// listens.
    class [[nodiscard]] Receive : public Awaiter {
    public:
        explicit Receive(URLSessionWebSocketTask& task) : task_(task) {}
        ~Receive();

        bool isReady() const;
        bool suspend(Suspension waiter);
        QByteArray take();

    private:
        URLSessionWebSocketTask& task_;
        bool isWaiting_ = false;
    };

    URLSessionWebSocketTask(const QUrl& url, Clock& clock, ClosingWebSockets& closing);
    URLSessionWebSocketTask(const URLSessionWebSocketTask&) = delete;
    URLSessionWebSocketTask& operator=(const URLSessionWebSocketTask&) = delete;
    ~URLSessionWebSocketTask();

    /// Called when the other side shows that it is there otherwise than by a message: when it has
    /// taken up the connection, and at each answer to a ping. Must not destroy the task.
    void setSignOfLifeHandler(std::function<void()> handler) {
        signOfLifeHandler_ = std::move(handler);
    }

    /// Keeps at least this time between two sent messages, pings among them; those in between wait
    /// their turn. None at first.
    void setSendInterval(std::chrono::milliseconds interval) { sendInterval_ = interval; }

    /// Begins to connect and returns at once.
    void resume();

    /// Sends one text message. Before the handshake has ended it waits, and goes out in its turn.
    /// @throws URLError where the connection fails or has ended
    QFuture<void> send(const QString& text);

    /// The next message, a text as UTF-8, in the order of arrival. What arrives unasked waits. One
    /// caller at a time.
    /// @throws URLError where the connection fails or has ended and nothing is left
    Receive receive() { return Receive(*this); }

    /// Ends the connection: with a close frame of this code where it is open, else without a word.
    /// Whoever waits fails with a cancellation; what has not been received is dropped.
    void cancel(std::uint16_t closeCode);

private:
    struct WaitingText {
        QString text;
        QPromise<void> sent;
    };

    void connectSignals();
    void opened();
    void heard();
    void checkSilence();
    void sendWaiting();
    bool canSend() const;
    void write(const QString& text);
    void waitForTurn();
    void received(QByteArray message);
    void failed(const URLError& error);
    void release();
    bool isOpen() const;

    QUrl url_;
    Clock& clock_;
    ClosingWebSockets& closing_;
    std::unique_ptr<QWebSocket> socket_;
    std::unique_ptr<ClockTimer> handshakeTimer_;
    std::unique_ptr<ClockTimer> sendTimer_; ///< runs while the next message must wait
    std::chrono::milliseconds sendInterval_{0};
    bool wasOpened_ = false;
    std::chrono::nanoseconds lastHeard_{0};    ///< uptime
    std::unique_ptr<ClockTimer> silenceTimer_; ///< runs while the connection is open
    bool isPingDue_ = false;
    bool isPingOpen_ = false; ///< due, or sent and nothing heard since
    std::function<void()> signOfLifeHandler_;
    std::unique_ptr<QObject> context_;
    std::deque<WaitingText> waitingTexts_;
    std::deque<QByteArray> messages_;
    std::optional<URLError> error_;
    Suspension receiver_;
};

} // namespace platform
