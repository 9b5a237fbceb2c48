// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/StreamBell.h"

#include "Platform/Async/ThreadHandOver.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

namespace platform {

namespace {

QEvent::Type ringType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace

void StreamBell::ring() {
    auto* const event = new QEvent(ringType());
    releaseToOtherThread(this);
    QCoreApplication::postEvent(this, event);
}

void StreamBell::wait(Suspension consumer) {
    Q_ASSERT_X(thread() == QThread::currentThread(), "AsyncStream", "awaited on another thread");
    Q_ASSERT_X(!consumer_, "AsyncStream", "a stream has one consumer");
    consumer_ = consumer;
}

bool StreamBell::isTurnOver() {
    constexpr unsigned itemsPerReading = 32;
    return ++itemsInTurn_ % itemsPerReading == 0 &&
           std::chrono::steady_clock::now() - turnBegan_ >= longestTurn;
}

bool StreamBell::event(QEvent* event) {
    acquireFromOtherThread(this);
    if (event->type() != ringType())
        return QObject::event(event);
    turnBegan_ = std::chrono::steady_clock::now();
    itemsInTurn_ = 0;
    // Nobody waits where the consumer was cancelled after the bell had been rung.
    if (const Suspension consumer = std::exchange(consumer_, {}))
        consumer.resume();
    return true;
}

} // namespace platform
