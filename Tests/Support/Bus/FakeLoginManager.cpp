// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Bus/FakeLoginManager.h"

#include <QDBusConnectionInterface>
#include <QDBusUnixFileDescriptor>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace test {

namespace {

const auto name = QStringLiteral("org.freedesktop.login1");
const auto objectPath = QStringLiteral("/org/freedesktop/login1");
const auto interface = QStringLiteral("org.freedesktop.login1.Manager");

bool isOpenElsewhere(int readingEnd) {
    pollfd waiting{readingEnd, POLLIN, 0};
    return ::poll(&waiting, 1, 0) == 0;
}

} // namespace

FakeLoginManager::FakeLoginManager(const QDBusConnection& bus) : bus_(bus) {
    bus_.registerVirtualObject(objectPath, this);
    bus_.interface()->registerService(name, QDBusConnectionInterface::ReplaceExistingService,
                                      QDBusConnectionInterface::AllowReplacement);
}

FakeLoginManager::~FakeLoginManager() {
    bus_.unregisterService(name);
    bus_.unregisterObject(objectPath);
    for (const int lock : locks_)
        ::close(lock);
}

int FakeLoginManager::heldLocks() const {
    return static_cast<int>(std::ranges::count_if(locks_, isOpenElsewhere));
}

void FakeLoginManager::announce(bool isAboutToSleep) {
    auto signal =
        QDBusMessage::createSignal(objectPath, interface, QStringLiteral("PrepareForSleep"));
    bus_.send(signal << isAboutToSleep);
}

bool FakeLoginManager::handleMessage(const QDBusMessage& message, const QDBusConnection&) {
    if (message.member() != QStringLiteral("Inhibit") || message.interface() != interface) {
        ADD_FAILURE() << "Unexpected call of " << qPrintable(message.member());
        return false;
    }
    QStringList arguments;
    for (const QVariant& argument : message.arguments())
        arguments.append(argument.toString());
    requests_.append(arguments);
    switch (habit_) {
    case Habit::grant:
        grant(message);
        break;
    case Habit::refuse:
        bus_.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("No")));
        break;
    case Habit::hold:
        held_.append(message);
        break;
    }
    return true;
}

void FakeLoginManager::grantHeld() {
    for (const QDBusMessage& call : std::exchange(held_, {}))
        grant(call);
}

void FakeLoginManager::grant(const QDBusMessage& call) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        qFatal("no pipe");
    locks_.push_back(pipe[0]);
    bus_.send(call.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(pipe[1]))));
    ::close(pipe[1]);
}

} // namespace test
