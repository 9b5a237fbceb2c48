// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/URLSessionWebSocketTask.h"

#include "Platform/Foundation/StringTable.h"

#include <QRegularExpression>
#include <QWebSocket>

#include <exception>
#include <utility>

namespace platform {

using Task = URLSessionWebSocketTask;

namespace {

/// Why a connection did not come about. The toolkit names the status of a refusal in its text only.
URLError openingError(const QWebSocket& socket) {
    static const QRegularExpression statusInText(QStringLiteral("status code: (\\d{3}) "));
    const QString text = socket.errorString();
    if (const auto status = statusInText.match(text); status.hasMatch())
        return {URLError::Code::refused,
                localized("Platform", "The server refused the connection (%1).")
                    .arg(status.captured(1)),
                status.captured(1).toInt()};
    const bool wasReached = socket.error() == QAbstractSocket::RemoteHostClosedError;
    return {wasReached ? URLError::Code::connectionLost : URLError::Code::cannotConnect, text};
}

} // namespace

Task::Receive::~Receive() {
    if (isWaiting_)
        task_.receiver_ = {};
}

bool Task::Receive::isReady() const {
    return !task_.messages_.empty() || task_.error_;
}

bool Task::Receive::suspend(Suspension waiter) {
    Q_ASSERT_X(!task_.receiver_, "receive", "one caller at a time");
    task_.receiver_ = waiter;
    isWaiting_ = true;
    return true;
}

QByteArray Task::Receive::take() {
    isWaiting_ = false;
    if (task_.messages_.empty())
        throw URLError(*task_.error_);
    QByteArray message = std::move(task_.messages_.front());
    task_.messages_.pop_front();
    return message;
}

Task::URLSessionWebSocketTask(const QUrl& url, Clock& clock, ClosingWebSockets& closing)
    : url_(url),
      clock_(clock),
      closing_(closing),
      socket_(std::make_unique<QWebSocket>()),
      context_(std::make_unique<QObject>()) {
    socket_->setMaxAllowedIncomingMessageSize(largestMessage);
    socket_->setMaxAllowedIncomingFrameSize(largestMessage);
    connectSignals();
}

Task::~URLSessionWebSocketTask() {
    release();
}

void Task::connectSignals() {
    QWebSocket* const socket = socket_.get();
    QObject* const context = context_.get();
    QObject::connect(socket, &QWebSocket::connected, context, [this] { opened(); });
    QObject::connect(socket, &QWebSocket::textMessageReceived, context,
                     [this](const QString& text) { received(text.toUtf8()); });
    QObject::connect(socket, &QWebSocket::binaryMessageReceived, context,
                     [this](const QByteArray& bytes) { received(bytes); });
    QObject::connect(socket, &QWebSocket::pong, context, [this] {
        heard();
        if (signOfLifeHandler_)
            signOfLifeHandler_();
    });
    // Which of the two comes first depends on what went wrong.
    QObject::connect(socket, &QWebSocket::disconnected, context, [this] {
        if (wasOpened_)
            failed({URLError::Code::connectionClosed,
                    localized("Platform", "The connection was closed.")});
        else
            failed(openingError(*socket_));
    });
    QObject::connect(
        socket, qOverload<QAbstractSocket::SocketError>(&QWebSocket::error), context,
        [this](QAbstractSocket::SocketError) {
            failed(wasOpened_ ? URLError(URLError::Code::connectionLost, socket_->errorString())
                              : openingError(*socket_));
        });
}

void Task::resume() {
    handshakeTimer_ = clock_.startTimer(handshakeTimeout, [this] {
        failed({URLError::Code::timedOut, localized("Platform", "The connection timed out.")});
    });
    socket_->open(url_);
}

bool Task::isOpen() const {
    return socket_ && socket_->state() == QAbstractSocket::ConnectedState && !error_;
}

bool Task::canSend() const {
    return isOpen() && !sendTimer_;
}

QFuture<void> Task::send(const QString& text) {
    if (error_)
        return QtFuture::makeExceptionalFuture(std::make_exception_ptr(URLError(*error_)));
    WaitingText waiting{.text = text, .sent = {}};
    waiting.sent.start();
    QFuture<void> sent = waiting.sent.future();
    waitingTexts_.push_back(std::move(waiting));
    sendWaiting();
    return sent;
}

void Task::write(const QString& text) {
    waitForTurn();
    socket_->sendTextMessage(text);
}

void Task::waitForTurn() {
    if (sendInterval_.count() == 0)
        return;
    sendTimer_ = clock_.startTimer(sendInterval_, [this] {
        sendTimer_.reset();
        sendWaiting();
    });
}

void Task::opened() {
    wasOpened_ = true;
    handshakeTimer_.reset();
    heard();
    silenceTimer_ = clock_.startTimer(silenceLimit, [this] { checkSilence(); });
    if (signOfLifeHandler_)
        signOfLifeHandler_();
    sendWaiting();
}

void Task::heard() {
    lastHeard_ = clock_.uptime();
    isPingOpen_ = isPingDue_ = false;
}

void Task::checkSilence() {
    const auto silence = clock_.uptime() - lastHeard_;
    if (silence < silenceLimit) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(silenceLimit - silence);
        silenceTimer_ = clock_.startTimer(left, [this] { checkSilence(); });
        return;
    }
    if (isPingOpen_) {
        failed({URLError::Code::timedOut, localized("Platform", "The connection timed out.")});
        return;
    }
    isPingOpen_ = isPingDue_ = true;
    silenceTimer_ = clock_.startTimer(pongLimit, [this] { checkSilence(); });
    sendWaiting();
}

void Task::sendWaiting() {
    if (canSend() && isPingDue_) {
        isPingDue_ = false;
        waitForTurn();
        socket_->ping();
    }
    while (canSend() && !waitingTexts_.empty()) {
        WaitingText next = std::move(waitingTexts_.front());
        waitingTexts_.pop_front();
        if (next.sent.isCanceled())
            continue; // who wanted it sent has gone
        write(next.text);
        next.sent.finish();
    }
}

void Task::received(QByteArray message) {
    heard();
    messages_.push_back(std::move(message));
    if (const Suspension receiver = std::exchange(receiver_, {}))
        receiver.resume();
}

void Task::failed(const URLError& error) {
    if (error_)
        return;
    const auto keptAlive = shared_from_this();
    error_ = error;
    release();
    for (WaitingText& unsent : std::exchange(waitingTexts_, {})) {
        unsent.sent.setException(std::make_exception_ptr(URLError(*error_)));
        unsent.sent.finish();
    }
    if (const Suspension receiver = std::exchange(receiver_, {}))
        receiver.resume();
}

void Task::cancel(std::uint16_t closeCode) {
    if (error_)
        return;
    messages_.clear();
    if (isOpen()) {
        context_.reset();
        closing_.close(std::move(socket_), closeCode);
    }
    failed({URLError::Code::cancelled, localized("Platform", "The connection was cancelled.")});
}

void Task::release() {
    handshakeTimer_.reset();
    silenceTimer_.reset();
    sendTimer_.reset();
    context_.reset();
    if (!socket_)
        return;
    socket_->abort();
    closing_.discard(std::move(socket_));
}

} // namespace platform
