// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace platform {

/// Turns SIGTERM and SIGINT into a signal of this object, once. The next one ends the process in
/// the system's way, so that a program that hangs while it stops can still be interrupted.
///
/// One at a time in a process; lives on the main thread.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    void takeOne();

    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace platform
