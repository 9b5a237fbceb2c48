// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::array signals{SIGTERM, SIGINT};

/// The two ends of the pipe through which the handler, which may do next to nothing, wakes the
/// loop.
std::array<int, 2> wakeUpPipe{-1, -1};

void restoreDefaults() {
    for (const int number : signals)
        std::signal(number, SIG_DFL);
}

void wakeUp(int) {
    restoreDefaults();
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(wakeUpPipe[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals() {
    if (::pipe2(wakeUpPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals then end the process at once
    notifier_ = std::make_unique<QSocketNotifier>(wakeUpPipe[0], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { takeOne(); });
    for (const int number : signals)
        std::signal(number, wakeUp);
}

TerminationSignals::~TerminationSignals() {
    restoreDefaults();
    notifier_.reset();
    for (int& end : wakeUpPipe) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
}

void TerminationSignals::takeOne() {
    char byte = 0;
    if (::read(wakeUpPipe[0], &byte, 1) == 1)
        Q_EMIT received();
}

} // namespace platform
